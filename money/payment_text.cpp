#include "money/payment_text.h"

#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView bill_word = u"abrechnung";

/// A span of a text.
struct Span {
    qsizetype begin = 0;
    qsizetype end = 0;
};

bool IsDigit(QChar sign) { return sign >= u'0' && sign <= u'9'; }

QChar SignAt(QStringView text, qsizetype place)
{
    return place >= 0 && place < text.size() ? text[place] : QChar(u' ');
}

bool StandsAt(QStringView text, qsizetype place, QStringView word)
{
    return place >= 0 && place <= text.size() && text.sliced(place).startsWith(word);
}

qsizetype DigitsFrom(QStringView text, qsizetype place)
{
    qsizetype end = place;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    return end - place;
}

/// The whole word around an "abrechnung" that begins there.
Span BillWordAround(QStringView text, qsizetype place)
{
    Span word { place, place + bill_word.size() };
    for (const QStringView front : { QStringView(u"jahres"), QStringView(u"garten") }) {
        if (StandsAt(text, place - front.size(), front))
            word.begin = place - front.size();
    }
    if (StandsAt(text, word.end, u"en"))
        word.end += 2;
    return word;
}

bool IsPaymentWord(QStringView text, const Span& word)
{
    return !SignAt(text, word.begin - 1).isLetter() && !SignAt(text, word.end).isLetter();
}

bool IsSpecialBilling(QStringView text, qsizetype place)
{
    qsizetype end = place;
    while (end > 0 && (text[end - 1] == u' ' || text[end - 1] == u'-'))
        --end;
    return text.first(end).endsWith(u"sonder");
}

void Blank(QString& text, const Span& span)
{
    for (qsizetype i = span.begin; i < span.end; ++i)
        text[i] = u' ';
}

/// Takes the payment words out, each with the hyphen directly behind it.
void TakePaymentWords(PaymentText& payment)
{
    QString& text = payment.Rest.Text;
    qsizetype place = text.indexOf(bill_word);
    while (place >= 0) {
        Span word = BillWordAround(text, place);
        if (IsPaymentWord(text, word)) {
            word.end += SignAt(text, word.end) == u'-' ? 1 : 0;
            Blank(text, word);
            if (payment.BehindWord < 0)
                payment.BehindWord = word.end;
        }
        place = text.indexOf(bill_word, place + bill_word.size());
    }
}

qsizetype BehindBlanks(QStringView text, qsizetype place)
{
    while (place < text.size() && text[place] == u' ')
        ++place;
    return place;
}

qsizetype BehindPoint(QStringView text, qsizetype place)
{
    return SignAt(text, place) == u'.' ? place + 1 : place;
}

/// The number of a garden mark whose word ends there: digits and at most one letter; an empty span
/// when there is none.
Span GardenNumberBehind(QStringView text, qsizetype place)
{
    place = BehindBlanks(text, BehindPoint(text, place));
    if (StandsAt(text, place, u"nr"))
        place = BehindBlanks(text, BehindPoint(text, place + 2));
    Span number { place, place + DigitsFrom(text, place) };
    if (number.begin == number.end)
        return {};
    if (SignAt(text, number.end).isLetter())
        ++number.end;
    return IsLetterOrDigit(SignAt(text, number.end)) ? Span {} : number;
}

/// Takes a garden mark that begins there out; the number is kept when it is the first.
void TakeGardenMark(PaymentText& payment, qsizetype place)
{
    QString& text = payment.Rest.Text;
    for (const QStringView word : { QStringView(u"gartennummer"), QStringView(u"gartennr"),
             QStringView(u"garten"), QStringView(u"parzelle") }) {
        if (!StandsAt(text, place, word))
            continue;
        const Span number = GardenNumberBehind(text, place + word.size());
        if (number.begin == number.end)
            continue;
        if (payment.Garden.isEmpty())
            payment.Garden = GardenKey(text.sliced(number.begin, number.end - number.begin));
        Blank(text, { place, number.end });
        return;
    }
}

void TakeGardenMarks(PaymentText& payment)
{
    const QString& text = payment.Rest.Text;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const bool may_begin = text[place] == u'g' || text[place] == u'p';
        if (may_begin && BeginsWord(text, place))
            TakeGardenMark(payment, place);
    }
}

/// "2025/26" and "2025/2026" are a season.
bool IsSeasonAt(QStringView text, qsizetype place)
{
    if (SignAt(text, place + 4) != u'/')
        return false;
    const qsizetype digits = DigitsFrom(text, place + 5);
    return digits == 2 || digits == 4;
}

bool IsFollowedByMonthAndDay(QStringView text, qsizetype place)
{
    return SignAt(text, place) == u'-' && DigitsFrom(text, place + 1) == 2
        && SignAt(text, place + 3) == u'-' && DigitsFrom(text, place + 4) >= 2;
}

} // namespace

PaymentKind PaymentKindOf(const QString& folded)
{
    PaymentKind kind = PaymentKind::None;
    for (qsizetype place = folded.indexOf(bill_word); place >= 0;
         place = folded.indexOf(bill_word, place + bill_word.size())) {
        if (IsSpecialBilling(folded, place))
            return PaymentKind::SpecialBilling;
        if (IsPaymentWord(folded, BillWordAround(folded, place)))
            kind = PaymentKind::Payment;
        else if (kind == PaymentKind::None)
            kind = PaymentKind::UnknownWord;
    }
    return kind;
}

bool IsYearAt(QStringView folded, qsizetype place)
{
    const bool century = StandsAt(folded, place, u"19") || StandsAt(folded, place, u"20");
    if (!century || DigitsFrom(folded, place) != 4)
        return false;
    if (IsLetterOrDigit(SignAt(folded, place - 1)) || IsLetterOrDigit(SignAt(folded, place + 4)))
        return false;
    const bool ends_date = SignAt(folded, place - 1) == u'.' && IsDigit(SignAt(folded, place - 2));
    return !ends_date && !IsFollowedByMonthAndDay(folded, place + 4);
}

NamedYears YearsIn(QStringView folded)
{
    NamedYears years;
    for (qsizetype place = 0; place + 4 <= folded.size(); ++place) {
        if (!IsDigit(folded[place]))
            continue;
        if (!IsYearAt(folded, place)) {
            place += DigitsFrom(folded, place) - 1; // the rest of this number is no year either
            continue;
        }
        const int year = folded.sliced(place, 4).toInt();
        years.Several |= (years.Year != 0 && years.Year != year) || IsSeasonAt(folded, place);
        years.Year = year;
        place += 3;
    }
    return years;
}

PaymentText ReadPaymentText(const QString& text)
{
    PaymentText payment;
    payment.Rest = Fold(text);
    payment.Kind = PaymentKindOf(payment.Rest.Text);
    TakePaymentWords(payment);
    payment.Years = YearsIn(payment.Rest.Text);
    TakeGardenMarks(payment);
    return payment;
}
