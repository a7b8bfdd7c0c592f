#include "data/dates.h"

#include "data/german_numbers.h"

#include <QStringList>

namespace {

// One part of a date: so many ASCII digits at most, else -1.
int NumberOfPart(QStringView part, int longest)
{
    if (part.isEmpty() || part.size() > longest)
        return -1;
    int number = 0;
    for (const QChar sign : part) {
        if (sign < u'0' || sign > u'9')
            return -1;
        number = number * 10 + (sign.unicode() - u'0');
    }
    return number;
}

int FullYear(int year)
{
    if (year < 0 || year > 99)
        return year;
    return year < 50 ? 2000 + year : 1900 + year;
}

QString YearBeside(const BillingYear& year_text, int step)
{
    Place where;
    where.field = QStringLiteral("Jahr");
    where.content = year_text;
    where.remedy = QStringLiteral("Bitte das Jahr mit vier Ziffern eintragen, zum Beispiel 2017.");
    return TextOfDouble(NumberOf(year_text, where) + step);
}

} // namespace

QString ShortDate(const QDate& date) { return date.toString(u"dd.MM.yyyy"); }

std::optional<QDate> ParseDate(QStringView text)
{
    constexpr qsizetype longest_date = 10;
    if (text.size() > longest_date)
        return std::nullopt;
    const qsizetype month_at = text.indexOf(u'.') + 1;
    const qsizetype year_at = text.indexOf(u'.', month_at) + 1;
    if (month_at == 0 || year_at == 0)
        return std::nullopt;
    const int day = NumberOfPart(text.first(month_at - 1), 2);
    const int month = NumberOfPart(text.sliced(month_at, year_at - month_at - 1), 2);
    const int year = FullYear(NumberOfPart(text.sliced(year_at), 4)); // a third point is no digit
    const QDate date(year, month, day);
    if (year < 0 || !date.isValid())
        return std::nullopt;
    return date;
}

QString FormatDateText(const QString& text)
{
    const std::optional<QDate> date = ParseDate(text);
    return date ? ShortDate(*date) : text;
}

bool IsWellFormedDate(QStringView text)
{
    constexpr qsizetype year_at = 6;
    constexpr qsizetype length = 10; // two, two and four digits
    const bool short_year = text.size() == length && text.sliced(year_at).startsWith(u"00");
    return text.size() == length && !short_year && ParseDate(text);
}

BillingYear PreviousYear(const BillingYear& year_text) { return YearBeside(year_text, -1); }

BillingYear NextYear(const BillingYear& year_text) { return YearBeside(year_text, 1); }
