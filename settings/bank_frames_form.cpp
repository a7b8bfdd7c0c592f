// The frames "Bankverbindung", "Kassenwart" and "Ansprechpartner" of the tab "Einstellungen".
#include "settings/bank_frames_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"

#include <QComboBox>
#include <QCompleter>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringListModel>

#include <algorithm>

namespace {

QLineEdit* AddBankField(
    SettingsForm& form, QGroupBox* frame, int index, const QString& caption, const QString& says)
{
    QLineEdit* field = Named(
        MakeField(frame, FieldKind::Text, TextCharacters, says), QStringLiteral("Text6"), index);
    form.Text6[static_cast<std::size_t>(index)] = field;
    AddRow(GridOf(frame), caption, field);
    return field;
}

QGroupBox* BuildBankFrame(SettingsForm& form, QWidget* parent)
{
    QGroupBox* frame = MakeFrame(parent, QStringLiteral("Bankverbindung"));
    AddBankField(form, frame, 0, QStringLiteral("Bankname"), QStringLiteral("Bankname"));
    AddBankField(form, frame, 1, QStringLiteral("IBAN"), QStringLiteral("IBAN"));
    AddBankField(form, frame, 2, QStringLiteral("BIC"), QStringLiteral("BIC"));
    return frame;
}

QComboBox* MakeSalutation(QWidget* parent)
{
    auto* salutation = Named(new QComboBox(parent), QStringLiteral("C1"));
    salutation->setEditable(true);
    salutation->setLineEdit(MakeField(
        salutation, FieldKind::Text, AmountCharacters, QStringLiteral("Anrede eingeben")));
    salutation->setAccessibleName(QStringLiteral("Anrede"));
    salutation->addItems({ QStringLiteral("Frau"), QStringLiteral("Herr") });
    salutation->setInsertPolicy(QComboBox::NoInsert);
    salutation->setCompleter(nullptr); // it would turn "Her" into "Herr" while typing
    salutation->setFocusPolicy(Qt::StrongFocus);
    HookEvent(salutation, QEvent::Wheel, [salutation](QEvent& event) {
        const bool scrolls_the_tab = !salutation->hasFocus();
        if (scrolls_the_tab)
            event.ignore();
        return scrolls_the_tab;
    });
    return salutation;
}

QGroupBox* BuildTreasurerFrame(SettingsForm& form, QWidget* parent)
{
    QGroupBox* frame = MakeFrame(parent, QStringLiteral("Kassenwart"));
    form.C1 = MakeSalutation(frame);
    AddRow(GridOf(frame), QStringLiteral("Anrede"), form.C1);
    AddBankField(form, frame, 5, QStringLiteral("Name"), QStringLiteral("Name des Kassenwarts"));
    return frame;
}

void OfferNames(Program& program, QLineEdit* contact)
{
    auto* completer = new QCompleter(program.SettingsTab.ContactNames, contact);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    contact->setCompleter(completer);
    contact->setToolTip(QStringLiteral("Wie in der Namensliste: Nachname,Vorname"));
}

QGroupBox* BuildContactsFrame(Program& program, QWidget* parent)
{
    SettingsForm& form = program.SettingsTab;
    QGroupBox* frame = MakeFrame(parent, QStringLiteral("Ansprechpartner"));
    form.ContactNames = new QStringListModel(frame);
    OfferNames(program,
        AddBankField(
            form, frame, 3, QStringLiteral("Name1"), QStringLiteral("Ansprechpartner Name1")));
    OfferNames(program,
        AddBankField(
            form, frame, 4, QStringLiteral("Name2"), QStringLiteral("Ansprechpartner Name2")));
    return frame;
}

/// The frames stand below one another, so their fields begin on one line.
void AlignFields(const QList<QGroupBox*>& frames)
{
    int widest = 0;
    for (QGroupBox* frame : frames) {
        for (const QLabel* caption : frame->findChildren<QLabel*>()) {
            if (caption->buddy() != nullptr)
                widest = std::max(widest, caption->sizeHint().width());
        }
    }
    for (QGroupBox* frame : frames)
        GridOf(frame)->setColumnMinimumWidth(0, widest);
}

} // namespace

QWidget* BuildBankFrames(Program& program, QWidget* parent)
{
    SettingsForm& form = program.SettingsTab;
    auto* panel = new QWidget(parent);
    QGroupBox* bank = BuildBankFrame(form, panel);
    QGroupBox* treasurer = BuildTreasurerFrame(form, panel);
    QGroupBox* contacts = BuildContactsFrame(program, panel);
    AlignFields({ bank, treasurer, contacts });
    form.BankMark = MakeMark(contacts, QStringLiteral("BankMark"));
    form.Command7 = MakeSaveButton(contacts, QStringLiteral("Command7"),
        QStringLiteral("Bankverbindung, Kassenwart und Ansprechpartner speichern"),
        QStringLiteral("Speichert Bankverbindung, Kassenwart und Ansprechpartner (Strg+S)"));
    AddSaveRow(GridOf(contacts), form.BankMark, form.Command7);

    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(TabSpacing);
    for (QGroupBox* frame : { bank, treasurer, contacts })
        column->addWidget(frame);
    column->addWidget(BuildBackupFrame(program, panel));
    column->addStretch();
    return panel;
}
