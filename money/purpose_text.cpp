#include "money/purpose_text.h"

#include "data/records.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longest_purpose = 140;

bool IsCarried(QChar sign)
{
    const char16_t code = sign.unicode();
    return (code < 0x80 && sign.isLetterOrNumber())
        || QStringView(u"ÄÖÜäöüß /-?:().,'+&*$%").contains(sign);
}

/// The letter of a transfer for one that it does not carry, a blank for anything else.
QString Carried(QChar sign)
{
    switch (sign.unicode()) {
    case u'æ':
        return u"ae"_s;
    case u'Æ':
        return u"Ae"_s;
    case u'œ':
        return u"oe"_s;
    case u'Œ':
        return u"Oe"_s;
    case u'þ':
        return u"th"_s;
    case u'Þ':
        return u"Th"_s;
    case u'ø':
        return u"o"_s;
    case u'Ø':
        return u"O"_s;
    case u'ð':
        return u"d"_s;
    case u'Ð':
        return u"D"_s;
    case u'’':
    case u'‘':
    case u'`':
    case u'´':
        return u"'"_s;
    case u'–':
    case u'—':
        return u"-"_s;
    default:
        break;
    }
    const QChar plain = QString(sign).normalized(QString::NormalizationForm_D).front();
    return sign.isLetter() && IsCarried(plain) ? QString(plain) : u" "_s;
}

} // namespace

QString TransferText(const QString& text, qsizetype longest)
{
    QString carried;
    for (const QChar sign : text.normalized(QString::NormalizationForm_C))
        carried += IsCarried(sign) ? QString(sign) : Carried(sign);
    return carried.simplified().left(longest).trimmed();
}

QString PurposeText(const QString& year_text, const QStringList& member_fields)
{
    const QString garden = FieldOrEmpty(member_fields, PlotNumber).trimmed();
    const QString text = u"Abrechnung "_s + year_text
        + (garden.isEmpty() ? QString() : u" Garten "_s + garden) + u' '
        + FieldOrEmpty(member_fields, Surname) + u' ' + FieldOrEmpty(member_fields, FirstName);
    return TransferText(text, longest_purpose);
}
