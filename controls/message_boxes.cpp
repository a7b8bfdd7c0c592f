#include "controls/message_boxes.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// A question that must be answered: Escape and the title bar's cross do nothing.
class AnswerBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;
    bool MustAnswer = false;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (MustAnswer && event->key() == Qt::Key_Escape)
            return;
        QMessageBox::keyPressEvent(event);
    }

    void closeEvent(QCloseEvent* event) override
    {
        if (MustAnswer) {
            event->ignore();
            return;
        }
        QMessageBox::closeEvent(event);
    }
};

/// Room for the whole title and the buttons beside it. The box alone would be as wide as its text.
void MakeAsWideAsTitle(QMessageBox& box)
{
    constexpr int beside_the_title = 120; // the desktop's icon and buttons
    QFont title = QApplication::font();
    title.setBold(true);
    const int width = QFontMetrics(title).horizontalAdvance(box.windowTitle()) + beside_the_title;
    auto* grid = static_cast<QGridLayout*>(box.layout());
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

QMessageBox::Icon QtIcon(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::None:
        return QMessageBox::NoIcon;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Error:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

} // namespace

void Tell(const AskRoutine& ask, const QString& title, const QString& text)
{
    MessageBox box;
    box.text = text;
    box.title = title;
    ask(box);
}

BoxAnswer ShowMessageBox(QWidget* window, const MessageBox& box)
{
    AnswerBox shown(window);
    shown.setObjectName(u"MessageBox"_s);
    shown.setWindowTitle(box.title);
    shown.setTextFormat(Qt::PlainText); // a member called "<b>" must not change the box
    shown.setText(box.text);
    shown.setInformativeText(box.detail);
    shown.setIcon(QtIcon(box.icon));
    MakeAsWideAsTitle(shown);

    if (box.buttons == BoxButtons::YesNo) {
        shown.MustAnswer = true;
        QPushButton* yes = shown.addButton(u"Ja"_s, QMessageBox::YesRole);
        shown.addButton(u"Nein"_s, QMessageBox::NoRole);
        shown.setDefaultButton(yes);
        shown.exec();
        return shown.clickedButton() == yes ? BoxAnswer::Yes : BoxAnswer::No;
    }
    QPushButton* ok = shown.addButton(u"OK"_s, QMessageBox::AcceptRole);
    shown.setDefaultButton(ok);
    if (box.buttons == BoxButtons::OkCancel) {
        QPushButton* cancel = shown.addButton(u"Abbrechen"_s, QMessageBox::RejectRole);
        shown.setEscapeButton(cancel);
        shown.exec();
        return shown.clickedButton() == ok ? BoxAnswer::Ok : BoxAnswer::Cancel;
    }
    shown.setEscapeButton(ok);
    shown.exec();
    return BoxAnswer::Ok;
}
