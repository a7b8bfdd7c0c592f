// The note of a rewrite under way: its bytes, and which notes count.
#include "data/redo_record.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const RedoRecord example { u"Konto2016.pz"_s, QByteArray("a;\0b\r\n\xFF", 7) };

std::optional<RedoRecord> Found(const DataFolders& folders, const QString& target)
{
    std::optional<RedoRecord> record;
    if (FindRewrite(folders.files.StateDirectory, target, record))
        qFatal("look-up fails");
    return record;
}

} // namespace

class TestRedoRecord : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_record_is_read_as_it_was_written()
    {
        const std::optional<RedoRecord> read = DecodeRedoRecord(EncodeRedoRecord(example));
        QVERIFY(read.has_value());
        QCOMPARE(read->target, example.target);
        QCOMPARE(read->content, example.content);
    }

    void a_mark_is_read_as_it_was_written()
    {
        RedoRecord marked = example;
        marked.Mark = { 7, 5, QDateTime(QDate(2016, 3, 5), QTime(17, 4, 59)), Deed::TakenBack };
        const std::optional<RedoRecord> read = DecodeRedoRecord(EncodeRedoRecord(marked));
        QVERIFY(read.has_value());
        QVERIFY(read->Mark == marked.Mark);
    }

    void a_mark_by_another_clock_than_the_users_is_void()
    {
        RedoRecord marked = example;
        marked.Mark.Time = QDateTime(QDate(2016, 3, 5), QTime(17, 4, 59), Qt::UTC);
        QVERIFY(!DecodeRedoRecord(EncodeRedoRecord(marked)).has_value());
    }

    void an_empty_content_is_a_content()
    {
        const std::optional<RedoRecord> read
            = DecodeRedoRecord(EncodeRedoRecord({ example.target, {} }));
        QVERIFY(read.has_value());
        QVERIFY(read->content.isEmpty());
    }

    void a_record_without_its_end_is_void()
    {
        const QByteArray whole = EncodeRedoRecord(example);
        for (qsizetype length = 0; length < whole.size(); ++length)
            QVERIFY(!DecodeRedoRecord(whole.left(length)).has_value());
        QVERIFY(!DecodeRedoRecord(whole + '\0').has_value());
    }

    void a_record_with_a_changed_bit_is_void()
    {
        const QByteArray whole = EncodeRedoRecord(example);
        for (qsizetype position = 0; position < whole.size(); ++position) {
            for (int bit = 0; bit < 8; ++bit) {
                QByteArray changed = whole;
                changed[position] = static_cast<char>(changed[position] ^ (1 << bit));
                QVERIFY(!DecodeRedoRecord(changed).has_value());
            }
        }
    }

    void no_record_leads_out_of_the_data_directory_data()
    {
        QTest::addColumn<QString>("target");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("folder") << u"."_s;
        QTest::newRow("folder above") << u".."_s;
        QTest::newRow("slash") << u"../V.dat"_s;
        QTest::newRow("backslash") << u"a\\b"_s;
        QTest::newRow("absolute") << u"/etc/passwd"_s;
        QTest::newRow("null") << QString(u"V.dat"_s + QChar(0));
    }

    void no_record_leads_out_of_the_data_directory()
    {
        QFETCH(QString, target);
        QVERIFY(!IsTargetName(target));
        QVERIFY(!DecodeRedoRecord(EncodeRedoRecord({ target, "x" })).has_value());
    }

    void unusual_names_are_names()
    {
        QVERIFY(IsTargetName(u"..x"_s));
        QVERIFY(IsTargetName(u"zwei\nZeilen.pz"_s));
        QVERIFY(IsTargetName(u"-rf ;Größe.xls"_s));
    }

    void each_file_has_its_own_record_and_the_last_one_counts()
    {
        const DataFolders folders;
        const QString& state = folders.files.StateDirectory;
        QCOMPARE(NoteRewrite(state, { u"a"_s, "1" }), Fault::None);
        QCOMPARE(NoteRewrite(state, { u"b"_s, "2" }), Fault::None);
        QCOMPARE(NoteRewrite(state, { u"a"_s, "3" }), Fault::None);
        QCOMPARE(Found(folders, u"a"_s)->content, QByteArray("3"));
        QCOMPARE(Found(folders, u"b"_s)->content, QByteArray("2"));
        QVERIFY(!Found(folders, u"c"_s).has_value());
        QCOMPARE(folders.StateNames().size(), 2);
        QCOMPARE(ForgetRewrite(state, u"a"_s), Fault::None);
        QVERIFY(!Found(folders, u"a"_s).has_value());
        QCOMPARE(ForgetRewrite(state, u"b"_s), Fault::None);
        QCOMPARE(ForgetRewrite(state, u"c"_s), Fault::None);
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void incomplete_records_are_dropped_and_others_found()
    {
        const DataFolders folders;
        const QString& state = folders.files.StateDirectory;
        QCOMPARE(NoteRewrite(state, example), Fault::None);
        QCOMPARE(NoteRewrite(state, { u"b"_s, "22" }), Fault::None);
        const QStringList names = folders.StateNames();
        for (const QString& name : names) {
            if (Found(folders, u"b"_s).has_value() && Found(folders, example.target).has_value())
                QVERIFY(QFile::resize(state + u'/' + name, 60));
        }
        QFile draft(state + u"/x.entwurf"_s);
        QVERIFY(draft.open(QIODevice::WriteOnly));
        QFile foreign(state + u"/lock"_s);
        QVERIFY(foreign.open(QIODevice::WriteOnly));
        QList<RedoRecord> records;
        QCOMPARE(FindRewrites(state, records), Fault::None);
        QCOMPARE(records.size(), 1);
        QCOMPARE(folders.StateNames().size(), 2); // the complete one and what is none of ours
        QVERIFY(folders.StateNames().contains(u"lock"_s));
    }

    void no_state_directory_means_no_records()
    {
        const DataFolders folders;
        QList<RedoRecord> records { example };
        QCOMPARE(FindRewrites(folders.files.StateDirectory, records), Fault::None);
        QVERIFY(records.isEmpty());
        QVERIFY(!Found(folders, u"a"_s).has_value());
    }

    void only_the_user_may_read_what_is_noted()
    {
        const DataFolders folders;
        const QString state = folders.files.StateDirectory + u"/parzello/key"_s;
        QCOMPARE(NoteRewrite(state, example), Fault::None);
        const QString name = QDir(state).entryList(QDir::Files).value(0);
        QCOMPARE(QFile::permissions(state + u'/' + name) & ~(QFile::ReadUser | QFile::WriteUser),
            QFile::ReadOwner | QFile::WriteOwner);
        for (const QString& folder : { state, folders.files.StateDirectory + u"/parzello"_s })
            QVERIFY(!(QFile::permissions(folder)
                & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther)));
        for (const QString& ending : { u".pz"_s, u".ini"_s, u".xls"_s })
            QVERIFY(!name.endsWith(ending));
    }
};

const TestFile<TestRedoRecord> test_file(__FILE__);
#include "test_redo_record.moc"
