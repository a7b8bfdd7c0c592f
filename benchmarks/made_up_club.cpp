#include "benchmarks/made_up_club.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMainWindow>

using namespace Qt::StringLiterals;

namespace {

QByteArray Number(int value) { return QByteArray::number(value); }

void Write(const QTemporaryDir& folder, const QString& name, const QByteArray& bytes)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(name));
}

/// Notes the first time that the window is painted.
struct PaintWatch : QObject {
    bool painted = false;
    bool eventFilter(QObject*, QEvent* event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
};

} // namespace

QByteArray MembersBytes(int members, bool last_year)
{
    QByteArray bytes;
    for (int i = 0; i < members; ++i) {
        const int start = 1000 + i % 700 + (last_year ? 0 : 150 + i % 90);
        const int end = 1000 + i % 700 + 150 + i % 90 + (last_year ? 0 : 130 + i % 60);
        bytes += "Name" + Number(i) + "a;Vorname" + Number(i % 40) + ";Gartenweg " + Number(i % 99)
            + ";01234 Musterdorf;030 " + Number(100'000 + i) + ';' + Number(i + 1) + ';'
            + Number(200 + i % 150) + ",5;1;12,50;8,40;3,00;25,10;" + Number(start) + ';'
            + Number(end) + ';' + Number(start / 10) + ';' + Number(end / 10) + "\r\n";
    }
    return bytes;
}

QByteArray PricesBytes()
{
    QByteArray bytes;
    for (const char* year : { "2016", "2017" })
        bytes += QByteArray("[") + year
            + "]\r\nStromkosten=0,3125\r\nWasserkosten=2,15\r\nEnergiepauschale=12,00\r\n"
              "Beitrag=36,00\r\nPacht=0,1850\r\nSteuer=0,0310\r\nFl\xe4"
              "che=0,0450\r\n"
              "Vorauszahlung Strom=1\r\nVorauszahlung Wasser=1\r\n";
    return bytes;
}

QByteArray BankBytes(int members)
{
    const int other = members - 1; // the search comes by all members
    return "[Daten]\r\nBankname=Sparkasse\r\nBLZ=DE02120300000000202051\r\nKontonummer=BYLADEM1\r\n"
           "Name1=Name0a,Vorname0\r\nName2=Name"
        + Number(other) + "a,Vorname" + Number(other % 40) + "\r\nName=Kasse\r\nAnrede=Frau\r\n";
}

QByteArray LedgerBytes(int bookings)
{
    QByteArray bytes;
    unsigned state = 1;
    for (int i = 0; i < bookings; ++i) {
        state = state * 1'103'515'245U + 12'345U;
        const QDate day = QDate(2017, 1, 1).addDays((state >> 16) % 365);
        const int cents = static_cast<int>((state >> 8) % 50'000);
        bytes += day.toString(u"dd.MM.yyyy"_s).toLatin1() + ";Vorgang " + Number(i) + ";0,00;"
            + Number(cents / 100) + ',' + Number(cents % 100 + 100).right(2) + "\r\n";
    }
    return bytes;
}

QByteArray OrderedLedgerBytes(int bookings)
{
    QByteArray bytes;
    constexpr int first_number = 1'000'000; // as long as all others: in order as texts
    for (int i = 0; i < bookings; ++i) {
        const QDate day = QDate(2017, 1, 1).addDays(static_cast<qint64>(i) * 365 / bookings);
        bytes += day.toString(u"dd.MM.yyyy"_s).toLatin1() + ";Vorgang " + Number(first_number + i)
            + ";0,00;" + Number(i % 500) + ",25\r\n";
    }
    return bytes;
}

MadeUpClub::MadeUpClub(int members, int bookings)
    : MadeUpClub(members, LedgerBytes(bookings))
{
}

MadeUpClub::MadeUpClub(int members, const QByteArray& ledger)
{
    if (members > 0) {
        Write(Folder, u"Mitgliedsdaten2016.pz"_s, MembersBytes(members, true));
        Write(Folder, u"Mitgliedsdaten2017.pz"_s, MembersBytes(members, false));
    }
    Write(Folder, u"Konto2017.pz"_s, ledger);
    Write(Folder, u"Config.ini"_s, PricesBytes());
    Write(Folder, u"Config1.ini"_s, BankBytes(members));
    Write(Folder, u"V.dat"_s, "Verein\r\n");
    program.Files = { Folder.path(), Folder.filePath(u"state"_s) };
    QDir(Folder.path()).mkdir(u"state"_s);
    program.Today = [] { return QDate(2017, 12, 1); };
    program.Ask = [](const MessageBox& box) {
        if (box.icon == BoxIcon::Error)
            qFatal("%s", qPrintable(box.text + u' ' + box.detail));
        return BoxAnswer::Ok;
    };
}

MadeUpClub::~MadeUpClub()
{
    if (program.Window.Window != nullptr)
        DestroyMainWindow(program);
}

void MadeUpClub::Open()
{
    BuildMainWindow(program);
    StartUp(program);
    program.Window.Window->show();
    WaitForPaint(program.Window.Window);
}

qint64 MadeUpClub::BytesOfFiles() const
{
    qint64 bytes = 0;
    for (const QFileInfo& file : QDir(Folder.path()).entryInfoList(QDir::Files))
        bytes += file.size();
    return bytes;
}

void WaitForPaint(QWidget* window)
{
    PaintWatch watch;
    window->installEventFilter(&watch);
    while (!watch.painted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
