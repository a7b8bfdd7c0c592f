#include "members/member_saving.h"

#include "data/file_names.h"

using namespace Qt::StringLiterals;

namespace {

bool CanBeRead(const DataFiles& files, const QString& file_name)
{
    try {
        ReadLines(files, file_name);
    } catch (const RuntimeError&) {
        return false; // the caller says that it is not loaded
    }
    return true;
}

void RequireLoaded(const DataFiles& files, const QString& file_name, bool is_loaded)
{
    if (is_loaded || !FileExists(files, file_name))
        return;
    Place where;
    where.file = FileNameOf(file_name);
    where.remedy = u"Die Mitglieder dieses Jahres sind nicht geladen, darum wird ihre Datei nicht "
                   "überschrieben. Bitte beheben Sie, was beim Laden gemeldet wurde, und drücken "
                   "Sie „Laden“."_s;
    throw RuntimeError { ErrorKind::File, where, u"Datei ist nicht geladen"_s };
}

void RequireRolledForward(
    const DataFiles& files, const BillingYear& year_text, const MemberTroubles& troubles)
{
    const BillingYear last_year = PreviousYear(year_text);
    if (!troubles.RollForward || troubles.RollForwardYear != year_text
        || FileExists(files, MembersFileName(year_text))
        || !FileExists(files, MembersFileName(last_year)))
        return;
    RuntimeError error { ErrorKind::File, troubles.RollForward->where,
        u"Die Mitglieder von %1 sind noch nicht übernommen"_s.arg(last_year) };
    if (error.where.file.isEmpty())
        error.where.file = FileNameOf(MembersFileName(last_year));
    AppendToRemedy(error,
        u"Erst wenn das behoben und das Programm neu gestartet ist, werden "
        "Mitglieder von %1 gespeichert; sonst gingen die von %2 verloren."_s.arg(
            year_text, last_year));
    throw RuntimeError(error);
}

} // namespace

void RequireMayWrite(const DataFiles& files, const BillingYear& year_text,
    const BillingYear& loaded_year, const MemberTroubles& troubles)
{
    const QString file_name = MembersFileName(year_text);
    RequireLoaded(files, file_name,
        !loaded_year.isEmpty() && !troubles.NotLoaded.contains(year_text)
            && (loaded_year == year_text || CanBeRead(files, file_name)));
    RequireRolledForward(files, year_text, troubles);
}

std::optional<RuntimeError> SaveMembers(const MemberLists& lists, const DataFiles& files,
    const BillingYear& year_text, const BillingYear& loaded_year, const MemberTroubles& troubles,
    const QString& what_is_left)
{
    RequireMayWrite(files, year_text, loaded_year, troubles);
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
