#include "check/check_form.h"

#include "app/follow_link.h"
#include "app/program.h"
#include "app/texts.h"
#include "cashbook/ledger_rows.h"
#include "check/check.h"
#include "check/check_data.h"
#include "check/check_layout.h"
#include "controls/fields.h"
#include "members/member_fields_form.h"
#include "settings/bank_frames_form.h"
#include "settings/price_frame_form.h"
#include "statement/page_player.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString kind_name = u"Check"_s;

// --- what is not saved ------------------------------------------------------------------------

/// The first field from begin to end whose text is not the record's, -1: none.
int FirstChangedField(const MemberRecord& typed, const MemberRecord& stored, int begin, int end)
{
    for (int field = begin; field < end; ++field) {
        if (typed.value(field) != stored.value(field))
            return field;
    }
    return -1;
}

void AddUnsavedMember(std::vector<UnsavedPart>& parts, const Program& program)
{
    const qsizetype place = program.Member.CurrentMember;
    const MemberRecord typed = TypedRecord(program.MembersTab);
    const MemberRecord stored = SplitRecord(program.Members.RecordList.value(place));
    const MemberRecord& named = place < 0 ? typed : stored;
    const QString name = DisplayName(FieldOrEmpty(named, Surname), FieldOrEmpty(named, FirstName),
        place < 0 ? program.Members.RecordList.size() : place);
    const int changed = FirstChangedField(typed, stored, Surname, ElectricityStart);
    if (changed >= 0)
        parts.push_back({ u"Angaben von "_s + name, ControlTarget(ControlOfMemberField(changed)) });
    const int reading = FirstChangedField(typed, stored, ElectricityStart, MemberFieldCount);
    if (reading >= 0)
        parts.push_back(
            { u"Zählerstände von "_s + name, ControlTarget(ControlOfMemberField(reading)) });
}

QString ChangedPriceControl(const PriceSettings& shown, const PriceSettings& in_force)
{
    for (std::size_t field = 0; field < PriceCount; ++field) {
        if (PriceText(shown, field) != PriceText(in_force, field))
            return u"Text4(%1)"_s.arg(field);
    }
    if (shown.BillingDate != in_force.BillingDate)
        return u"Calendar1"_s;
    if (shown.PaymentDeadline != in_force.PaymentDeadline)
        return u"Calendar2"_s;
    return shown.ElectricityPrepayment != in_force.ElectricityPrepayment ? u"Check1"_s
                                                                         : u"Check2"_s;
}

QString ChangedBankControl(const BankSettings& shown, const BankSettings& in_force)
{
    for (std::size_t field = 0; field < BankFieldCount; ++field) {
        if (BankText(shown, field) != BankText(in_force, field))
            return u"Text6(%1)"_s.arg(field);
    }
    return u"C1"_s;
}

void AddUnsavedBookings(std::vector<UnsavedPart>& parts, const Program& program)
{
    const LinkTarget save = ControlTarget(u"Command12(0)"_s);
    if (program.CashBook.Bank.Unsaved)
        parts.push_back({ u"Buchungen im Konto"_s, save });
    if (program.CashBook.CashBox.Unsaved)
        parts.push_back({ u"Buchungen in der Handkasse"_s, save });
}

std::vector<UnsavedPart> UnsavedPartsOf(const Program& program)
{
    std::vector<UnsavedPart> parts;
    AddUnsavedMember(parts, program);
    if (PricesDiffer(program))
        parts.push_back({ u"Preise und Termine"_s,
            ControlTarget(ChangedPriceControl(ReadPriceFields(program), program.Prices)) });
    if (BankDiffers(program))
        parts.push_back({ u"Bank und Namen"_s,
            ControlTarget(ChangedBankControl(ReadBankFields(program), program.Bank)) });
    AddUnsavedBookings(parts, program);
    return parts;
}

CheckAccount AccountOf(const Ledger& ledger)
{
    CheckAccount account { ledger.Lines, 0.0F, ledger.Unread };
    for (const QString& line : ledger.Lines)
        AddToBalance(account.ShownBalance, line);
    return account;
}

Report MakeCheckReport(Program& program, const ReportChoices& choices)
{
    const CheckSource source = CheckSourceOf(program);
    const CheckResult result = RunCheck(source);
    const QString& year = source.LoadedYear.isEmpty() ? source.YearText : source.LoadedYear;
    return LayOutCheck(result, year, source.Today, choices);
}

} // namespace

CheckSource CheckSourceOf(const Program& program)
{
    const CashBookState& book = program.CashBook;
    CheckSource source;
    source.Files = program.Files;
    source.YearText = program.Year.YearText;
    source.LoadedYear = program.Year.LoadedYear;
    source.Today = program.Today();
    source.ClubName = program.ClubName;
    source.ClubNameHint = ClubNameHint;
    source.ClubNameBoxShown = program.Window.Text5->isVisibleTo(program.Window.Text5->window());
    source.Members = program.Members;
    source.Prices = program.Prices;
    source.Bank = program.Bank;
    source.Accounts = { AccountOf(book.Bank), AccountOf(book.CashBox) };
    source.Statement = program.Statement;
    source.Unsaved = UnsavedPartsOf(program);
    source.WidthOf = TextWidth;
    return source;
}

void ShowCheckReport(Program& program)
{
    ShowReport(program, { kind_name, u"Prüfbericht"_s, MakeCheckReport, {} });
}

void AnnounceErrors(Program& program)
{
    QPushButton* more = program.Window.More.More;
    const qsizetype errors = RunCheck(CheckSourceOf(program)).Errors;
    if (errors == 0)
        return Tint(more, TintKind::None);
    Tint(more, TintKind::Wrong, u"Der Prüfbericht hat %1 Fehler gefunden (F9)"_s.arg(errors));
}
