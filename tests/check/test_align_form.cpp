// The window "Vorjahr abgleichen": what it shows, what it asks, what it writes.
#include "check/align_form.h"

#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int offer_column = 3;

/// A club whose list of 2016 lacks the third line.
struct Shortened : TestClub {
    Shortened()
    {
        CopyExample(u"ordinary-year"_s);
        QByteArrayList lines = Read(u"Mitgliedsdaten2016.pz"_s).split('\n');
        Whole = lines;
        lines.removeAt(2);
        Write(u"Mitgliedsdaten2016.pz"_s, lines.join('\n'));
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
        Boxes.clear();
    }
    QTableWidget* Table() const { return Control<QTableWidget>("AlignList"); }
    QTableWidgetItem* Offer(int row) const { return Table()->item(row, offer_column); }
    void Apply() const { QTest::mouseClick(Control<QPushButton>("AlignApply"), Qt::LeftButton); }

    QByteArrayList Whole;
};

} // namespace

class TestAlignForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void both_years_stand_side_by_side_with_an_offer_for_the_difference()
    {
        Shortened club;
        ShowAlignWindow(club.program);
        QCOMPARE(club.Table()->rowCount(), 8);
        QCOMPARE(club.Table()->item(2, 1)->text(), u"Böhm,Jörg"_s);
        QCOMPARE(club.Table()->item(2, 2)->text(), QString());
        QCOMPARE(
            club.Offer(2)->text(), u"Im Vorjahr fehlt Böhm,Jörg (Platz 3): leere Zeile einfügen"_s);
        QVERIFY(club.Offer(2)->flags() & Qt::ItemIsUserCheckable);
        QVERIFY(!(club.Offer(0)->flags() & Qt::ItemIsUserCheckable));
        QVERIFY(!(club.Table()->item(0, 4)->flags() & Qt::ItemIsEditable));
        QVERIFY(club.Table()->item(2, 4)->flags() & Qt::ItemIsEditable);
    }

    void a_ticked_offer_is_carried_out_after_one_question()
    {
        Shortened club;
        ShowAlignWindow(club.program);
        QCOMPARE(club.program.Statement.StatementTotals.size(), 7);
        club.Offer(2)->setCheckState(Qt::Checked);
        club.Table()->item(2, 4)->setText(u"100"_s);
        club.Table()->item(2, 5)->setText(u"150"_s);
        club.Apply();
        QCOMPARE(club.BoxTexts(),
            QStringList { u"Vorjahr abgleichen: Die Datei Mitgliedsdaten2016.pz wird geändert: 1 "
                          "Zeile dazu, 0 Zeilen weg."_s });
        const QByteArrayList lines = club.Read(u"Mitgliedsdaten2016.pz"_s).split('\n');
        QCOMPARE(lines.size(), club.Whole.size());
        QVERIFY(lines[2].startsWith("B\xF6hm;J\xF6rg;"));
        QVERIFY(lines[2].endsWith(";;;;;;100;150;;\r"));
        QCOMPARE(lines[3], club.Whole[3]);
        QCOMPARE(club.program.Statement.StatementTotals.size(), 8); // loaded
        QVERIFY(!club.Control<QPushButton>("AlignApply")->isEnabled());
    }

    void no_changes_nothing()
    {
        Shortened club;
        const QByteArray before = club.Read(u"Mitgliedsdaten2016.pz"_s);
        ShowAlignWindow(club.program);
        club.Offer(2)->setCheckState(Qt::Checked);
        club.Answers = { BoxAnswer::No };
        club.Apply();
        QCOMPARE(club.Read(u"Mitgliedsdaten2016.pz"_s), before);
    }

    void without_a_tick_nothing_is_asked()
    {
        Shortened club;
        ShowAlignWindow(club.program);
        club.Apply();
        QCOMPARE(
            club.BoxTexts(), QStringList { u"Vorjahr abgleichen: Es ist kein Häkchen gesetzt."_s });
    }

    void a_file_that_changed_meanwhile_is_left_alone()
    {
        Shortened club;
        ShowAlignWindow(club.program);
        club.Offer(2)->setCheckState(Qt::Checked);
        const QByteArray changed = club.Whole.join('\n');
        club.Write(u"Mitgliedsdaten2016.pz"_s, changed);
        club.Apply();
        QCOMPARE(club.BoxTexts().first(),
            u"Vorjahr abgleichen: Gezeigt wird nicht, was in der Datei Mitgliedsdaten2016.pz "
            "steht. Drücken Sie zuerst „Laden“."_s);
        QCOMPARE(club.Read(u"Mitgliedsdaten2016.pz"_s), changed);
    }

    void what_is_not_saved_is_told_in_the_question()
    {
        Shortened club;
        ShowAlignWindow(club.program);
        club.program.CashBook.Bank.Unsaved = true;
        club.Offer(2)->setCheckState(Qt::Checked);
        club.Answers = { BoxAnswer::No };
        club.Apply();
        QVERIFY(club.Boxes.first().detail.contains(u"geht dabei verloren"_s));
    }

    void lists_that_fit_offer_nothing()
    {
        TestClub club;
        club.CopyExample(u"ordinary-year"_s);
        club.Start({ 2017, 11, 20 });
        ShowAlignWindow(club.program);
        QCOMPARE(club.Control<QLabel>("AlignText")->text(),
            u"Die Listen von 2016 und 2017 passen zueinander."_s);
        QVERIFY(!club.Control<QPushButton>("AlignApply")->isEnabled());
    }

    void without_a_list_of_last_year_it_says_so()
    {
        TestClub club;
        club.CopyExample(u"first-year"_s);
        club.Start({ 2016, 11, 20 });
        club.Boxes.clear();
        ShowAlignWindow(club.program);
        QCOMPARE(club.BoxTexts(),
            QStringList { u"Vorjahr abgleichen: Es gibt keine Liste des Vorjahres, die abgeglichen "
                          "werden könnte."_s });
    }
};

const TestFile<TestAlignForm> test_file(__FILE__);
#include "test_align_form.moc"
