#include "cashbook/ledger_file.h"

#include "cashbook/date_ordering.h"
#include "cashbook/ledger_rows.h"
#include "cashbook/texts.h"
#include "data/dates.h"
#include "data/german_numbers.h"
#include "data/records.h"

namespace {

constexpr int stored_balance = 4; // position of the fifth field

bool HasPointAtThirdCharacter(const QString& line)
{
    return SplitRecord(line)[BookingDate].indexOf(QLatin1Char('.')) == 2;
}

QString FirstLineWithoutBalance(const QString& line)
{
    const QStringList fields = SplitRecord(line);
    if (fields.size() <= stored_balance)
        return line;
    return JoinRecord(
        { fields[BookingDate], fields[BookingText], fields[stored_balance], fields[Withdrawal] });
}

QString LineWithoutBalance(const QString& line)
{
    const QStringList fields = SplitRecord(line);
    return fields.size() < LedgerFieldCount ? line : FirstFourFields(fields);
}

/// A file that was changed on another system: shown as one booking it would lose the second.
RuntimeError TwoBookingsInALine(const QString& name, int line)
{
    Place where;
    where.file = FileNameOf(name);
    where.line = line;
    where.remedy = QStringLiteral("Die Buchungen wurden nicht geladen, und die Datei wird nicht "
                                  "überschrieben. Bitte die Datei mit einem Textprogramm öffnen, "
                                  "die Zeile dort in zwei Zeilen teilen, die Datei sichern und "
                                  "„Laden“ drücken.");
    return { ErrorKind::File, where,
        QStringLiteral("In einer Zeile stehen zwei Buchungen, die ein anderes Zeilenende (LF) "
                       "trennt.") };
}

QString FieldCaption(int field)
{
    return field == Deposit ? QStringLiteral("Einzahlen") : QStringLiteral("Abheben");
}

} // namespace

QStringList ReadLedgerLines(const DataFiles& files, const QString& name)
{
    const QStringList lines = ReadLinesUpToEmpty(files, name, MostBookings);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].contains(u'\n'))
            throw TwoBookingsInALine(name, static_cast<int>(i) + 1);
    }
    return lines;
}

QStringList WithoutStoredBalances(const QStringList& lines)
{
    if (lines.isEmpty() || !HasPointAtThirdCharacter(lines.last()))
        return lines;
    QStringList rewritten { FirstLineWithoutBalance(lines.first()) };
    rewritten.reserve(lines.size());
    for (qsizetype i = 1; i < lines.size(); ++i)
        rewritten += LineWithoutBalance(lines[i]);
    return rewritten;
}

QStringList ReadLedger(const DataFiles& files, const QString& name)
{
    return SortLedgerByDate(WithoutStoredBalances(ReadLedgerLines(files, name)));
}

void WriteLedger(const DataFiles& files, const QString& name, const QStringList& ledger)
{
    RewriteLines(files, name, ledger, MostBookings);
}

CarryOver MakeCarryOver(
    const QStringList& previous_lines, const QString& previous_year, const QDate& today)
{
    CarryOver carry_over;
    float balance = 0.0F;
    for (qsizetype i = 0; i < previous_lines.size(); ++i) {
        const CountedAmounts counted = AddToBalance(balance, previous_lines[i]);
        const QStringList fields = SplitRecord(previous_lines[i]);
        const int line = static_cast<int>(i) + 1;
        if (!counted.deposit)
            carry_over.uncounted += { line, Deposit, FieldOrEmpty(fields, Deposit) };
        if (!counted.withdrawal)
            carry_over.uncounted += { line, Withdrawal, FieldOrEmpty(fields, Withdrawal) };
    }
    carry_over.line = JoinRecord({ ShortDate(today), CarryOverText + previous_year,
        FormatNumber(balance, QStringLiteral("####0.00")), QStringLiteral("0,00") });
    return carry_over;
}

std::optional<RuntimeError> UncountedError(
    const CarryOver& carry_over, const QString& file_name, const QString& previous_year)
{
    if (carry_over.uncounted.isEmpty())
        return std::nullopt;
    const UncountedAmount& first = carry_over.uncounted.first();
    Place where;
    where.file = file_name;
    where.line = first.line;
    where.field = FieldCaption(first.field);
    where.content = first.content;
    where.remedy = QStringLiteral("Dieser Betrag ist keine Zahl und zählt im Übertrag als 0. ");
    if (const qsizetype others = carry_over.uncounted.size() - 1; others > 0)
        where.remedy += QStringLiteral("Ebenso %1 weitere Beträge dieser Datei. ").arg(others);
    where.remedy += QStringLiteral("Bitte den Übertrag prüfen: die Zeile „%1%2“ anklicken, den "
                                   "Betrag berichtigen, „OK“ und „Speichern“ drücken.")
                        .arg(CarryOverText, previous_year);
    return RuntimeError { ErrorKind::TypeMismatch, where, {} };
}
