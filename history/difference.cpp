#include "history/difference.h"

#include "data/records.h"
#include "history/file_kinds.h"
#include "history/ini_difference.h"
#include "history/line_difference.h"
#include "history/state_lines.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How the lines of a kind of file are told.
struct LineWords {
    QString One; ///< "Mitglied"
    QString Many; ///< "Mitglieder"
    QString (*Name)(const QString& line); ///< what makes two lines the same one
    QString (*Added)(const QString& line);
    QString (*Removed)(const QString& line);
    QString (*Changed)(const QString& before, const QString& after);
};

QString Shown(const QString& text) { return text.isEmpty() ? u"(leer)"_s : text; }

// --- members ----------------------------------------------------------------------------------

QString MemberName(const QString& line) { return NameEntry(SplitRecord(line)); }
QString MemberAdded(const QString& line) { return MemberName(line) + u" dazu"_s; }
QString MemberRemoved(const QString& line) { return MemberName(line) + u" gelöscht"_s; }

QString CaptionOf(qsizetype field)
{
    const QString caption = MemberFieldCaption(static_cast<int>(field));
    return caption.isEmpty() ? u"Feld %1"_s.arg(field + 1) : caption;
}

QString MemberChanged(const QString& before, const QString& after)
{
    const QStringList old_fields = SplitRecord(before);
    const QStringList new_fields = SplitRecord(after);
    QStringList changes;
    for (qsizetype i = 0; i < std::max(old_fields.size(), new_fields.size()); ++i) {
        if (old_fields.value(i) != new_fields.value(i))
            changes += CaptionOf(i) + u' ' + Shown(old_fields.value(i)) + u" → "_s
                + Shown(new_fields.value(i));
    }
    return MemberName(before) + u": "_s
        + (changes.isEmpty() ? u"Trennzeichen am Ende"_s : changes.join(u", "_s));
}

// --- bookings ---------------------------------------------------------------------------------

QString AmountOf(const QStringList& fields)
{
    const auto is_nothing
        = [](const QString& amount) { return amount.isEmpty() || amount == u"0,00"_s; };
    const QString withdrawal = FieldOrEmpty(fields, Withdrawal);
    const QString deposit = FieldOrEmpty(fields, Deposit);
    if (is_nothing(withdrawal))
        return deposit;
    return (is_nothing(deposit) ? QString() : deposit + u' ') + u'-' + withdrawal;
}

QString BookingWords(const QString& line)
{
    const QStringList fields = SplitRecord(line);
    return FieldOrEmpty(fields, BookingDate) + u' ' + FieldOrEmpty(fields, BookingText) + u' '
        + AmountOf(fields);
}

/// Bookings have no name: only a single one that gave way to a single other is the same, changed.
QString NoName(const QString& line) { return line; }
QString BookingAdded(const QString& line) { return u"Buchung dazu: "_s + BookingWords(line); }
QString BookingRemoved(const QString& line) { return u"Buchung gelöscht: "_s + BookingWords(line); }

QString BookingChanged(const QString& before, const QString& after)
{
    return u"Buchung geändert: "_s + BookingWords(before) + u" → "_s + BookingWords(after);
}

const LineWords member_words { u"Mitglied"_s, u"Mitglieder"_s, MemberName, MemberAdded,
    MemberRemoved, MemberChanged };
const LineWords booking_words { u"Buchung"_s, u"Buchungen"_s, NoName, BookingAdded, BookingRemoved,
    BookingChanged };

// --- sums -------------------------------------------------------------------------------------

QString Counted(const LineWords& words, qsizetype count, const QString& what)
{
    return u"%1 %2 %3"_s.arg(count).arg(count == 1 ? words.One : words.Many, what);
}

DifferenceWords SumOf(const LineWords& words, const LineDifference& difference)
{
    DifferenceWords result;
    QStringList parts;
    const auto add = [&](qsizetype count, const QString& what) {
        if (count > 0)
            parts += Counted(words, count, what);
    };
    add(difference.Added.size(), u"dazu"_s);
    add(difference.Removed.size(), u"gelöscht"_s);
    add(difference.Changed.size(), u"geändert"_s);
    for (const QString& line : difference.Added)
        result.Single += words.Added(line);
    for (const QString& line : difference.Removed)
        result.Single += words.Removed(line);
    for (const ChangedLine& line : difference.Changed)
        result.Single += words.Changed(line.Before, line.After);
    result.Short = parts.join(u", "_s);
    return result;
}

/// One sentence alone is its own sum.
DifferenceWords Summed(DifferenceWords words, const QString& when_none)
{
    if (words.Single.isEmpty())
        return { when_none, {} };
    if (words.Single.size() == 1)
        return { words.Single.first(), {} };
    return words;
}

DifferenceWords WordsOfLines(
    const LineWords& words, const QByteArray& before, const QByteArray& after)
{
    const QStringList old_lines = LinesOfState(before);
    const QStringList new_lines = LinesOfState(after);
    const LineDifference difference = DifferenceOfLines(old_lines, new_lines, words.Name);
    const bool is_order = old_lines != new_lines;
    return Summed(SumOf(words, difference),
        is_order ? u"andere Reihenfolge"_s : u"nur Zeilenenden geändert"_s);
}

DifferenceWords WordsOfIni(FileKind kind, const QByteArray& before, const QByteArray& after)
{
    const QStringList changes = IniChanges(kind, before, after);
    return Summed({ u"%1 Angaben geändert"_s.arg(changes.size()), changes },
        u"nur die Schreibweise der Datei geändert"_s);
}

QString FirstLineOf(const QByteArray& content) { return Shown(LinesOfState(content).value(0)); }

} // namespace

DifferenceWords WordsOfDifference(
    const QString& target, const std::optional<QByteArray>& before, const QByteArray& after)
{
    if (before == after)
        return { u"unverändert gespeichert"_s, {} };
    if (!before && after.isEmpty())
        return { u"leer angelegt"_s, {} };
    const QByteArray old_content = before.value_or(QByteArray());
    const FileKind kind = KindOf(target).Kind;
    switch (kind) {
    case FileKind::Members:
        return WordsOfLines(member_words, old_content, after);
    case FileKind::BankLedger:
    case FileKind::CashBoxLedger:
        return WordsOfLines(booking_words, old_content, after);
    case FileKind::Prices:
    case FileKind::Bank:
        return WordsOfIni(kind, old_content, after);
    case FileKind::ClubName:
        return { u"Vereinsname: "_s + FirstLineOf(old_content) + u" → "_s + FirstLineOf(after),
            {} };
    case FileKind::Other:
        break;
    }
    return { before ? u"geändert"_s : u"neu"_s, {} };
}
