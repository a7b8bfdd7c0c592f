// The entry form of the tab "Kontoführung": reading and filling its fields. The ledger above it
// stands in ledger_form.cpp.
#include "app/program.h"
#include "cashbook/booking_entry.h"
#include "cashbook/date_ordering.h"
#include "cashbook/texts.h"
#include "controls/fields.h"
#include "data/dates.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>

namespace {

enum EntryField { DateEntry, TextEntry, DepositEntry, WithdrawalEntry };

const QString no_amount = QStringLiteral("0,00");

BookingFields ReadBookingFields(const CashBookForm& form)
{
    return { form.Text10[DateEntry]->text(), form.Text10[TextEntry]->text(),
        form.Text10[DepositEntry]->text(), form.Text10[WithdrawalEntry]->text() };
}

void FillBookingFields(const CashBookForm& form, const BookingFields& booking)
{
    form.Text10[DateEntry]->setText(booking.date);
    form.Text10[TextEntry]->setText(booking.text);
    form.Text10[DepositEntry]->setText(booking.deposit);
    form.Text10[WithdrawalEntry]->setText(booking.withdrawal);
    for (QLineEdit* field : form.Text10)
        field->setCursorPosition(0); // a long text is shown from its beginning
}

/// Where the ledger holds a booking after sorting.
qsizetype RowOfBooking(const Program& program, const QString& line)
{
    return CurrentLedger(program).lastIndexOf(SortLedgerByDate({ line }).first());
}

QString SemicolonToolTip(int field)
{
    return field == WithdrawalEntry
        ? QStringLiteral("Ein „;“ trennt die Felder: was dahinter steht, geht verloren")
        : QStringLiteral("Ein „;“ trennt die Felder: was dahinter steht, rückt in das nächste "
                         "Feld, und das letzte geht verloren");
}

} // namespace

Account ShownAccount(const Program& program)
{
    const bool bank = program.CashBookTab.Command15->text() == SwitchToCashBox;
    return bank ? Account::Bank : Account::CashBox;
}

QStringList& CurrentLedger(Program& program)
{
    return LedgerOf(program.CashBook, ShownAccount(program));
}

const QStringList& CurrentLedger(const Program& program)
{
    return LedgerOf(program.CashBook, ShownAccount(program));
}

void ResetCashBook(Program& program)
{
    program.CashBook = {};
    program.CashBookTab.Command15->setText(SwitchToCashBox);
    for (const std::size_t amount : { DepositEntry, WithdrawalEntry }) {
        QLineEdit* field = program.CashBookTab.Text10[amount];
        if (field->text().isEmpty())
            field->setText(no_amount);
    }
}

void ResetEntryFields(Program& program)
{
    FillBookingFields(program.CashBookTab, { {}, {}, no_amount, no_amount });
    const QSignalBlocker silent(program.CashBookTab.List9);
    program.CashBookTab.List9->clearSelection();
}

void ShowEntryState(Program& program, int field)
{
    QLineEdit* control = program.CashBookTab.Text10[static_cast<std::size_t>(field)];
    const QString text = control->text();
    if (text.contains(QLatin1Char(';')))
        Tint(control, TintKind::Wrong, SemicolonToolTip(field));
    else if (field == DateEntry && !text.isEmpty() && !IsWellFormedDate(text))
        Tint(control, TintKind::Wrong, QStringLiteral("TT.MM.JJJJ"));
    else if (field == DateEntry || field == TextEntry)
        Tint(control, TintKind::None); // the amounts are tinted as all amounts are
}

void ShowCashBookNames(Program& program)
{
    QListWidget* list = program.CashBookTab.List4;
    const QSignalBlocker silent(list);
    const int scrolled = list->verticalScrollBar()->value();
    constexpr qsizetype longest_shown_name = 200;
    list->clear();
    for (const QString& name : program.Members.CashBookNameList)
        list->addItem(name.left(longest_shown_name));
    list->verticalScrollBar()->setValue(scrolled);
}

void ApplyEntryClicked(Program& program)
{
    const BookingFields booking = ReadBookingFields(program.CashBookTab);
    if (!IsComplete(booking))
        return; // nothing happens, and nothing is said
    const QString line = LineOfBooking(booking);
    ApplyEntry(program.CashBook, ShownAccount(program), line);
    ResetEntryFields(program);
    ShowLedger(program);
    ShowLedgerRow(program, RowOfBooking(program, line));
    program.CashBookTab.Text10[DateEntry]->setFocus(); // the next booking begins here
}

void DeleteEntryClicked(Program& program)
{
    if (!IsComplete(ReadBookingFields(program.CashBookTab)))
        return; // as with "OK"
    DeleteEntry(program.CashBook, ShownAccount(program));
    ResetEntryFields(program);
    ShowLedger(program);
}

void PickLedgerRow(Program& program, int row)
{
    CashBookState& book = program.CashBook;
    book.LedgerEditMode = true;
    book.SelectedLedgerRow = row + 1;
    FillBookingFields(
        program.CashBookTab, FieldsOfBooking(CurrentLedger(std::as_const(program)).value(row)));
    ShowCashBookMarks(program);
}

void PickDay(Program& program, const QDate& day)
{
    program.CashBookTab.Text10[DateEntry]->setText(ShortDate(day));
}

void PickPayee(Program& program, int position)
{
    program.CashBookTab.Text10[TextEntry]->setText(TextForPayee(position, program.Year.YearText));
}

void PickMember(Program& program, int position)
{
    if (ShownAccount(program) != Account::Bank)
        return; // members pay into the bank account
    const PaymentProposal proposal
        = ProposePayment(program.Members.CashBookNameList.value(position),
            program.Statement.StatementTotals.value(position),
            program.Members.InstalmentList.value(position));
    program.CashBookTab.Text10[TextEntry]->setText(proposal.text);
    program.CashBookTab.Text10[DepositEntry]->setText(proposal.deposit);
    program.CashBookTab.Text11->setText(proposal.note);
}
