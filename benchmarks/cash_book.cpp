// How long the cash book takes with a hundred thousand bookings, beside a floor: the least work
// that any cash book would have to do with the same lines, measured in the same run on the same
// machine. The best of several runs counts, since a busy machine only ever adds time.
#include "app/german.h"
#include "app/program.h"
#include "cashbook/date_ordering.h"
#include "cashbook/ledger_form.h"
#include "cashbook/ledger_rows.h"
#include "cashbook/ledger_view_form.h"
#include "cashbook/member_marks.h"
#include "data/records.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <vector>

namespace {

constexpr int line_count = 100'000;
constexpr int runs = 5;

double BestOf(const std::function<void()>& work)
{
    double best = 1e9;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = std::min(best, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}

/// Bookings of a year in no order, every text another one.
QByteArray LedgerBytes()
{
    QByteArray bytes;
    unsigned state = 1;
    for (int i = 0; i < line_count; ++i) {
        state = state * 1'103'515'245U + 12'345U;
        const QDate day = QDate(2016, 1, 1).addDays((state >> 16) % 366);
        const int cents = static_cast<int>((state >> 8) % 50'000);
        bytes += day.toString(QStringLiteral("dd.MM.yyyy")).toLatin1() + ";Vorgang "
            + QByteArray::number(i) + ";0,00;" + QByteArray::number(cents / 100) + ','
            + QByteArray::number(cents % 100 + 100).right(2) + "\r\n";
    }
    return bytes;
}

/// Lines, their fields, two amounts a line, an order by bytes.
void Floor(const QByteArray& bytes)
{
    std::vector<QByteArray> keys;
    double balance = 0.0;
    for (const QByteArray& line : bytes.split('\n')) {
        const QList<QByteArray> fields = line.split(';');
        if (fields.size() < 4)
            continue;
        balance += std::atof(fields[2].constData()) - std::atof(fields[3].constData());
        keys.push_back(fields[0].mid(6, 4) + fields[0].mid(3, 2) + fields[0].left(2) + fields[1]);
    }
    std::sort(keys.begin(), keys.end());
    if (balance == 0.5) // never; keeps the sum from being optimised away
        qFatal("unexpected");
}

struct Club {
    QTemporaryDir folder;
    Program program;

    explicit Club(const QByteArray& ledger)
    {
        Write(QStringLiteral("Mitgliedsdaten2016.pz"), Members());
        Write(QStringLiteral("Konto2016.pz"), ledger);
        QDir(folder.path()).mkdir(QStringLiteral("state"));
        program.Files = { folder.path(), folder.filePath(QStringLiteral("state")) };
        program.Today = [] { return QDate(2016, 12, 1); };
        program.Ask = [](const MessageBox&) { return BoxAnswer::Ok; };
        BuildMainWindow(program);
        StartUp(program);
        program.Window.SSTab1->setCurrentIndex(2);
        program.Window.Window->show();
        QCoreApplication::processEvents();
    }

    ~Club() { DestroyMainWindow(program); }
    Club(const Club&) = delete;
    Club& operator=(const Club&) = delete;

    static QByteArray Members()
    {
        QByteArray members;
        for (int i = 0; i < 120; ++i)
            members += "Name" + QByteArray::number(i) + ";Anna;;;;;;2;0,00;0,00;0,00;0,00;;;;\r\n";
        return members;
    }

    void Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write");
    }
};

void Book(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    form.Text10[0]->setText(QStringLiteral("06.06.2016"));
    form.Text10[1]->setText(QStringLiteral("Neu"));
    form.Command12[0]->click();
    QCoreApplication::processEvents();
}

void ScrollThrough(const Program& program)
{
    for (int row = 0; row < line_count; row += line_count / 20) {
        const QTableView* view = program.CashBookTab.ListView1;
        program.CashBookTab.ListView1->scrollTo(view->model()->index(row, 0));
        program.CashBookTab.ListView1->viewport()->repaint();
    }
}

void Say(const QString& what, double milliseconds, double floor)
{
    QTextStream(stdout) << QStringLiteral("%1 %2 ms  %3 x floor\n")
                               .arg(what, -44)
                               .arg(milliseconds, 8, 'f', 1)
                               .arg(milliseconds / floor, 6, 'f', 2);
}

/// Every booking a payment, most of people who are no members: nobody is found early.
void MarkPaid()
{
    QStringList names;
    QStringList lines;
    for (int i = 0; i < 1000; ++i)
        names += QStringLiteral("Meier%1x,Anna").arg(i);
    for (int i = 0; i < line_count; ++i)
        lines += QStringLiteral("01.02.2016;Abrechnung Meier%1;1,00;0,00").arg(i);
    qsizetype payments = 0;
    const double pass = BestOf([&] {
        for (const QString& line : lines)
            payments += SplitRecord(line)[BookingText].contains(QStringLiteral("Abrechnung"));
    });
    Say(QStringLiteral("floor: one pass over the lines"), pass, pass);
    Say(QStringLiteral("paid marks of 1,000 members"),
        BestOf([&] { payments += PaidMarks(names, lines).count(true); }), pass);
}

} // namespace

int main(int argument_count, char** arguments)
{
    QApplication application(argument_count, arguments);
    InstallGerman(application);
    const QByteArray bytes = LedgerBytes();
    const double floor = BestOf([&] { Floor(bytes); });
    Say(QStringLiteral("floor: split, read amounts, order by bytes"), floor, floor);

    Club club(bytes);
    Program& program = club.program;
    const QStringList lines = program.CashBook.Bank.Lines;
    Say(QStringLiteral("balances of all rows"), BestOf([&] { MakeLedgerRows(lines); }), floor);
    Say(QStringLiteral("date order"), BestOf([&] { SortLedgerByDate(lines); }), floor);
    Say(QStringLiteral("load the file and show it"), BestOf([&] {
        MakeBankAccountCurrent(program);
        ShowLedger(program);
        QCoreApplication::processEvents();
    }),
        floor);
    Say(QStringLiteral("\"OK\": book and show"), BestOf([&] { Book(program); }), floor);
    Say(QStringLiteral("\"OK\" on a picked row"), BestOf([&] {
        PickLedgerRow(program, 50'000);
        Book(program);
    }),
        floor);
    Say(QStringLiteral("scroll through in 20 pages"), BestOf([&] { ScrollThrough(program); }),
        floor);
    Say(QStringLiteral("\"Speichern\""), BestOf([&] { SaveLedger(program); }), floor);
    MarkPaid();
    return 0;
}
