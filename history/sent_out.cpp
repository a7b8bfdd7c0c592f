#include "history/sent_out.h"

#include "data/ansi_text.h"
#include "data/history.h"
#include "data/line_file.h"
#include "history/state_lines.h"

#include <QHash>

#include <algorithm>

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

QList<LastSentBill> LastSentBills(const DataFiles& files, const QString& year_text)
{
    QList<HistoryEntry> entries;
    if (ReadHistory(files, entries))
        return {};
    const QString key = HistoryKeyOf(NameOfRun(year_text));
    QHash<QString, LastSentBill> last; // by name; namesakes are told apart by their order
    for (const HistoryEntry& entry : std::as_const(entries)) {
        const bool is_run = entry.Key == key && entry.Mark.How == Deed::SentOut;
        const std::optional<RedoRecord> run = is_run ? ReadKept(files, entry) : std::nullopt;
        const QList<SentBill> bills = run ? BillsOfSentOut(run->content) : QList<SentBill>();
        QHash<QString, int> namesakes;
        for (const SentBill& bill : bills)
            last[bill.Name + u'\n' + QString::number(++namesakes[bill.Name])]
                = { bill, HowOf(run->content), entry.Mark.Time };
    }
    QList<LastSentBill> result = last.values();
    std::sort(result.begin(), result.end(), [](const LastSentBill& a, const LastSentBill& b) {
        return a.Bill.Page != b.Bill.Page ? a.Bill.Page < b.Bill.Page : a.Bill.Name < b.Bill.Name;
    });
    return result;
}
