// Payments of bills, as the marks in the list of names read them: by the surname in the text.
#include "cashbook/member_marks.h"
#include "cashbook/texts.h"
#include "check/rules.h"
#include "check/text_numbers.h"

#include <algorithm>
#include <bitset>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

bool IsWordSign(QChar sign) { return sign.isLetterOrNumber() || sign == u'-'; }

/// No letter, digit or hyphen beside it.
bool HasWholeWord(QStringView text, QStringView word)
{
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
        const qsizetype end = at + word.size();
        const bool begins = at == 0 || !IsWordSign(text[at - 1]);
        if (begins && (end == text.size() || !IsWordSign(text[end])))
            return true;
    }
    return false;
}

/// The surnames of the list, numbered in list order; the empty one would be found in every text.
struct Surnames {
    TextNumbers numbers;
    std::vector<qsizetype> counts; ///< by number: so many members have it
};

Surnames SurnamesOf(const CheckData& data)
{
    Surnames surnames { TextNumbers(data.Members.size()), {} };
    surnames.counts.reserve(data.Members.size());
    for (const CheckMember& member : data.Members) {
        if (FieldOf(member, Surname).isEmpty())
            continue;
        const auto number
            = static_cast<std::size_t>(surnames.numbers.NumberOf(FieldOf(member, Surname)));
        if (number == surnames.counts.size())
            surnames.counts.push_back(0);
        ++surnames.counts[number];
    }
    return surnames;
}

/// A booking whose text holds "Abrechnung".
struct Payment {
    std::size_t row = 0;
    bool told = false; ///< a surname stands in it as a whole word
};

/// The threes of characters that stand in a text. Where one of a word's is missing, the word is.
class Threes {
public:
    void Add(QStringView text)
    {
        for (qsizetype i = 0; i + 3 <= text.size(); ++i)
            m_there.set(PlaceOf(text, i));
    }

    bool MayHold(QStringView word) const
    {
        for (qsizetype i = 0; i + 3 <= word.size(); ++i) {
            if (!m_there.test(PlaceOf(word, i)))
                return false;
        }
        return true;
    }

private:
    static constexpr std::size_t places = 1 << 16;

    static std::size_t PlaceOf(QStringView text, qsizetype i)
    {
        const auto sign = [&](qsizetype at) { return std::size_t { text[at].unicode() }; };
        return (sign(i) * 1021 + sign(i + 1) * 31 + sign(i + 2)) % places;
    }

    std::bitset<places> m_there;
};

struct Payments {
    std::vector<Payment> each;
    std::vector<qsizetype> of_surname; ///< by number: payments with it as a word
    std::optional<Threes> threes; ///< of the texts, where many surnames are looked for
    QString texts; ///< all texts, each behind a ";", which neither a text nor a surname holds
};

Payments FindPayments(const CheckBookings& bookings)
{
    Payments payments;
    for (const std::size_t row : bookings.MaybeStatements) {
        const QStringView text = bookings.Rows[row].text;
        if (!text.contains(StatementWord))
            continue;
        payments.each.push_back({ row });
        payments.texts += u';';
        payments.texts += text;
    }
    return payments;
}

/// Calls the routine for each word of the text.
template <typename Routine> void ForEachWord(QStringView text, Routine routine)
{
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at;
        while (end < text.size() && IsWordSign(text[end]))
            ++end;
        if (end > at)
            routine(text.sliced(at, end - at));
        at = end + 1;
    }
}

/// Surnames of several words are looked for one by one; there are few.
void CountInEach(Payments& payments, const CheckBookings& bookings, const Surnames& surnames)
{
    for (int number = 0; number < surnames.numbers.Count(); ++number) {
        const QStringView surname = surnames.numbers.TextOf(number);
        if (std::all_of(surname.begin(), surname.end(), IsWordSign))
            continue;
        payments.of_surname[static_cast<std::size_t>(number)] = std::count_if(
            payments.each.begin(), payments.each.end(), [&](const Payment& payment) {
                return HasWholeWord(bookings.Rows[payment.row].text, surname);
            });
    }
}

void CountPayments(Payments& payments, const CheckBookings& bookings, const Surnames& surnames)
{
    payments.of_surname.assign(surnames.counts.size(), 0);
    std::vector<std::size_t> last(surnames.counts.size(), 0); // payment that was counted, from 1
    for (std::size_t i = 0; i < payments.each.size(); ++i) {
        ForEachWord(bookings.Rows[payments.each[i].row].text, [&](QStringView word) {
            const int number = surnames.numbers.Find(word);
            const auto index = static_cast<std::size_t>(number);
            if (number < 0 || std::exchange(last[index], i + 1) == i + 1)
                return;
            ++payments.of_surname[index];
            payments.each[i].told = true;
        });
    }
    CountInEach(payments, bookings, surnames);
}

/// Worth it from some surnames on that no payment has as a word.
void NoteThrees(Payments& payments)
{
    constexpr qsizetype few_surnames = 16;
    if (std::count(payments.of_surname.begin(), payments.of_surname.end(), 0) > few_surnames)
        payments.threes.emplace().Add(payments.texts);
}

/// The first text that holds the surname somewhere, as the marks look for it.
QString MarkingText(const Payments& payments, QStringView surname)
{
    if (payments.threes && !payments.threes->MayHold(surname))
        return {};
    const QStringView texts = payments.texts;
    const qsizetype found = texts.indexOf(surname);
    if (found < 0)
        return {};
    const qsizetype begin = texts.lastIndexOf(u';', found) + 1;
    const qsizetype end = texts.indexOf(u';', found);
    return texts.sliced(begin, (end < 0 ? texts.size() : end) - begin).toString();
}

bool HoldsAny(QStringView text, const Surnames& surnames)
{
    for (int number = 0; number < surnames.numbers.Count(); ++number) {
        if (text.contains(surnames.numbers.TextOf(number)))
            return true;
    }
    return false;
}

void CheckUnknownPayments(const CheckBookings& bookings, const Payments& payments,
    const Surnames& surnames, std::size_t account, Findings& findings)
{
    for (const Payment& payment : payments.each) {
        const CheckBooking& booking = bookings.Rows[payment.row];
        if (booking.deposit.sign <= 0 || payment.told || HoldsAny(booking.text, surnames))
            continue;
        AddTo(findings,
            { u"C50a"_s, Level::Hint, u"Diese Zahlung ist keinem Mitglied zugeordnet."_s,
                u"Schreiben Sie den Nachnamen wie in der Namensliste in den Vorgang."_s },
            { AccountNameOf(account) + u": "_s + BookingWords(booking),
                BookingTarget(account, static_cast<qsizetype>(payment.row)) });
    }
}

void CheckMark(const Payments& payments, QStringView surname, qsizetype members, qsizetype paid,
    std::size_t account, Findings& findings)
{
    const QString remedy = u"Verlassen Sie sich hier nicht auf die Markierung; schreiben Sie den "
                           "Vornamen in den Vorgang."_s;
    const LinkTarget target = BookingTarget(account, -1, u"List4"_s);
    if (paid == 0) {
        if (const QString text = MarkingText(payments, surname); !text.isEmpty())
            AddTo(findings,
                { u"C50b"_s, Level::Hint,
                    u"Als bezahlt markiert, aber gebucht ist %1."_s.arg(Quoted(text)), remedy },
                { AccountNameOf(account) + u": "_s + surname.toString(), target });
    } else {
        AddTo(findings,
            { u"C50c"_s, Level::Hint,
                u"%1 Mitglieder heißen %2 und sind als bezahlt markiert, gebucht %3."_s.arg(
                    QString::number(members), surname.toString(),
                    paid == 1 ? u"ist aber erst 1 Zahlung"_s
                              : u"sind aber erst %1 Zahlungen"_s.arg(paid)),
                remedy },
            { AccountNameOf(account), target });
    }
}

} // namespace

void CheckPaidMarks(const CheckData& data, Findings& findings)
{
    std::optional<Surnames> surnames; // early in the year nobody has paid
    for (std::size_t account = 0; account < 2; ++account) {
        const CheckBookings& bookings = data.Bookings.at(account);
        if (data.LedgerUnsafe.at(account))
            continue;
        Payments payments = FindPayments(bookings);
        if (payments.each.empty())
            continue;
        if (!surnames)
            surnames = SurnamesOf(data);
        CountPayments(payments, bookings, *surnames);
        NoteThrees(payments);
        CheckUnknownPayments(bookings, payments, *surnames, account, findings);
        for (int number = 0; number < surnames->numbers.Count(); ++number) {
            const qsizetype members = surnames->counts[static_cast<std::size_t>(number)];
            const qsizetype paid = payments.of_surname[static_cast<std::size_t>(number)];
            if (paid == 0 || (members > 1 && paid < members))
                CheckMark(
                    payments, surnames->numbers.TextOf(number), members, paid, account, findings);
        }
    }
}
