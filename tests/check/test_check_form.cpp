// The check report in its window: what it says about the example clubs, where its links lead, and
// what the button "Mehr" says before anybody opens it.
#include "check/check_form.h"

#include "check/check.h"
#include "check/check_layout.h"
#include "controls/fields.h"
#include "members/member_fields_form.h"
#include "report/report_text.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Example {
    const char* name;
    QDate today;
};

const Example examples[] { { "contacts", { 2017, 11, 20 } },
    { "contacts-missing", { 2016, 11, 20 } }, { "first-year", { 2016, 11, 20 } },
    { "gaps", { 2017, 11, 20 } }, { "large-club", { 2018, 11, 20 } },
    { "ledger-minus", { 2017, 11, 20 } }, { "new-member", { 2018, 11, 20 } },
    { "no-ledger-yet", { 2017, 11, 20 } }, { "old-ledger", { 2016, 11, 20 } },
    { "ordinary-year", { 2017, 11, 20 } }, { "prepayment", { 2017, 11, 20 } },
    { "year-change", { 2017, 1, 5 } } };

QString ReportOf(const TestClub& club)
{
    const CheckSource source = CheckSourceOf(club.program);
    return TextOfReport(LayOutCheck(RunCheck(source), source.LoadedYear, source.Today, {}));
}

/// Fills the data directory with the club that ./run beispiel shows, as it looks on that day.
void MakeBeispiel(const TestClub& club, const QDate& day)
{
    if (QProcess::execute(QStringLiteral(PARZELLO_ROOT "/scripts/make-example"),
            { club.Path({}), day.toString(Qt::ISODate) })
        != 0)
        qFatal("no example club");
}

QString FixtureText(const QString& name)
{
    QFile file(QStringLiteral(PARZELLO_FIXTURES "/check/") + name + u".txt"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

struct Open : TestClub {
    Open()
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
        ShowCheckReport(program);
    }
    QTextBrowser* Text() const { return Control<QTextBrowser>("ReportText"); }
    QString Shown() const { return Text()->toPlainText(); }

    /// Clicks the link whose text begins so.
    bool Follow(const QString& text)
    {
        QTextCursor cursor = Text()->document()->find(text);
        cursor.setPosition(cursor.selectionStart() + 1);
        const QString address = cursor.charFormat().anchorHref();
        if (address.isEmpty())
            return false;
        Q_EMIT Text()->anchorClicked(QUrl(address));
        return true;
    }
    QWidget* Focus() const { return program.Window.Window->focusWidget(); }
};

} // namespace

class TestCheckForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_club_to_try_shows_one_of_each_whatever_the_day_data()
    {
        QTest::addColumn<QDate>("day");
        for (const QDate& day : { QDate(2026, 1, 1), QDate(2026, 1, 2), QDate(2026, 3, 16),
                 QDate(2026, 7, 1), QDate(2026, 11, 22), QDate(2026, 12, 31), QDate(2028, 2, 29) })
            QTest::newRow(qPrintable(day.toString(Qt::ISODate))) << day;
    }

    void the_club_to_try_shows_one_of_each_whatever_the_day()
    {
        QFETCH(QDate, day);
        TestClub club;
        MakeBeispiel(club, day);
        club.Start(day);
        QCOMPARE(club.BoxTexts(), QStringList());
        const CheckResult result = RunCheck(CheckSourceOf(club.program));
        QStringList found;
        for (const Finding& finding : result.All)
            found += finding.id + u": "_s + finding.sentence;
        QVERIFY2(result.Errors == 1 && result.Warnings == 1 && result.Hints == 1,
            qPrintable(found.join(u'\n')));
        for (const QString& id : { u"C22a"_s, u"C26a"_s, u"C47c"_s })
            QVERIFY2(found.filter(id).size() == 1, qPrintable(found.join(u'\n')));
    }

    void the_report_about_an_example_club_is_as_expected_data()
    {
        QTest::addColumn<const Example*>("example");
        for (const Example& example : examples)
            QTest::newRow(example.name) << &example;
    }

    void the_report_about_an_example_club_is_as_expected()
    {
        QFETCH(const Example*, example);
        const QString name = QString::fromLatin1(example->name);
        TestClub club;
        club.CopyExample(name);
        club.Start(example->today);
        const QString report = ReportOf(club);
        const QStringList lines = report.split(u'\n');
        const QStringList expected = FixtureText(name).split(u'\n');
        for (qsizetype line = 0; line < qMin(lines.size(), expected.size()); ++line)
            QCOMPARE(lines[line], expected[line]);
        QCOMPARE(lines.size(), expected.size());
    }

    void the_window_has_the_same_lines_as_the_report()
    {
        const Open club;
        QCOMPARE(club.Shown() + u'\n', ReportOf(club));
        QCOMPARE(club.Control<QWidget>("ReportWindow")->windowTitle(),
            u"Prüfbericht 2017 – Kleingarten Parzello"_s);
    }

    void the_button_says_how_many_errors_there_are()
    {
        const Open club;
        const auto* more = club.Control<QPushButton>("More");
        QCOMPARE(TintOf(more), TintKind::Wrong);
        QCOMPARE(more->toolTip(), u"Der Prüfbericht hat 2 Fehler gefunden (F9)"_s);
    }

    void the_button_is_calm_again_when_all_is_well()
    {
        Open club;
        club.Write(u"Config1.ini"_s,
            club.Read(u"Config1.ini"_s)
                .replace("DE00 1234 5678 0000 4711 00", "DE06 0000 0000 0000 0047 11"));
        club.Write(u"Config.ini"_s,
            club.Read(u"Config.ini"_s).replace("Vorauszahlung Wasser=0", "Vorauszahlung Wasser=1"));
        QTest::mouseClick(club.Control<QPushButton>("Command4"), Qt::LeftButton);
        const auto* more = club.Control<QPushButton>("More");
        QCOMPARE(TintOf(more), TintKind::None);
        QCOMPARE(more->toolTip(), u"Prüfbericht und weitere Werkzeuge (F10)"_s);
        const QString shown = club.Shown();
        QVERIFY2(shown.contains(u"Nichts gefunden. Geprüft: 8 Mitglieder, 8 Abrechnungen, 2 "
                                "Konten, 51 Regeln."_s),
            qPrintable(shown));
    }

    void a_save_is_seen_at_once()
    {
        Open club;
        QVERIFY(club.Shown().contains(u"(C34)"_s));
        club.program.Window.SSTab1->setCurrentIndex(3);
        club.Control<QLineEdit>("Text6(1)")->setText(u"DE06 0000 0000 0000 0047 11"_s);
        QTest::mouseClick(club.Control<QPushButton>("Command7"), Qt::LeftButton);
        QVERIFY(!club.Shown().contains(u"(C34)"_s));
        QCOMPARE(club.Control<QPushButton>("More")->toolTip(),
            u"Der Prüfbericht hat 1 Fehler gefunden (F9)"_s);
    }

    void a_link_leads_to_the_field()
    {
        Open club;
        QVERIFY(club.Follow(u"Die IBAN"_s));
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 3);
        QCOMPARE(club.Focus(), club.Control<QWidget>("Text6(1)"));
    }

    void a_link_leads_to_the_member_and_his_reading()
    {
        Open club;
        club.Control<QLineEdit>("Text1(1)")->clear();
        QTest::mouseClick(club.Control<QPushButton>("Command2"), Qt::LeftButton);
        SelectMember(club.program, 4);
        QVERIFY(club.Shown().contains(u"Endstand Strom fehlt; abgerechnet werden 0 kWh. (C14a)"_s));
        QVERIFY(club.Follow(u"Platz 1, Krüger, Heinz"_s));
        QCOMPARE(club.program.Member.CurrentMember, qint16(0));
        QCOMPARE(club.Focus(), club.Control<QWidget>("Text1(1)"));
    }

    void what_is_typed_and_not_saved_is_told_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("says");
        const auto row = [](const char* control, const QString& what) {
            QTest::newRow(control) << QString::fromLatin1(control) << what;
        };
        row("Text3(2)", u"Angaben von Krüger, Heinz"_s);
        row("Text1(4)", u"Zählerstände von Krüger, Heinz"_s);
        row("Text4(3)", u"Preise und Termine"_s);
        row("Text6(0)", u"Bank und Namen"_s);
    }

    void what_is_typed_and_not_saved_is_told()
    {
        QFETCH(QString, control);
        QFETCH(QString, says);
        Open club;
        club.Control<QLineEdit>(qPrintable(control))->setText(u"77"_s);
        ShowCheckReport(club.program);
        const QString sentence = u"Noch nicht gespeichert: %1."_s.arg(says);
        QVERIFY2(club.Shown().contains(sentence), qPrintable(club.Shown()));
        club.Control<QPushButton>("Command6")->setFocus();
        QVERIFY(club.Follow(sentence));
        QCOMPARE(club.Focus(), club.Control<QWidget>(qPrintable(control)));
        QCOMPARE(club.Control<QLineEdit>(qPrintable(control))->text(), u"77"_s);
    }

    void unsaved_bookings_are_told()
    {
        Open club;
        club.program.CashBook.Bank.Unsaved = true;
        ShowCheckReport(club.program);
        QVERIFY(club.Shown().contains(u"Noch nicht gespeichert: Buchungen im Konto."_s));
    }

    void long_lists_end_in_a_link_that_shows_them_whole()
    {
        TestClub club;
        club.CopyExample(u"large-club"_s);
        club.Start({ 2018, 11, 20 });
        ShowCheckReport(club.program);
        auto* text = club.Control<QTextBrowser>("ReportText");
        QVERIFY(text->toPlainText().contains(u"und 12 weitere"_s));
        QUrl url;
        url.setPath(LinkAddress(ShowAllLink(u"C17aStrom"_s)));
        Q_EMIT text->anchorClicked(url);
        QVERIFY(!text->toPlainText().contains(u"und 12 weitere"_s));
        QVERIFY(text->toPlainText().contains(u"und 8 weitere"_s));
    }

    void the_report_writes_nothing_and_asks_nothing()
    {
        Open club;
        const QDir folder(club.program.Files.DataDirectory);
        const QStringList before = folder.entryList(QDir::Files);
        club.Boxes.clear();
        ShowCheckReport(club.program);
        QCOMPARE(folder.entryList(QDir::Files), before);
        QVERIFY(club.Boxes.isEmpty());
    }
};

Q_DECLARE_METATYPE(const Example*)

const TestFile<TestCheckForm> test_file(__FILE__);
#include "test_check_form.moc"
