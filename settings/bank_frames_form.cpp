#include "settings/bank_frames_form.h"

#include "app/program.h"
#include "cashbook/ledger_view_form.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "settings/price_frame_form.h"
#include "settings/texts.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QStringListModel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QLineEdit* AddBankField(SettingsForm& form, QGroupBox* frame, BankField index,
    const QString& caption, const QString& says)
{
    QLineEdit* field = Named(MakeField(frame, FieldKind::Text, TextCharacters, says), u"Text6"_s,
        static_cast<int>(index));
    form.Text6[index] = field;
    AddRow(GridOf(frame), caption, field);
    return field;
}

QGroupBox* BuildBankFrame(SettingsForm& form, QWidget* parent)
{
    QGroupBox* frame = MakeFrame(parent, u"Bankverbindung"_s);
    AddBankField(form, frame, BankNameField, u"Bankname"_s, u"Bankname"_s);
    AddBankField(form, frame, IbanField, u"IBAN"_s, u"IBAN"_s);
    AddBankField(form, frame, BicField, u"BIC"_s, u"BIC"_s);
    return frame;
}

QComboBox* MakeSalutation(QWidget* parent)
{
    auto* salutation = Named(new QComboBox(parent), u"C1"_s);
    salutation->setEditable(true);
    salutation->setLineEdit(
        MakeField(salutation, FieldKind::Text, AmountCharacters, u"Anrede eingeben"_s));
    salutation->setAccessibleName(u"Anrede"_s);
    salutation->addItems({ u"Frau"_s, u"Herr"_s });
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
    QGroupBox* frame = MakeFrame(parent, u"Kassenwart"_s);
    form.C1 = MakeSalutation(frame);
    AddRow(GridOf(frame), u"Anrede"_s, form.C1);
    AddBankField(form, frame, TreasurerNameField, u"Name"_s, u"Name des Kassenwarts"_s);
    return frame;
}

/// A press beside the offered names would only close them. One on a button is meant for it.
void PressThrough(QWidget* names)
{
    HookEvent(names, QEvent::MouseButtonPress, [names](QEvent& event) {
        const QPoint where = static_cast<QMouseEvent&>(event).globalPosition().toPoint();
        if (names->geometry().contains(where))
            return false;
        names->hide();
        if (auto* button = qobject_cast<QAbstractButton*>(QApplication::widgetAt(where)))
            QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
        return true;
    });
}

void OfferNames(Program& program, QLineEdit* contact)
{
    auto* completer = new QCompleter(program.SettingsTab.ContactNames, contact);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    contact->setCompleter(completer);
    PressThrough(completer->popup());
    contact->setToolTip(u"Wie in der Namensliste: Nachname,Vorname"_s);
}

QGroupBox* BuildContactsFrame(Program& program, QWidget* parent)
{
    SettingsForm& form = program.SettingsTab;
    QGroupBox* frame = MakeFrame(parent, u"Ansprechpartner"_s);
    form.ContactNames = new QStringListModel(frame);
    OfferNames(program,
        AddBankField(form, frame, FirstContactField, u"Name1"_s, u"Ansprechpartner Name1"_s));
    OfferNames(program,
        AddBankField(form, frame, SecondContactField, u"Name2"_s, u"Ansprechpartner Name2"_s));
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

void BankEdited(Program& program)
{
    CountAsEdited(program.Settings, SettingsQuestion::Bank);
    ShowBankMarks(program);
}

/// The salutation is asked about with the prices.
void SalutationEdited(Program& program)
{
    CountAsEdited(program.Settings, SettingsQuestion::Prices);
    ShowBankMarks(program);
}

/// Marks follow every text, typed or set by code; edits are only what the user does.
void ConnectField(Program& program, QLineEdit* field, void (*edited)(Program&))
{
    On(program, field, &QLineEdit::textEdited, edited);
    On(program, field, &QLineEdit::textChanged, ShowBankMarks);
}

void ConnectBankFrames(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    for (QLineEdit* field : form.Text6) {
        ConnectField(program, field, BankEdited);
        if (QCompleter* names = field->completer(); names != nullptr)
            On(program, names, qOverload<const QString&>(&QCompleter::activated), BankEdited);
    }
    ConnectField(program, form.C1->lineEdit(), SalutationEdited);
    On(program, form.C1, &QComboBox::activated, SalutationEdited);
    On(program, form.Command7, &QPushButton::clicked, SaveBankSettings);
}

void ShowBankFields(const SettingsForm& form, const BankSettings& bank)
{
    for (std::size_t i = 0; i < BankFieldCount; ++i)
        form.Text6[i]->setText(BankText(bank, i));
    form.C1->setCurrentIndex(form.C1->findText(bank.TreasurerSalutation, Qt::MatchFixedString));
    form.C1->setEditText(bank.TreasurerSalutation); // any text, not only those of the list
}

/// True when the bill would not find this contact. Before members are loaded nobody is unknown.
bool IsUnknownContact(const Program& program, const QString& contact)
{
    const QStringList& names = program.Members.NameList;
    if (contact.isEmpty() || names.isEmpty())
        return false;
    const QString surname_and_first_name = contact.section(u',', 0, 1);
    return !names.contains(surname_and_first_name);
}

void TakeBank(Program& program, const BankSettings& bank)
{
    program.Bank = bank;
    program.Settings.SavedBank = bank;
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
    form.BankMark = MakeMark(contacts, u"BankMark"_s);
    form.Command7 = MakeSaveButton(contacts, u"Command7"_s,
        u"Bankverbindung, Kassenwart und Ansprechpartner speichern"_s,
        u"Speichert Bankverbindung, Kassenwart und Ansprechpartner (Strg+S)"_s);
    AddSaveRow(GridOf(contacts), form.BankMark, form.Command7);

    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(TabSpacing);
    for (QGroupBox* frame : { bank, treasurer, contacts })
        column->addWidget(frame);
    column->addWidget(BuildBackupFrame(program, panel));
    column->addStretch();
    ConnectBankFrames(program);
    return panel;
}

BankSettings ReadBankFields(const Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    BankSettings typed;
    for (std::size_t i = 0; i < BankFieldCount; ++i)
        BankText(typed, i) = form.Text6[i]->text();
    typed.TreasurerSalutation = form.C1->currentText();
    return typed;
}

bool BankDiffers(const Program& program)
{
    return ReadBankFields(program) != program.Settings.SavedBank;
}

void ShowBankMarks(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    const BankSettings shown = ReadBankFields(program);
    const BankSettings& saved = program.Settings.SavedBank;
    for (std::size_t i = 0; i < BankFieldCount; ++i) {
        const QString& text = BankText(shown, i);
        const bool is_contact = i == FirstContactField || i == SecondContactField;
        MarkWrongOrUnsaved(form.Text6[i], is_contact && IsUnknownContact(program, text),
            UnknownContactTip, text != BankText(saved, i));
    }
    MarkUnsaved(form.C1->lineEdit(), shown.TreasurerSalutation != saved.TreasurerSalutation);
    form.BankMark->setVisible(shown != saved);
    ShowUnsaved(program);
}

void LoadBank(Program& program)
{
    const BankSettings bank = WithConsequence(
        BankNotRead, [&] { return ReadBank(program.Files, ReadBankFields(program)); });
    ShowBankFields(program.SettingsTab, bank);
    TakeBank(program, bank);
}

void SaveBankSettings(Program& program) // Command7, "Speichern"
{
    const BankSettings typed = ReadBankFields(program);
    WithConsequence(SettingsNotSaved, [&] { WriteBank(program.Files, typed); });

    TakeBank(program, typed);
    DrawStatementPages(program);
    ShowAccountTitle(program);
    CountBankAsSaved(program.Settings, ReadPriceFields(program));
    ShowBankMarks(program);
    Tell(program.Ask, SettingsSavedTitle, SettingsSavedMessage);
}

void SaveSalutation(Program& program)
{
    BankSettings with_salutation = program.Bank;
    with_salutation.TreasurerSalutation = program.SettingsTab.C1->currentText();
    if (with_salutation == program.Bank)
        return;
    WithConsequence(SettingsNotSaved,
        [&] { WriteSalutation(program.Files, with_salutation.TreasurerSalutation); });
    TakeBank(program, with_salutation);
    DrawStatementPages(program); // it stands on every bill
    ShowBankMarks(program);
}

void RestoreBankFields(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    const BankSettings& saved = program.Settings.SavedBank;
    for (std::size_t i = 0; i < BankFieldCount; ++i) {
        if (!BankText(saved, i).isEmpty()) // an empty saved text leaves the field as it is
            form.Text6[i]->setText(BankText(saved, i));
    }
    ShowBankMarks(program);
}

void OfferContactNames(Program& program)
{
    program.SettingsTab.ContactNames->setStringList(program.Members.NameList);
    ShowBankMarks(program);
}
