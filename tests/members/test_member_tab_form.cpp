// How the tab "Stammdaten" looks to eyes, keys and screen readers.
#include "tests/support/member_club.h"
#include "tests/support/test_file.h"

#include <QAccessible>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QString eva = u"Alt;Eva;Weg 1;12345 Ort;0123;7;300;2;1,00;2,00;3,00;4,00;100;150;20;25\r\n"_s;

QWidget* TabPage(const MemberClub& club) { return club.Names()->parentWidget()->parentWidget(); }

/// Texts in front of and behind the fields, as they are seen.
QStringList CaptionsIn(const QWidget* frame)
{
    QStringList texts;
    for (const QLabel* label : frame->findChildren<QLabel*>()) {
        if (!label->isHidden())
            texts += label->text();
    }
    return texts;
}

} // namespace

class TestMemberTabForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_frames_have_their_captions()
    {
        const MemberClub club(eva);
        QStringList titles;
        for (const QGroupBox* frame : TabPage(club)->findChildren<QGroupBox*>())
            titles += frame->title();
        QCOMPARE(QSet<QString>(titles.begin(), titles.end()),
            QSet<QString>({ u"Mitglieder Namen"_s, u"Adresse"_s, u"Zählerstände"_s, u"Strom"_s,
                u"Wasser"_s, u"Mittglieder"_s }));
    }

    void the_fields_have_their_captions_and_units()
    {
        const MemberClub club(eva);
        QCOMPARE(CaptionsIn(club.Field(0)->parentWidget()),
            QStringList(
                { u"Bitte tragen Sie hier die Mitglieder am besten nach Gartennummer ein. "_s,
                    u"Name"_s, u"Vorname"_s, u"Str./HausNr"_s, u"Plz/Ort"_s, u"Telefon"_s,
                    u"Gartennr."_s, u"Größe"_s, u"m²"_s, u"Ratenzahlung"_s, u"anzahl"_s,
                    u"Versicherungen"_s, u"Haftpflicht"_s, u"€"_s, u"Rechtschutz"_s, u"€"_s,
                    u"Unfall"_s, u"€"_s, u"Gebäude"_s, u"€"_s }));
        QCOMPARE(CaptionsIn(club.Reading(0)->parentWidget()),
            QStringList({ u"Anfangsstand"_s, u"KWh"_s, u"Endstand"_s, u"KWh"_s, u"Differenz"_s,
                u"KWh"_s }));
        QCOMPARE(CaptionsIn(club.Reading(3)->parentWidget()),
            QStringList(
                { u"Anfangsstand"_s, u"m³"_s, u"Endstand"_s, u"m³"_s, u"Differenz"_s, u"m³"_s }));
        QCOMPARE(static_cast<QGroupBox*>(club.Reading(0)->parentWidget())->title(), u"Strom"_s);
        QCOMPARE(static_cast<QGroupBox*>(club.Reading(3)->parentWidget())->title(), u"Wasser"_s);
    }

    void the_buttons_have_their_captions_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("Command14") << u"Neu Anlegen"_s;
        QTest::newRow("Command1(0)") << u"Speichern"_s;
        QTest::newRow("Command1(2)") << u"Löschen"_s;
        QTest::newRow("Command2") << u"OK"_s;
        QTest::newRow("Command4") << u"Laden"_s;
    }

    void the_buttons_have_their_captions()
    {
        QFETCH(QString, caption);
        const MemberClub club(eva);
        QCOMPARE(club.Control<QPushButton>(QTest::currentDataTag())->text(), caption);
    }

    void premiums_begin_as_zero()
    {
        TestClub club;
        BuildMainWindow(club.program);
        for (int premium = 8; premium < 12; ++premium)
            QCOMPARE(club.program.MembersTab.Text3[static_cast<std::size_t>(premium)]->text(),
                u"0,00"_s);
        QCOMPARE(club.program.MembersTab.Text3[7]->text(), QString());
    }

    void member_fields_stand_from_top_to_bottom()
    {
        const MemberClub club(eva);
        for (int field = 1; field < 12; ++field)
            QVERIFY(club.Field(field)->y() >= club.Field(field - 1)->y());
    }

    void the_tab_key_follows_the_reading_order_and_saves_before_it_deletes()
    {
        MemberClub club(eva);
        QStringList order;
        const QWidget* first = club.Control<QPushButton>("Command3(1)");
        const QWidget* widget = first;
        do {
            const bool stops = (widget->focusPolicy() & Qt::TabFocus) != 0;
            if (stops && TabPage(club)->isAncestorOf(widget) && widget->isVisibleTo(TabPage(club)))
                order += widget->objectName();
            widget = widget->nextInFocusChain();
        } while (widget != first);
        QCOMPARE(order,
            QStringList({ u"Command3(1)"_s, u"Command3(0)"_s, u"Command4"_s, u"List1"_s,
                u"Text3(0)"_s, u"Text3(1)"_s, u"Text3(2)"_s, u"Text3(3)"_s, u"Text3(4)"_s,
                u"Text3(5)"_s, u"Text3(6)"_s, u"Text3(7)"_s, u"Text3(8)"_s, u"Text3(9)"_s,
                u"Text3(10)"_s, u"Text3(11)"_s, u"Command1(0)"_s, u"Command1(2)"_s, u"Command14"_s,
                u"Text1(0)"_s, u"Text1(1)"_s, u"Text1(3)"_s, u"Text1(4)"_s, u"Command2"_s,
                u"ListView2"_s }));
    }

    void every_field_has_a_name_of_its_own_and_its_unit()
    {
        const MemberClub club(eva);
        QSet<QString> names;
        const QList<QLineEdit*> fields = TabPage(club)->findChildren<QLineEdit*>();
        for (const QLineEdit* field : fields) {
            QVERIFY2(!field->accessibleName().isEmpty(), qPrintable(field->objectName()));
            names += field->accessibleName();
        }
        QCOMPARE(fields.size(), 12 + 6 + 1 + 1); // member, readings, year, search
        QCOMPARE(names.size(), fields.size());
        QCOMPARE(club.Reading(1)->accessibleName(), u"Endstand Strom"_s);
        QCOMPARE(club.Reading(1)->accessibleDescription(), u"KWh"_s);
        QCOMPARE(club.Reading(5)->accessibleName(), u"Differenz Wasser"_s);
        QCOMPARE(club.Reading(5)->accessibleDescription(), u"m³"_s);
        QCOMPARE(club.Field(6)->accessibleDescription(), u"m²"_s);
        QCOMPARE(club.Field(11)->accessibleName(), u"Gebäude"_s);
        QCOMPARE(club.Field(11)->accessibleDescription(), u"€"_s);
        for (const char* arrow : { "Command3(0)", "Command3(1)" })
            QVERIFY(club.Control<QPushButton>(arrow)->accessibleName().startsWith(u"Ein Jahr "_s));
    }

    void enter_presses_the_button_with_the_focus()
    {
        MemberClub club(eva);
        auto* button = club.Control<QPushButton>("Command14");
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Return);
        QCOMPARE(club.program.Member.CurrentMember, -1);
    }

    void the_lists_grow_with_the_window_and_the_shown_name_stays_visible()
    {
        QString content;
        for (int k = 0; k < 200; ++k)
            content += u"Name%1;V;;;;;;;;;;;;;;\r\n"_s.arg(k);
        MemberClub club(content);
        club.program.Window.Window->resize(1024, 700);
        const int small = club.Names()->height();
        SelectMember(club.program, 150);
        const QRect shown = club.Names()->visualItemRect(club.Names()->item(150));
        QVERIFY(club.Names()->viewport()->rect().contains(shown));
        club.program.Window.Window->resize(1024, 900);
        QCoreApplication::processEvents();
        QCOMPARE(club.Names()->height(), small + 200);
    }

    void a_very_long_name_is_shown_by_its_beginning()
    {
        const QString name(30000, u'x');
        const MemberClub club(name + u";V;;;;;;;;;;;;;;\r\n"_s);
        QCOMPARE(club.ShownNames(), QStringList({ QString(300, u'x') }));
        QCOMPARE(club.Field(0)->text(), name);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), name.toLatin1() + ";V;;;;;;;;;;;;;;\r\n");
    }
};

const TestFile<TestMemberTabForm> test_file(__FILE__);
#include "test_member_tab_form.moc"
