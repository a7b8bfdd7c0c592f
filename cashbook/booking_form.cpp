// The frame of the booking that is typed: its fields and the calendar beside them. What is wrong
// with them stands in booking_marks_form, what "OK" does in booking_buttons_form.
#include "cashbook/booking_form.h"

#include "app/program.h"
#include "cashbook/booking_entry.h"
#include "cashbook/booking_marks_form.h"
#include "cashbook/texts.h"
#include "controls/calendar.h"
#include "controls/fields.h"
#include "data/dates.h"
#include "data/german_numbers.h"

#include <QCalendarWidget>
#include <QFocusEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <memory>
#include <optional>

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

/// A row of its own: its long caption would push the fields above it aside.
QHBoxLayout* BuildNoteRow(CashBookForm& form, QWidget* frame)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(MakeCaption(frame, form.Text11->accessibleName(), form.Text11));
    row->addWidget(form.Text11, 1);
    return row;
}

/// The date by keys: a day on or back, a month on or back; today where there is none yet.
bool DateKeyPressed(Program& program, QEvent& event)
{
    QLineEdit* field = program.CashBookTab.Text10[DateEntry];
    const std::optional<QDate> day = ParseDate(field->text());
    const auto& press = static_cast<const QKeyEvent&>(event);
    const auto step = [&](auto stepped) {
        if (day || field->text().isEmpty())
            field->setText(ShortDate(day ? stepped(*day) : program.Today()));
        return true;
    };
    switch (press.key()) {
    case Qt::Key_Up:
        return step([](const QDate& date) { return date.addDays(1); });
    case Qt::Key_Down:
        return step([](const QDate& date) { return date.addDays(-1); });
    case Qt::Key_PageUp:
        return step([](const QDate& date) { return date.addMonths(1); });
    case Qt::Key_PageDown:
        return step([](const QDate& date) { return date.addMonths(-1); });
    default:
        return false;
    }
}

/// The note belongs to a payment; to another booking it says nothing.
void TextEdited(const Program& program, const QString& text)
{
    if (!text.contains(StatementWord))
        program.CashBookTab.Text11->clear();
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
    On(program, form.Text10[TextEntry], &QLineEdit::textEdited, TextEdited);
    OnEvent(program, form.Text10[DateEntry], QEvent::KeyPress, DateKeyPressed);
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
    auto* grid = new QGridLayout(frame);
    grid->setSpacing(FrameSpacing);
    grid->setColumnStretch(3, 1);
    grid->addWidget(caption(0), 0, 0);
    grid->addWidget(form.Text10[0], 0, 1);
    grid->addWidget(caption(1), 1, 0);
    grid->addWidget(form.Text10[1], 1, 1, 1, 3);
    grid->addWidget(caption(2), 2, 0);
    grid->addWidget(form.Text10[2], 2, 1);
    grid->addWidget(caption(3), 2, 2);
    grid->addWidget(form.Text10[3], 2, 3, Qt::AlignLeft);
    grid->addLayout(BuildNoteRow(form, frame), 3, 0, 1, 4);
    grid->setRowStretch(4, 1);
    grid->addWidget(BuildUnsavedMark(program, frame), 5, 0, 1, 4, Qt::AlignRight);
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
    ShowEntryStates(program);
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

void FocusDate(const Program& program)
{
    program.CashBookTab.Text10.at(DateEntry)->setFocus(Qt::ShortcutFocusReason);
}
