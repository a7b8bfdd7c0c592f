#include "history/history_report.h"

#include "history/file_kinds.h"
#include "history/kept_actions.h"

#include <QLocale>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString where_it_lies = u"Der Verlauf liegt auf diesem Rechner, nicht auf dem Stick und "
                              "nicht in der Datensicherung."_s;
const QString no_history
    = u"Auf diesem Rechner gibt es für diesen Ordner noch keinen Verlauf. Wurde der Ordner von "
      "einem anderen Rechner hierher kopiert, so liegt sein Verlauf dort."_s;

// The order of HistoryDeed, without None.
const std::array<QString, 5> deed_names { u"look"_s, u"take"_s, u"take_all"_s, u"take_before"_s,
    u"empty"_s };

LinkTarget LinkTo(HistoryDeed deed, qint64 number = 0)
{
    const QString& name = deed_names[static_cast<std::size_t>(deed) - 1];
    return { LinkKind::Action, name + u'-' + QString::number(number), -1 };
}

QString NameOfAction(const KeptAction& action)
{
    return u"action-"_s + QString::number(action.Number);
}

QString NameOfPage(qsizetype page) { return u"page-"_s + QString::number(page); }

// --- rows -------------------------------------------------------------------------------------

ReportRow Row(const ReportCell& time, const ReportCell& file, const ReportCell& words,
    const ReportCell& look = {}, const ReportCell& take = {})
{
    return { { time, file, words, look, take } };
}

ReportCell LookCell(const KeptFile& file)
{
    return file.IsDamaged
        ? ReportCell()
        : TextCell(u"ansehen"_s, LinkTo(HistoryDeed::Look, file.Entry.Mark.Number));
}

ReportCell TakeCell(const KeptFile& file)
{
    if (file.IsDamaged || file.Entry.Mark.How == Deed::SentOut)
        return {};
    return TextCell(u"zurückholen"_s, LinkTo(HistoryDeed::Take, file.Entry.Mark.Number));
}

QString CaptionOf(const KeptFile& file)
{
    const bool has_file = !file.IsDamaged && file.Entry.Mark.How != Deed::SentOut;
    return has_file ? FileCaption(file.Target) : QString();
}

/// The words of an action; a link that opens its list while that is closed.
ReportCell WordsCell(const KeptAction& action, bool has_list, bool is_open)
{
    return has_list && !is_open ? TextCell(action.Words, ShowAllLink(NameOfAction(action)))
                                : TextCell(action.Words);
}

void AddSingleFile(ReportTable& table, const KeptAction& action, const QString& time, bool is_open)
{
    const KeptFile& file = action.Files.first();
    table.rows.push_back(Row(TextCell(time), TextCell(CaptionOf(file)),
        WordsCell(action, !file.Words.Single.isEmpty(), is_open), LookCell(file), TakeCell(file)));
    if (!is_open)
        return;
    for (const QString& sentence : file.Words.Single)
        table.rows.push_back(Row({}, {}, TextCell(sentence)));
}

void AddSeveralFiles(
    ReportTable& table, const KeptAction& action, const QString& time, bool is_open)
{
    table.rows.push_back(Row(TextCell(time), TextCell(u"%1 Dateien"_s.arg(action.Files.size())),
        WordsCell(action, true, is_open), {},
        TextCell(u"zurückholen"_s, LinkTo(HistoryDeed::TakeAll, action.Number))));
    if (action.How != Deed::Found) {
        table.rows.push_back(Row({}, {}, {}, {},
            TextCell(
                u"Stand davor zurückholen"_s, LinkTo(HistoryDeed::TakeBefore, action.Number))));
    }
    if (!is_open)
        return;
    for (const KeptFile& file : action.Files)
        table.rows.push_back(Row({}, TextCell(CaptionOf(file)), TextCell(file.Words.Short),
            LookCell(file), TakeCell(file)));
}

ReportTable EmptyTable(const QDate& day)
{
    ReportTable table;
    table.name = day.toString(Qt::ISODate);
    for (const QString& caption : { u"Uhrzeit"_s, u"Datei"_s, u"Was geschah"_s, u""_s, u""_s })
        table.columns.push_back({ caption });
    return table;
}

QString DayText(const QDate& day)
{
    if (!day.isValid())
        return u"Ohne Datum"_s;
    return QLocale(QLocale::German).dayName(day.dayOfWeek()) + u", "_s
        + day.toString(u"dd.MM.yyyy"_s);
}

void AddActions(Report& report, const DataFiles& files, const ReportChoices& choices,
    QList<KeptAction>& actions)
{
    ReportTable table;
    std::optional<QDate> day;
    const auto finish_day = [&] {
        if (day)
            report.items.emplace_back(table);
    };
    for (KeptAction& action : actions) {
        TellAction(files, action);
        if (day != action.Time.date()) {
            finish_day();
            day = action.Time.date();
            AddHeading(report, 2, DayText(*day));
            table = EmptyTable(*day);
        }
        const QString time = action.Time.toString(u"HH:mm"_s);
        const bool is_open = choices.ShownWhole.contains(NameOfAction(action));
        if (action.Files.size() == 1)
            AddSingleFile(table, action, time, is_open);
        else
            AddSeveralFiles(table, action, time, is_open);
    }
    finish_day();
}

// --- around them ------------------------------------------------------------------------------

void AddFailure(Report& report, const KeepingFailure& failure)
{
    if (!failure.Error)
        return;
    const QString what = failure.Target.isEmpty()
        ? u"ein Stand"_s
        : u"der Stand von „%1“"_s.arg(FileCaption(failure.Target));
    AddSentence(report,
        u"Am %1 konnte %2 nicht aufgehoben werden: %3. Gespeichert wurde trotzdem."_s.arg(
            TimeOfState(failure.Time), what, ReasonOf(failure.Error)));
}

void AddFilters(Report& report, const QList<KnownFile>& known, const QString& chosen)
{
    ReportSentence sentence;
    sentence.texts.push_back({ u"Zeigen: "_s });
    const auto add = [&](const QString& key, const QString& caption) {
        if (sentence.texts.size() > 1)
            sentence.texts.push_back({ u" · "_s });
        if (key == chosen)
            sentence.texts.push_back({ caption, {}, TextLook::Bold });
        else
            sentence.texts.push_back({ caption, FilterLink(key) });
    };
    add({}, u"alles"_s);
    for (const KnownFile& file : known)
        add(file.Key, FileCaption(file.Target));
    report.items.emplace_back(sentence);
}

/// The number of actions that are shown, and the page that "ältere zeigen" opens next.
struct Shown {
    qsizetype Actions = ActionsOnAPage;
    qsizetype NextPage = 2;
};

Shown ShownActions(const ReportChoices& choices)
{
    Shown shown;
    while (choices.ShownWhole.contains(NameOfPage(shown.NextPage))) {
        shown.Actions += ActionsOnAPage;
        ++shown.NextPage;
    }
    return shown;
}

} // namespace

Report HistoryReport(const DataFiles& files, const ReportChoices& choices)
{
    Report report;
    report.title = u"Verlauf – Kleingarten Parzello"_s;
    AddSentence(report, where_it_lies);
    AddFailure(report, files.History->Failure);
    QList<HistoryEntry> entries;
    if (const SystemError error = ReadHistory(files, entries)) {
        AddSentence(report, u"Der Verlauf kann nicht gelesen werden: %1."_s.arg(ReasonOf(error)));
        return report;
    }
    if (entries.isEmpty()) {
        AddSentence(report, no_history);
        return report;
    }
    AddFilters(report, FilesOf(files, entries), choices.Filter);
    QList<KeptAction> actions = ActionsOf(entries, choices.Filter);
    const Shown shown = ShownActions(choices);
    const bool has_more = actions.size() > shown.Actions;
    actions = actions.mid(0, shown.Actions);
    AddActions(report, files, choices, actions);
    if (has_more)
        AddLinkLine(report, u"ältere zeigen"_s, ShowAllLink(NameOfPage(shown.NextPage)));
    AddLinkLine(report, u"Verlauf leeren …"_s, LinkTo(HistoryDeed::Empty));
    return report;
}

HistoryLink HistoryLinkOf(const QString& action)
{
    const QString name = action.section(u'-', 0, 0);
    for (std::size_t i = 0; i < deed_names.size(); ++i) {
        if (deed_names[i] == name)
            return { static_cast<HistoryDeed>(i + 1), action.section(u'-', 1).toLongLong() };
    }
    return {};
}
