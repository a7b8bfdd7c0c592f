#include "statement/print_dialog.h"

#include <QComboBox>
#include <QEvent>
#include <QPrintDialog>
#include <QPrinter>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Takes a part of the dialog away for good: the dialog shows its parts again whatever its options
/// say, but below a hidden parent they stay away.
void TakeAway(QPrintDialog& dialog, const QString& name)
{
    auto* part = dialog.findChild<QWidget*>(name);
    if (part == nullptr)
        return;
    auto* hidden = new QWidget(&dialog);
    hidden->hide();
    part->setParent(hidden);
}

/// A file has neither copies nor two sides, and its paper and margins are the bill's: while a file
/// is chosen these choices would do nothing.
void ShowWhatCounts(const QPrintDialog& dialog)
{
    const auto* file_name = dialog.findChild<QWidget*>(u"filename"_s);
    const auto* output = dialog.findChild<QWidget*>(u"groupBox"_s);
    if (file_name == nullptr || output == nullptr)
        return; // a dialog of another making
    const bool on_paper = !file_name->isEnabled();
    const QWidget* above = &dialog;
    for (const auto& [parent, name] : { std::pair(above, u"properties"_s),
             std::pair(above, u"duplex"_s), std::pair(output, u"label"_s),
             std::pair(output, u"copies"_s), std::pair(output, u"outputIcon"_s) }) {
        if (auto* part = parent->findChild<QWidget*>(name))
            part->setVisible(on_paper);
    }
}

/// The dialog shows its parts when it is shown itself; what does nothing goes after that.
class WhenShown : public QObject {
public:
    explicit WhenShown(QPrintDialog& dialog)
        : QObject(&dialog)
    {
        dialog.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            ShowWhatCounts(*static_cast<QPrintDialog*>(watched));
        return false;
    }
};

} // namespace

void PreparePrintDialog(QPrintDialog& dialog)
{
    dialog.setWindowTitle(u"Drucken"_s);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    for (const QString& name : { u"gbPrintRange"_s, u"collate"_s })
        TakeAway(dialog, name);
    new WhenShown(dialog);
    if (auto* printers = dialog.findChild<QComboBox*>(u"printers"_s))
        QObject::connect(printers, &QComboBox::currentIndexChanged, &dialog,
            [&dialog] { ShowWhatCounts(dialog); });
}

bool AskForPrinter(QPrinter& printer, QWidget* window)
{
    QPrintDialog dialog(&printer, window);
    PreparePrintDialog(dialog);
    return dialog.exec() == QDialog::Accepted;
}
