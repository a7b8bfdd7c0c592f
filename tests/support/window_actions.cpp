// The saving actions of the window: the real forms, loaded, filled and clicked as a user does it.
#include "app/program.h"
#include "cashbook/ledger_view_form.h"
#include "data/file_names.h"
#include "data/redo_record.h"
#include "tests/support/crash_actions.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString bank_file = u"Konto2017.pz"_s;
const QString cash_box_file = u"HandKasse2017.pz"_s;

// The third one left; a bill needs a line at the same place of last year's file.
const QByteArray last_members = "Meier;Anna;Weg 1;12345 Ort;;7;300;4;0,00;0,00;0,00;0,00;100;150;"
                                "20;25\r\nM\xFCller;Bernd;;;;8;250;1;0,00;0,00;0,00;0,00;50;60;"
                                "7;8\r\nLang;Otto;;;;9;250;1;0,00;0,00;0,00;0,00;1;2;3;4\r\n";
const QByteArray members = "Meier;Anna;Weg 1;12345 Ort;;7;300;4;0,00;0,00;0,00;0,00;150;;25;\r\n"
                           "M\xFCller;Bernd;;;;8;250;1;0,00;0,00;0,00;0,00;60;;8;\r\n";
const QByteArray prices
    = "[2016]\r\nStromkosten=0,28\r\nWasserkosten=1,90\r\nEnergiepauschale=10,00\r\n"
      "Beitrag=36,00\r\nPacht=0,08\r\n";
// As a save leaves them: saving them again changes nothing.
const QByteArray prices_of_the_year
    = "[2017]\r\nRepUmlage=\r\nStromkosten=0,30\r\nWasserkosten=2,10\r\n"
      "Energiepauschale=10,00\r\nBeitrag=36,00\r\nPacht=0,08\r\nSteuer=0,02\r\n"
      "Fl\xE4"
      "che=0,03\r\nAbrechnungsdatum=01.12.2017\r\n\xDC"
      "berweisdatum=31.12.2017\r\n"
      "Vorauszahlung Strom=1\r\nVorauszahlung Wasser=0\r\n";
const QByteArray bank = "[Daten]\r\nBankname=Sparkasse\r\nBLZ=DE1\r\nAnrede=Herr\r\n";
const QByteArray bookings = "02.01.2017;\xDC"
                            "bertrag Saldo 2016;100,00;0,00\r\n"
                            "05.01.2017;Pacht 2017;50,00;0,00\r\n";
const QByteArray cash = "02.01.2017;Briefmarken;0,00;7,00\r\n";

QString StickOf(const DataFiles& files) { return files.DataDirectory + u"/../Parzello"_s; }

void Put(const DataFiles& files, const QString& name, const QByteArray& content)
{
    QFile file(files.DataDirectory + u'/' + name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot prepare %s", qPrintable(name));
}

QByteArray Get(const DataFiles& files, const QString& name)
{
    QFile file(files.DataDirectory + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void PrepareLastYear(const DataFiles& files)
{
    Put(files, u"Mitgliedsdaten2016.pz"_s, last_members);
    Put(files, u"Konto2016.pz"_s, bookings);
    Put(files, u"HandKasse2016.pz"_s, cash);
    Put(files, u"Config.ini"_s, prices);
    Put(files, u"Config1.ini"_s, bank);
    Put(files, u"V.dat"_s, "KGV Lindenblick\r\n");
}

void PrepareYear(const DataFiles& files)
{
    PrepareLastYear(files);
    Put(files, u"Mitgliedsdaten2017.pz"_s, members);
    Put(files, u"Config.ini"_s, prices + prices_of_the_year);
    Put(files, bank_file, bookings);
    Put(files, cash_box_file, cash);
}

void PrepareUnfinishedYear(const DataFiles& files)
{
    PrepareYear(files);
    Put(files, bank_file, bookings.left(20));
    if (NoteRewrite(files.StateDirectory, { bank_file, bookings }))
        qFatal("cannot prepare the record");
}

void PrepareWithoutCashBox(const DataFiles& files)
{
    PrepareYear(files);
    QFile::remove(files.DataDirectory + u'/' + cash_box_file);
}

void PrepareWithoutSettings(const DataFiles& files)
{
    PrepareYear(files);
    QFile::remove(files.DataDirectory + u"/Config1.ini"_s);
    QFile::remove(files.DataDirectory + u"/V.dat"_s);
}

void PrepareStick(const DataFiles& files)
{
    PrepareYear(files);
    if (!QDir().mkpath(StickOf(files)))
        qFatal("no stick");
    const DataFiles stick { StickOf(files), {} };
    Put(stick, u"Mitgliedsdaten2017.pz"_s, last_members);
    Put(stick, u"KONTO2017.PZ"_s, {});
    Put(stick, cash_box_file, bookings);
    Put(stick, u"Config.ini"_s, prices + QByteArray(prices_of_the_year).replace("0,30", "0,33"));
}

void Type(QLineEdit* field, const QString& text)
{
    field->selectAll();
    QTest::keyClicks(field, text);
}

void StartAndShowMember(Program& program, int row)
{
    StartUp(program);
    if (row < program.NameLists.List1->count())
        program.NameLists.List1->setCurrentRow(row);
}

// What a run that goes on where another was stopped finds done already is not done again.

void Book(Program& program, const QByteArray& found, const QString& text, const QString& amount)
{
    if (found.contains(text.toLatin1()))
        return;
    const CashBookForm& form = program.CashBookTab;
    Type(form.Text10[0], u"04.01.2017"_s);
    Type(form.Text10[1], text);
    Type(form.Text10[3], amount);
    form.Command12[0]->click();
}

void BookBank(Program& program)
{
    StartUp(program);
    Book(program, Get(program.Files, bank_file), u"Wasserwerk"_s, u"120,50"_s);
}

void BookBoth(Program& program)
{
    BookBank(program);
    program.Window.SSTab1->setCurrentIndex(CashBookTab);
    program.CashBookTab.Command15->click();
    Book(program, Get(program.Files, cash_box_file), u"Porto"_s, u"3,70"_s);
}

void CorrectBooking(Program& program)
{
    StartUp(program);
    const CashBookForm& form = program.CashBookTab;
    PickLedgerRow(program, 1);
    Type(form.Text10[2], u"55,00"_s);
    form.Command12[0]->click();
}

void DropBookings(Program& program)
{
    StartUp(program);
    while (program.CashBook.Bank.Lines.size() > 1) {
        PickLedgerRow(program, 1);
        program.CashBookTab.Command12[1]->click();
    }
}

/// The ledger could not be read when the year was loaded; a booking was made all the same.
void BookWithoutTheFile(Program& program)
{
    StartUp(program);
    const QByteArray found = Get(program.Files, bank_file);
    if (found.contains("Wasserwerk"))
        return;
    const QString path = program.Files.DataDirectory + u'/' + bank_file;
    if (!QFile::remove(path) || !QDir().mkpath(path))
        qFatal("cannot hide the ledger");
    program.YearRow.Command4->click();
    if (!QDir().rmdir(path))
        qFatal("cannot show the ledger again");
    Put(program.Files, bank_file, found);
    Book(program, found, u"Wasserwerk"_s, u"120,50"_s);
}

void SaveShownLedger(Program& program) { program.CashBookTab.CommandSaveLedger->click(); }
void SwitchTheAccount(Program& program) { program.CashBookTab.Command15->click(); }

void LeaveTheTab(Program& program)
{
    program.Window.SSTab1->setCurrentIndex(MembersTab); // the guard asks, and "Ja" it is
}

void TypePrices(Program& program)
{
    StartUp(program);
    Type(program.SettingsTab.Text4[0], u"0,31"_s);
    Type(program.SettingsTab.Text4[7], u"12,50"_s);
}

void TypePricesAndSalutation(Program& program)
{
    TypePrices(program);
    program.Window.SSTab1->setCurrentIndex(SettingsTab);
    Type(program.SettingsTab.C1->lineEdit(), u"Eheleute"_s);
}

void TypeBank(Program& program)
{
    StartUp(program);
    Type(program.SettingsTab.Text6[0], u"Volksbank"_s);
    Type(program.SettingsTab.Text6[5], u"Noack"_s);
}

void TypeBankAndLeave(Program& program)
{
    TypeBank(program);
    program.Window.SSTab1->setCurrentIndex(SettingsTab);
}

void SaveThePrices(Program& program) { program.SettingsTab.Command5->click(); }
void SaveTheBank(Program& program) { program.SettingsTab.Command7->click(); }
void CloseTheWindow(Program& program) { program.Window.Window->close(); }

/// The prices are saved, and the new salutation is left behind until the window closes.
void TypeSalutation(Program& program)
{
    StartUp(program);
    Type(program.SettingsTab.C1->lineEdit(), u"Eheleute"_s);
    program.SettingsTab.Command5->click();
}

void TypeClubName(Program& program)
{
    StartUp(program);
    Type(program.Window.Text5, u"KGV Neuland"_s);
}

void SaveTheClubName(Program& program) { program.Window.Command22->click(); }

void ChangeSecondMember(Program& program)
{
    StartAndShowMember(program, 1);
    Type(program.MembersTab.Text3[2], u"Weg 3"_s);
}

void TypeNewMember(Program& program)
{
    StartUp(program);
    if (program.Members.RecordList.size() > 2) {
        program.NameLists.List1->setCurrentRow(2);
        return;
    }
    program.MembersTab.Command14->click();
    Type(program.MembersTab.Text3[0], u"Lang"_s);
    Type(program.MembersTab.Text3[1], u"Ida"_s);
}

void SaveTheMember(Program& program) { program.MembersTab.Command1Save->click(); }

void ShowMemberToDelete(Program& program) { StartAndShowMember(program, 1); }

void DeleteTheMember(Program& program)
{
    if (program.Members.RecordList.size() > 1)
        program.MembersTab.Command1Delete->click();
}

void TypeReadings(Program& program)
{
    StartUp(program);
    Type(program.MembersTab.Text1[1], u"180"_s);
    Type(program.MembersTab.Text1[4], u"31"_s);
}

void EnterTheReadings(Program& program) { program.MembersTab.Command2->click(); }
void RestoreAll(Program& program) { program.Backup.Command11->click(); }
void NotStarted(Program&) { }

} // namespace

QList<CrashAction> WindowActions()
{
    return {
        { "first start of a year", PrepareLastYear, nullptr, NotStarted, StartUp },
        { "start over unfinished", PrepareUnfinishedYear, nullptr, NotStarted, StartUp },
        { "member", PrepareYear, nullptr, ChangeSecondMember, SaveTheMember },
        { "new member", PrepareYear, nullptr, TypeNewMember, SaveTheMember },
        { "delete a member", PrepareYear, nullptr, ShowMemberToDelete, DeleteTheMember },
        { "readings", PrepareYear, nullptr, TypeReadings, EnterTheReadings },
        { "prices", PrepareYear, nullptr, TypePrices, SaveThePrices },
        { "prices and salutation", PrepareYear, nullptr, TypePricesAndSalutation, LeaveTheTab },
        { "bank", PrepareYear, nullptr, TypeBank, SaveTheBank },
        { "bank without a file", PrepareWithoutSettings, nullptr, TypeBankAndLeave, LeaveTheTab },
        { "salutation", PrepareYear, nullptr, TypeSalutation, CloseTheWindow },
        { "booking", PrepareYear, nullptr, BookBank, SaveShownLedger },
        { "corrected booking", PrepareYear, nullptr, CorrectBooking, SaveShownLedger },
        { "deleted bookings", PrepareYear, nullptr, DropBookings, SaveShownLedger },
        { "booking joined with the file", PrepareYear, nullptr, BookWithoutTheFile,
            SaveShownLedger },
        { "both ledgers", PrepareYear, nullptr, BookBoth, LeaveTheTab },
        { "both ledgers when closing", PrepareYear, nullptr, BookBoth, CloseTheWindow },
        { "balance of the cash box", PrepareWithoutCashBox, nullptr, StartUp, SwitchTheAccount },
        { "club name", PrepareWithoutSettings, nullptr, TypeClubName, SaveTheClubName },
        { "restore", PrepareStick, nullptr, StartUp, RestoreAll },
    };
}
