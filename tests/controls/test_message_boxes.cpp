// Message boxes and the single error box.
#include "controls/error_box.h"
#include "controls/message_boxes.h"
#include "tests/support/test_file.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

namespace {

QMessageBox* OpenBox() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

QStringList Captions(const QMessageBox* box)
{
    QStringList captions;
    for (const QAbstractButton* button : box->buttons())
        captions += button->text();
    captions.sort();
    return captions;
}

/// Shows the box and calls the routine as soon as it is open.
template <typename Routine> BoxAnswer Show(const MessageBox& box, Routine routine)
{
    QTimer::singleShot(0, qApp, [routine] { routine(OpenBox()); });
    return ShowMessageBox(nullptr, box);
}

void Press(QMessageBox* box, const QString& caption)
{
    for (QAbstractButton* button : box->buttons()) {
        if (button->text() == caption)
            return QTest::mouseClick(button, Qt::LeftButton);
    }
    QFAIL(qPrintable(caption));
}

MessageBox Box(BoxButtons buttons)
{
    MessageBox box;
    box.text = QStringLiteral("Text <b>1</b>");
    box.title = QStringLiteral("Hinweis");
    box.detail = QStringLiteral("Zusatz");
    box.buttons = buttons;
    return box;
}

} // namespace

class TestMessageBoxes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_are_shown_as_they_are()
    {
        Show(Box(BoxButtons::Ok), [](QMessageBox* box) {
            QCOMPARE(box->text(), QStringLiteral("Text <b>1</b>"));
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QCOMPARE(box->windowTitle(), QStringLiteral("Hinweis"));
            QCOMPARE(box->informativeText(), QStringLiteral("Zusatz"));
            QCOMPARE(Captions(box), QStringList { QStringLiteral("OK") });
            Press(box, QStringLiteral("OK"));
        });
    }

    void a_box_is_wide_enough_for_its_title()
    {
        MessageBox box;
        box.text = QStringLiteral("Ja");
        box.title = QStringLiteral("Kleingarten Parzello, ein langer Titel");
        Show(box, [&box](QMessageBox* shown) {
            QFont bold = shown->font();
            bold.setBold(true);
            const int title = QFontMetrics(bold).horizontalAdvance(box.title);
            QVERIFY2(shown->width() >= title + 100, qPrintable(QString::number(shown->width())));
            Press(shown, QStringLiteral("OK"));
        });
    }

    void yes_and_no_answer_what_they_say()
    {
        QCOMPARE(Show(Box(BoxButtons::YesNo),
                     [](QMessageBox* box) { Press(box, QStringLiteral("Ja")); }),
            BoxAnswer::Yes);
        QCOMPARE(Show(Box(BoxButtons::YesNo),
                     [](QMessageBox* box) { Press(box, QStringLiteral("Nein")); }),
            BoxAnswer::No);
    }

    void escape_and_the_cross_do_not_answer_a_yes_no_box()
    {
        const BoxAnswer answer = Show(Box(BoxButtons::YesNo), [](QMessageBox* box) {
            QTest::keyClick(box, Qt::Key_Escape);
            QVERIFY(box->isVisible());
            box->close();
            QVERIFY(box->isVisible());
            QCOMPARE(Captions(box), (QStringList { QStringLiteral("Ja"), QStringLiteral("Nein") }));
            Press(box, QStringLiteral("Ja"));
        });
        QCOMPARE(answer, BoxAnswer::Yes);
    }

    void escape_in_an_ok_cancel_box_is_cancel()
    {
        const BoxAnswer answer = Show(Box(BoxButtons::OkCancel), [](QMessageBox* box) {
            QCOMPARE(
                Captions(box), (QStringList { QStringLiteral("Abbrechen"), QStringLiteral("OK") }));
            QTest::keyClick(box, Qt::Key_Escape);
        });
        QCOMPARE(answer, BoxAnswer::Cancel);
        QCOMPARE(Show(Box(BoxButtons::OkCancel), [](QMessageBox* box) { box->close(); }),
            BoxAnswer::Cancel);
        QCOMPARE(Show(Box(BoxButtons::OkCancel),
                     [](QMessageBox* box) { Press(box, QStringLiteral("OK")); }),
            BoxAnswer::Ok);
    }

    void an_error_is_shown_once_per_user_action_and_never_nested()
    {
        ErrorBoxState state;
        QList<MessageBox> shown;
        const RuntimeError error { ErrorKind::TypeMismatch, {}, {} };
        AskRoutine ask = [&](const MessageBox& box) {
            shown += box;
            WithErrorBox(state, ask, [] {
                throw RuntimeError { ErrorKind::Overflow, {}, {} };
            }); // while a box is open
            return BoxAnswer::Ok;
        };
        WithErrorBox(state, ask, [&] {
            ReportError(state, ask, error);
            WithErrorBox(state, ask, [&] { throw error; });
            throw error;
        });
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown.first().title, QStringLiteral("Kleingarten Parzello"));
        QCOMPARE(shown.first().icon, BoxIcon::Error);
        QCOMPARE(shown.first().text, QStringLiteral("Laufzeitfehler 13: Typen unverträglich"));
        WithErrorBox(state, ask, [&] { throw error; });
        QCOMPARE(shown.size(), 2);
        QCOMPARE(state.Depth, 0);
    }

    void other_exceptions_are_reported_as_well()
    {
        ErrorBoxState state;
        QList<MessageBox> shown;
        const AskRoutine ask = [&](const MessageBox& box) {
            shown += box;
            return BoxAnswer::Ok;
        };
        WithErrorBox(state, ask, [] { throw std::bad_alloc(); });
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown.first().text, QStringLiteral("Nicht genügend Hauptspeicher verfügbar"));
    }
};

const TestFile<TestMessageBoxes> test_file(__FILE__);
#include "test_message_boxes.moc"
