#include "money/money_form.h"

#include "app/follow_link.h"
#include "app/program.h"
#include "app/texts.h"
#include "cashbook/ledger_view_form.h"
#include "cashbook/texts.h"
#include "money/cash_book_report.h"
#include "money/cash_report_text.h"
#include "money/money_reading.h"
#include "money/open_items_report.h"
#include "money/purpose_text.h"
#include "money/years_report.h"

#include <QLineEdit>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int wide = 140; // characters of a line: a table of many columns

QString YearTextOf(const Program& program)
{
    const YearState& year = program.Year;
    return year.LoadedYear.isEmpty() ? year.YearText : year.LoadedYear;
}

LoadedClub ClubOf(const Program& program)
{
    return { program.Files, YearTextOf(program).toInt(), program.Members, program.Prices,
        program.Statement, program.CashBook };
}

/// Every window is called after its report and the program.
Report Titled(Report report)
{
    report.title += u" – "_s + WindowCaption;
    return report;
}

Report OpenItemsReport(Program& program, const ReportChoices& choices)
{
    MoneySource source = ReadMoneySource(ClubOf(program));
    return Titled(MakeOpenItemsReport(source, choices));
}

Report CashReportOf(Program& program, const ReportChoices& choices)
{
    const LoadedClub club = ClubOf(program);
    MoneySource source = ReadMoneySource(club);
    const CashReportContext context { program.ClubName, program.Bank.BankName,
        program.Bank.TreasurerName, program.Today(), ShownBalance(club, Account::Bank),
        ShownBalance(club, Account::CashBox) };
    return Titled(MakeCashReportText(source, context, choices));
}

Report CashBookOf(Program& program, const ReportChoices&)
{
    return Titled(MakeCashBookReport(ReadMoneySource(ClubOf(program)), program.Bank.BankName));
}

Report YearsOf(Program& program, const ReportChoices& choices)
{
    const LoadedClub club = ClubOf(program);
    return Titled(MakeYearsReport(ReadYears(club), club.Year, choices));
}

void OpenItemsLink(Program& program, const QString& action)
{
    ProposeRest(program, MemberOfPayAction(action));
}

} // namespace

void ShowOpenItems(Program& program)
{
    ShowReport(
        program, { u"OpenItems"_s, u"Offene Posten"_s, OpenItemsReport, OpenItemsLink, wide });
}

void ShowCashReport(Program& program)
{
    ShowReport(program, { u"CashReport"_s, u"Kassenbericht"_s, CashReportOf, {} });
}

void ShowCashBook(Program& program)
{
    ShowReport(program, { u"CashBook"_s, u"Kassenbuch"_s, CashBookOf, {} });
}

void ShowYears(Program& program)
{
    ShowReport(program, { u"Years"_s, u"Jahre im Vergleich"_s, YearsOf, {}, wide });
}

QString PaidTip(const Program& program, int member)
{
    MoneySource source = ReadMoneySource(ClubOf(program));
    const OpenItems items = FindOpenItems(source);
    const auto position = static_cast<std::size_t>(member);
    return position < items.Members.size() ? PaidText(items.Members[position]) : QString();
}

std::vector<bool> PartPaidMembers(const Program& program)
{
    MoneySource source = ReadMoneySource(ClubOf(program));
    std::vector<bool> part_paid;
    for (const OpenItem& item : FindOpenItems(source).Members)
        part_paid.push_back(item.bill && RestOf(item) > 0);
    return part_paid;
}

void ProposeRest(Program& program, int member)
{
    MoneySource source = ReadMoneySource(ClubOf(program));
    const OpenItems items = FindOpenItems(source);
    const auto position = static_cast<std::size_t>(member);
    if (position >= items.Members.size())
        return;
    const LinkTarget bank { LinkKind::BankRow, u"Text10(2)"_s, -1 };
    FollowLink(program, bank);
    const QWidget* tab = program.Window.SSTab1->currentWidget();
    if (!tab->isAncestorOf(program.CashBookTab.Text11) || ShownAccount(program) != Account::Bank)
        return;
    const QStringList fields = SplitRecord(source.Records[member]);
    const auto& entries = program.CashBookTab.Text10;
    entries[TextEntry]->setText(PurposeText(YearTextOf(program), fields));
    entries[DepositEntry]->setText(AmountText(RestOf(items.Members[position])));
    entries[WithdrawalEntry]->setText(u"0,00"_s);
    program.CashBookTab.Text11->setText(FieldOrEmpty(fields, Instalments) + InstalmentsEnd);
}
