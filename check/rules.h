// The rules of the check report, one routine each; they read, and add what they find. A rule that
// meets data it cannot read skips them. What each rule looks for is told in the manual.
#pragma once

#include "check/check_data.h"
#include "check/finding.h"

// year_rules: the year and its files
void CheckYearBox(const CheckData& data, Findings& findings); ///< C01
void CheckReadableFiles(const CheckData& data, Findings& findings); ///< C02
void CheckLineEnds(const CheckData& data, Findings& findings); ///< C03
void CheckEncoding(const CheckData& data, Findings& findings); ///< C04
void CheckUnsaved(const CheckData& data, Findings& findings); ///< C06
void CheckSpecialBillings(const CheckData& data, Findings& findings); ///< C07

// number_rules: texts that have to be numbers
void CheckFieldCount(const CheckData& data, Findings& findings); ///< C05
void CheckNumbers(const CheckData& data, Findings& findings); ///< C08
void CheckOddNumbers(const CheckData& data, Findings& findings); ///< C09

// member_rules
void CheckDoubles(const CheckData& data, Findings& findings); ///< C10
void CheckNames(const CheckData& data, Findings& findings); ///< C11
void CheckMissingFields(const CheckData& data, Findings& findings); ///< C12
void CheckJumps(const CheckData& data, Findings& findings); ///< C13

// meter_rules
void CheckMissingEnds(const CheckData& data, Findings& findings); ///< C14
void CheckMissingStarts(const CheckData& data, Findings& findings); ///< C15
void CheckFallingReadings(const CheckData& data, Findings& findings); ///< C16
void CheckConsumption(const CheckData& data, Findings& findings); ///< C17
void CheckStartReadings(const CheckData& data, Findings& findings); ///< C18

// list_rules: the order of both years' lists
void CheckShiftedLists(const CheckData& data, Findings& findings); ///< C19
void CheckForeignDeductions(const CheckData& data, Findings& findings); ///< C20
void CheckMissingLines(const CheckData& data, Findings& findings); ///< C21
void CheckTenants(const CheckData& data, Findings& findings); ///< C22
void CheckLastYearFile(const CheckData& data, Findings& findings); ///< C23

// prepayment_rules
void CheckDeductionTick(const CheckData& data, Findings& findings); ///< C24
void CheckLostDeductions(const CheckData& data, Findings& findings); ///< C25
void CheckPrepaymentTick(const CheckData& data, Findings& findings); ///< C26

// price_rules: prices and dates
void CheckMissingPrices(const CheckData& data, Findings& findings); ///< C27
void CheckPriceJumps(const CheckData& data, Findings& findings); ///< C28
void CheckSamePrices(const CheckData& data, Findings& findings); ///< C29
void CheckRepairLevy(const CheckData& data, Findings& findings); ///< C30
void CheckDeadline(const CheckData& data, Findings& findings); ///< C31
void CheckDates(const CheckData& data, Findings& findings); ///< C32

// bank_rules: club, bank and names
void CheckClubName(const CheckData& data, Findings& findings); ///< C33
void CheckIban(const CheckData& data, Findings& findings); ///< C34
void CheckBankFields(const CheckData& data, Findings& findings); ///< C35

// contact_rules
void CheckContacts(const CheckData& data, Findings& findings); ///< C36
void CheckContactTexts(const CheckData& data, Findings& findings); ///< C37

// page_rules: the pages as drawn
void CheckTotals(const CheckData& data, Findings& findings); ///< C38
void CheckWidths(const CheckData& data, Findings& findings); ///< C39
void CheckOddTotals(const CheckData& data, Findings& findings); ///< C40
void CheckPageFont(const CheckData& data, Findings& findings); ///< C41

// booking_rules: the bookings in memory
void CheckCashBoxBalance(const CheckData& data, Findings& findings); ///< C42
void CheckBookingDates(const CheckData& data, Findings& findings); ///< C44
void CheckBookingAmounts(const CheckData& data, Findings& findings); ///< C45
void CheckOddBookings(const CheckData& data, Findings& findings); ///< C46
void CheckExactBalance(const CheckData& data, Findings& findings); ///< C49

// ledger_rules: the files of the accounts and what is carried over
void CheckLedgerLines(const CheckData& data, Findings& findings); ///< C43
void CheckCarryOver(const CheckData& data, Findings& findings); ///< C47
void CheckMissingYears(const CheckData& data, Findings& findings); ///< C48

// payment_rules
void CheckPaidMarks(const CheckData& data, Findings& findings); ///< C50

// sent_rules: bills that went out
void CheckSentBills(const CheckData& data, Findings& findings); ///< C51
