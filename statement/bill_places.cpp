#include "statement/bill_places.h"

#include "data/dates.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "data/records.h"
#include "members/member_editing.h"
#include "settings/price_settings.h"

using namespace Qt::StringLiterals;

namespace {

QString ListYear(const BillSource& source)
{
    return source.LoadedYear.isEmpty() ? source.YearText : source.LoadedYear;
}

QString YearBefore(const BillSource& source) { return PreviousYear(ListYear(source)); }

Place PreviousPlace(const BillSource& source, qsizetype member)
{
    Place where = MemberPlace(source, member);
    where.file = FileNameOf(MembersFileName(YearBefore(source)));
    return where;
}

/// Caption on the tab "Einstellungen" of a price with that key.
QString PriceCaption(const QString& key)
{
    for (const PriceRow& price : PriceTable()) {
        if (price.Key == key)
            return price.Caption.trimmed();
    }
    return key;
}

QString EnterNumber(const QString& example)
{
    return u"eine Zahl mit Dezimalkomma ein, zum Beispiel %1"_s.arg(example);
}

} // namespace

Place MemberPlace(const BillSource& source, qsizetype member)
{
    Place where;
    where.file = FileNameOf(MembersFileName(ListYear(source)));
    where.line = static_cast<int>(member) + 1;
    where.member = NameEntry(SplitRecord(source.Members.RecordList.value(member)));
    return where;
}

Place ShortRecordPlace(const BillSource& source, qsizetype member)
{
    return ShortRecordPlace(ListYear(source), static_cast<int>(member),
        SplitRecord(source.Members.RecordList.value(member)));
}

Place ShortPreviousRecordPlace(const BillSource& source, qsizetype member, int field)
{
    Place where = PreviousPlace(source, member);
    where.field = MemberFieldCaption(field);
    where.remedy = u"Die Zeile des Vorjahres hat weniger als 16 Felder. Laden Sie unter"
                   " „Stammdaten“ das Jahr %1, wählen Sie dort das %2. Mitglied, ergänzen Sie die"
                   " Angaben und drücken Sie „Speichern“."_s.arg(YearBefore(source))
                       .arg(member + 1);
    return where;
}

Place ShortContactPlace(const BillSource& source, qsizetype member, int field)
{
    Place where = MemberPlace(source, member);
    where.field = MemberFieldCaption(field);
    where.remedy = u"Die Zeile hat weniger als fünf Felder, deshalb lassen sich die"
                   " Ansprechpartner nicht suchen. Wählen Sie das Mitglied unter „Stammdaten“,"
                   " ergänzen Sie die Angaben und drücken Sie „Speichern“."_s;
    return where;
}

Place NoPreviousLinePlace(const BillSource& source, qsizetype member)
{
    Place where = PreviousPlace(source, member);
    where.remedy
        = u"Dieses Mitglied hat im Vorjahr keine Zeile an derselben Stelle, deshalb fehlen seine"
          " Abrechnung und alle folgenden. Gehen Sie unter „Stammdaten“ ein Jahr zurück, drücken"
          " Sie „Laden“, dann „Neu Anlegen“, tragen Sie das Mitglied ein und drücken Sie"
          " „Speichern“; danach laden Sie wieder das Jahr %1. Dieselbe Meldung für ein früheres"
          " Jahr können Sie übergehen."_s.arg(ListYear(source));
    return where;
}

Place MemberFieldPlace(
    const BillSource& source, qsizetype member, int field, const QString& content)
{
    Place where = MemberPlace(source, member);
    where.field = MemberFieldCaption(field);
    where.content = content;
    where.remedy
        = u"Tragen Sie unter „Stammdaten“ %1, und speichern Sie das Mitglied."_s.arg(EnterNumber(
            field >= LiabilityPremium && field <= BuildingPremium ? u"12,50"_s : u"1234,5"_s));
    return where;
}

Place PreviousFieldPlace(
    const BillSource& source, qsizetype member, int field, const QString& content)
{
    Place where = PreviousPlace(source, member);
    where.field = MemberFieldCaption(field);
    where.content = content;
    where.remedy = u"Laden Sie unter „Stammdaten“ das Jahr %1, tragen Sie beim %2. Mitglied %3,"
                   " und drücken Sie „OK“."_s.arg(YearBefore(source))
                       .arg(member + 1)
                       .arg(EnterNumber(u"1234,5"_s));
    return where;
}

Place PricePlace(const BillSource& source, const QString& key, const QString& content)
{
    Place where;
    where.file = FileNameOf(PriceSettingsFile);
    where.field = key;
    where.content = content;
    where.remedy
        = u"Tragen Sie unter „Einstellungen“ für das Jahr %1 bei „%2“ %3, und drücken Sie"
          " „Speichern“."_s.arg(ListYear(source), PriceCaption(key), EnterNumber(u"0,30"_s));
    return where;
}

Place PreviousPricePlace(const BillSource& source, const QString& key, const QString& content)
{
    Place where = PricePlace(source, key, content);
    where.remedy = u"Laden Sie unter „Stammdaten“ das Jahr %1, tragen Sie unter „Einstellungen“ bei"
                   " „%2“ %3, und drücken Sie „Speichern“."_s.arg(
                       YearBefore(source), PriceCaption(key), EnterNumber(u"0,30"_s));
    return where;
}

Place AmountsPlace(const BillSource& source, qsizetype member)
{
    Place where = MemberPlace(source, member);
    where.remedy = u"Ein Betrag der Abrechnung ist zu groß. Prüfen Sie die Zählerstände, die Größe"
                   " und die Beiträge des Mitglieds und die Preise des Jahres."_s;
    return where;
}
