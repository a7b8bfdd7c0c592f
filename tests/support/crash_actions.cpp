#include "tests/support/crash_actions.h"

#include "backup/copying.h"
#include "cashbook/date_ordering.h"
#include "cashbook/ledger.h"
#include "cashbook/ledger_file.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "data/redo_record.h"
#include "members/member_editing.h"
#include "members/member_lists.h"
#include "settings/bank_settings.h"
#include "settings/price_settings.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QByteArray old_members = "Meier;Anna;Weg 1;12345 Ort;;7;300;4;0,00;0,00;0,00;0,00;100;150;"
                               "20;25\r\nM\xFCller;Bernd;;;;8;250;1;0,00;0,00;0,00;0,00;;;;\r\n";

void Put(const DataFiles& files, const QString& name, const QByteArray& content)
{
    QFile file(PathOf(files, name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot prepare %s", qPrintable(name));
}

void NoteFor(const DataFiles& files, const QString& name, const QByteArray& content)
{
    if (NoteRewrite(files.StateDirectory, { NameWithin(name), content }) != 0)
        qFatal("cannot prepare the record of %s", qPrintable(name));
}

const QString members = MembersFileName(u"2016"_s);
const QString bank_ledger = BankLedgerFileName(u"2016"_s);

QByteArray LongContent()
{
    return QByteArray("01.02.2016;Pacht 2016;50,00;0,00\r\n").repeated(300);
}

void PrepareNothing(const DataFiles&) { }
void PrepareShort(const DataFiles& files) { Put(files, bank_ledger, "kurz\r\n"); }
void PrepareLong(const DataFiles& files) { Put(files, bank_ledger, LongContent()); }
void PrepareMembers(const DataFiles& files) { Put(files, members, old_members); }

void PrepareUnfinished(const DataFiles& files)
{
    Put(files, bank_ledger, LongContent().left(5000));
    NoteFor(files, bank_ledger, LongContent());
}

void PrepareSeveralUnfinished(const DataFiles& files)
{
    PrepareUnfinished(files);
    NoteFor(files, members, old_members);
}

void WriteLong(const DataFiles& files) { RewriteFile(files, bank_ledger, LongContent()); }
void WriteShort(const DataFiles& files) { RewriteFile(files, bank_ledger, "kurz\r\n"); }
void WriteNothing(const DataFiles& files) { RewriteFile(files, bank_ledger, {}); }

void WriteClubName(const DataFiles& files)
{
    RewriteLines(files, ClubNameFile, { u"KGV „Lindenblick“ e.V. Wiesenrode"_s });
}

void ChangeMember(const DataFiles& files)
{
    MemberLists lists;
    ReadMembersFile(lists, files, u"2016"_s);
    lists.RecordList[1] = u"Müller;Bernd;Łódźer Weg 3;;;8;250;1;0,00;0,00;0,00;0,00;1;2;3;4"_s;
    WriteMembersFile(lists, files, u"2016"_s);
}

void BeginYear(const DataFiles& files)
{
    MemberLists lists;
    ReadMembersFile(lists, files, u"2016"_s);
    lists.RecordList = RollReadingsForward(lists.RecordList, FileNameOf(members));
    WriteMembersFile(lists, files, u"2017"_s);
}

void EnterReadings(const DataFiles& files)
{
    MemberLists lists;
    ReadMembersFile(lists, files, u"2016"_s);
    QStringList fields = SplitRecord(lists.RecordList.value(0));
    fields[ElectricityEnd] = u"180"_s;
    ReplaceRecord(lists, 0, fields);
    WriteMembersFile(lists, files, u"2016"_s);
}

void AddThirdMember(const DataFiles& files)
{
    MemberLists lists;
    ReadMembersFile(lists, files, u"2016"_s);
    if (lists.RecordList.size() == 2)
        AddMember(lists, QStringList(MemberFieldCount, u"neu"_s));
    WriteMembersFile(lists, files, u"2016"_s);
}

void DeleteAllMembers(const DataFiles& files)
{
    MemberLists lists;
    ReadMembersFile(lists, files, u"2016"_s);
    while (!lists.RecordList.isEmpty())
        RemoveMember(lists, 0);
    WriteMembersFile(lists, files, u"2016"_s);
}

void PrepareSettings(const DataFiles& files)
{
    Put(files, PriceSettingsFile, "[2015]\r\nStromkosten=0,28\r\nWasserkosten=1,90\r\n");
    Put(files, BankSettingsFile, "[Daten]\r\nBankname=Sparkasse\r\nBLZ=DE1\r\n");
}

void SavePrices(const DataFiles& files)
{
    PriceSettings prices = ReadPrices(files, u"2015"_s, 2015, {}).Prices;
    PriceText(prices, 0) = u"0,30"_s;
    prices.RepairLevy = u"12,50"_s;
    WritePrices(files, u"2015"_s, prices);
}

void CarryPricesOver(const DataFiles& files)
{
    const LoadedPrices loaded = ReadPrices(files, u"2016"_s, 2016, {});
    WriteCarriedOver(files, u"2016"_s, loaded.Prices);
}

void SaveBank(const DataFiles& files)
{
    BankSettings bank = ReadBank(files, {});
    bank.BankName = u"Volksbank"_s;
    bank.TreasurerName = u"Groß,Łukasz"_s;
    WriteBank(files, bank);
}

void SaveSalutationAlone(const DataFiles& files) { WriteSalutation(files, u"Frau"_s); }

/// "OK" and "Speichern" of a booking that is there only once however often this runs.
void Book(const DataFiles& files, const QString& name)
{
    const QString booking = u"03.02.2016;Eon Avacon Wasser;0,00;120,50"_s;
    CashBookState book;
    book.BankLedger = FileExists(files, name) ? ReadLedger(files, name) : QStringList();
    if (!book.BankLedger.contains(booking))
        ApplyEntry(book, Account::Bank, booking);
    WriteLedger(files, name, SortLedgerByDate(book.BankLedger));
}

void BookBank(const DataFiles& files) { Book(files, bank_ledger); }
void BookCashBox(const DataFiles& files) { Book(files, CashBoxLedgerFileName(u"2016"_s)); }

void DeleteBookings(const DataFiles& files)
{
    CashBookState book;
    book.BankLedger = ReadLedger(files, bank_ledger);
    while (book.BankLedger.size() > 100) {
        book.SelectedLedgerRow = 1;
        DeleteEntry(book, Account::Bank);
    }
    WriteLedger(files, bank_ledger, book.BankLedger);
}

void CarryBalanceOver(const DataFiles& files)
{
    const QStringList lines = ReadLedgerLines(files, bank_ledger);
    const CarryOver carry_over = MakeCarryOver(lines, u"2016"_s, QDate(2017, 1, 2));
    WriteLedger(files, BankLedgerFileName(u"2017"_s), { carry_over.line });
}

QString StickOf(const DataFiles& files) { return files.DataDirectory + u"/../Parzello"_s; }

void PrepareStick(const DataFiles& files)
{
    PrepareMembers(files);
    PrepareLong(files);
    PrepareSettings(files);
    const DataFiles stick { StickOf(files), {} };
    if (!QDir().mkpath(stick.DataDirectory))
        qFatal("no stick");
    Put(stick, members, "Schulze;Clara\r\n");
    Put(stick, bank_ledger, {});
    Put(stick, CashBoxLedgerFileName(u"2016"_s), LongContent());
    Put(stick, PriceSettingsFile, "[2016]\r\nStromkosten=0,31\r\n");
    Put(stick, BankSettingsFile, "[Daten]\r\nBankname=Kasse\r\n");
    Put(stick, SpecialBillingFileName(u"Meier"_s, u"2016"_s), QByteArray("\7\0\1\2", 4));
}

void Restore(const DataFiles& files)
{
    const QStringList names = DataFileNames(StickOf(files), Links::PassOver);
    RestoreFiles(files, StickOf(files), names, [](qsizetype) {});
}

// The other way round: the folder that is watched is the stick, the club's data lie beside it.
void BackUp(const DataFiles& stick)
{
    const DataFiles files { StickOf(stick), stick.StateDirectory };
    const QStringList names = DataFileNames(files.DataDirectory, Links::Follow);
    BackUpFiles(files, stick.DataDirectory, names, [](qsizetype) {});
}

} // namespace

const QList<CrashAction>& CrashActions()
{
    static const QList<CrashAction> actions {
        { "longer file", PrepareShort, WriteLong },
        { "shorter file", PrepareLong, WriteShort },
        { "empty file", PrepareLong, WriteNothing },
        { "new file", PrepareNothing, WriteLong },
        { "finishing at the start", PrepareUnfinished, FinishRewrites },
        { "finishing several", PrepareSeveralUnfinished, FinishRewrites },
        { "save over an unfinished one", PrepareUnfinished, WriteShort },
        { "change a member", PrepareMembers, ChangeMember },
        { "begin a year", PrepareMembers, BeginYear },
        { "enter readings", PrepareMembers, EnterReadings },
        { "add a member", PrepareMembers, AddThirdMember },
        { "delete all members", PrepareMembers, DeleteAllMembers },
        { "prices", PrepareSettings, SavePrices },
        { "prices without a file", PrepareNothing, SavePrices },
        { "prices of a new year", PrepareSettings, CarryPricesOver },
        { "bank", PrepareSettings, SaveBank },
        { "salutation", PrepareSettings, SaveSalutationAlone },
        { "bank account", PrepareLong, BookBank },
        { "cash box", PrepareNothing, BookCashBox },
        { "delete bookings", PrepareLong, DeleteBookings },
        { "balance of a new year", PrepareLong, CarryBalanceOver },
        { "club name", PrepareNothing, WriteClubName },
        { "restore", PrepareStick, Restore },
        { "back up", PrepareStick, BackUp },
    };
    return actions;
}
