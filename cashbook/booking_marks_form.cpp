#include "cashbook/booking_marks_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "data/dates.h"

#include <QLabel>
#include <QLineEdit>

namespace {

QString SemicolonToolTip(int field)
{
    return field == WithdrawalEntry
        ? QStringLiteral("Ein „;“ trennt die Felder: was dahinter steht, geht verloren")
        : QStringLiteral("Ein „;“ trennt die Felder: was dahinter steht, rückt in das nächste "
                         "Feld, und das letzte geht verloren");
}

/// The year whose bookings are shown.
BillingYear ShownYear(const Program& program)
{
    const YearState& year = program.Year;
    return year.LoadedYear.isEmpty() ? year.YearText : year.LoadedYear;
}

void ShowDateState(const Program& program)
{
    QLineEdit* date = program.CashBookTab.Text10[DateEntry];
    const QString text = date->text();
    const QString year = ShownYear(program);
    if (!text.isEmpty() && !IsWellFormedDate(text))
        Tint(date, TintKind::Wrong, QStringLiteral("TT.MM.JJJJ"));
    else if (!text.isEmpty() && !text.endsWith(year))
        Tint(date, TintKind::Doubtful, QStringLiteral("Der Tag liegt nicht im Jahr %1").arg(year));
    else
        Tint(date, TintKind::None);
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

QLabel* BuildUnsavedMark(Program& program, QWidget* frame)
{
    auto* mark = Named(new QLabel(frame), QStringLiteral("UnsavedMark"));
    mark->setTextFormat(Qt::PlainText);
    mark->setBackgroundRole(QPalette::Base);
    mark->setMargin(FrameSpacing / 4);
    program.CashBookTab.UnsavedMark = mark;
    return mark;
}

void ShowEntryState(const Program& program, int field)
{
    QLineEdit* control = program.CashBookTab.Text10[static_cast<std::size_t>(field)];
    const QString text = control->text();
    if (text.contains(QLatin1Char(';')))
        Tint(control, TintKind::Wrong, SemicolonToolTip(field));
    else if (field == DateEntry)
        ShowDateState(program);
    else if (field != TextEntry && text.isEmpty())
        Tint(control, TintKind::Doubtful, QStringLiteral("Leer zählt der Betrag als 0,00"));
    else if (field == TextEntry || TintOf(control) == TintKind::Doubtful)
        Tint(control, TintKind::None); // all else is said as with every amount
}

void ShowEntryStates(const Program& program)
{
    for (int field = DateEntry; field < EntryFieldCount; ++field)
        ShowEntryState(program, field);
}

void TintMissing(const Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    if (form.Text10[DateEntry]->text().isEmpty())
        Tint(form.Text10[DateEntry], TintKind::Wrong, QStringLiteral("Hier fehlt das Datum"));
    if (form.Text10[TextEntry]->text().isEmpty())
        Tint(form.Text10[TextEntry], TintKind::Wrong, QStringLiteral("Hier fehlt der Vorgang"));
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
