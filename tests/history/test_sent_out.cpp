// What went out is kept, told and found again.
#include "data/rewrite_file.h"
#include "history/kept_actions.h"
#include "history/sent_out.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QList<SentBill> Bills(const QList<int>& pages)
{
    QList<SentBill> bills;
    for (const int page : pages)
        bills += { page, u"Name%1,Anna"_s.arg(page), u"%1,50"_s.arg(page) };
    return bills;
}

QString LastWords(const DataFiles& files)
{
    QList<HistoryEntry> entries;
    if (ReadHistory(files, entries))
        qFatal("the history cannot be read");
    QList<KeptAction> actions = ActionsOf(entries);
    TellAction(files, actions.first());
    return actions.first().Words;
}

/// "3 Name3,Anna 3,50" of each, "-" where none went out.
QStringList Last(const DataFiles& files, const QString& year, const QStringList& names)
{
    QStringList texts;
    for (const std::optional<LastSentBill>& sent : LastSentBills(files, year, names)) {
        texts += sent ? u"%1 %2 %3"_s.arg(sent->Bill.Page).arg(sent->Bill.Name, sent->Bill.Total)
                      : u"-"_s;
    }
    return texts;
}

} // namespace

class TestSentOut : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_run_is_told_by_its_pages_data()
    {
        QTest::addColumn<QList<int>>("pages");
        QTest::addColumn<int>("how");
        QTest::addColumn<QString>("words");
        const int paper = static_cast<int>(SentHow::Printed);
        QTest::newRow("one") << QList<int> { 3 } << paper << u"Seite 3 gedruckt"_s;
        QTest::newRow("run") << QList<int> { 1, 2, 3 } << paper << u"Seiten 1 bis 3 gedruckt"_s;
        QTest::newRow("gaps") << QList<int> { 1, 3, 7, 8, 9 } << paper
                              << u"Seiten 1, 3 und 7 bis 9 gedruckt"_s;
        QTest::newRow("pdf") << QList<int> { 1, 2 } << static_cast<int>(SentHow::Pdf)
                             << u"Seiten 1 bis 2 als PDF"_s;
    }

    void a_run_is_told_by_its_pages()
    {
        QFETCH(QList<int>, pages);
        QFETCH(int, how);
        QFETCH(QString, words);
        const DataFolders folders;
        KeepSentBills(folders.files, u"2026"_s, static_cast<SentHow>(how), Bills(pages));
        QCOMPARE(LastWords(folders.files), u"Abrechnungen 2026: "_s + words);
    }

    void the_last_bill_of_each_member_counts()
    {
        const DataFolders folders;
        KeepSentBills(folders.files, u"2026"_s, SentHow::Printed, Bills({ 1, 2, 3 }));
        KeepSentBills(
            folders.files, u"2026"_s, SentHow::Pdf, { { 2, u"Name2,Anna"_s, u"99,00"_s } });
        KeepSentBills(folders.files, u"2025"_s, SentHow::Printed, Bills({ 3 }));
        const QStringList names { u"Name2,Anna"_s, u"Niemand,Nie"_s, u"Name3,Anna"_s };
        QCOMPARE(Last(folders.files, u"2026"_s, names),
            (QStringList { u"2 Name2,Anna 99,00"_s, u"-"_s, u"3 Name3,Anna 3,50"_s }));
        QVERIFY(LastSentBills(folders.files, u"2026"_s, names)[0]->How == SentHow::Pdf);
        QCOMPARE(Last(folders.files, u"2024"_s, names), (QStringList { u"-"_s, u"-"_s, u"-"_s }));
    }

    void namesakes_have_bills_of_their_own()
    {
        const DataFolders folders;
        const SentBill first { 1, u"Meier,Anna"_s, u"1,00"_s };
        const SentBill second { 2, u"Meier,Anna"_s, u"2,00"_s };
        KeepSentBills(folders.files, u"2026"_s, SentHow::Printed, { first, second });
        QCOMPARE(Last(folders.files, u"2026"_s, { first.Name, first.Name, first.Name }),
            (QStringList { u"1 Meier,Anna 1,00"_s, u"2 Meier,Anna 2,00"_s, u"-"_s }));
    }

    void names_and_totals_may_hold_anything()
    {
        const DataFolders folders;
        KeepSentBills(folders.files, u"2026"_s, SentHow::Printed,
            { { 1, u"Mül;ler,Ö"_s, {} }, { 2, {}, u"1E+10"_s } });
        QCOMPARE(Last(folders.files, u"2026"_s, { u"Mül;ler,Ö"_s, {} }),
            (QStringList { u"1 Mül;ler,Ö "_s, u"2  1E+10"_s }));
    }

    void a_run_without_bills_is_none()
    {
        const DataFolders folders;
        KeepSentBills(folders.files, u"2026"_s, SentHow::Printed, {});
        QCOMPARE(folders.StateNames(), QStringList {});
        QCOMPARE(Last(folders.files, u"2026"_s, { u"x"_s }), QStringList { u"-"_s });
    }
};

const TestFile<TestSentOut> test_file(__FILE__);
#include "test_sent_out.moc"
