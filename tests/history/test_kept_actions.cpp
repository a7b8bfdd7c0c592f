// Kept states put together by what the user did, the report of them, and which states a wish to
// take back means.
#include "data/rewrite_file.h"
#include "history/history_report.h"
#include "history/kept_actions.h"
#include "history/sent_out.h"
#include "history/state_report.h"
#include "history/taking_back.h"
#include "report/report_text.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString bank = u"\\Konto2026.pz"_s;
const QString cash = u"\\HandKasse2026.pz"_s;
const QString club = u"\\V.dat"_s;

struct Kept : DataFolders {
    Kept() { SetTime(u"2026-11-20 14:03"_s); }

    void SetTime(const QString& time) const
    {
        files.History->Now = [time] { return QDateTime::fromString(time, u"yyyy-MM-dd HH:mm"_s); };
    }

    void Save(const QString& name, const QByteArray& content) const
    {
        RewriteFile(files, name, content);
    }

    QList<KeptAction> Actions() const
    {
        QList<HistoryEntry> entries;
        if (ReadHistory(files, entries))
            qFatal("the history cannot be read");
        QList<KeptAction> actions = ActionsOf(entries);
        for (KeptAction& action : actions)
            TellAction(files, action);
        return actions;
    }

    QStringList Words() const
    {
        QStringList words;
        for (const KeptAction& action : Actions())
            words += action.Words;
        return words;
    }

    QStringList ReportLines(const ReportChoices& choices = {}) const
    {
        return TextOfReport(HistoryReport(files, choices)).split(u'\n', Qt::SkipEmptyParts);
    }

    void Damage(const QString& part_of_name) const
    {
        QDir folder(files.StateDirectory + u"/verlauf"_s);
        const QStringList names = folder.entryList({ u'*' + part_of_name + u'*' }, QDir::Files);
        if (names.size() != 1)
            qFatal("no such state");
        QFile state(folder.filePath(names.first()));
        if (!state.open(QIODevice::ReadWrite) || !state.resize(state.size() - 1))
            qFatal("cannot damage it");
    }
};

QStringList Written(const StatesToTake& take)
{
    QStringList states;
    for (const RedoRecord& state : take.States)
        states += state.target + u'=' + QString::fromUtf8(state.content);
    return states;
}

} // namespace

class TestKeptActions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_newest_action_comes_first_and_each_is_told()
    {
        const Kept kept;
        kept.Put(u"V.dat"_s, "Alt\r\n");
        kept.Save(club, "Neu\r\n");
        kept.Put(u"V.dat"_s, "Von Hand\r\n");
        kept.Save(club, "Neuer\r\n");
        kept.Save(club, "Neuer\r\n");
        QCOMPARE(kept.Words(),
            (QStringList { u"unverändert gespeichert"_s, u"Vereinsname: Von Hand → Neuer"_s,
                u"außerhalb des Programms geändert"_s, u"Vereinsname: Alt → Neu"_s,
                u"vorgefunden"_s }));
    }

    void files_of_one_press_are_one_action()
    {
        const Kept kept;
        kept.Put(u"V.dat"_s, "Alt\r\n");
        kept.Put(u"Konto2026.pz"_s, "1.1.26;a;1,00;0,00\r\n");
        {
            const SavingAction action(kept.files, Deed::Restored);
            kept.Save(club, "Neu\r\n");
            kept.Save(bank, "1.1.26;b;1,00;0,00\r\n");
            kept.Save(cash, "");
        }
        {
            const SavingAction action(kept.files);
            kept.Save(club, "Neuer\r\n");
            kept.Save(bank, "");
        }
        QCOMPARE(kept.Words(),
            (QStringList { u"Vereinsname: Vereinsname: Neu → Neuer; "
                           "Konto 2026: Buchung gelöscht: 1.1.26 b 1,00"_s,
                u"vom Stick wiederhergestellt: 3 Dateien"_s, u"vorgefunden: 2 Dateien"_s }));
    }

    void a_file_saved_twice_by_one_press_counts_once_from_first_to_last()
    {
        const Kept kept;
        kept.Save(club, "A\r\n");
        {
            const SavingAction action(kept.files);
            kept.Save(club, "B\r\n");
            kept.Save(club, "C\r\n");
        }
        QCOMPARE(kept.Words().first(), u"Vereinsname: A → C"_s);
    }

    void a_damaged_state_has_a_row_without_links_and_the_others_work()
    {
        const Kept kept;
        kept.Save(club, "A\r\n");
        kept.Save(club, "B\r\n");
        kept.Save(club, "C\r\n");
        kept.Damage(u"000000000002-000000000002"_s);
        QCOMPARE(kept.Words(),
            (QStringList { u"gespeichert; der Stand davor ist beschädigt"_s,
                u"beschädigt, nicht lesbar"_s, u"Vereinsname: (leer) → A"_s }));
        const QStringList lines = kept.ReportLines();
        QCOMPARE(lines.filter(u"beschädigt, nicht lesbar"_s).size(), 1);
        QVERIFY(!lines.filter(u"beschädigt, nicht lesbar"_s).first().contains(u"ansehen"_s));
        QCOMPARE(lines.filter(u"zurückholen"_s).size(), 2);
        QVERIFY(StateOfNumber(kept.files, 2).States.isEmpty());
        QCOMPARE(Written(StateOfNumber(kept.files, 1)), QStringList { u"V.dat=A\r\n"_s });
    }

    void the_report_names_day_time_file_and_links()
    {
        const Kept kept;
        kept.Save(club, "A\r\n");
        kept.SetTime(u"2026-11-21 09:05"_s);
        kept.Save(bank, "1.1.26;a;1,00;0,00\r\n2.1.26;b;2,00;0,00\r\n");
        QCOMPARE(kept.ReportLines(),
            (QStringList { u"Der Verlauf liegt auf diesem Rechner, nicht auf dem Stick und nicht "
                           "in der Datensicherung."_s,
                u"Zeigen: alles · Konto 2026 · Vereinsname"_s, u"Samstag, 21.11.2026"_s,
                u"Uhrzeit\tDatei\tWas geschah\t\t"_s,
                u"09:05\tKonto 2026\t2 Buchungen dazu\tansehen\tzurückholen"_s,
                u"Freitag, 20.11.2026"_s, u"Uhrzeit\tDatei\tWas geschah\t\t"_s,
                u"14:03\tVereinsname\tVereinsname: (leer) → A\tansehen\tzurückholen"_s,
                u"Verlauf leeren …"_s }));
    }

    void a_sum_opens_to_its_list()
    {
        const Kept kept;
        kept.Save(bank, "1.1.26;a;1,00;0,00\r\n2.1.26;b;2,00;0,00\r\n");
        ReportChoices choices;
        choices.ShownWhole.insert(u"action-1"_s);
        QVERIFY(kept.ReportLines(choices).contains(u"\t\tBuchung dazu: 2.1.26 b 2,00\t\t"_s));
    }

    void several_files_open_to_each_of_them()
    {
        const Kept kept;
        {
            const SavingAction action(kept.files, Deed::Restored);
            kept.Save(club, "A\r\n");
            kept.Save(bank, "");
        }
        QVERIFY(kept.ReportLines().contains(
            u"14:03\t2 Dateien\tvom Stick wiederhergestellt: 2 Dateien\t\tzurückholen"_s));
        ReportChoices choices;
        choices.ShownWhole.insert(u"action-1"_s);
        QVERIFY(kept.ReportLines(choices).contains(
            u"\tKonto 2026\tleer angelegt\tansehen\tzurückholen"_s));
    }

    void a_filter_shows_one_file_alone()
    {
        const Kept kept;
        kept.Save(club, "A\r\n");
        kept.Save(bank, "");
        ReportChoices choices;
        choices.Filter = HistoryKeyOf(u"V.dat"_s);
        const QStringList lines = kept.ReportLines(choices);
        QCOMPARE(lines.filter(u"14:03"_s).size(), 1);
        QVERIFY(lines.filter(u"14:03"_s).first().contains(u"Vereinsname"_s));
    }

    void a_hundred_actions_are_shown_and_a_hundred_more_at_a_time()
    {
        const Kept kept;
        for (int i = 0; i < 205; ++i)
            kept.Save(club, QByteArray::number(i));
        ReportChoices choices;
        QCOMPARE(kept.ReportLines(choices).filter(u"zurückholen"_s).size(), 100);
        QVERIFY(kept.ReportLines(choices).contains(u"ältere zeigen"_s));
        choices.ShownWhole.insert(u"page-2"_s);
        QCOMPARE(kept.ReportLines(choices).filter(u"zurückholen"_s).size(), 200);
        choices.ShownWhole.insert(u"page-3"_s);
        QCOMPARE(kept.ReportLines(choices).filter(u"zurückholen"_s).size(), 205);
        QVERIFY(!kept.ReportLines(choices).contains(u"ältere zeigen"_s));
    }

    void without_any_state_another_computer_is_named()
    {
        const Kept kept;
        const QStringList lines = kept.ReportLines();
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines[1].contains(u"von einem anderen Rechner hierher kopiert"_s));
    }

    void a_state_that_could_not_be_kept_is_said()
    {
        const Kept kept;
        kept.Save(club, "A\r\n");
        kept.files.History->Failure
            = { Fault::NoSpace, u"V.dat"_s, QDateTime({ 2026, 11, 20 }, { 15, 0 }) };
        QVERIFY(kept.ReportLines().contains(
            u"Am 20.11.2026, 15:00 Uhr konnte der Stand von „Vereinsname“ nicht aufgehoben "
            "werden: Auf dem Gerät ist kein Speicherplatz mehr verfügbar. Gespeichert wurde "
            "trotzdem."_s));
    }

    void a_history_that_cannot_be_read_is_said()
    {
        const Kept kept;
        QVERIFY(QDir().mkpath(kept.files.StateDirectory));
        QFile obstacle(kept.files.StateDirectory + u"/verlauf"_s);
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        QCOMPARE(kept.ReportLines().last(),
            u"Der Verlauf kann nicht gelesen werden: Ist kein Verzeichnis."_s);
        const DataFiles homeless { kept.files.DataDirectory, {} };
        QVERIFY(TextOfReport(HistoryReport(homeless, {})).contains(u"nicht gelesen"_s));
    }

    void what_went_out_can_be_looked_at_and_not_taken_back()
    {
        const Kept kept;
        KeepSentBills(
            kept.files, u"2026"_s, SentHow::Printed, { { 1, u"Meier,Anna"_s, u"193,53"_s } });
        QVERIFY(kept.ReportLines().contains(
            u"14:03\t\tAbrechnungen 2026: Seite 1 gedruckt\tansehen\t"_s));
        QVERIFY(StateOfNumber(kept.files, 1).States.isEmpty());
        QVERIFY(StatesOfAction(kept.files, 1).States.isEmpty());
        QVERIFY(StatesBeforeTheLast(kept.files).States.isEmpty());
    }

    void one_state_is_asked_for_by_its_time_and_file()
    {
        const Kept kept;
        kept.Save(u"\\Mitgliedsdaten2026.pz"_s, "A");
        kept.Save(u"\\Mitgliedsdaten2026.pz"_s, "B");
        const StatesToTake take = StateOfNumber(kept.files, 1);
        QCOMPARE(Written(take), QStringList { u"Mitgliedsdaten2026.pz=A"_s });
        QCOMPARE(take.Question,
            u"Soll der Stand vom 20.11.2026, 14:03 Uhr von „Mitglieder 2026“ zurückgeholt werden ? "
            "Der jetzige Stand bleibt im Verlauf."_s);
    }

    void an_action_is_taken_back_as_a_whole()
    {
        const Kept kept;
        kept.Put(u"V.dat"_s, "Alt");
        kept.Save(bank, "Alt");
        {
            const SavingAction action(kept.files, Deed::Restored);
            kept.Save(club, "Neu");
            kept.Save(bank, "Neu");
            kept.Save(cash, "Neu");
        }
        kept.Save(club, "Neuer");
        const qint64 restored = kept.Actions()[1].Number;
        QCOMPARE(Written(StatesOfAction(kept.files, restored)),
            (QStringList { u"V.dat=Neu"_s, u"Konto2026.pz=Neu"_s, u"HandKasse2026.pz=Neu"_s }));
        const StatesToTake before = StatesBeforeAction(kept.files, restored);
        QCOMPARE(Written(before), (QStringList { u"V.dat=Alt"_s, u"Konto2026.pz=Alt"_s }));
        QCOMPARE(before.Missing, QStringList { u"Handkasse 2026"_s });
        QVERIFY(before.Question.startsWith(
            u"Soll der Stand vor dem 20.11.2026, 14:03 Uhr von 2 Dateien zurückgeholt werden ?"_s));
        QVERIFY(before.Question.contains(u"Handkasse 2026 (davor nicht da"_s));
    }

    void the_last_thing_is_asked_for_by_its_own_words()
    {
        const Kept kept;
        kept.Save(club, "A");
        kept.Save(club, "B");
        KeepSentBills(kept.files, u"2026"_s, SentHow::Printed, { { 1, u"x"_s, u"1"_s } });
        const StatesToTake last = StatesBeforeTheLast(kept.files);
        QCOMPARE(Written(last), QStringList { u"V.dat=A"_s });
        QCOMPARE(last.Question,
            u"Soll „Vereinsname: A → B“ zurückgenommen werden ? Der jetzige Stand bleibt im "
            "Verlauf."_s);
    }

    void taking_back_is_an_action_and_can_be_taken_back()
    {
        const Kept kept;
        kept.Save(club, "A");
        kept.Save(club, "B");
        TakeBack(kept.files, StatesBeforeTheLast(kept.files).States);
        QCOMPARE(kept.Get(u"V.dat"_s), QByteArray("A"));
        QCOMPARE(kept.Words().first(), u"zurückgeholt: Vereinsname: B → A"_s);
        TakeBack(kept.files, StatesBeforeTheLast(kept.files).States);
        QCOMPARE(kept.Get(u"V.dat"_s), QByteArray("B"));
    }

    void a_state_is_shown_with_captions_and_what_differs_now_is_marked()
    {
        const Kept kept;
        const RedoRecord state { u"Konto2026.pz"_s, "1.1.26;a;1,00;0,00\r\n2.1.26;b;2,00;0,00\r\n",
            { 1, 1, QDateTime({ 2026, 11, 20 }, { 14, 3 }), Deed::Saved } };
        const Report report = StateReport(state, "1.1.26;a;1,00;0,00\r\n");
        QCOMPARE(TextOfReport(report).split(u'\n', Qt::SkipEmptyParts),
            (QStringList { u"Konto 2026, Stand vom 20.11.2026, 14:03 Uhr"_s,
                u"Farbig: 1 Zeile, die jetzt nicht mehr so in der Datei steht."_s,
                u"Zeile\tBuchungsdatum\tVorgang\tEinzahlung\tAbheben"_s,
                u"1\t1.1.26\ta\t1,00\t0,00"_s, u"2\t2.1.26\tb\t2,00\t0,00"_s }));
        const auto& table = std::get<ReportTable>(report.items.back());
        QVERIFY(table.rows[0].tint == RowTint::None);
        QVERIFY(table.rows[1].tint == RowTint::Attention);
    }

    void what_is_damaged_or_gone_is_not_taken_back()
    {
        const Kept kept;
        kept.Save(club, "A\r\n");
        {
            const SavingAction action(kept.files);
            kept.Save(club, "B\r\n");
            kept.Save(bank, "1.1.26;a;1,00;0,00\r\n");
        }
        QCOMPARE(Written(StateOfNumber(kept.files, 2)), QStringList { u"V.dat=B\r\n"_s });
        kept.Damage(u"000000000002-000000000002"_s);
        QVERIFY(StateOfNumber(kept.files, 2).States.isEmpty());
        QVERIFY(StateOfNumber(kept.files, 99).Question.isEmpty());
        const StatesToTake whole = StatesOfAction(kept.files, 2);
        QCOMPARE(Written(whole), QStringList { u"Konto2026.pz=1.1.26;a;1,00;0,00\r\n"_s });
        QCOMPARE(whole.Missing, QStringList { u"eine Datei"_s });
        const StatesToTake before = StatesBeforeAction(kept.files, 2);
        QCOMPARE(Written(before), QStringList { u"V.dat=A\r\n"_s });
        QCOMPARE(before.Missing, QStringList { u"Konto 2026"_s });
        kept.Damage(u"000000000001-000000000001"_s);
        QCOMPARE(StatesBeforeAction(kept.files, 2).Missing,
            (QStringList { u"eine Datei"_s, u"Konto 2026"_s }));
        QVERIFY(StatesOfAction(kept.files, 99).Question.isEmpty());
        QVERIFY(StatesBeforeAction(kept.files, 99).Question.isEmpty());
    }

    void what_went_out_has_no_state_before_it()
    {
        const Kept kept;
        KeepSentBills(kept.files, u"2026"_s, SentHow::Printed, { { 1, u"x"_s, u"1"_s } });
        QVERIFY(StatesBeforeAction(kept.files, 1).Question.isEmpty());
        QVERIFY(StatesOfAction(kept.files, 1).Question.isEmpty());
    }

    void a_history_that_cannot_be_read_gives_nothing_to_take()
    {
        const DataFiles homeless { u"/verein"_s, {} };
        QVERIFY(StateOfNumber(homeless, 1).States.isEmpty());
        QVERIFY(StatesOfAction(homeless, 1).States.isEmpty());
        QVERIFY(StatesBeforeTheLast(homeless).Question.isEmpty());
    }

    void a_file_of_another_name_is_told_once_and_in_no_filter()
    {
        const Kept kept;
        kept.Save(club, "A\r\n");
        QFile foreign(kept.files.StateDirectory + u"/verlauf/fremd"_s);
        QVERIFY(foreign.open(QIODevice::WriteOnly));
        QCOMPARE(kept.Words(),
            (QStringList { u"Vereinsname: (leer) → A"_s, u"beschädigt, nicht lesbar"_s }));
        QList<HistoryEntry> entries;
        QVERIFY(!ReadHistory(kept.files, entries));
        QCOMPARE(ActionsOf(entries, HistoryKeyOf(u"V.dat"_s)).size(), 1);
        QCOMPARE(FilesOf(kept.files, entries).size(), 1);
        QVERIFY(kept.ReportLines().contains(u"Ohne Datum"_s));
    }

    void three_files_of_one_press_are_counted()
    {
        const Kept kept;
        const SavingAction action(kept.files);
        kept.Save(club, "A\r\n");
        kept.Save(bank, "1.1.26;a;1,00;0,00\r\n");
        kept.Save(cash, "1.1.26;a;1,00;0,00\r\n");
        QCOMPARE(kept.Words(), QStringList { u"3 Dateien gespeichert"_s });
    }

    void a_link_says_what_is_to_be_done_with_which_state()
    {
        const Kept kept;
        kept.Save(club, "A\r\n");
        {
            const SavingAction action(kept.files);
            kept.Save(club, "B\r\n");
            kept.Save(bank, "1.1.26;a;1,00;0,00\r\n");
        }
        QStringList found;
        const Report report = HistoryReport(kept.files, {});
        for (const ReportItem& item : report.items) {
            if (const auto* table = std::get_if<ReportTable>(&item)) {
                for (const ReportRow& row : table->rows)
                    found += row.cells.back().text.target.control;
            } else if (const auto* sentence = std::get_if<ReportSentence>(&item)) {
                found += sentence->texts.back().target.control;
            }
        }
        QStringList deeds;
        for (const QString& control : std::as_const(found)) {
            const HistoryLink link = HistoryLinkOf(control);
            if (link.Deed != HistoryDeed::None)
                deeds += u"%1 %2"_s.arg(static_cast<int>(link.Deed)).arg(link.Number);
        }
        QCOMPARE(deeds, // all of action 2, what was before it, state 1, empty
            (QStringList { u"3 2"_s, u"4 2"_s, u"2 1"_s, u"5 0"_s }));
        QVERIFY(HistoryLinkOf(u"filter:x"_s).Deed == HistoryDeed::None);
        QVERIFY(HistoryLinkOf({}).Deed == HistoryDeed::None);
    }

    void every_kind_of_state_has_its_captions()
    {
        const HistoryMark mark { 1, 1, QDateTime({ 2026, 11, 20 }, { 14, 3 }), Deed::Saved };
        const auto text = [&mark](const char* name, const QByteArray& content) {
            return TextOfReport(
                StateReport({ QString::fromLatin1(name), content, mark }, std::nullopt));
        };
        QCOMPARE(text("V.dat", "KGV\r\n"),
            u"Vereinsname, Stand vom 20.11.2026, 14:03 Uhr\n"
            "Farbig: 1 Zeile, die jetzt nicht mehr so in der Datei steht.\n"
            "Zeile\tVereinsname\n1\tKGV\n"_s);
        QCOMPARE(text("HandKasse2026.pz", "1.1.26;a;1,00;0,00;zu;viel\r\n2.1.26\r\n"),
            u"Handkasse 2026, Stand vom 20.11.2026, 14:03 Uhr\n"
            "Farbig: 2 Zeilen, die jetzt nicht mehr so in der Datei stehen.\n"
            "Zeile\tBuchungsdatum\tVorgang\tEinzahlung\tAbheben\n"
            "1\t1.1.26\ta\t1,00\t0,00;zu;viel\n2\t2.1.26\t\t\t\n"_s);
        QVERIFY(text("Config1.ini", "[Daten]\r\nBankname=Volksbank\r\n")
                    .contains(u"\nZeile\tAngabe\tWert\n1\tBankname\tVolksbank\n"_s));
    }

    void a_line_counts_as_often_as_it_stands_in_the_file_now()
    {
        const HistoryMark mark { 1, 1, QDateTime({ 2026, 11, 20 }, { 14, 3 }), Deed::Saved };
        const Report report
            = StateReport({ u"Konto2026.pz"_s, "a\r\na\r\na\r\n", mark }, "a\r\nb\r\na\r\n");
        const auto& table = std::get<ReportTable>(report.items.back());
        QVERIFY(table.rows[1].tint == RowTint::None);
        QVERIFY(table.rows[2].tint == RowTint::Attention);
        const Report prices = StateReport(
            { u"Config.ini"_s, "[2026]\r\nPacht=1\r\n", mark }, "[2026]\r\nPacht=2\r\n");
        QVERIFY(std::get<ReportTable>(prices.items.back()).rows[0].tint == RowTint::Attention);
    }

    void bills_that_went_out_are_shown_with_page_name_and_total()
    {
        const Kept kept;
        KeepSentBills(kept.files, u"2026"_s, SentHow::Printed,
            { { 1, u"Meier,Anna"_s, u"193,53"_s }, { 3, u"Lang,Otto"_s, u"7,00"_s } });
        const std::optional<RedoRecord> state
            = ReadKept(kept.files, kept.Actions().first().Files.first().Entry);
        QCOMPARE(TextOfReport(StateReport(*state, std::nullopt)),
            u"Abrechnungen 2026: Seiten 1 und 3 gedruckt, 20.11.2026, 14:03 Uhr\n"
            "Seite\tName\tBetrag\n1\tMeier,Anna\t193,53\n3\tLang,Otto\t7,00\n"_s);
    }

    void a_state_of_prices_and_of_members_is_shown()
    {
        const HistoryMark mark { 1, 1, QDateTime({ 2026, 11, 20 }, { 14, 3 }), Deed::Saved };
        const QString prices = TextOfReport(StateReport(
            { u"Config.ini"_s, "[2026]\r\nPacht=1\r\n", mark }, "[2026]\r\nPacht=1\r\n"));
        QVERIFY(prices.contains(u"1\tPacht 2026\t1"_s));
        QVERIFY(prices.contains(u"Alles davon steht auch jetzt so in der Datei."_s));
        const QString members = TextOfReport(
            StateReport({ u"Mitgliedsdaten2026.pz"_s, "Meier;Anna\r\n", mark }, std::nullopt));
        QVERIFY(members.contains(u"Zeile\tName\tVorname\tStr./HausNr"_s));
        QVERIFY(members.contains(u"1\tMeier\tAnna\t"_s));
        QVERIFY(TextOfReport(StateReport({ u"x.xls"_s, "\1\2", mark }, std::nullopt))
                    .contains(u"2 Bytes"_s));
    }
};

const TestFile<TestKeptActions> test_file(__FILE__);
#include "test_kept_actions.moc"
