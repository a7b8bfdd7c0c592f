#include "controls/message_boxes.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

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

BoxAnswer ShowMessageBox(QWidget* window, const MessageBox& box)
{
    AnswerBox shown(window);
    shown.setObjectName(QStringLiteral("MessageBox"));
    shown.setWindowTitle(box.title);
    shown.setTextFormat(Qt::PlainText); // a member called "<b>" must not change the box
    shown.setText(box.text);
    shown.setInformativeText(box.detail);
    shown.setIcon(QtIcon(box.icon));

    if (box.buttons == BoxButtons::YesNo) {
        shown.MustAnswer = true;
        QPushButton* yes = shown.addButton(QStringLiteral("Ja"), QMessageBox::YesRole);
        shown.addButton(QStringLiteral("Nein"), QMessageBox::NoRole);
        shown.setDefaultButton(yes);
        shown.exec();
        return shown.clickedButton() == yes ? BoxAnswer::Yes : BoxAnswer::No;
    }
    QPushButton* ok = shown.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    shown.setDefaultButton(ok);
    if (box.buttons == BoxButtons::OkCancel) {
        QPushButton* cancel = shown.addButton(QStringLiteral("Abbrechen"), QMessageBox::RejectRole);
        shown.setEscapeButton(cancel);
        shown.exec();
        return shown.clickedButton() == ok ? BoxAnswer::Ok : BoxAnswer::Cancel;
    }
    shown.setEscapeButton(ok);
    shown.exec();
    return BoxAnswer::Ok;
}
