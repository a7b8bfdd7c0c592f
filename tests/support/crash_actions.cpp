#include "tests/support/crash_actions.h"

#include "backup/copying.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "data/redo_record.h"
#include "members/member_lists.h"

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

void NoteFor(
    const DataFiles& files, const QString& name, const QByteArray& content, qint64 number = 1)
{
    const HistoryMark mark { number, number, QDateTime({ 2017, 1, 5 }, { 9, 0 }), Deed::Saved };
    if (NoteRewrite(files.StateDirectory, { NameWithin(name), content, mark }))
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
    NoteFor(files, members, old_members, 2);
}

void WriteLong(const DataFiles& files) { RewriteFile(files, bank_ledger, LongContent()); }
void WriteShort(const DataFiles& files) { RewriteFile(files, bank_ledger, "kurz\r\n"); }
void WriteNothing(const DataFiles& files) { RewriteFile(files, bank_ledger, {}); }

void ChangeMember(const DataFiles& files)
{
    MemberLists lists;
    ReadMembersFile(lists, files, u"2016"_s);
    lists.RecordList[1] = u"Müller;Bernd;Łódźer Weg 3;;;8;250;1;0,00;0,00;0,00;0,00;1;2;3;4"_s;
    WriteMembersFile(lists, files, u"2016"_s);
}

/// Two states are kept already, and the ledger was changed by hand since.
void PrepareHistory(const DataFiles& files)
{
    files.History->Now = [] { return QDateTime({ 2017, 1, 5 }, { 9, 0 }); }; // stands in names
    RewriteFile(files, bank_ledger, "eins\r\n");
    RewriteFile(files, bank_ledger, LongContent());
    Put(files, bank_ledger, "von Hand\r\n");
}

void PrepareSettings(const DataFiles& files)
{
    Put(files, PriceSettingsFile, "[2015]\r\nStromkosten=0,28\r\nWasserkosten=1,90\r\n");
    Put(files, BankSettingsFile, "[Daten]\r\nBankname=Sparkasse\r\nBLZ=DE1\r\n");
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
    static const QList<CrashAction> actions = QList<CrashAction> {
        { "longer file", PrepareShort, WriteLong },
        { "shorter file", PrepareLong, WriteShort },
        { "empty file", PrepareLong, WriteNothing },
        { "new file", PrepareNothing, WriteLong },
        { "finishing at the start", PrepareUnfinished, FinishRewrites },
        { "finishing several", PrepareSeveralUnfinished, FinishRewrites },
        { "save over an unfinished one", PrepareUnfinished, WriteShort },
        { "change a member", PrepareMembers, ChangeMember },
        { "save over a found state", PrepareHistory, WriteShort },
        { "restored files", PrepareStick, Restore },
        { "back up", PrepareStick, BackUp },
    } + WindowActions();
    return actions;
}
