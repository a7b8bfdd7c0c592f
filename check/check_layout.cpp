#include "check/check_layout.h"

#include "data/dates.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t shown_rows = 20;

struct Section {
    Level level;
    QString heading;
};

/// The findings of one entry: first and behind the last.
struct Entry {
    std::size_t begin = 0;
    std::size_t end = 0;
};

std::vector<Entry> EntriesOf(const FindingList& findings)
{
    std::vector<Entry> entries;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const bool same = i > 0 && findings[i].id == findings[i - 1].id
            && findings[i].part == findings[i - 1].part;
        if (!same)
            entries.push_back({ i, i });
        entries.back().end = i + 1;
    }
    return entries;
}

void AddSentenceLine(Report& report, const Finding& finding)
{
    ReportSentence line;
    const LinkTarget target = finding.rows.empty() ? finding.target : LinkTarget {};
    line.texts.push_back({ finding.sentence, target, TextLook::Bold });
    line.texts.push_back({ u" (%1)"_s.arg(finding.id), {}, TextLook::Small });
    report.items.emplace_back(line);
}

void AddRow(Report& report, const FindingRow& row)
{
    AddLinkLine(report, row.text, row.target, Indent::One);
}

std::size_t LinesOf(const Finding& finding)
{
    return std::max<std::size_t>(1, finding.rows.size());
}

/// Sentences with their rows, until so many rows are told; the rest is one link.
void AddEntry(
    Report& report, const FindingList& findings, const Entry& entry, const ReportChoices& choices)
{
    const QString name = findings[entry.begin].id + findings[entry.begin].part;
    const bool whole = choices.ShownWhole.contains(name);
    std::size_t left = shown_rows;
    std::size_t hidden = 0;
    for (std::size_t i = entry.begin; i < entry.end; ++i) {
        const Finding& finding = findings[i];
        if (!whole && left == 0) {
            hidden += LinesOf(finding);
            continue;
        }
        AddSentenceLine(report, finding);
        const std::size_t shown = whole ? finding.rows.size() : std::min(left, finding.rows.size());
        for (std::size_t row = 0; row < shown; ++row)
            AddRow(report, finding.rows[row]);
        hidden += finding.rows.size() - shown;
        left -= whole ? 0 : std::min(left, LinesOf(finding));
    }
    if (hidden > 0)
        AddLinkLine(report, u"und %1 weitere"_s.arg(hidden), ShowAllLink(name), Indent::One);
    if (const QString& remedy = findings[entry.begin].remedy; !remedy.isEmpty())
        AddSentence(report, remedy, Indent::One);
}

} // namespace

QString CheckSummary(const CheckResult& result)
{
    if (result.All.empty())
        return u"Nichts gefunden. Geprüft: %1, %2, 2 Konten, %3."_s.arg(
            CountOf(result.Members, u"Mitglied"_s, u"Mitglieder"_s),
            CountOf(result.Bills, u"Abrechnung"_s, u"Abrechnungen"_s),
            CountOf(static_cast<qsizetype>(CheckRules().size()), u"Regel"_s, u"Regeln"_s));
    return u"%1 Fehler, %2, %3"_s.arg(QString::number(result.Errors),
        CountOf(result.Warnings, u"Warnung"_s, u"Warnungen"_s),
        CountOf(result.Hints, u"Hinweis"_s, u"Hinweise"_s));
}

Report LayOutCheck(const CheckResult& result, const QString& year, const QDate& today,
    const ReportChoices& choices)
{
    static const Section sections[] {
        { Level::Error, u"Fehler – so wird eine Abrechnung falsch oder bleibt leer"_s },
        { Level::Warning, u"Warnungen – bitte ansehen"_s },
        { Level::Hint, u"Hinweise – gut zu wissen"_s },
    };
    Report report { u"Prüfbericht %1 – Kleingarten Parzello"_s.arg(year) };
    AddHeading(report, 1, u"Prüfbericht für das Jahr %1, Stand %2"_s.arg(year, ShortDate(today)));
    AddSentence(report, CheckSummary(result));
    const std::vector<Entry> entries = EntriesOf(result.All);
    for (const Section& section : sections) {
        bool begun = false;
        for (const Entry& entry : entries) {
            if (result.All[entry.begin].level != section.level)
                continue;
            if (!begun)
                AddHeading(report, 2, section.heading);
            begun = true;
            AddEntry(report, result.All, entry, choices);
        }
    }
    return report;
}
