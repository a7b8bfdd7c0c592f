// The search in the bookings: what is found, where the hits go, and what Enter does.
#include "cashbook/ledger_model.h"
#include "tests/support/cash_book_club.h"
#include "tests/support/test_file.h"

using namespace Qt::StringLiterals;

namespace {

const QString lines = u"01.02.2016;Abrechnung Meier;1204,20;0,00\r\n"
                      "02.02.2016;Porto;0,00;7,80\r\n"
                      "03.02.2016;Abrechnung Lang;100,00;0,00\r\n"
                      "04.02.2016;abrechnung van;abc;0,00\r\n"_s;

struct SearchClub : CashBookClub {
    SearchClub()
        : CashBookClub(lines, cash_line)
    {
    }

    QLineEdit* Words() const { return Control<QLineEdit>("LedgerSearch"); }
    QString Hits() const { return Control<QLabel>("LedgerSearchHits")->text(); }
    LedgerModel* Model() const { return program.CashBookTab.Ledger; }

    void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }

    void Search(const QString& words) const
    {
        Press(Qt::Key_F, Qt::ControlModifier);
        Type(Words(), words);
    }

    bool IsTinted(int row) const
    {
        return Model()->index(row, 1).data(Qt::BackgroundRole).isValid();
    }
};

} // namespace

class TestLedgerSearchForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_line_takes_no_room_until_it_is_called()
    {
        const SearchClub club;
        QVERIFY(!club.Words()->isVisible());
        club.Press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(club.Words()->isVisible());
        QVERIFY(club.Words()->hasFocus());
        QCOMPARE(club.Hits(), u""_s);
    }

    void text_amount_and_day_are_found_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<std::vector<int>>("rows");
        QTest::addColumn<QString>("said");
        QTest::newRow("text, in any case of letters")
            << u"ABRECHNUNG"_s << std::vector<int> { 0, 2, 3 }
            << u"3 Treffer, Einzahlung 1.304,20 €, Abheben 0,00 €"_s;
        QTest::newRow("amount") << u"7,80"_s << std::vector<int> { 1 }
                                << u"1 Treffer, Einzahlung 0,00 €, Abheben 7,80 €"_s;
        QTest::newRow("amount with the point of thousands")
            << u"1.204,20"_s << std::vector<int> { 0 }
            << u"1 Treffer, Einzahlung 1.204,20 €, Abheben 0,00 €"_s;
        QTest::newRow("day") << u"03.02."_s << std::vector<int> { 2 }
                             << u"1 Treffer, Einzahlung 100,00 €, Abheben 0,00 €"_s;
        QTest::newRow("nothing") << u"Pacht"_s << std::vector<int> {}
                                 << u"0 Treffer, Einzahlung 0,00 €, Abheben 0,00 €"_s;
    }
    void text_amount_and_day_are_found()
    {
        QFETCH(const QString, words);
        QFETCH(const std::vector<int>, rows);
        QFETCH(const QString, said);
        const SearchClub club;
        club.Search(words);
        QCOMPARE(club.Model()->Hits(), rows);
        QCOMPARE(club.Hits(), said);
        QCOMPARE(club.Texts().size(), 4); // no row is hidden
        for (int row = 0; row < 3; ++row)
            QCOMPARE(club.IsTinted(row), std::count(rows.begin(), rows.end(), row) == 1);
        QVERIFY(!club.Book().LedgerEditMode);
    }

    void f3_steps_through_the_hits_and_round()
    {
        const SearchClub club;
        club.Search(u"abrechnung"_s);
        QCOMPARE(club.Model()->CurrentHit(), 0);
        club.Press(Qt::Key_F3);
        QCOMPARE(club.Model()->CurrentHit(), 1);
        club.Press(Qt::Key_F3);
        club.Press(Qt::Key_F3);
        QCOMPARE(club.Model()->CurrentHit(), 0);
        club.Press(Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(club.Model()->CurrentHit(), 2);
        QVERIFY(club.Model()->index(3, 1).data(Qt::BackgroundRole)
            != club.Model()->index(2, 1).data(Qt::BackgroundRole));
        QCOMPARE(club.MarkedRow(), -1);
    }

    void a_payment_of_a_day_is_corrected_with_seven_keys_before_the_amount()
    {
        const SearchClub club;
        club.Press(Qt::Key_F, Qt::ControlModifier);
        for (const QChar sign : u"03.02"_s)
            QTest::sendKeyEvent(
                QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(sign), {});
        club.Press(Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), club.Field(2));
        QCOMPARE(club.Field(2)->selectedText(), u"100,00"_s); // typing replaces it
        QTest::keyClicks(club.Field(2), u"90,00"_s);
        club.Press(Qt::Key_Return);
        club.Press(Qt::Key_Return);
        club.Press(Qt::Key_Return);
        QCOMPARE(club.Row(2)[2], u"90,00 €"_s);
        QCOMPARE(club.Texts().size(), 4);
    }

    void enter_on_a_withdrawal_goes_to_its_amount()
    {
        const SearchClub club;
        club.Search(u"Porto"_s);
        club.Press(Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), club.Field(3));
        QCOMPARE(club.MarkedRow(), 1);
    }

    void the_hits_follow_the_bookings()
    {
        const SearchClub club;
        club.Search(u"Porto"_s);
        BookPorto(club);
        QCOMPARE(club.Model()->Hits(), (std::vector<int> { 1, 2 }));
        club.Click("Command15");
        QCOMPARE(club.Model()->Hits(), std::vector<int> {});
        QCOMPARE(club.Hits(), u"0 Treffer, Einzahlung 0,00 €, Abheben 0,00 €"_s);
    }

    void escape_ends_the_search_and_its_marks()
    {
        const SearchClub club;
        club.Search(u"Porto"_s);
        QVERIFY(club.IsTinted(1));
        club.Press(Qt::Key_Escape);
        QVERIFY(!club.Words()->isVisible());
        QVERIFY(!club.IsTinted(1));
        QVERIFY(club.View()->hasFocus());
    }

    void escape_first_ends_the_replacing_then_the_search()
    {
        const SearchClub club;
        club.Search(u"Porto"_s);
        club.Press(Qt::Key_Return);
        club.Press(Qt::Key_Escape);
        QVERIFY(!club.Book().LedgerEditMode);
        QVERIFY(club.Words()->isVisible());
        club.Press(Qt::Key_Escape);
        QVERIFY(!club.Words()->isVisible());
    }
};

const TestFile<TestLedgerSearchForm> test_file(__FILE__);
#include "test_ledger_search_form.moc"
