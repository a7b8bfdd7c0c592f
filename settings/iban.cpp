#include "settings/iban.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype head = 4; // two letters, two check digits
constexpr qsizetype shortest = head + 11;
constexpr qsizetype longest = head + 30;
constexpr qsizetype german_length = 22;

bool IsCapital(QChar sign) { return sign >= u'A' && sign <= u'Z'; }
bool IsDigit(QChar sign) { return sign >= u'0' && sign <= u'9'; }

bool HasForm(QStringView iban)
{
    const auto digits
        = [](QStringView part) { return std::all_of(part.begin(), part.end(), IsDigit); };
    if (iban.size() < shortest || iban.size() > longest)
        return false;
    if (!IsCapital(iban[0]) || !IsCapital(iban[1]) || !digits(iban.sliced(2, 2)))
        return false;
    if (iban.startsWith(u"DE"))
        return iban.size() == german_length && digits(iban.sliced(2));
    return std::all_of(iban.begin() + head, iban.end(),
        [](QChar sign) { return IsCapital(sign) || IsDigit(sign); });
}

/// The remainder by 97 of the number that the characters make, A counting as 10 and Z as 35.
int Remainder(QStringView signs)
{
    int remainder = 0;
    for (const QChar sign : signs) {
        const int value = IsDigit(sign) ? sign.unicode() - u'0' : sign.unicode() - u'A' + 10;
        remainder = (remainder * (value > 9 ? 100 : 10) + value) % 97;
    }
    return remainder;
}

} // namespace

QString CompactIban(const QString& text)
{
    QString compact;
    for (const QChar sign : text) {
        if (!sign.isSpace())
            compact += sign;
    }
    return compact.toUpper();
}

bool IsIban(const QString& text)
{
    const QString iban = CompactIban(text);
    return HasForm(iban) && Remainder(iban.sliced(head) + iban.left(head)) == 1;
}
