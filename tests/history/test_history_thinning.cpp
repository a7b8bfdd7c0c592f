// Which states give way when there are too many bytes of them.
#include "data/history.h"
#include "data/history_thinning.h"
#include "data/rewrite_file.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

HistoryEntry State(qint64 number, const QString& key, const QDate& day, qint64 size)
{
    return { { number, number, QDateTime(day, { 12, 0 }), Deed::Saved }, key, size };
}

const QDate first_day(2026, 1, 1);

/// That many states a day of one file of 100 bytes each, on consecutive days.
QList<HistoryEntry> Days(int days, int states_a_day)
{
    QList<HistoryEntry> entries;
    for (int day = 0; day < days; ++day) {
        for (int i = 0; i < states_a_day; ++i)
            entries
                += State(entries.size() + 1, u"0123456789abcdef"_s, first_day.addDays(day), 100);
    }
    return entries;
}

QList<qint64> Numbers(const QList<HistoryEntry>& entries)
{
    QList<qint64> numbers;
    for (const HistoryEntry& entry : entries)
        numbers += entry.Mark.Number;
    return numbers;
}

} // namespace

class TestHistoryThinning : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothing_goes_before_the_limit_is_passed()
    {
        QVERIFY(StatesToDrop(Days(10, 10), 10'000).isEmpty());
        QCOMPARE(StatesToDrop(Days(10, 10), 9'999).size(), 1);
    }

    void the_oldest_day_goes_first_and_keeps_its_last_state()
    {
        QCOMPARE(Numbers(StatesToDrop(Days(10, 10), 9'000)),
            (QList<qint64> { 1, 2, 3, 4, 5, 6, 7, 8, 9, 11 }));
    }

    void the_newest_fifty_stay_and_each_days_last()
    {
        // 51 to 100 are the newest; of 1 to 50 five are the last of their day
        QCOMPARE(StatesToDrop(Days(10, 10), 0).size(), 45);
    }

    void each_file_has_its_own_days_and_its_own_fifty()
    {
        QList<HistoryEntry> entries = Days(1, 60);
        entries += State(61, u"other"_s, first_day, 100'000);
        QCOMPARE(
            Numbers(StatesToDrop(entries, 1)), (QList<qint64> { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10 }));
    }

    void what_went_out_stays()
    {
        QList<HistoryEntry> entries = Days(1, 60);
        for (HistoryEntry& entry : entries)
            entry.Mark.How = Deed::SentOut;
        QVERIFY(StatesToDrop(entries, 0).isEmpty());
    }

    void five_hundred_megabytes_of_real_files_are_thinned_at_the_next_save()
    {
        const DataFolders folders;
        const QString folder = folders.files.StateDirectory + u"/verlauf/"_s;
        QVERIFY(QDir().mkpath(folder));
        const QString key = HistoryKeyOf(u"Konto2016.pz"_s);
        for (int i = 1; i <= 60; ++i) { // sparse: their bytes are never written
            QFile state(folder + HistoryNameOf(State(i, key, first_day, 9'000'000)));
            QVERIFY(state.open(QIODevice::WriteOnly));
            QVERIFY(state.resize(9'000'000));
        }
        RewriteFile(folders.files, u"\\Konto2016.pz"_s, "new");
        QList<HistoryEntry> entries;
        QVERIFY(!ReadHistory(folders.files, entries));
        QCOMPARE(entries.size(), 56); // 55 of nine million, and the new one
        QCOMPARE(entries.first().Mark.Number, 6);
        QCOMPARE(entries.last().Mark.Number, 61);
    }
};

const TestFile<TestHistoryThinning> test_file(__FILE__);
#include "test_history_thinning.moc"
