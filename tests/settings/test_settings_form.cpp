// What stands on the tab "Einstellungen", its marks and the names it offers.
#include "tests/support/settings_club.h"

#include "controls/fields.h"
#include "tests/support/test_file.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>

namespace {

QString CaptionOf(const QWidget* field)
{
    const auto captions = field->parentWidget()->findChildren<QLabel*>();
    for (const QLabel* caption : captions) {
        if (caption->buddy() == field)
            return caption->text();
    }
    return {};
}

QString FrameOf(const QWidget* control)
{
    for (const QWidget* widget = control; widget != nullptr; widget = widget->parentWidget()) {
        if (const auto* frame = qobject_cast<const QGroupBox*>(widget))
            return frame->title();
    }
    return {};
}

} // namespace

class TestSettingsForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // What stands on the tab

    void captions_and_frames_are_the_programs()
    {
        SettingsClub club;
        club.Open();
        const QStringList prices { QStringLiteral("Stromkosten pro KWh Mitglieder"),
            QStringLiteral("Wasserkosten pro m³"), QStringLiteral("Energiepauschale"),
            QStringLiteral("Mitgliedsbeitrag"), QStringLiteral("Pacht pro m²"),
            QStringLiteral("Grundsteuern (GS)A "), QStringLiteral("Flächenbeitrag"),
            QStringLiteral("Reparaturumlage"), QStringLiteral("Einzuzahlen bis Spätestens") };
        for (int i = 0; i <= 8; ++i) {
            QCOMPARE(CaptionOf(club.Price(i)), prices[i]);
            QCOMPARE(FrameOf(club.Price(i)), QStringLiteral("Kosten"));
        }
        QCOMPARE(CaptionOf(club.Control<QLabel>("Label7")), QStringLiteral("Abrechnungsdatum"));
        QCOMPARE(club.Control<QCheckBox>("Check1")->text(), QStringLiteral("Vorauszahlung Strom"));
        QCOMPARE(club.Control<QCheckBox>("Check2")->text(), QStringLiteral("Vorauszahlung Wasser"));

        const QStringList bank { QStringLiteral("Bankname"), QStringLiteral("IBAN"),
            QStringLiteral("BIC"), QStringLiteral("Name1"), QStringLiteral("Name2"),
            QStringLiteral("Name") };
        const QString connection = QStringLiteral("Bankverbindung");
        const QString contacts = QStringLiteral("Ansprechpartner");
        const QString treasurer = QStringLiteral("Kassenwart");
        const QStringList frames { connection, connection, connection, contacts, contacts,
            treasurer };
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(CaptionOf(club.Bank(i)), bank[i]);
            QCOMPARE(FrameOf(club.Bank(i)), frames[i]);
        }
        QCOMPARE(CaptionOf(club.Control<QComboBox>("C1")), QStringLiteral("Anrede"));
        QCOMPARE(FrameOf(club.Control<QComboBox>("C1")), treasurer);

        QCOMPARE(club.Control<QPushButton>("Command5")->text(), QStringLiteral("Speichern"));
        QCOMPARE(FrameOf(club.Control<QPushButton>("Command5")), QStringLiteral("Kosten"));
        QCOMPARE(club.Control<QPushButton>("Command7")->text(), QStringLiteral("Speichern"));
    }

    void the_salutation_offers_two_texts_and_takes_any()
    {
        SettingsClub club;
        club.Open();
        auto* salutation = club.Control<QComboBox>("C1");
        QCOMPARE(salutation->count(), 2);
        QCOMPARE(salutation->itemText(0), QStringLiteral("Frau"));
        QCOMPARE(salutation->itemText(1), QStringLiteral("Herr"));
        QCOMPARE(salutation->currentText(), QStringLiteral("Frau"));
        Type(salutation->lineEdit(), QStringLiteral("Her"));
        QCOMPARE(salutation->currentText(), QStringLiteral("Her")); // nothing completes it
        QTest::keyClick(salutation->lineEdit(), Qt::Key_Return);
        QCOMPARE(salutation->count(), 2); // and nothing is added to the list
    }

    void the_heading_names_the_year()
    {
        SettingsClub club;
        club.Open(2016);
        QCOMPARE(
            club.Control<QLabel>("Label4")->text(), QStringLiteral("Preise für das Jahr 2016"));
    }

    void the_calendars_speak_german_and_begin_with_monday()
    {
        SettingsClub club;
        club.Open();
        for (const char* name : { "Calendar1", "Calendar2" }) {
            const auto* calendar = club.Control<QCalendarWidget>(name);
            QCOMPARE(calendar->locale().language(), QLocale::German);
            QCOMPARE(calendar->firstDayOfWeek(), Qt::Monday);
            QCOMPARE(calendar->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
        }
    }

    void every_input_has_a_name_of_its_own_for_screen_readers()
    {
        SettingsClub club;
        club.Open();
        const QWidget* tab = club.program.Window.SSTab1->widget(SettingsTab);
        QStringList names;
        const auto widgets = tab->findChildren<QWidget*>();
        for (const QWidget* widget : widgets) {
            const bool is_input = qobject_cast<const QLineEdit*>(widget) != nullptr
                || qobject_cast<const QComboBox*>(widget) != nullptr
                || qobject_cast<const QAbstractButton*>(widget) != nullptr
                || qobject_cast<const QCalendarWidget*>(widget) != nullptr;
            const bool is_part_of_an_input = qobject_cast<const QSpinBox*>(widget->parent())
                || qobject_cast<const QTableView*>(widget->parent());
            if (!is_input || is_part_of_an_input)
                continue;
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const QString says = widget->accessibleName().isEmpty() && button != nullptr
                ? button->text()
                : widget->accessibleName();
            QVERIFY2(!says.isEmpty(), qPrintable(widget->objectName()));
            QVERIFY2(!names.contains(says), qPrintable(says));
            names += says;
        }
        QVERIFY(names.size() >= 22);
    }

    void the_tab_key_goes_through_the_fields_in_reading_order()
    {
        SettingsClub club;
        club.Open();
        const QStringList expected { QStringLiteral("Text4(0)"), QStringLiteral("Text4(1)"),
            QStringLiteral("Text4(2)"), QStringLiteral("Text4(3)"), QStringLiteral("Text4(4)"),
            QStringLiteral("Text4(5)"), QStringLiteral("Text4(6)"), QStringLiteral("Text4(7)"),
            QStringLiteral("Check1"), QStringLiteral("Check2"), QStringLiteral("Calendar1"),
            QStringLiteral("Calendar2"), QStringLiteral("Command5"), QStringLiteral("Text6(0)"),
            QStringLiteral("Text6(1)"), QStringLiteral("Text6(2)"), QStringLiteral("C1"),
            QStringLiteral("Text6(5)"), QStringLiteral("Text6(3)"), QStringLiteral("Text6(4)"),
            QStringLiteral("Command7") };
        QStringList met;
        const QWidget* first = club.Price(0);
        const QWidget* widget = first;
        do {
            if (expected.contains(widget->objectName()))
                met += widget->objectName();
            widget = widget->nextInFocusChain();
        } while (widget != first);
        QCOMPARE(met, expected);
        QCOMPARE(club.Price(8)->focusPolicy(), Qt::NoFocus);
    }

    void nobody_scrolls_sideways_in_a_small_window_with_large_letters()
    {
        const QFont normal = QApplication::font();
        QFont large = normal;
        large.setPointSize(16);
        QApplication::setFont(large);
        Program program; // the tab alone: the other tabs have widths of their own
        QScrollArea page;
        auto* tab = new QWidget;
        page.setWidgetResizable(true);
        page.setWidget(tab);
        BuildSettingsTab(program, tab);
        page.resize(1000, 560);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        const QScrollArea* scroll = &page;
        QCOMPARE(scroll->horizontalScrollBar()->maximum(), 0);
        QVERIFY(scroll->verticalScrollBar()->maximum() > 0);
        const SettingsForm& form = program.SettingsTab;
        const auto top = [scroll](const QWidget* control) {
            return control->mapTo(scroll->widget(), QPoint()).y();
        };
        QVERIFY(top(form.Text6[0]) > top(form.Command5));
        QVERIFY(top(form.Label7) > top(form.Check2));
        page.resize(2500, 560);
        QVERIFY(top(form.Text6[0]) < top(form.Text4[1]));
        QVERIFY(top(form.Label7) < top(form.Text4[1]));
        QApplication::setFont(normal);
    }

    // Marks

    void what_differs_from_the_saved_texts_is_tinted_and_marked()
    {
        SettingsClub club;
        club.OpenWithData();
        const auto* prices_mark = club.Control<QLabel>("PricesMark");
        const auto* bank_mark = club.Control<QLabel>("BankMark");
        QVERIFY(prices_mark->isHidden());
        QVERIFY(bank_mark->isHidden());
        QCOMPARE(prices_mark->text(), QStringLiteral("Nicht gespeichert"));

        Type(club.Price(1), QStringLiteral("2,50"));
        QCOMPARE(TintOf(club.Price(1)), TintKind::Unsaved);
        QCOMPARE(TintOf(club.Price(0)), TintKind::None);
        QVERIFY(!prices_mark->isHidden());
        QVERIFY(bank_mark->isHidden());
        Type(club.Price(1), QStringLiteral("zwei"));
        QCOMPARE(TintOf(club.Price(1)), TintKind::Wrong);
        Type(club.Price(1), QStringLiteral("2,20"));
        QCOMPARE(TintOf(club.Price(1)), TintKind::None);
        QVERIFY(prices_mark->isHidden());

        Type(club.Bank(2), QStringLiteral("X"));
        QCOMPARE(TintOf(club.Bank(2)), TintKind::Unsaved);
        QVERIFY(!bank_mark->isHidden());
        club.Control<QPushButton>("Command7")->click();
        QCOMPARE(TintOf(club.Bank(2)), TintKind::None);
        QVERIFY(bank_mark->isHidden());
    }

    void boxes_dates_and_salutation_are_marked_too_until_they_are_saved()
    {
        SettingsClub club;
        club.OpenWithData();
        const auto* prices_mark = club.Control<QLabel>("PricesMark");
        club.Control<QCheckBox>("Check2")->click();
        QCOMPARE(TintOf(club.Control<QCheckBox>("Check2")), TintKind::Unsaved);
        club.Control<QCheckBox>("Check2")->click();
        QVERIFY(prices_mark->isHidden());
        PickPaymentDeadline(club.program, QDate(2017, 12, 24));
        PickBillingDate(club.program, QDate(2017, 12, 1));
        QCOMPARE(TintOf(club.Price(8)), TintKind::Unsaved);
        QCOMPARE(TintOf(club.Control<QLabel>("Label7")), TintKind::Unsaved);
        QVERIFY(!prices_mark->isHidden());
        club.Control<QPushButton>("Command5")->click();
        QCOMPARE(TintOf(club.Price(8)), TintKind::None);
        QVERIFY(prices_mark->isHidden());

        auto* salutation = club.Control<QComboBox>("C1");
        QTest::keyClick(salutation, Qt::Key_Down);
        QCOMPARE(TintOf(salutation->lineEdit()), TintKind::Unsaved);
        QVERIFY(!club.Control<QLabel>("BankMark")->isHidden());
    }

    void a_date_that_is_to_be_updated_is_tinted()
    {
        SettingsClub club;
        club.CopyExample(QStringLiteral("year-change"));
        club.Open();
        QCOMPARE(TintOf(club.Price(8)), TintKind::Wrong);
        QCOMPARE(TintOf(club.Control<QLabel>("Label7")), TintKind::Wrong);
        PickPaymentDeadline(club.program, QDate(2017, 12, 20));
        QCOMPARE(TintOf(club.Price(8)), TintKind::Unsaved);
    }

    // Contacts

    void contacts_complete_from_the_name_list()
    {
        SettingsClub club;
        club.OpenWithData();
        const QStringList names { QStringLiteral("Meier,Anna"), QStringLiteral("Sommer,Käthe") };
        club.program.Members.NameList = names;
        OfferContactNames(club.program);
        for (int i = 3; i <= 4; ++i) {
            QCompleter* completer = club.Bank(i)->completer();
            QVERIFY(completer != nullptr);
            completer->setCompletionPrefix(QStringLiteral("somm"));
            QCOMPARE(completer->completionCount(), 1);
            QCOMPARE(completer->currentCompletion(), names[1]);
        }
        QCOMPARE(club.Bank(5)->completer(), nullptr);
        QVERIFY(club.program.Settings.SettingsSaved);
        Q_EMIT club.Bank(3)->completer()->activated(names[0]); // chosen from the list
        QVERIFY(!club.program.Settings.SettingsSaved);
    }

    void a_click_on_speichern_while_names_are_offered_presses_it()
    {
        SettingsClub club;
        club.OpenWithData();
        club.program.Members.NameList = { QStringLiteral("Meier,Anna") };
        OfferContactNames(club.program);
        club.program.Window.SSTab1->setCurrentIndex(SettingsTab);
        club.program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        auto* contact = club.Bank(4);
        contact->setFocus();
        contact->selectAll();
        QTest::keyClicks(contact, QStringLiteral("mei"));
        QWidget* names = contact->completer()->popup();
        QVERIFY(names->isVisible());
        auto* save = club.Control<QPushButton>("Command7");
        for (QWidget* parent = save->parentWidget(); parent != nullptr;
             parent = parent->parentWidget()) {
            if (auto* scroll = qobject_cast<QScrollArea*>(parent))
                scroll->ensureWidgetVisible(save);
        }
        const QPoint button
            = save->mapToGlobal(QPoint(save->width() / 2, save->height() - 3)); // below the names
        QVERIFY(!names->geometry().contains(button));
        QTest::mouseClick(names, Qt::LeftButton, {}, names->mapFromGlobal(button));
        QTRY_COMPARE(club.BoxTexts(), QStringList { SavedBox });
        QVERIFY(!names->isVisible());
        QVERIFY(club.Read(BankFile).contains("Name2=mei\r\n"));
    }

    void a_contact_whom_the_bill_would_not_find_is_tinted()
    {
        SettingsClub club;
        club.OpenWithData();
        QCOMPARE(TintOf(club.Bank(3)), TintKind::None); // no members yet: nobody is unknown
        club.program.Members.NameList = { QStringLiteral("Meier,Anna") };
        OfferContactNames(club.program);
        QCOMPARE(TintOf(club.Bank(3)), TintKind::None);
        QCOMPARE(TintOf(club.Bank(4)), TintKind::Wrong);
        Type(club.Bank(3), QStringLiteral("Meier, Anna")); // the blank makes it another name
        QCOMPARE(TintOf(club.Bank(3)), TintKind::Wrong);
        Type(club.Bank(4), QString());
        QCOMPARE(TintOf(club.Bank(4)), TintKind::Unsaved); // nobody at all is no mistake
    }
};

const TestFile<TestSettingsForm> test_file(__FILE__);
#include "test_settings_form.moc"
