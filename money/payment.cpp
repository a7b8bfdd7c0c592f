#include "money/payment.h"

#include "data/runtime_error.h"
#include "money/member_matching.h"

using namespace Qt::StringLiterals;

const MemberIndex& IndexOf(ClubYears& years, int year)
{
    const auto known = years.Indexes.find(year);
    if (known != years.Indexes.end())
        return known->second;
    QStringList records;
    try {
        if (years.Known.WithMembers.contains(year))
            records = years.ReadRecords(year);
    } catch (const RuntimeError&) {
        years.Unreadable += year; // the report names it, and the other years go on
    }
    return years.Indexes.emplace(year, MakeMemberIndex(records)).first->second;
}

Payment AssessYear(const KnownYears& known, const QString& text, Cents amount, int ledger_year,
    const std::optional<QDate>& date)
{
    Payment payment;
    const PaymentKind kind = amount == 0 ? PaymentKind::None : PaymentKindOf(Folded(text));
    if (kind == PaymentKind::SpecialBilling)
        payment.Finding = PaymentFinding::SpecialBilling;
    if (kind == PaymentKind::UnknownWord && amount > 0)
        payment.Finding = PaymentFinding::UnknownWord;
    if (kind != PaymentKind::Payment)
        return payment;
    payment.Text = ReadPaymentText(text);
    const BillYear bill = BillYearOf(payment.Text.Years, ledger_year, date, known);
    payment.Year = bill.Year;
    payment.Finding = PaymentFinding::OfYear;
    if (bill.Doubt == YearDoubt::SeveralYears)
        payment.Finding = PaymentFinding::SeveralYears;
    if (bill.Doubt == YearDoubt::NoMembersFile)
        payment.Finding = PaymentFinding::NoMembersFile;
    return payment;
}

void FindPayers(ClubYears& years, Payment& payment)
{
    if (payment.Finding == PaymentFinding::OfYear)
        payment.Members = MatchMembers(IndexOf(years, payment.Year), payment.Text);
}

Payment AssessPayment(ClubYears& years, const QString& text, Cents amount, int ledger_year,
    const std::optional<QDate>& date)
{
    Payment payment = AssessYear(years.Known, text, amount, ledger_year, date);
    FindPayers(years, payment);
    return payment;
}

QString ReasonOf(const Payment& payment)
{
    switch (payment.Finding) {
    case PaymentFinding::SpecialBilling:
        return u"Sonderabrechnung"_s;
    case PaymentFinding::UnknownWord:
        return u"Wort nicht erkannt"_s;
    case PaymentFinding::SeveralYears:
        return u"mehrere Jahre"_s;
    case PaymentFinding::NoMembersFile:
        return u"kein Mitgliederverzeichnis"_s;
    case PaymentFinding::OfYear:
        if (payment.Members.isEmpty())
            return u"kein Mitglied"_s;
        return payment.Members.size() == 1 ? QString() : u"mehrere Mitglieder"_s;
    case PaymentFinding::None:
        break;
    }
    return {};
}
