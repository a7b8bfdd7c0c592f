// usage: bench_whole CASE SIZE   measures one thing in a process of its own and prints
//        "<processor milliseconds> <resident kilobytes>" by the kernel's own accounting.
// scripts/benchmark runs the cases and sets each beside its floor: the least that any program would
// have to do for the same, here as plain as can be.
#include "app/german.h"
#include "benchmarks/made_up_club.h"
#include "cashbook/ledger_form.h"
#include "cashbook/ledger_view_form.h"

#include <QApplication>
#include <QCollator>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPushButton>
#include <QTabWidget>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct rusage Used()
{
    struct rusage used { };
    getrusage(RUSAGE_SELF, &used);
    return used;
}

/// Processor time of this process so far, its own and the kernel's for it.
double Milliseconds()
{
    const struct rusage used = Used();
    const auto of = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return of(used.ru_utime) + of(used.ru_stime);
}

/// The best of several runs: a busy machine only ever adds time.
double BestOf(int runs, const std::function<void()>& work)
{
    double best = 1e9;
    for (int run = 0; run < runs; ++run) {
        const double before = Milliseconds();
        work();
        best = std::min(best, Milliseconds() - before);
    }
    return best;
}

constexpr int runs = 7;

// --- the program ------------------------------------------------------------------------------

/// From the process's beginning to its first painted window, without making the club's files.
double FirstPaint(int members, int bookings)
{
    const double before = Milliseconds();
    MadeUpClub club(members, bookings);
    const double making = Milliseconds() - before;
    club.Open();
    return Milliseconds() - making;
}

double Start(int members) { return FirstPaint(members, 0); }

double StartWithBookings(int bookings) { return FirstPaint(30, bookings); }

/// Presses the button again and again, each time after the same change of the form.
double PressIn(MadeUpClub& club, QPushButton* (*button)(Program&), void (*change)(Program&, int))
{
    club.Open();
    int round = 0;
    return BestOf(runs, [&] {
        change(club.program, ++round);
        button(club.program)->click();
        QCoreApplication::processEvents();
    });
}

double Press(int members, QPushButton* (*button)(Program&), void (*change)(Program&, int))
{
    MadeUpClub club(members, 0);
    return PressIn(club, button, change);
}

QPushButton* ButtonNamed(Program& program, const char* name)
{
    return Find<QPushButton>(program.Window.Window, QString::fromLatin1(name));
}

void Type(Program& program, const char* name, int value)
{
    Find<QLineEdit>(program.Window.Window, QString::fromLatin1(name))
        ->setText(QString::number(value));
}

double SaveMember(int members)
{
    return Press(
        members, [](Program& p) { return ButtonNamed(p, "Command1(0)"); },
        [](Program& p, int round) { Type(p, "Text3(4)", round); });
}

QPushButton* OkOfReadings(Program& program) { return ButtonNamed(program, "Command2"); }

void TypeReading(Program& program, int round) { Type(program, "Text1(1)", 2000 + round); }

double EnterReading(int members) { return Press(members, OkOfReadings, TypeReading); }

/// No history is kept: a file lies where its folder would be, so that each save drops its record.
double EnterReadingUnkept(int members)
{
    MadeUpClub club(members, 0);
    QFile in_the_way(club.Folder.filePath(u"state/verlauf"_s));
    if (!in_the_way.open(QIODevice::WriteOnly))
        qFatal("cannot write");
    return PressIn(club, OkOfReadings, TypeReading);
}

double LoadTheYear(int members)
{
    return Press(
        members, [](Program& p) { return ButtonNamed(p, "Command4"); }, [](Program&, int) {});
}

double SavePrices(int members)
{
    return Press(
        members, [](Program& p) { return ButtonNamed(p, "Command5"); },
        [](Program& p, int round) { Type(p, "Text4(3)", 30 + round); });
}

double PrintAll(int members)
{
    MadeUpClub club(members, 0);
    club.program.PrintFrame.ShowPrintDialog = [&club](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(club.Folder.filePath(u"bills.pdf"_s));
        return true;
    };
    club.Open();
    return BestOf(1, [&] { ButtonNamed(club.program, "Command6")->click(); });
}

double NextPageShown(int members)
{
    MadeUpClub club(members, 0);
    club.Open();
    club.program.Window.SSTab1->setCurrentIndex(1);
    QCoreApplication::processEvents();
    QPushButton* next = ButtonNamed(club.program, "Command9(0)");
    return BestOf(20, [&] {
        next->click();
        QCoreApplication::processEvents();
    });
}

double KeyInAField(int members)
{
    MadeUpClub club(members, 0);
    club.Open();
    auto* field = Find<QLineEdit>(club.program.Window.Window, u"Text3(4)"_s);
    return BestOf(20, [&] {
        field->setText(field->text() + u'7');
        QCoreApplication::processEvents();
    });
}

double OpenLedger(const QByteArray& ledger)
{
    MadeUpClub club(30, ledger);
    club.Open();
    club.program.Window.SSTab1->setCurrentIndex(2);
    QCoreApplication::processEvents();
    return BestOf(runs, [&] {
        MakeBankAccountCurrent(club.program);
        ShowLedger(club.program);
        QCoreApplication::processEvents();
    });
}

double OpenLedgerInDisorder(int bookings) { return OpenLedger(LedgerBytes(bookings)); }

double OpenLedgerInOrder(int bookings) { return OpenLedger(OrderedLedgerBytes(bookings)); }

double Book(int bookings)
{
    MadeUpClub club(30, bookings);
    club.Open();
    club.program.Window.SSTab1->setCurrentIndex(2);
    QCoreApplication::processEvents();
    QWidget* window = club.program.Window.Window;
    return BestOf(runs, [&] {
        Find<QLineEdit>(window, u"Text10(0)"_s)->setText(u"06.06.2017"_s);
        Find<QLineEdit>(window, u"Text10(1)"_s)->setText(u"Neu"_s);
        ButtonNamed(club.program, "Command12(0)")->click();
        QCoreApplication::processEvents();
    });
}

// --- floors -----------------------------------------------------------------------------------

/// A window of the toolkit with four empty tabs.
double EmptyWindow(int)
{
    QMainWindow window;
    auto* tabs = new QTabWidget(&window);
    for (int i = 0; i < 4; ++i)
        tabs->addTab(new QWidget(tabs), u"Reiter"_s);
    window.setCentralWidget(tabs);
    window.resize(1000, 680);
    window.show();
    WaitForPaint(&window);
    return Milliseconds();
}

void WriteAndSync(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("cannot write");
    fsync(file.handle());
}

/// Encode the lines, write and sync them twice, read both years' files and split them.
double RewriteAndRead(int members)
{
    const QTemporaryDir folder;
    const QStringList lines = QString::fromLatin1(MembersBytes(members, false)).split(u"\r\n"_s);
    const QString paths[] { folder.filePath(u"a"_s), folder.filePath(u"b"_s) };
    return BestOf(runs, [&] {
        for (const QString& path : paths)
            WriteAndSync(path, lines.join(u"\r\n"_s).toLatin1());
        qsizetype fields = 0;
        for (const QString& path : paths) {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly))
                qFatal("cannot read");
            for (const QString& line : QString::fromLatin1(file.readAll()).split(u"\r\n"_s))
                fields += line.split(u';').size();
        }
        if (fields < members)
            qFatal("too few fields");
    });
}

/// As many texts and lines as the bills of so many members have.
double BarePdf(int members)
{
    constexpr int texts = 75;
    constexpr int lines = 112;
    const QTemporaryDir folder;
    return BestOf(1, [&] {
        QPdfWriter writer(folder.filePath(u"floor.pdf"_s));
        writer.setResolution(300);
        QPainter painter(&writer);
        QFont font(u"Liberation Sans"_s);
        font.setPixelSize(34);
        for (int page = 0; page < members; ++page) {
            if (page > 0)
                writer.newPage();
            painter.setFont(font);
            for (int i = 0; i < texts; ++i)
                painter.drawText(100, 40 * i + 40, u"    10 Mitgliedsbeitrag %1,00"_s.arg(i));
            for (int i = 0; i < lines; ++i)
                painter.fillRect(QRect(1000, 25 * i, 400, 4), Qt::black);
        }
    });
}

/// Split the lines, make the toolkit's German sort keys, sort, sum two amounts a line.
double SortPlainly(const QByteArray& bytes)
{
    const QCollator german { QLocale(QLocale::German) };
    return BestOf(runs, [&] {
        std::vector<std::pair<QByteArray, QCollatorSortKey>> keys;
        double balance = 0.0;
        for (const QByteArray& line : bytes.split('\n')) {
            const QList<QByteArray> fields = line.split(';');
            if (fields.size() < 4)
                continue;
            balance += fields[2].toDouble() - fields[3].toDouble();
            keys.emplace_back(fields[0].mid(6, 4) + fields[0].mid(3, 2) + fields[0].left(2),
                german.sortKey(QString::fromLatin1(fields[1])));
        }
        std::sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) {
            return a.first != b.first ? a.first < b.first : a.second.compare(b.second) < 0;
        });
        if (balance == 0.5) // never; keeps the sum from being optimised away
            qFatal("unexpected");
    });
}

double SortInDisorder(int bookings) { return SortPlainly(LedgerBytes(bookings)); }

double SortInOrder(int bookings) { return SortPlainly(OrderedLedgerBytes(bookings)); }

using Case = double (*)(int);

const std::map<QString, Case>& Cases()
{
    static const std::map<QString, Case> cases { { u"window"_s, EmptyWindow },
        { u"start"_s, Start }, { u"bookings"_s, StartWithBookings }, { u"save"_s, SaveMember },
        { u"reading"_s, EnterReading }, { u"unkept"_s, EnterReadingUnkept },
        { u"load"_s, LoadTheYear }, { u"prices"_s, SavePrices }, { u"rewrite"_s, RewriteAndRead },
        { u"pdf"_s, PrintAll }, { u"bare-pdf"_s, BarePdf }, { u"page"_s, NextPageShown },
        { u"key"_s, KeyInAField }, { u"ledger"_s, OpenLedgerInDisorder },
        { u"ordered-ledger"_s, OpenLedgerInOrder }, { u"book"_s, Book },
        { u"sort"_s, SortInDisorder }, { u"ordered-sort"_s, SortInOrder } };
    return cases;
}

} // namespace

int main(int argument_count, char** arguments)
{
    QApplication application(argument_count, arguments);
    InstallGerman(application);
    const QStringList given = QCoreApplication::arguments();
    const auto found = Cases().find(given.value(1));
    if (found == Cases().end()) {
        std::fprintf(stderr, "usage: bench_whole CASE SIZE\n");
        return 2;
    }
    const double milliseconds = found->second(given.value(2).toInt());
    std::printf("%.3f %ld\n", milliseconds, Used().ru_maxrss);
    return 0;
}
