// Where the lines of an account come from, without a window.
#include "cashbook/ledger_opening.h"

#include "tests/support/error_of.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Folder {
    QTemporaryDir root;
    CashBookState book;
    QStringList said;

    Folder()
    {
        QDir(root.path()).mkpath(u"data"_s);
        QDir(root.path()).mkpath(u"state"_s);
    }

    QString PathTo(const QString& name) const { return root.filePath(u"data/"_s + name); }

    void Put(const QString& name, const QByteArray& content) const
    {
        QFile file(PathTo(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QByteArray Get(const QString& name) const
    {
        QFile file(PathTo(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }

    LedgerPlace Place(Account account = Account::Bank)
    {
        return { { root.filePath(u"data"_s), root.filePath(u"state"_s) }, account, u"2017"_s,
            QDate(2017, 3, 5),
            { [this](const QString& text) { said += text; },
                [this](const RuntimeError& error) { said += error.where.content; } } };
    }
};

} // namespace

class TestLedgerOpening : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_file_is_loaded_in_booking_order_and_the_list_knows_its_year()
    {
        Folder folder;
        folder.Put(u"Konto2017.pz"_s, "02.01.2017;b;1,00;0,00\r\n01.01.2017;a;1,00;0,00\r\n");
        LoadLedger(folder.book, folder.Place());
        QCOMPARE(folder.book.Bank.Lines,
            QStringList({ u"01.01.2017;a;1,00;0,00"_s, u"02.01.2017;b;1,00;0,00"_s }));
        QCOMPARE(folder.book.Bank.Year, u"2017"_s);
        QVERIFY(folder.book.CashBox.Year.isEmpty() && folder.said.isEmpty());
    }

    void a_year_without_a_file_begins_with_last_years_balance()
    {
        Folder folder;
        folder.Put(u"HandKasse2016.pz"_s, "01.01.2016;a;7,50;0,00\r\n02.01.2016;b;x;0,00\r\n");
        LoadLedger(folder.book, folder.Place(Account::CashBox));
        const QString line = u"05.03.2017;Übertrag Saldo 2016;7,50;0,00"_s;
        QCOMPARE(folder.book.CashBox.Lines, QStringList { line });
        QCOMPARE(folder.Get(u"HandKasse2017.pz"_s), line.toLatin1() + "\r\n");
        QCOMPARE(folder.said.size(), 2);
        QVERIFY(folder.said[0].contains(u"Neues Jahr 2017"_s));
        QCOMPARE(folder.said[1], u"x"_s);
    }

    void a_year_without_any_history_is_empty_and_says_so()
    {
        Folder folder;
        LoadLedger(folder.book, folder.Place());
        QVERIFY(folder.book.Bank.Lines.isEmpty() && folder.book.LedgerWithoutHistory);
        QCOMPARE(folder.said.size(), 1);
        QCOMPARE(folder.Get(u"Konto2017.pz"_s), QByteArray("(none)"));

        LoadLedgerWithoutHistory(folder.book, folder.Place());
        QCOMPARE(folder.said.size(), 1);
    }

    void a_load_that_fails_leaves_the_list_marked_as_unread()
    {
        Folder folder;
        folder.book.Bank.Lines = { u"typed"_s };
        folder.Put(u"Konto2017.pz"_s, QByteArray(33'000, 'x'));
        const RuntimeError error = ErrorOf([&] { LoadLedger(folder.book, folder.Place()); });
        QCOMPARE(error.where.file, u"Konto2017.pz"_s);
        QCOMPARE(folder.book.Bank.Lines, QStringList { u"typed"_s });
        QVERIFY(folder.book.Bank.Unread);
    }

    void a_ledger_is_read_as_it_stands_without_being_sorted()
    {
        Folder folder;
        const QByteArray lines = "02.01.2017;b;1,00;0,00;fünf\r\n01.01.2017;a;1,00;0,00\r\n";
        folder.Put(u"HandKasse2017.pz"_s, QString::fromUtf8(lines).toLatin1());
        folder.book.CashBox.InOrder = true;
        ReadLedgerAsItStands(folder.book, folder.Place(Account::CashBox));
        QCOMPARE(folder.book.CashBox.Lines,
            QStringList({ u"02.01.2017;b;1,00;0,00;fünf"_s, u"01.01.2017;a;1,00;0,00"_s }));
        QCOMPARE(folder.book.CashBox.Year, u"2017"_s);
        QVERIFY(!folder.book.CashBox.InOrder && !folder.book.CashBox.Unread);
        QVERIFY(folder.book.Bank.Lines.isEmpty());
    }

    void without_a_file_the_list_stays_and_with_a_damaged_one_it_is_unread()
    {
        Folder folder;
        folder.book.Bank.Lines = { u"typed"_s };
        ReadLedgerAsItStands(folder.book, folder.Place());
        QCOMPARE(folder.book.Bank.Lines, QStringList { u"typed"_s });
        QCOMPARE(folder.book.Bank.Year, u"2017"_s);
        QVERIFY(folder.said.isEmpty());
        folder.Put(u"Konto2017.pz"_s, QByteArray(33'000, 'x'));
        const RuntimeError error
            = ErrorOf([&] { ReadLedgerAsItStands(folder.book, folder.Place()); });
        QCOMPARE(error.where.file, u"Konto2017.pz"_s);
        QCOMPARE(folder.book.Bank.Lines, QStringList { u"typed"_s });
        QVERIFY(folder.book.Bank.Unread);
    }

    void a_year_known_to_have_no_history_is_read_where_there_is_a_file()
    {
        Folder folder;
        folder.Put(u"Konto2017.pz"_s, "02.01.2017;b;1,00;0,00\r\n01.01.2017;a;1,00;0,00\r\n");
        LoadLedgerWithoutHistory(folder.book, folder.Place());
        QCOMPARE(folder.book.Bank.Lines,
            QStringList({ u"01.01.2017;a;1,00;0,00"_s, u"02.01.2017;b;1,00;0,00"_s }));
    }

    void what_was_typed_meanwhile_is_put_behind_the_file()
    {
        Folder folder;
        folder.Put(u"Konto2017.pz"_s, "01.01.2017;a;1,00;0,00\r\n");
        folder.book.Bank = { { u"02.01.2017;b;1,00;0,00"_s }, {}, true, true };
        JoinLedgerWithFile(folder.book, folder.Place());
        QCOMPARE(folder.book.Bank.Lines,
            QStringList({ u"01.01.2017;a;1,00;0,00"_s, u"02.01.2017;b;1,00;0,00"_s }));
        QVERIFY(folder.book.Bank.Unsaved && !folder.book.Bank.Unread);

        SaveLedgerLines(folder.book, folder.Place());
        QCOMPARE(folder.Get(u"Konto2017.pz"_s),
            QByteArray("01.01.2017;a;1,00;0,00\r\n02.01.2017;b;1,00;0,00\r\n"));
        QVERIFY(!folder.book.Bank.Unsaved);
    }
};

const TestFile<TestLedgerOpening> test_file(__FILE__);
#include "test_ledger_opening.moc"
