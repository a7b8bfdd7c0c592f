#include "money/booking_kinds.h"

#include "money/member_matching.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype year_digits = 4;

/// True when the text begins with the word and no letter follows it.
bool BeginsWithWord(QStringView text, const QString& word)
{
    return text.startsWith(word) && (text.size() == word.size() || !text[word.size()].isLetter());
}

/// "Anfangsbestand", "Start-Saldo" and the like.
bool NamesStart(QStringView text)
{
    for (const QString& front : { u"anfangs"_s, u"start"_s }) {
        if (!text.startsWith(front))
            continue;
        QStringView behind = text.sliced(front.size());
        if (behind.startsWith(u'-'))
            behind = behind.sliced(1);
        for (const QString& word : { u"bestand"_s, u"guthaben"_s, u"saldo"_s, u"stand"_s }) {
            if (BeginsWithWord(behind, word))
                return true;
        }
    }
    return false;
}

/// Without a year at the very end and the blanks in front of it.
QString WithoutYear(const QString& text)
{
    if (text.size() < year_digits || !text.back().isDigit())
        return text;
    const QString front = text.chopped(year_digits);
    const QString folded_front = Folded(front);
    const bool ends_with_year
        = IsYearAt(folded_front + text.last(year_digits), folded_front.size());
    return ends_with_year ? front.trimmed() : text;
}

} // namespace

bool IsOpeningText(const QString& folded)
{
    const QString text = WithSingleBlanks(folded);
    if (BeginsWithWord(text, u"uebertrag saldo"_s) || NamesStart(text))
        return true;
    if (!text.contains(u"guthaben"_s))
        return false;
    const QString without_year = WithoutYear(text);
    return without_year == u"guthaben" || without_year == u"aktuelles guthaben";
}

QString KindText(const QString& text)
{
    const QString kind = WithoutYear(WithSingleBlanks(text));
    return kind.isEmpty() ? u"ohne Text"_s : kind;
}

bool IsMembersPayment(ClubYears& years, const Booking& booking, int report_year)
{
    if (PaymentKindOf(booking.folded) != PaymentKind::Payment)
        return false;
    // The word alone counts here: a booking of 5,00 in and 5,00 out is a payment on both sides.
    Payment payment = AssessYear(years.Known, booking.text, 1, booking.ledger_year, booking.day);
    if (payment.Finding != PaymentFinding::OfYear)
        payment.Year = report_year;
    return !MatchMembers(IndexOf(years, payment.Year), payment.Text).isEmpty();
}
