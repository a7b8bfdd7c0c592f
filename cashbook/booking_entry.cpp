#include "cashbook/booking_entry.h"

#include "cashbook/texts.h"
#include "data/german_numbers.h"
#include "data/records.h"

namespace {

constexpr int payees_without_year = 3; // utilities and taxes are paid several times a year

QString SurnameOf(const QString& name)
{
    return name.section(QLatin1Char(','), 0, 0).section(QLatin1Char(' '), 0, 0);
}

double TotalOf(const QString& total, const QString& name)
{
    if (total.isEmpty())
        return 0.0;
    const ParsedDouble number = ParseTotal(total);
    if (number.outcome != NumberOutcome::Ok) {
        Place where;
        where.member = name;
        where.field = QStringLiteral("Gesamtsumme");
        where.content = total;
        where.remedy = QStringLiteral("Bitte „Laden“ drücken und die Abrechnung des Mitglieds "
                                      "ansehen.");
        throw RuntimeError { ErrorKind::TypeMismatch, where, {} };
    }
    return number.value;
}

} // namespace

LedgerEntry EntryOfLine(const QString& line)
{
    const QStringList fields = SplitRecord(line);
    return { FieldOrEmpty(fields, BookingDate), FieldOrEmpty(fields, BookingText),
        FieldOrEmpty(fields, Deposit), FieldOrEmpty(fields, Withdrawal) };
}

QString LineOfEntry(const LedgerEntry& booking)
{
    return JoinRecord({ booking.date, booking.text, booking.deposit, booking.withdrawal });
}

bool IsComplete(const LedgerEntry& booking)
{
    return !booking.date.isEmpty() && !booking.text.isEmpty();
}

QString TextForPayee(int position, const QString& year_text)
{
    const QString payee = RecurringPayees.value(position);
    return position < payees_without_year ? payee : payee + QLatin1Char(' ') + year_text;
}

PaymentProposal ProposePayment(
    const QString& name, const QString& total, const QString& instalments)
{
    PaymentProposal proposal;
    proposal.text = StatementText + SurnameOf(name);
    proposal.deposit = FormatNumber(TotalOf(total, name), QStringLiteral("0.00"));
    proposal.note = instalments + InstalmentsEnd;
    return proposal;
}
