// The frame of the booking that is typed: its fields, the calendar beside them and the marks that
// say what "OK" would do and what is not saved. What "OK" does stands in ledger_form.
#include "cashbook/booking_form.h"

#include "app/program.h"
#include "cashbook/booking_entry.h"
#include "controls/calendar.h"
#include "controls/fields.h"
#include "data/dates.h"
#include "data/german_numbers.h"

#include <QCalendarWidget>
#include <QFocusEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <memory>

namespace {

constexpr int date_characters = 11;
constexpr int amount_characters = 10;
constexpr int text_characters = 24;
constexpr int note_characters = 12;

const QString no_amount = QStringLiteral("0,00");

void MakeEntryFields(CashBookForm& form, QWidget* frame)
{
    const QString captions[] = { QStringLiteral("Datum"), QStringLiteral("Vorgang"),
        QStringLiteral("Einzahlen"), QStringLiteral("Abheben") };
    const int characters[]
        = { date_characters, text_characters, amount_characters, amount_characters };
    for (std::size_t i = 0; i < form.Text10.size(); ++i) {
        const bool amount = i >= 2;
        form.Text10[i]
            = Named(MakeField(frame, amount ? FieldKind::Amount : FieldKind::Text, characters[i],
                        captions[i], amount ? QStringLiteral("€") : QString()),
                QStringLiteral("Text10"), static_cast<int>(i));
    }
    form.Text10[0]->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    form.Text11 = Named(MakeField(frame, FieldKind::DisplayOnly, note_characters,
                            QStringLiteral("Raten Vereinbarung")),
        QStringLiteral("Text11"));
    form.Text11->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form.Text11->setToolTip(QStringLiteral("Nur ein Hinweis, er wird nicht gebucht"));
}

/// A text that is there while it has something to say.
QLabel* MakeMark(QWidget* frame, const QString& name)
{
    auto* mark = Named(new QLabel(frame), name);
    mark->setTextFormat(Qt::PlainText);
    mark->setBackgroundRole(QPalette::Base);
    mark->setMargin(FrameSpacing / 4);
    return mark;
}

/// A row of its own: its long caption would push the fields above it aside.
QHBoxLayout* BuildNoteRow(CashBookForm& form, QWidget* frame)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(MakeCaption(frame, form.Text11->accessibleName(), form.Text11));
    row->addWidget(form.Text11, 1);
    return row;
}

QString SemicolonToolTip(int field)
{
    return field == WithdrawalEntry
        ? QStringLiteral("Ein „;“ trennt die Felder: was dahinter steht, geht verloren")
        : QStringLiteral("Ein „;“ trennt die Felder: was dahinter steht, rückt in das nächste "
                         "Feld, und das letzte geht verloren");
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

/// The way back from another window or from the context menu: the field had the focus all along.
bool ComesBack(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

/// The whole amount is selected when the field is entered, by key or by mouse. The press that
/// enters it would set the caret, so the text is selected again when the button is let go.
void SelectOnFocus(Program& program, QLineEdit* amount)
{
    const auto pressed_in = std::make_shared<bool>(false);
    OnEvent(program, amount, QEvent::FocusIn, [amount, pressed_in](Program&, QEvent& event) {
        const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
        *pressed_in = reason == Qt::MouseFocusReason;
        if (!ComesBack(reason))
            amount->selectAll();
        return false;
    });
    OnEvent(program, amount, QEvent::MouseButtonRelease, [amount, pressed_in](Program&, QEvent&) {
        if (*pressed_in)
            amount->selectAll();
        *pressed_in = false;
        return false;
    });
}

/// Enter leads through the fields and from the last one to "OK".
void FieldEntered(Program& program, std::size_t field)
{
    const CashBookForm& form = program.CashBookTab;
    QWidget* next = form.Command12[0];
    if (field + 1 < form.Text10.size())
        next = form.Text10[field + 1];
    next->setFocus(Qt::TabFocusReason);
}

void ConnectFields(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    for (std::size_t i = 0; i < form.Text10.size(); ++i) {
        On(program, form.Text10[i], &QLineEdit::returnPressed,
            [i](Program& p) { FieldEntered(p, i); });
        On(program, form.Text10[i], &QLineEdit::textChanged,
            [i](Program& p) { ShowEntryState(p, static_cast<int>(i)); });
    }
    ShareOneLine({ form.Text10.begin(), form.Text10.end() }, LongestLine);
    SelectOnFocus(program, form.Text10[DepositEntry]);
    SelectOnFocus(program, form.Text10[WithdrawalEntry]);
}

void PickDay(Program& program, const QDate& day)
{
    program.CashBookTab.Text10[DateEntry]->setText(ShortDate(day));
}

void ConnectCalendar(Program& program)
{
    const QCalendarWidget* calendar = program.CashBookTab.Cal3;
    On(program, calendar, &QCalendarWidget::clicked, PickDay);
    On(program, calendar, &QCalendarWidget::activated, PickDay);
}

QString UnsavedText(const CashBookState& book)
{
    if (book.Bank.Unsaved && book.CashBox.Unsaved)
        return QStringLiteral("beide Konten nicht gespeichert");
    if (book.Bank.Unsaved)
        return QStringLiteral("Konto nicht gespeichert");
    return book.CashBox.Unsaved ? QStringLiteral("Handkasse nicht gespeichert") : QString();
}

} // namespace

QCalendarWidget* BuildCalendar(Program& program, QWidget* tab)
{
    CashBookForm& form = program.CashBookTab;
    form.Cal3
        = Named(MakeCalendar(tab, QStringLiteral("Buchungsdatum wählen")), QStringLiteral("Cal3"));
    form.Cal3->setToolTip(QStringLiteral("Ein Klick oder die Eingabetaste schreibt den Tag in das "
                                         "Feld „Datum“"));
    form.Cal3->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    ConnectCalendar(program);
    return form.Cal3;
}

QFrame* BuildBookingFrame(Program& program, QWidget* tab)
{
    CashBookForm& form = program.CashBookTab;
    auto* frame = new QFrame(tab);
    frame->setFrameShape(QFrame::StyledPanel);
    MakeEntryFields(form, frame);
    const auto caption = [&](std::size_t i) {
        return MakeCaption(frame, form.Text10[i]->accessibleName(), form.Text10[i]);
    };
    form.ReplaceMark = MakeMark(frame, QStringLiteral("ReplaceMark"));
    form.UnsavedMark = MakeMark(frame, QStringLiteral("UnsavedMark"));
    auto* grid = new QGridLayout(frame);
    grid->setSpacing(FrameSpacing);
    grid->setColumnStretch(3, 1);
    grid->addWidget(caption(0), 0, 0);
    grid->addWidget(form.Text10[0], 0, 1);
    grid->addWidget(form.ReplaceMark, 0, 2, 1, 2, Qt::AlignLeft);
    grid->addWidget(caption(1), 1, 0);
    grid->addWidget(form.Text10[1], 1, 1, 1, 3);
    grid->addWidget(caption(2), 2, 0);
    grid->addWidget(form.Text10[2], 2, 1);
    grid->addWidget(caption(3), 2, 2);
    grid->addWidget(form.Text10[3], 2, 3, Qt::AlignLeft);
    grid->addLayout(BuildNoteRow(form, frame), 3, 0, 1, 4);
    grid->setRowStretch(4, 1);
    grid->addWidget(form.UnsavedMark, 5, 0, 1, 4, Qt::AlignRight);
    ConnectFields(program);
    return frame;
}

LedgerEntry ReadEntry(const Program& program)
{
    return { program.CashBookTab.Text10[DateEntry]->text(),
        program.CashBookTab.Text10[TextEntry]->text(),
        program.CashBookTab.Text10[DepositEntry]->text(),
        program.CashBookTab.Text10[WithdrawalEntry]->text() };
}

void FillEntry(const Program& program, const LedgerEntry& booking)
{
    const CashBookForm& form = program.CashBookTab;
    form.Text10[DateEntry]->setText(booking.date);
    form.Text10[TextEntry]->setText(booking.text);
    form.Text10[DepositEntry]->setText(booking.deposit);
    if (IsNumber(booking.deposit))
        Tint(form.Text10[DepositEntry], TintKind::None); // a proposal may have said that it is none
    form.Text10[WithdrawalEntry]->setText(booking.withdrawal);
    for (QLineEdit* field : form.Text10)
        field->setCursorPosition(0); // a long text is shown from its beginning
}

void FillEmptyAmounts(Program& program)
{
    for (const std::size_t amount : { DepositEntry, WithdrawalEntry }) {
        QLineEdit* field = program.CashBookTab.Text10[amount];
        if (field->text().isEmpty())
            field->setText(no_amount);
    }
}

void ResetEntryFields(Program& program) { FillEntry(program, { {}, {}, no_amount, no_amount }); }

void ShowReplaceMark(const Program& program, int row)
{
    QLabel* mark = program.CashBookTab.ReplaceMark;
    mark->setText(row < 0 ? QString() : QStringLiteral("„OK“ ersetzt Zeile %1").arg(row + 1));
}

void ShowUnsavedMark(Program& program, Account shown)
{
    QLabel* mark = program.CashBookTab.UnsavedMark;
    const bool unread = LedgerOf(program.CashBook, shown).Unread;
    mark->setText(unread ? QStringLiteral("Datei nicht gelesen") : UnsavedText(program.CashBook));
    mark->setAutoFillBackground(!mark->text().isEmpty());
    if (unread)
        Tint(mark, TintKind::Wrong,
            QStringLiteral("Die Buchungen aus der Datei des Kontos fehlen hier. „Speichern“ liest "
                           "sie zuerst und fügt hinzu, was seither gebucht wurde."));
    else if (!mark->text().isEmpty())
        Tint(mark, TintKind::Unsaved,
            QStringLiteral("„Speichern“ schreibt die Buchungen des gezeigten Kontos in seine "
                           "Datei"));
    else
        Tint(mark, TintKind::None);
}

void FocusDate(const Program& program)
{
    program.CashBookTab.Text10.at(DateEntry)->setFocus(Qt::ShortcutFocusReason);
}
