#include "money/report_parts.h"

#include "data/dates.h"

using namespace Qt::StringLiterals;

QString Counted(qsizetype count, const QString& one, const QString& many)
{
    return QString::number(count) + u' ' + (count == 1 ? one : many);
}

ReportCell EuroCell(Cents cents) { return NumberCell(EuroText(cents), static_cast<double>(cents)); }

ReportColumn NumberColumn(const QString& caption, bool sortable)
{
    return { caption, ColumnKind::Number, sortable };
}

ReportColumn TextColumn(const QString& caption, bool sortable)
{
    return { caption, ColumnKind::Text, sortable };
}

LinkTarget LinkToBooking(const Booking& booking, int report_year)
{
    if (booking.ledger_year != report_year)
        return {};
    const LinkKind kind
        = booking.account == Account::Bank ? LinkKind::BankRow : LinkKind::CashBoxRow;
    return { kind, {}, booking.line - 1 };
}

ReportCell DateCell(const Booking& booking, int report_year)
{
    ReportCell cell = TextCell(booking.date, LinkToBooking(booking, report_year));
    if (booking.day)
        cell.sort_value = static_cast<double>(booking.day->toJulianDay());
    return cell;
}

void AddNoAmounts(Report& report, const std::vector<NoAmount>& list, int report_year)
{
    if (list.empty())
        return;
    AddHeading(report, 2, u"Beträge, die keine Zahl sind"_s);
    ReportTable table { u"no_amounts"_s };
    table.columns = { TextColumn(u"Datum"_s, true), TextColumn(u"Konto"_s, true),
        NumberColumn(u"Zeile"_s, true), TextColumn(u"Vorgang"_s, true),
        TextColumn(u"Gespeichert ist"_s, true) };
    for (const NoAmount& amount : list) {
        const Booking& booking = amount.booking;
        table.rows.push_back(
            { { DateCell(booking, report_year), TextCell(AccountName(booking, report_year)),
                NumberCell(QString::number(booking.line), booking.line), TextCell(booking.text),
                TextCell(amount.stored) } });
    }
    report.items.emplace_back(table);
}

QString UnsavedSentence(const UnsavedBookings& unsaved)
{
    if (!unsaved.Any)
        return {};
    if (!unsaved.Count || *unsaved.Count == 0)
        return u"Enthält noch nicht gespeicherte Buchungen."_s;
    return u"Enthält %1."_s.arg(Counted(*unsaved.Count, u"noch nicht gespeicherte Buchung"_s,
        u"noch nicht gespeicherte Buchungen"_s));
}

QStringList UnreadableSentences(const MoneySource& source)
{
    QStringList files = source.Unreadable;
    for (const int year : source.Years.Unreadable)
        files += u"Mitgliedsdaten%1.pz"_s.arg(year);
    files.removeDuplicates();
    QStringList sentences;
    for (const QString& file : files)
        sentences += u"%1 ist nicht lesbar und fehlt in diesem Bericht."_s.arg(file);
    return sentences;
}
