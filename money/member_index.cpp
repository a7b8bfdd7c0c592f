#include "money/member_index.h"

#include "data/records.h"

namespace {

QString FirstWord(const FoldedName& name)
{
    const QString& part = name.Parts.front();
    qsizetype end = name.FirstRun;
    while (end < part.size() && IsLetterOrDigit(part[end]))
        ++end;
    return part.sliced(name.FirstRun, end - name.FirstRun);
}

void AddEntry(MemberIndex& index, const QString& exact, SurnameForm form, int surname)
{
    const FoldedName name = FoldName(exact);
    if (name.Parts.isEmpty() || name.FirstRun == name.Parts.front().size())
        return;
    index.EntriesByWord[FirstWord(name)] += static_cast<int>(index.Entries.size());
    index.Entries += SurnameEntry { exact, name, form, surname };
}

/// All ways in which this surname may be written.
void AddSurname(MemberIndex& index, const QString& surname, int position)
{
    AddEntry(index, surname, SurnameForm::Whole, position);
    if (surname.endsWith(u'2'))
        AddEntry(index, surname.chopped(1), SurnameForm::WithoutTwo, position);
    if (surname.contains(u' '))
        AddEntry(index, surname.section(u' ', 0, 0), SurnameForm::FirstPart, position);
}

QString InitialOf(const QString& first_name)
{
    if (first_name.isEmpty() || !first_name.front().isLetter())
        return {};
    return Folded(first_name.first(1)) + u'.';
}

} // namespace

MemberIndex MakeMemberIndex(const QStringList& records)
{
    MemberIndex index;
    QHash<QString, int> surnames;
    for (int member = 0; member < static_cast<int>(records.size()); ++member) {
        const QStringList fields = SplitRecord(records[member]);
        const QString surname = FieldOrEmpty(fields, Surname).trimmed();
        const auto known = surnames.constFind(surname);
        const int position
            = known == surnames.constEnd() ? static_cast<int>(surnames.size()) : *known;
        if (known == surnames.constEnd()) {
            surnames.insert(surname, position);
            index.Sharers.append(QVector<int>());
            AddSurname(index, surname, position);
        }
        index.Sharers[position] += member;
        const QString first_name = FieldOrEmpty(fields, FirstName).trimmed();
        index.FirstNames += FoldName(first_name);
        index.Initials += InitialOf(first_name);
        index.Gardens += GardenKey(FieldOrEmpty(fields, PlotNumber));
        index.MembersByGarden[index.Gardens.last()] += member;
    }
    return index;
}
