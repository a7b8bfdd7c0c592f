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

/// The first member with another name and another garden than last year's line; the one who has no
/// line when the lists part nowhere else.
qsizetype FirstParting(const BillSource& source, qsizetype without_line)
{
    const MemberLists& lists = source.Members;
    const auto trimmed = [](const MemberRecord& record, int field) {
        return FieldOrEmpty(record, field).trimmed();
    };
    for (qsizetype k = 0; k < qMin(without_line, lists.PreviousYearList.size()); ++k) {
        const MemberRecord here = SplitRecord(lists.RecordList[k]);
        const MemberRecord before = SplitRecord(lists.PreviousYearList[k]);
        const bool same_name = trimmed(here, Surname) == trimmed(before, Surname)
            && trimmed(here, FirstName) == trimmed(before, FirstName);
        if (!same_name && trimmed(here, PlotNumber) != trimmed(before, PlotNumber))
            return k;
    }
    return without_line;
}

Place NoPreviousLinePlace(const BillSource& source, qsizetype member)
{
    const qsizetype parting = FirstParting(source, member);
    Place where = PreviousPlace(source, parting);
    const QString what = parting == member
        ? u"Dieses Mitglied hat im Vorjahr keine Zeile an derselben Stelle, deshalb fehlen seine"
          " Abrechnung und alle folgenden."_s
        : u"Von hier an stehen die Listen beider Jahre nicht mehr in derselben Reihenfolge; im"
          " Vorjahr fehlt eine Zeile, deshalb fehlen die letzten Abrechnungen."_s;
    where.remedy = what
        + u" Drücken Sie „Mehr“ und wählen Sie „Vorjahr abgleichen …“. Dieselbe Meldung für ein"
          " früheres Jahr können Sie übergehen."_s;
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
