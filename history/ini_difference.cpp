#include "history/ini_difference.h"

#include "data/ansi_text.h"
#include "history/state_lines.h"
#include "settings/ini_file.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {

QString Shown(const QString& value) { return value.isEmpty() ? u"(leer)"_s : value; }

} // namespace

QList<IniPlace> PlacesOfIni(const QByteArray& ini)
{
    QList<IniPlace> places;
    QString section;
    const QStringList lines = LinesOfState(ini);
    for (const QString& line : lines) {
        const QString text = line.trimmed();
        if (text.startsWith(u'[') && text.contains(u']')) {
            section = text.mid(1, text.indexOf(u']') - 1);
            continue;
        }
        const IniPlace place { section, text.section(u'=', 0, 0).trimmed() };
        if (text.contains(u'=') && !places.contains(place))
            places += place;
    }
    return places;
}

QString ValueOfIni(const QByteArray& ini, const IniPlace& place)
{
    return DecodeAnsi(IniValue(ini, EncodeAnsi(place.Section), EncodeAnsi(place.Key)));
}

QString IniCaption(FileKind kind, const IniPlace& place)
{
    if (kind == FileKind::Prices)
        return place.Key + u' ' + place.Section;
    static const QMap<QString, QString> captions { { u"BLZ"_s, u"IBAN"_s },
        { u"Kontonummer"_s, u"BIC"_s }, { u"Name"_s, u"Kassenwart"_s },
        { u"Name1"_s, u"Ansprechpartner 1"_s }, { u"Name2"_s, u"Ansprechpartner 2"_s } };
    return captions.value(place.Key, place.Key);
}

QStringList IniChanges(FileKind kind, const QByteArray& before, const QByteArray& after)
{
    QList<IniPlace> places = PlacesOfIni(before);
    const QList<IniPlace> later = PlacesOfIni(after);
    for (const IniPlace& place : later) {
        if (!places.contains(place))
            places += place;
    }
    QStringList changes;
    for (const IniPlace& place : std::as_const(places)) {
        const QString old_value = ValueOfIni(before, place);
        const QString new_value = ValueOfIni(after, place);
        if (old_value != new_value)
            changes += IniCaption(kind, place) + u": "_s + Shown(old_value) + u" → "_s
                + Shown(new_value);
    }
    return changes;
}
