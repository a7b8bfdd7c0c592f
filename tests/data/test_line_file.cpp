// Files as lines: names, look-up, reading, the bytes of lines, whole rewrites.
#include "data/line_file.h"
#include "data/whole_files.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// The error that an action throws; "no error" as reason when it throws none.
template <typename Action> RuntimeError ErrorOf(Action action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error;
    }
    return { ErrorKind::File, {}, u"no error"_s };
}

const QString members = u"\\Mitgliedsdaten2016.pz"_s;

} // namespace

class TestLineFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_name_begins_with_either_separator()
    {
        const DataFiles files { u"/club"_s, {} };
        QCOMPARE(PathOf(files, u"\\Konto2016.pz"_s), u"/club/Konto2016.pz"_s);
        QCOMPARE(PathOf(files, u"/Konto2016.pz"_s), u"/club/Konto2016.pz"_s);
        QCOMPARE(FileNameOf(u"\\Konto2016.pz"_s), u"Konto2016.pz"_s);
        QCOMPARE(FileNameOf(u"/club/Konto2016.pz"_s), u"Konto2016.pz"_s);
        QCOMPARE(FileNameOf(u"V.dat"_s), u"V.dat"_s);
    }

    void a_folder_is_no_file()
    {
        const DataFolders folders;
        QVERIFY(!FileExists(folders.files, u"\\V.dat"_s));
        QVERIFY(QDir().mkpath(folders.files.DataDirectory + u"/V.dat"_s));
        QVERIFY(!FileExists(folders.files, u"\\V.dat"_s));
        folders.Put(u"Config.ini"_s, "");
        QVERIFY(FileExists(folders.files, u"\\Config.ini"_s));
        QVERIFY(!FileExists(folders.files, u"\\Config.ini/V.dat"_s));
        QVERIFY(!FileExists(folders.files, u"\\"_s + QString(300, u'x')));
    }

    void lines_end_at_cr_lf_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QByteArray>("saved");
        QTest::newRow("empty") << QByteArray() << QStringList {} << QByteArray();
        QTest::newRow("one") << QByteArray("a;b\r\n") << QStringList { u"a;b"_s }
                             << QByteArray("a;b\r\n");
        QTest::newRow("last line end missing")
            << QByteArray("a\r\nb") << QStringList { u"a"_s, u"b"_s } << QByteArray("a\r\nb\r\n");
        QTest::newRow("empty lines")
            << QByteArray("\r\n\r\n") << QStringList { u""_s, u""_s } << QByteArray("\r\n\r\n");
        QTest::newRow("LF alone, as other systems write it")
            << QByteArray("a;b\n\nc\n") << QStringList { u"a;b"_s, u""_s, u"c"_s }
            << QByteArray("a;b\r\n\r\nc\r\n");
        QTest::newRow("LF alone, last line end missing")
            << QByteArray("a\nb") << QStringList { u"a"_s, u"b"_s } << QByteArray("a\r\nb\r\n");
        QTest::newRow("lone CR and LF") << QByteArray("a\rb\nc\r\n") << QStringList { u"a\rb\nc"_s }
                                        << QByteArray("a\rb\nc\r\n");
        QTest::newRow("CR before CR LF")
            << QByteArray("a\r\r\n\nb\r\n") << QStringList { u"a\r"_s, u"\nb"_s }
            << QByteArray("a\r\r\n\nb\r\n");
        QTest::newRow("umlauts") << QByteArray("M\xFCller;\x80\r\n")
                                 << QStringList { u"Müller;€"_s }
                                 << QByteArray("M\xFCller;\x80\r\n");
        QTest::newRow("null and end of file characters") << QByteArray("a\0b\x1A"
                                                                       "c\r\n",
            7) << QStringList { QString(u"a"_s + QChar(0) + u"b\u001Ac"_s) }
                                                         << QByteArray("a\0b\x1A"
                                                                       "c\r\n",
                                                                7);
    }

    void lines_end_at_cr_lf()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, lines);
        QFETCH(QByteArray, saved);
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, content);
        QCOMPARE(ReadLines(folders.files, u"\\Konto2016.pz"_s), lines);
        QCOMPARE(ReadFirstLine(folders.files, u"\\Konto2016.pz"_s), lines.value(0));
        RewriteLines(folders.files, u"\\Konto2016.pz"_s, lines);
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), saved);
    }

    void a_missing_file_is_reported_with_its_folder()
    {
        const DataFolders folders;
        const RuntimeError error = ErrorOf([&] { ReadLines(folders.files, members); });
        QCOMPARE(error.kind, ErrorKind::File);
        QCOMPARE(error.reason, u"Datei oder Verzeichnis nicht gefunden"_s);
        QCOMPARE(error.where.file, u"Mitgliedsdaten2016.pz"_s);
        QVERIFY(error.where.remedy.contains(folders.files.DataDirectory));
    }

    void a_folder_in_place_of_the_file_is_reported()
    {
        const DataFolders folders;
        QVERIFY(QDir().mkpath(folders.Path(u"Mitgliedsdaten2016.pz"_s)));
        const RuntimeError error = ErrorOf([&] { ReadBytes(folders.files, members); });
        QCOMPARE(error.reason, u"Ist ein Verzeichnis"_s);
        QVERIFY(error.where.remedy.contains(u"umbenennen"_s));
    }

    void a_pipe_in_place_of_the_file_is_reported_and_not_waited_for()
    {
        const DataFolders folders;
        const QByteArray path = folders.Path(u"Mitgliedsdaten2016.pz"_s).toUtf8();
        QCOMPARE(::mkfifo(path.constData(), 0600), 0);
        const RuntimeError error = ErrorOf([&] { ReadBytes(folders.files, members); });
        QCOMPARE(error.reason, u"Ist keine gewöhnliche Datei"_s);
    }

    void a_name_with_a_null_character_is_no_file()
    {
        const DataFolders folders;
        folders.Put(u"V.dat"_s, "x");
        const QString name = u"\\V.dat"_s + QChar(0) + u"y"_s;
        QVERIFY(!FileExists(folders.files, name));
        QCOMPARE(ErrorOf([&] { ReadBytes(folders.files, name); }).reason,
            u"Das ist kein gültiger Dateiname"_s);
    }

    void a_look_up_that_fails_is_not_taken_for_missing()
    {
        const DataFolders folders;
        QVERIFY(QFile::link(folders.Path(u"b"_s), folders.Path(u"a"_s)));
        QVERIFY(QFile::link(folders.Path(u"a"_s), folders.Path(u"b"_s)));
        QCOMPARE(ErrorOf([&] { FileExists(folders.files, u"\\a"_s); }).reason,
            u"Zu viele Ebenen aus symbolischen Verknüpfungen"_s);
    }

    void as_many_lines_as_a_position_can_count_are_read()
    {
        const DataFolders folders;
        folders.Put(u"Mitgliedsdaten2016.pz"_s, QByteArray("\r\n").repeated(MostLines));
        QCOMPARE(ReadLines(folders.files, members).size(), MostLines);
    }

    void one_line_more_overflows()
    {
        const DataFolders folders;
        folders.Put(u"Mitgliedsdaten2016.pz"_s, QByteArray("\r\n").repeated(MostLines) + "x");
        const RuntimeError error = ErrorOf([&] { ReadLines(folders.files, members); });
        QCOMPARE(error.kind, ErrorKind::Overflow);
        QCOMPARE(error.where.file, u"Mitgliedsdaten2016.pz"_s);
        QCOMPARE(error.where.line, 32768);
        QVERIFY(error.where.remedy.contains(u"32.767"_s));
    }

    void as_long_a_line_as_a_field_can_hold_is_read()
    {
        const DataFolders folders;
        folders.Put(u"Mitgliedsdaten2016.pz"_s, QByteArray(LongestLine, 'x'));
        QCOMPARE(ReadLines(folders.files, members).value(0).size(), LongestLine);
        QCOMPARE(ReadFirstLine(folders.files, members).size(), LongestLine);
    }

    void a_longer_line_overflows()
    {
        const DataFolders folders;
        folders.Put(u"Mitgliedsdaten2016.pz"_s, "a\r\n" + QByteArray(LongestLine + 1, ';'));
        const RuntimeError error = ErrorOf([&] { ReadLines(folders.files, members); });
        QCOMPARE(error.kind, ErrorKind::Overflow);
        QCOMPARE(error.where.line, 2);
        QCOMPARE(ReadFirstLine(folders.files, members), u"a"_s);
        folders.Put(u"V.dat"_s, QByteArray(LongestLine + 1, 'x'));
        QCOMPARE(
            ErrorOf([&] { ReadFirstLine(folders.files, u"\\V.dat"_s); }).kind, ErrorKind::Overflow);
    }

    void an_empty_line_ends_the_reading_and_nothing_behind_it_is_looked_at_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("lines");
        const QStringList one { u"a;b"_s };
        QTest::newRow("no empty line")
            << QByteArray("a;b\r\nc") << QStringList { u"a;b"_s, u"c"_s };
        QTest::newRow("at once") << QByteArray("\r\na;b\r\n") << QStringList {};
        QTest::newRow("empty file") << QByteArray() << QStringList {};
        QTest::newRow("blanks, CR and LF are no empty line")
            << QByteArray(" \r\n\r\r\n\n\r\n\r\nx\r\n") << QStringList { u" "_s, u"\r"_s, u"\n"_s };
        QTest::newRow("a line that is too long behind it")
            << "a;b\r\n\r\n" + QByteArray(LongestLine + 1, 'x') << one;
        QTest::newRow("too many lines behind it")
            << "a;b\r\n\r\n" + QByteArray("x\r\n").repeated(MostLines) << one;
        QTest::newRow("as many lines as there may be, then the empty one")
            << QByteArray("x\r\n").repeated(MostLines) + "\r\n"
            << QStringList(MostLines, u"x"_s);
    }
    void an_empty_line_ends_the_reading_and_nothing_behind_it_is_looked_at()
    {
        QFETCH(const QByteArray, content);
        QFETCH(const QStringList, lines);
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, content);
        QCOMPARE(ReadLinesUpToEmpty(folders.files, u"\\Konto2016.pz"_s), lines);
    }

    void in_front_of_the_empty_line_the_bounds_hold_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("line");
        QTest::newRow("too long") << "a\r\n" + QByteArray(LongestLine + 1, 'x') + "\r\n\r\n" << 2;
        QTest::newRow("too many") << QByteArray("x\r\n").repeated(MostLines + 1) + "\r\n"
                                  << int(MostLines) + 1;
    }
    void in_front_of_the_empty_line_the_bounds_hold()
    {
        QFETCH(const QByteArray, content);
        QFETCH(const int, line);
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, content);
        const RuntimeError error
            = ErrorOf([&] { ReadLinesUpToEmpty(folders.files, u"\\Konto2016.pz"_s); });
        QCOMPARE(error.kind, ErrorKind::Overflow);
        QCOMPARE(error.where.line, line);
    }

    void more_than_any_club_has_is_not_read()
    {
        const DataFolders folders;
        folders.Put(u"Mitgliedsdaten2016.pz"_s, {});
        QVERIFY(QFile::resize(folders.Path(u"Mitgliedsdaten2016.pz"_s), LargestFile + 1));
        QCOMPARE(
            ErrorOf([&] { ReadBytes(folders.files, members); }).reason, u"Die Datei ist zu groß"_s);
    }

    void a_text_as_large_as_no_club_has_is_refused_both_ways()
    {
        const DataFolders folders;
        folders.Put(u"Mitgliedsdaten2016.pz"_s, {});
        const QString path = folders.Path(u"Mitgliedsdaten2016.pz"_s);
        QVERIFY(QFile::resize(path, LargestText + 1));
        for (const auto& reader : { &TestLineFile::Lines, &TestLineFile::LinesUpToEmpty,
                 &TestLineFile::FirstLine, &TestLineFile::TextBytes })
            QCOMPARE(ErrorOf([&] { reader(folders.files); }).reason, u"Die Datei ist zu groß"_s);
        const QStringList lines(1100, QString(LongestLine, u'x'));
        QCOMPARE(ErrorOf([&] { RewriteLines(folders.files, members, lines); }).reason,
            u"Die Datei ist zu groß"_s);
        QCOMPARE(QFileInfo(path).size(), LargestText + 1);
    }

    void what_could_not_be_read_back_is_not_written_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<int>("line");
        QTest::newRow("too many") << QStringList(MostLines + 1, u"x"_s) << 32768;
        QTest::newRow("too long") << QStringList { u"a"_s, QString(LongestLine + 1, u'x') } << 2;
    }

    void what_could_not_be_read_back_is_not_written()
    {
        QFETCH(QStringList, lines);
        QFETCH(int, line);
        const DataFolders folders;
        folders.Put(u"Mitgliedsdaten2016.pz"_s, "old\r\n");
        const RuntimeError error = ErrorOf([&] { RewriteLines(folders.files, members, lines); });
        QCOMPARE(error.kind, ErrorKind::Overflow);
        QCOMPARE(error.where.line, line);
        QCOMPARE(folders.Get(u"Mitgliedsdaten2016.pz"_s), QByteArray("old\r\n"));
    }

private:
    static void Lines(const DataFiles& files) { ReadLines(files, members); }
    static void LinesUpToEmpty(const DataFiles& files) { ReadLinesUpToEmpty(files, members); }
    static void FirstLine(const DataFiles& files) { ReadFirstLine(files, members); }
    static void TextBytes(const DataFiles& files) { ReadTextBytes(files, members); }
};

const TestFile<TestLineFile> test_file(__FILE__);
#include "test_line_file.moc"
