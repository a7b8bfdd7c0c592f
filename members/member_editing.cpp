#include "members/member_editing.h"

#include "data/file_names.h"
#include "data/german_numbers.h"

#include <algorithm>

namespace {

void RequirePosition(const MemberLists& lists, int position, const QString& remedy)
{
    if (position >= 0 && position < lists.RecordList.size())
        return;
    Place where;
    where.remedy = remedy;
    throw RuntimeError { ErrorKind::InvalidIndex, where, {} };
}

} // namespace

SaveWay DecideSave(const MemberState& member, const MemberLists& lists)
{
    if (member.CurrentMember == -1)
        return member.ClickedFieldText.isEmpty() ? SaveWay::Add : SaveWay::Update;
    return lists.RecordList.isEmpty() ? SaveWay::Add : SaveWay::Update;
}

void AddMember(MemberLists& lists, const MemberRecord& fields)
{
    if (lists.RecordList.size() >= MostLines) {
        Place where;
        where.member = NameEntry(fields);
        where.remedy = QStringLiteral("Mehr als 32.767 Mitglieder kann das Programm nicht führen. "
                                      "Es wurde nichts geändert.");
        throw RuntimeError { ErrorKind::Overflow, where, {} };
    }
    const QString name = NameEntry(fields);
    lists.RecordList += JoinRecord(fields);
    lists.NameList += name;
    lists.CashBookNameList += name;
    lists.InstalmentList += FieldOrEmpty(fields, Instalments);
}

void ReplaceMember(MemberLists& lists, int position, const MemberRecord& fields)
{
    RequirePosition(lists, position,
        QStringLiteral("Das neue Mitglied ist noch nicht gespeichert, weil in ein Feld geklickt "
                       "wurde, in dem schon etwas stand. Klicken Sie einmal in ein leeres Feld "
                       "des Rahmens „Adresse“ und drücken Sie noch einmal „Speichern“; was Sie "
                       "eingegeben haben, steht noch da."));
    const QString name = NameEntry(fields);
    lists.RecordList[position] = JoinRecord(fields);
    lists.NameList[position] = name;
    lists.CashBookNameList[position] = name;
    lists.InstalmentList[position] = FieldOrEmpty(fields, Instalments);
}

void ReplaceRecord(MemberLists& lists, int position, const MemberRecord& fields)
{
    RequirePosition(lists, position,
        QStringLiteral("Es ist kein Mitglied ausgewählt. Klicken Sie das Mitglied unter "
                       "„Mitglieder Namen“ an; ein neues Mitglied legen Sie mit „Speichern“ an, "
                       "samt seinen Zählerständen."));
    lists.RecordList[position] = JoinRecord(fields);
}

void RemoveMember(MemberLists& lists, int position)
{
    RequirePosition(lists, position,
        QStringLiteral("Es ist kein Mitglied ausgewählt, deshalb wurde nichts gelöscht. Klicken "
                       "Sie das Mitglied unter „Mitglieder Namen“ an und drücken Sie dann "
                       "„Löschen“."));
    lists.RecordList.removeAt(position);
    lists.NameList.removeAt(position);
    lists.CashBookNameList.removeAt(position);
    lists.InstalmentList.removeAt(position);
}

Place RecordPlace(const BillingYear& year_text, int position, const MemberRecord& fields)
{
    Place where;
    where.file = FileNameOf(MembersFileName(year_text));
    where.line = position + 1;
    where.member = NameEntry(fields);
    return where;
}

Place ShortRecordPlace(const BillingYear& year_text, int position, const MemberRecord& fields)
{
    Place where = RecordPlace(year_text, position, fields);
    where.field = MemberFieldCaption(static_cast<int>(fields.size()));
    where.remedy
        = QStringLiteral("Die Zeile hat weniger als 16 Felder. Wählen Sie das Mitglied unter "
                         "„Stammdaten“, ergänzen Sie die Angaben und drücken Sie „Speichern“.");
    return where;
}

Place ReadingPlace(
    const BillingYear& year_text, int position, const MemberRecord& fields, MemberField field)
{
    Place where = RecordPlace(year_text, position, fields);
    where.field = MemberFieldCaption(field);
    where.content = FieldOrEmpty(fields, field);
    where.remedy = QStringLiteral("Tragen Sie unter „Stammdaten“ eine Zahl mit Dezimalkomma ein, "
                                  "zum Beispiel 1234,5, und speichern Sie das Mitglied.");
    return where;
}

int NeighbourOf(int current, int step, qsizetype member_count)
{
    const int last = static_cast<int>(member_count) - 1;
    return last < 0 ? -1 : std::clamp(current + step, 0, last);
}

QString StoredText(const MemberLists& lists, const MemberState& member, int field)
{
    if (member.CurrentMember < 0)
        return {};
    return FieldOrEmpty(SplitRecord(lists.StoredList.value(member.CurrentMember)), field);
}

bool IsNumberField(int field) { return field >= PlotSize && field < MemberFieldCount; }

FieldState StateOf(int field, const QString& text, const QString& stored)
{
    if (text.contains(QLatin1Char(';')))
        return FieldState::Separator;
    if (IsNumberField(field) && !text.isEmpty() && !IsNumber(text))
        return FieldState::NoNumber;
    return text == stored ? FieldState::Stored : FieldState::Unsaved;
}
