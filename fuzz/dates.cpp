// Dates: reading against a second, naive reader; what is written reads back; years step one by one.
#include "data/dates.h"
#include "data/ansi_text.h"
#include "data/german_numbers.h"
#include "data/runtime_error.h"
#include "fuzz/fuzz.h"

#include <QList>

namespace {

// The naive reader walks from sign to sign and knows the calendar by heart.
bool NaiveDate(const QString& text, int& day, int& month, int& year)
{
    QList<int> numbers = { 0 };
    QList<int> lengths = { 0 };
    for (const QChar sign : text) {
        if (sign == u'.') {
            numbers += 0;
            lengths += 0;
        } else if (sign >= u'0' && sign <= u'9' && lengths.last() < 4) {
            numbers.last() = numbers.last() * 10 + (sign.unicode() - u'0');
            ++lengths.last();
        } else {
            return false;
        }
        if (numbers.size() > 3)
            return false;
    }
    if (numbers.size() != 3 || lengths[0] < 1 || lengths[0] > 2 || lengths[1] < 1 || lengths[1] > 2
        || lengths[2] < 1)
        return false;
    day = numbers[0];
    month = numbers[1];
    year = numbers[2];
    if (year < 100)
        year += year < 50 ? 2000 : 1900;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int days[] = { 31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    return month >= 1 && month <= 12 && day >= 1 && day <= days[month - 1];
}

void CheckDate(const QString& text)
{
    int day = 0, month = 0, year = 0;
    const bool is_date = NaiveDate(text, day, month, year);
    const std::optional<QDate> date = ParseDate(text);
    Require(date.has_value() == is_date, "the same texts are dates", text);
    if (!date) {
        Require(FormatDateText(text) == text && !IsWellFormedDate(text), "stays as it is", text);
        return;
    }
    Require(*date == QDate(year, month, day), "the same day", text);
    const QString shown = QString::asprintf("%02d.%02d.%04d", day, month, year);
    Require(FormatDateText(text) == shown && ShortDate(*date) == shown, "dd.mm.yyyy", text);
    Require(IsWellFormedDate(text) == (text == shown), "well-formed is what we write", text);
    Require(ParseDate(shown) == date && IsWellFormedDate(shown), "reads back", text);
}

void CheckYears(const QString& text)
{
    try {
        const double before = NumberOf(PreviousYear(text), {});
        Require(IsNumber(text), "only numbers have a year before", text);
        if (before > -1e15 && before < 1e15 && before == static_cast<double>(qint64(before)))
            Require(NumberOf(NextYear(PreviousYear(text)), {}) == before + 1, "and back", text);
    } catch (const RuntimeError& error) {
        Require(error.kind == ErrorKind::TypeMismatch || error.kind == ErrorKind::Overflow,
            "no other error", text);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = InputBytes(data, size);
    const QString text
        = input.startsWith('u') ? QString::fromUtf8(input.mid(1)) : DecodeAnsi(input);
    CheckDate(text);
    CheckYears(text);
    return 0;
}
