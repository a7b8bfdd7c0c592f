#include "members/member_saving.h"

#include "data/file_names.h"

void RequireLoadedYear(
    const DataFiles& files, const BillingYear& year_text, const BillingYear& loaded_year)
{
    const QString file_name = MembersFileName(year_text);
    if (!loaded_year.isEmpty() || !FileExists(files, file_name))
        return;
    Place where;
    where.file = FileNameOf(file_name);
    where.remedy
        = QStringLiteral("Die Mitglieder dieses Jahres sind nicht geladen, darum wird ihre "
                         "Datei nicht überschrieben. Bitte beheben Sie, was beim Laden "
                         "gemeldet wurde, und drücken Sie „Laden“.");
    throw RuntimeError { ErrorKind::File, where, QStringLiteral("Datei ist nicht geladen") };
}

std::optional<RuntimeError> SaveMembers(const MemberLists& lists, const DataFiles& files,
    const BillingYear& year_text, const BillingYear& loaded_year, const QString& what_is_left)
{
    RequireLoadedYear(files, year_text, loaded_year);
    try {
        WriteMembersFile(lists, files, year_text);
    } catch (const RuntimeError& error) {
        if (IsInFile(lists, files, year_text))
            return error;
        RuntimeError extended = error;
        AppendToRemedy(extended, what_is_left);
        throw RuntimeError(extended);
    }
    return std::nullopt;
}
