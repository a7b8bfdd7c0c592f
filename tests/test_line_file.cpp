// Files as lines: names, look-up, reading, the bytes of lines, whole rewrites.
#include "data/line_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// A data directory and a state directory of their own.
struct Folders {
    QTemporaryDir root;
    DataFiles files { root.filePath(u"data"_s), root.filePath(u"state"_s) };

    Folders() { QDir().mkpath(files.DataDirectory); }

    void Put(const QString& name, const QByteArray& content) const
    {
        QFile file(files.DataDirectory + u'/' + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QByteArray Get(const QString& name) const
    {
        QFile file(files.DataDirectory + u'/' + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
};

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
        const Folders folders;
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
        const Folders folders;
        folders.Put(u"Konto2016.pz"_s, content);
        QCOMPARE(ReadLines(folders.files, u"\\Konto2016.pz"_s), lines);
        QCOMPARE(ReadFirstLine(folders.files, u"\\Konto2016.pz"_s), lines.value(0));
        RewriteLines(folders.files, u"\\Konto2016.pz"_s, lines);
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), saved);
    }
};

QTEST_GUILESS_MAIN(TestLineFile)
#include "test_line_file.moc"
