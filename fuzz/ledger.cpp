// Ledger: loaded, changed, sorted, shown, saved and loaded again through real files, against a
// second, naive cash book. The input is the ledger's file; behind a line "====" one action a line:
// "+" and a booking is "OK", "e3" clicks row 3, "d" is "Löschen", all else only shows the ledger.
#include "cashbook/ledger.h"
#include "cashbook/date_ordering.h"
#include "cashbook/ledger_file.h"
#include "cashbook/ledger_rows.h"
#include "data/ansi_text.h"
#include "data/collation.h"
#include "data/dates.h"
#include "data/german_numbers.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace Qt::StringLiterals;

QString Part(const QString& line, int position) { return line.split(u';').value(position); }

QString FourParts(const QString& line)
{
    return Part(line, 0) + u';' + Part(line, 1) + u';' + Part(line, 2) + u';' + Part(line, 3);
}

// Character by character, as the places of "dd.mm.yyyy" say.
QString NaiveKey(const QString& line)
{
    const QString date = Part(line, 0);
    QString year = date;
    while (year.size() > 4)
        year.remove(0, 1);
    QString month;
    for (qsizetype i = 3; i < 5 && i < date.size(); ++i)
        month += date[i];
    return year + month + date.left(2) + FourParts(line).mid(date.size());
}

QString NaiveLine(const QString& key_line)
{
    const QString key = key_line.left(key_line.indexOf(u';'));
    QString day = key;
    while (day.size() > 2)
        day.remove(0, 1);
    return day + u'.' + key.mid(4, 2) + u'.' + key.left(4) + key_line.mid(key.size());
}

QStringList NaiveSort(const QStringList& lines)
{
    QStringList keys;
    for (const QString& line : lines) {
        const QString key = NaiveKey(line);
        qsizetype place = keys.size();
        while (place > 0 && CompareTexts(keys[place - 1], key) > 0)
            --place;
        keys.insert(place, key);
    }
    for (QString& key : keys)
        key = NaiveLine(key);
    return keys;
}

QStringList LinesUpToEmpty(const QByteArray& content)
{
    const QStringList lines = NaiveLines(content);
    const qsizetype empty = lines.indexOf(QString());
    return empty < 0 ? lines : lines.first(empty);
}

QStringList NaiveLoad(const QByteArray& content)
{
    QStringList lines = LinesUpToEmpty(content);
    if (lines.isEmpty() || Part(lines.constLast(), 0).indexOf(u'.') != 2)
        return NaiveSort(lines);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const qsizetype parts = lines[i].count(u';') + 1;
        if (i > 0 && parts >= 4)
            lines[i] = FourParts(lines[i]);
        else if (i == 0 && parts >= 5)
            lines[i] = Part(lines[i], 0) + u';' + Part(lines[i], 1) + u';' + Part(lines[i], 4)
                + u';' + Part(lines[i], 3);
    }
    return NaiveSort(lines);
}

struct NaiveBook {
    QStringList lines;
    bool edit = false;
    int row = 0;
};

void NaiveApply(NaiveBook& book, const QString& line)
{
    const int count = static_cast<int>(book.lines.size());
    QStringList changed = book.lines;
    bool placed = false;
    if (book.edit && count == 1) {
        changed = QStringList(line);
        placed = true;
    } else if (book.edit) {
        for (int i = 0; i < count; ++i) {
            placed = placed || i == book.row - 1;
            changed[i] = i == book.row - 1 ? line : FourParts(book.lines[i]);
        }
    }
    if (!placed)
        changed += line;
    book = { changed, false, 0 };
}

// One step of the balance; an amount that is none, or too large, counts nothing.
void Count(float& balance, const QString& amount, float factor)
{
    const ParsedSingle number = ParseSingle(amount);
    const float sum = balance + factor * number.value;
    if (number.outcome == NumberOutcome::Ok && std::isfinite(sum))
        balance = sum;
}

void CheckShown(const QStringList& lines)
{
    const LedgerRows rows = MakeLedgerRows(lines);
    float balance = 0.0F;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        Count(balance, Part(lines[i], 2), 1.0F);
        Count(balance, Part(lines[i], 3), -1.0F);
        const LedgerRow row = RowAt(rows, i);
        Require(row.key == u"Zeile "_s + QString::number(i + 1), "key", row.key);
        Require(row.date == FormatDateText(Part(lines[i], 0)), "date", row.date);
        Require(row.text == Part(lines[i], 1), "text", row.text);
        Require(row.deposit == FormatText(Part(lines[i], 2), u"#0.00 €"_s), "deposit", row.deposit);
        Require(
            row.withdrawal == FormatText(Part(lines[i], 3), u"#0.00 €"_s), "withdrawal", lines[i]);
        Require(row.balance == FormatNumber(balance, u"#0.00 €"_s), "running balance", lines[i]);
    }
    Require(ClosingBalance(rows) == balance, "closing balance", lines.join(u'\n'));
    const QString shown = CurrentBalanceText(balance);
    Require(!shown.contains(u"-0,00"_s), "nothing is not less than nothing", shown);
    const CarryOver carried = MakeCarryOver(lines, u"2016"_s, QDate(2017, 3, 5));
    Require(carried.line
            == u"05.03.2017;Übertrag Saldo 2016;"_s + FormatNumber(balance, u"####0.00"_s)
                + u";0,00"_s,
        "the balance is carried over", carried.line);
}

void CheckSaved(const QStringList& lines, const DataFiles& files)
{
    WriteLedger(files, u"\\Konto2016.pz"_s, lines);
    QByteArray expected;
    for (const QString& line : lines)
        expected += EncodeAnsi(line) + "\r\n";
    Require(FileBytes(files, "Konto2016.pz") == expected, "the same bytes", lines.join(u'\n'));
    Require(ReadLedger(files, u"\\Konto2016.pz"_s) == NaiveLoad(expected), "loaded again");
}

// A line end of another system inside a line: shown, the second booking would be lost.
bool HasTwoBookingsInALine(const QByteArray& content)
{
    return LinesUpToEmpty(content).join(QString()).contains(u'\n');
}

void CheckRefused(const QByteArray& content, const DataFiles& files)
{
    bool refused = false;
    try {
        ReadLedger(files, u"\\Konto2016.pz"_s);
    } catch (const RuntimeError& error) {
        refused = error.kind == ErrorKind::File;
    }
    Require(refused, "two bookings in a line are not loaded");
    Require(FileBytes(files, "Konto2016.pz") == content, "and stay as they are");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray actions = InputBytes(data, size);
    const qsizetype mark = actions.indexOf("====\n");
    const QByteArray content = mark < 0 ? actions : actions.left(mark);
    actions = mark < 0 ? QByteArray() : actions.mid(mark + 5);
    const DataFiles files = EmptyScratchFiles();
    PutFile(files, "Konto2016.pz", content);
    if (HasTwoBookingsInALine(content)) {
        CheckRefused(content, files);
        return 0;
    }

    NaiveBook naive { NaiveLoad(content) };
    CashBookState book;
    book.Bank.Lines = ReadLedger(files, u"\\Konto2016.pz"_s);
    Require(book.Bank.Lines == naive.lines, "the same lines are loaded", naive.lines.join(u'\n'));
    CheckShown(book.Bank.Lines);
    while (!actions.isEmpty()) {
        const QString action = DecodeAnsi(CutFront(actions, '\n'));
        if (action.startsWith(u'+')) {
            ApplyEntry(book, Account::Bank, action.mid(1));
            NaiveApply(naive, action.mid(1));
        } else if (action.startsWith(u'e')) {
            book.LedgerEditMode = naive.edit = true;
            book.SelectedLedgerRow = naive.row = action.mid(1).toInt();
        } else if (action.startsWith(u'd')) {
            const bool there = naive.row >= 1 && naive.row <= naive.lines.size();
            try {
                DeleteEntry(book, Account::Bank);
                Require(there, "only what is there is removed", action);
                naive.lines.removeAt(naive.row - 1);
            } catch (const RuntimeError& error) {
                Require(!there && error.kind == ErrorKind::InvalidIndex, "else an error", action);
            }
        }
        book.Bank.Lines = SortLedgerByDate(book.Bank.Lines);
        naive.lines = NaiveSort(naive.lines);
        Require(book.Bank.Lines == naive.lines, "the same lines", naive.lines.join(u'\n'));
        Require(book.LedgerEditMode == naive.edit && book.SelectedLedgerRow == naive.row,
            "the same row");
    }
    CheckShown(book.Bank.Lines);
    CheckSaved(book.Bank.Lines, files);
    return 0;
}
