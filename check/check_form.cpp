#include "check/check_form.h"

#include "app/program.h"
#include "app/texts.h"
#include "data/dates.h"

using namespace Qt::StringLiterals;

namespace {

Report MakeCheckReport(Program& program, const ReportChoices&)
{
    const QString& year = program.Year.LoadedYear;
    Report report { u"Prüfbericht %1 – %2"_s.arg(year, WindowCaption) };
    AddHeading(report, 1,
        u"Prüfbericht für das Jahr %1, Stand %2"_s.arg(year, ShortDate(program.Today())));
    return report;
}

} // namespace

void ShowCheckReport(Program& program)
{
    ShowReport(program, { u"Check"_s, u"Prüfbericht"_s, MakeCheckReport, {} });
}
