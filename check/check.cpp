#include "check/check.h"

#include "check/rules.h"

#include <algorithm>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

FindingList NotChecked(const CheckRule& rule)
{
    return { { rule.id, Level::Warning, u"Regel %1 konnte nicht geprüft werden."_s.arg(rule.id) } };
}

/// What the rule had found before it failed is dropped: it may be half the truth.
FindingList Run(const CheckRule& rule, const CheckData& data)
{
    Findings findings;
    try {
        rule.run(data, findings);
    } catch (const RuntimeError&) {
        return NotChecked(rule);
    } catch (const std::exception&) {
        return NotChecked(rule);
    }
    return std::move(findings.All);
}

bool SameEntry(const Finding& a, const Finding& b) { return a.id == b.id && a.part == b.part; }

/// The entries of one variant stand together.
void Order(FindingList& findings)
{
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::pair(a.id, a.part) < std::pair(b.id, b.part);
    });
}

void Count(CheckResult& result)
{
    for (std::size_t i = 0; i < result.All.size(); ++i) {
        if (i > 0 && SameEntry(result.All[i - 1], result.All[i]))
            continue;
        switch (result.All[i].level) {
        case Level::Error:
            ++result.Errors;
            break;
        case Level::Warning:
            ++result.Warnings;
            break;
        case Level::Hint:
            ++result.Hints;
            break;
        }
    }
}

} // namespace

const std::vector<CheckRule>& CheckRules()
{
    // clang-format off
    static const std::vector<CheckRule> rules {
        { u"C01"_s, CheckYearBox },
        { u"C02"_s, CheckReadableFiles },
        { u"C03"_s, CheckLineEnds },
        { u"C04"_s, CheckEncoding },
        { u"C05"_s, CheckFieldCount },
        { u"C06"_s, CheckUnsaved },
        { u"C07"_s, CheckSpecialBillings },
        { u"C08"_s, CheckNumbers },
        { u"C09"_s, CheckOddNumbers },
        { u"C10"_s, CheckDoubles },
        { u"C11"_s, CheckNames },
        { u"C12"_s, CheckMissingFields },
        { u"C13"_s, CheckJumps },
        { u"C14"_s, CheckMissingEnds },
        { u"C15"_s, CheckMissingStarts },
        { u"C16"_s, CheckFallingReadings },
        { u"C17"_s, CheckConsumption },
        { u"C18"_s, CheckStartReadings },
        { u"C19"_s, CheckShiftedLists },
        { u"C20"_s, CheckForeignDeductions },
        { u"C21"_s, CheckMissingLines },
        { u"C22"_s, CheckTenants },
        { u"C23"_s, CheckLastYearFile },
        { u"C24"_s, CheckDeductionTick },
        { u"C25"_s, CheckLostDeductions },
        { u"C26"_s, CheckPrepaymentTick },
        { u"C27"_s, CheckMissingPrices },
        { u"C28"_s, CheckPriceJumps },
        { u"C29"_s, CheckSamePrices },
        { u"C30"_s, CheckRepairLevy },
        { u"C31"_s, CheckDeadline },
        { u"C32"_s, CheckDates },
        { u"C33"_s, CheckClubName },
        { u"C34"_s, CheckIban },
        { u"C35"_s, CheckBankFields },
        { u"C36"_s, CheckContacts },
        { u"C37"_s, CheckContactTexts },
        { u"C38"_s, CheckTotals },
        { u"C39"_s, CheckWidths },
        { u"C40"_s, CheckOddTotals },
        { u"C41"_s, CheckPageFont },
        { u"C42"_s, CheckCashBoxBalance },
        { u"C43"_s, CheckLedgerLines },
        { u"C44"_s, CheckBookingDates },
        { u"C45"_s, CheckBookingAmounts },
        { u"C46"_s, CheckOddBookings },
        { u"C47"_s, CheckCarryOver },
        { u"C48"_s, CheckMissingYears },
        { u"C49"_s, CheckExactBalance },
        { u"C50"_s, CheckPaidMarks },
        { u"C51"_s, CheckSentBills },
    };
    // clang-format on
    return rules;
}

CheckResult RunCheck(const CheckSource& source, const std::vector<CheckRule>& rules)
{
    CheckResult result;
    const CheckData data = MakeCheckData(source);
    for (const CheckRule& rule : rules)
        for (Finding& finding : Run(rule, data))
            result.All.push_back(std::move(finding));
    Order(result.All);
    Count(result);
    result.Members = source.Members.RecordList.size();
    result.Bills = source.Statement.StatementTotals.size();
    return result;
}

CheckResult RunCheck(const CheckSource& source) { return RunCheck(source, CheckRules()); }
