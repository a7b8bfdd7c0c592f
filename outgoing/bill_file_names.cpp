#include "outgoing/bill_file_names.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype most_characters = 120;
constexpr qsizetype most_bytes = 240;
const QString ending = u".pdf"_s;

bool HasDigitsOnly(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar sign) {
        return sign >= u'0' && sign <= u'9';
    });
}

qsizetype LongestGarden(const QList<BillNameParts>& members)
{
    qsizetype longest = 0;
    for (const BillNameParts& member : members) {
        const QString garden = member.Garden.trimmed();
        if (HasDigitsOnly(garden))
            longest = std::max(longest, garden.size());
    }
    return longest;
}

bool IsRefused(QChar sign)
{
    const char16_t code = sign.unicode();
    return code < 0x20 || (code >= 0x7F && code < 0xA0)
        || QStringView(u"/\\:*?\"<>|").contains(sign);
}

/// Nothing that a file system refuses, single blanks.
QString Allowed(QString text)
{
    for (QChar& sign : text) {
        if (IsRefused(sign))
            sign = u'_';
    }
    return text.simplified();
}

QString StemOf(const QString& year_text, const BillNameParts& member, qsizetype digits)
{
    QString garden = member.Garden.trimmed();
    if (HasDigitsOnly(garden))
        garden = garden.rightJustified(digits, u'0');
    const QString words = garden.isEmpty() ? QString() : u" Garten "_s + garden;
    return Allowed(
        u"Abrechnung "_s + year_text + words + u' ' + member.Surname + u' ' + member.FirstName);
}

/// The stem cut so that it fits with what stands behind it; a letter of two code units stays whole.
QString Fitted(QString stem, const QString& behind)
{
    const auto too_long = [&] {
        return stem.size() + behind.size() > most_characters
            || (stem + behind).toUtf8().size() > most_bytes;
    };
    while (too_long())
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    while (stem.endsWith(u' ') || stem.endsWith(u'.'))
        stem.chop(1);
    return stem + behind;
}

QString FreeName(const QString& stem, QSet<QString>& taken)
{
    QString name = Fitted(stem, ending);
    for (int number = 2; taken.contains(name.toCaseFolded()); ++number)
        name = Fitted(stem, u" (%1)"_s.arg(number) + ending);
    taken.insert(name.toCaseFolded());
    return name;
}

} // namespace

QStringList BillFileNames(const QString& year_text, const QList<BillNameParts>& members)
{
    const qsizetype digits = LongestGarden(members);
    QSet<QString> taken;
    QStringList names;
    for (const BillNameParts& member : members)
        names += member.Drawn ? FreeName(StemOf(year_text, member, digits), taken) : QString();
    return names;
}

QString AllBillsFileName(const QString& year_text)
{
    return u"Abrechnungen "_s + year_text + ending;
}
