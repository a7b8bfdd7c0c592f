// "OK" and "Löschen" on the lines of a ledger.
#include "cashbook/ledger.h"

#include "data/runtime_error.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString typed = u"05.05.2016;Neu;1,00;0,00"_s;
const QString a = u"01.01.2016;a;0,00;1,00"_s;
const QString b = u"02.01.2016;b;0,00;1,00"_s;
const QString c = u"03.01.2016;c;0,00;1,00"_s;

CashBookState Book(const QStringList& bank, bool edit_mode = false, int selected = 0)
{
    CashBookState book;
    book.Bank.Lines = bank;
    book.LedgerEditMode = edit_mode;
    book.SelectedLedgerRow = selected;
    return book;
}

/// What the error of "Löschen" says; nothing when there is none.
QString DeleteError(CashBookState& book)
{
    try {
        DeleteEntry(book, Account::Bank);
    } catch (const RuntimeError& error) {
        return error.kind == ErrorKind::InvalidIndex ? error.where.remedy : u"another error"_s;
    }
    return {};
}

} // namespace

class TestLedger : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ok_appends_outside_edit_mode()
    {
        CashBookState book = Book({ a, b }, false, 1);
        ApplyEntry(book, Account::Bank, typed);
        QCOMPARE(book.Bank.Lines, QStringList({ a, b, typed }));
    }

    void ok_in_edit_mode_replaces_or_appends_data()
    {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<int>("selected");
        QTest::addColumn<int>("replaces");
        QTest::addColumn<QStringList>("after");
        const QStringList three { a, b, c };
        QTest::newRow("first of three") << three << 1 << 0 << QStringList { typed, b, c };
        QTest::newRow("last of three") << three << 3 << 2 << QStringList { a, b, typed };
        QTest::newRow("past the end") << three << 4 << -1 << QStringList { a, b, c, typed };
        QTest::newRow("no row") << three << 0 << -1 << QStringList { a, b, c, typed };
        QTest::newRow("the only line, its row")
            << QStringList { a } << 1 << 0 << QStringList { typed };
        QTest::newRow("the only line, another row")
            << QStringList { a } << 3 << 0 << QStringList { typed };
        QTest::newRow("none left") << QStringList {} << 1 << -1 << QStringList { typed };
    }
    void ok_in_edit_mode_replaces_or_appends()
    {
        QFETCH(const QStringList, before);
        QFETCH(const int, selected);
        QFETCH(const int, replaces);
        QFETCH(const QStringList, after);
        CashBookState book = Book(before, true, selected);
        QCOMPARE(LineToReplace(book, Account::Bank), replaces);
        ApplyEntry(book, Account::Bank, typed);
        QCOMPARE(book.Bank.Lines, after);
        QVERIFY(!book.LedgerEditMode);
        QCOMPARE(book.SelectedLedgerRow, 0);
    }

    void replacing_cuts_all_other_lines_to_four_fields()
    {
        CashBookState book = Book({ a + u";9,99"_s, b, u"03.01.2016;c"_s }, true, 2);
        ApplyEntry(book, Account::Bank, typed);
        QCOMPARE(book.Bank.Lines, QStringList({ a, typed, u"03.01.2016;c;;"_s }));
    }

    void appending_leaves_the_other_lines_alone()
    {
        CashBookState book = Book({ a + u";9,99"_s });
        ApplyEntry(book, Account::Bank, typed);
        QCOMPARE(book.Bank.Lines, QStringList({ a + u";9,99"_s, typed }));
    }

    void what_was_typed_is_taken_as_it_is()
    {
        CashBookState book = Book({ a }, true, 1);
        ApplyEntry(book, Account::Bank, u"x;y;z;1;2"_s);
        QCOMPARE(book.Bank.Lines, QStringList { u"x;y;z;1;2"_s });
    }

    void ok_and_delete_mark_the_shown_account_alone()
    {
        CashBookState book = Book({ a });
        ApplyEntry(book, Account::Bank, typed);
        QVERIFY(book.LedgerChanged && book.Bank.Unsaved && !book.CashBox.Unsaved);

        CashBookState cash;
        cash.Bank.Lines = { a };
        cash.CashBox.Lines = { b };
        cash.SelectedLedgerRow = 1;
        DeleteEntry(cash, Account::CashBox);
        QVERIFY(cash.LedgerChanged && cash.CashBox.Unsaved && !cash.Bank.Unsaved);
        QCOMPARE(cash.Bank.Lines, QStringList { a });
        QVERIFY(cash.CashBox.Lines.isEmpty());
    }

    void delete_keeps_edit_mode_so_that_ok_replaces_the_line_that_moved_up()
    {
        CashBookState book = Book({ a, b, c, u"04.01.2016;d;0,00;1,00"_s }, true, 3);
        DeleteEntry(book, Account::Bank);
        QVERIFY(book.LedgerEditMode);
        QCOMPARE(book.SelectedLedgerRow, 3);
        ApplyEntry(book, Account::Bank, typed);
        QCOMPARE(book.Bank.Lines, QStringList({ a, b, typed }));
    }

    void delete_without_a_row_is_an_error_and_changes_nothing_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<QString>("says");
        QTest::newRow("none") << 0 << u"Es ist keine Buchung ausgewählt. "_s;
        QTest::newRow("past the end") << 3 << u"Zuletzt war die Zeile 3 ausgewählt, "_s;
    }
    void delete_without_a_row_is_an_error_and_changes_nothing()
    {
        QFETCH(const int, selected);
        QFETCH(const QString, says);
        CashBookState book = Book({ a, b }, false, selected);
        const QString error = DeleteError(book);
        QVERIFY2(error.startsWith(says), qPrintable(error));
        QCOMPARE(book.Bank.Lines, QStringList({ a, b }));
        QVERIFY(!book.LedgerChanged && !book.Bank.Unsaved);
        QCOMPARE(book.SelectedLedgerRow, selected);
    }

    void bookings_beyond_the_sixteen_bit_positions_can_be_replaced_and_deleted()
    {
        CashBookState book = Book(QStringList(100'000, a), true, 99'999);
        ApplyEntry(book, Account::Bank, typed);
        QCOMPARE(book.Bank.Lines.indexOf(typed), 99'998);
        book.SelectedLedgerRow = 99'999;
        DeleteEntry(book, Account::Bank);
        QVERIFY(!book.Bank.Lines.contains(typed));
        QCOMPARE(book.Bank.Lines.size(), 99'999);
    }

    void ok_puts_the_line_where_the_order_wants_it()
    {
        CashBookState book = Book({ a, c });
        book.Bank.InOrder = true;
        ApplyEntry(book, Account::Bank, b);
        QCOMPARE(book.Bank.Lines, QStringList({ a, b, c }));
        book.LedgerEditMode = true;
        book.SelectedLedgerRow = 1;
        ApplyEntry(book, Account::Bank, typed);
        QCOMPARE(book.Bank.Lines, QStringList({ b, c, typed }));
        QVERIFY(book.Bank.InOrder);
    }

    void a_date_that_has_no_place_ends_the_order()
    {
        CashBookState book = Book({ a, c });
        book.Bank.InOrder = true;
        ApplyEntry(book, Account::Bank, u"1.1.16;x;0,00;1,00"_s);
        QCOMPARE(book.Bank.Lines, QStringList({ a, c, u"1.1.16;x;0,00;1,00"_s }));
        QVERIFY(!book.Bank.InOrder);
        ApplyEntry(book, Account::Bank, b);
        QCOMPARE(book.Bank.Lines.last(), b);
    }

    void a_list_belongs_to_the_year_it_was_read_for()
    {
        Ledger ledger;
        QVERIFY(!IsOfAnotherYear(ledger, u"2016"_s, u"2016"_s)); // read for none yet
        ledger.Year = u"2016"_s;
        QVERIFY(!IsOfAnotherYear(ledger, u"2016"_s, u"2017"_s));
        QVERIFY(!IsOfAnotherYear(ledger, u"2017"_s, u"2016"_s));
        QVERIFY(IsOfAnotherYear(ledger, u"2017"_s, u"2017"_s));
    }

    void each_account_has_a_list_and_marks_of_its_own()
    {
        CashBookState book;
        LedgerOf(book, Account::CashBox).Lines = { u"03.02.2017;Porto;0,00;1,00"_s };
        LedgerOf(book, Account::CashBox).Unsaved = true;
        LedgerOf(book, Account::CashBox).Unread = true;
        const CashBookState& seen = book;
        QCOMPARE(LedgerOf(seen, Account::CashBox).Lines, book.CashBox.Lines);
        QVERIFY(LedgerOf(seen, Account::Bank).Lines.isEmpty());
        QVERIFY(book.CashBox.Unsaved && book.CashBox.Unread);
        QVERIFY(!LedgerOf(book, Account::Bank).Unsaved && !LedgerOf(book, Account::Bank).Unread);
    }
};

const TestFile<TestLedger> test_file(__FILE__);
#include "test_ledger.moc"
