#include "statement/print_dialog.h"

#include <QPrintDialog>
#include <QPrinter>

using namespace Qt::StringLiterals;

void PreparePrintDialog(QPrintDialog& dialog)
{
    dialog.setWindowTitle(u"Drucken"_s);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    // The dialog shows its range frame again whatever its options say; below a hidden parent it
    // stays away.
    if (auto* range = dialog.findChild<QWidget*>(u"gbPrintRange"_s)) {
        auto* hidden = new QWidget(&dialog);
        hidden->hide();
        range->setParent(hidden);
    }
}

bool AskForPrinter(QPrinter& printer, QWidget* window)
{
    QPrintDialog dialog(&printer, window);
    PreparePrintDialog(dialog);
    return dialog.exec() == QDialog::Accepted;
}
