#include "history/sent_out.h"

#include "data/ansi_text.h"
#include "data/history.h"
#include "data/line_file.h"
#include "history/state_lines.h"

#include <QHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QString name_begin = u"Abrechnungen "_s;
const QString printed = u"gedruckt"_s;
const QString as_pdf = u"als PDF"_s;

QString NameOfRun(const QString& year_text) { return name_begin + year_text; }

SentHow HowOf(const QByteArray& content)
{
    return LinesOfState(content).value(0) == as_pdf ? SentHow::Pdf : SentHow::Printed;
}

/// "Seite 3", "Seiten 1 bis 11", "Seiten 1, 3 und 7 bis 9"
QString PagesOf(const QList<SentBill>& bills)
{
    QStringList runs;
    for (qsizetype i = 0; i < bills.size();) {
        qsizetype last = i;
        while (last + 1 < bills.size() && bills[last + 1].Page == bills[last].Page + 1)
            ++last;
        const QString first_page = QString::number(bills[i].Page);
        runs
            += last == i ? first_page : first_page + u" bis "_s + QString::number(bills[last].Page);
        i = last + 1;
    }
    const QString last_run = runs.takeLast();
    const QString pages = runs.isEmpty() ? last_run : runs.join(u", "_s) + u" und "_s + last_run;
    return (bills.size() == 1 ? u"Seite "_s : u"Seiten "_s) + pages;
}

/// Each name with its number among its namesakes.
QStringList WithOrder(const QStringList& names)
{
    QHash<QString, int> count;
    QStringList result;
    for (const QString& name : names)
        result += name + u'\n' + QString::number(++count[name]);
    return result;
}

/// Takes the bills whose members are still open.
void TakeBills(const RedoRecord& run, QSet<QString>& open, QHash<QString, LastSentBill>& last)
{
    const QList<SentBill> bills = BillsOfSentOut(run.content);
    QStringList names;
    for (const SentBill& bill : bills)
        names += bill.Name;
    names = WithOrder(names);
    for (qsizetype i = 0; i < bills.size(); ++i) {
        if (open.remove(names[i]))
            last[names[i]] = { bills[i], HowOf(run.content), run.Mark.Time };
    }
}

/// The kept runs of that year, the oldest first.
QList<HistoryEntry> RunsOf(const DataFiles& files, const QString& year_text)
{
    const QString key = HistoryKeyOf(NameOfRun(year_text));
    QList<HistoryEntry> runs = KnownHistory(files);
    runs.removeIf([&key](const HistoryEntry& entry) {
        return entry.Mark.How != Deed::SentOut || entry.Key != key;
    });
    return runs;
}

} // namespace

void KeepSentBills(
    const DataFiles& files, const QString& year_text, SentHow how, const QList<SentBill>& bills)
{
    if (bills.isEmpty())
        return;
    QStringList lines { how == SentHow::Pdf ? as_pdf : printed };
    for (const SentBill& bill : bills)
        lines += QString::number(bill.Page) + u';' + bill.Total + u';' + bill.Name;
    KeepSentOut(files, NameOfRun(year_text), BytesOfLines(lines));
}

QList<SentBill> BillsOfSentOut(const QByteArray& content)
{
    QList<SentBill> bills;
    const QStringList lines = LinesOfState(content).mid(1);
    for (const QString& line : lines) // the name comes last: it may hold anything
        bills += { line.section(u';', 0, 0).toLongLong(), line.section(u';', 2),
            line.section(u';', 1, 1) };
    return bills;
}

QString WordsOfSentOut(const QString& name, const QByteArray& content)
{
    const QList<SentBill> bills = BillsOfSentOut(content);
    return name + u": "_s + (bills.isEmpty() ? u"keine Seite"_s : PagesOf(bills)) + u' '
        + (HowOf(content) == SentHow::Pdf ? as_pdf : printed);
}

QList<std::optional<LastSentBill>> LastSentBills(
    const DataFiles& files, const QString& year_text, const QStringList& names)
{
    const QList<HistoryEntry> runs = RunsOf(files, year_text);
    if (runs.isEmpty())
        return QList<std::optional<LastSentBill>>(names.size());
    const QStringList wanted = WithOrder(names);
    QSet<QString> open(wanted.cbegin(), wanted.cend());
    QHash<QString, LastSentBill> last;
    for (auto entry = runs.crbegin(); entry != runs.crend() && !open.isEmpty(); ++entry) {
        if (const std::optional<RedoRecord> run = ReadKept(files, *entry))
            TakeBills(*run, open, last);
    }
    QList<std::optional<LastSentBill>> result;
    for (const QString& name : wanted)
        result += last.contains(name) ? std::optional(last.value(name)) : std::nullopt;
    return result;
}
