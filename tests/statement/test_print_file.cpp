#include "statement/print_file.h"

#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QByteArray whole = "%PDF-1.4 new\n%%EOF\n";
const QByteArray cut_off = "%PDF-1.4 new\n";
const QByteArray old = "%PDF-1.4 old\n%%EOF\n";

void Write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

} // namespace

class TestPrintFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void a_finished_run_takes_the_files_place()
    {
        Write(Path(u"a.pdf"_s), old);
        const QString unfinished = UnfinishedPrintFile(Path(u"a.pdf"_s));
        QVERIFY(unfinished != Path(u"a.pdf"_s));
        Write(unfinished, whole);
        QCOMPARE(Read(Path(u"a.pdf"_s)), old);
        QVERIFY(FinishPrintFile(unfinished, Path(u"a.pdf"_s)));
        QCOMPARE(Read(Path(u"a.pdf"_s)), whole);
        QCOMPARE(Files(), QStringList { u"a.pdf"_s });
    }

    void what_a_full_disk_cut_off_is_dropped()
    {
        Write(Path(u"a.pdf"_s), old);
        const QString unfinished = UnfinishedPrintFile(Path(u"a.pdf"_s));
        Write(unfinished, cut_off);
        QVERIFY(!FinishPrintFile(unfinished, Path(u"a.pdf"_s)));
        QCOMPARE(Read(Path(u"a.pdf"_s)), old);
        QCOMPARE(Files(), QStringList { u"a.pdf"_s });
    }

    void a_foreign_file_of_that_name_stays()
    {
        const QString first = UnfinishedPrintFile(Path(u"a.pdf"_s));
        Write(first, old);
        const QString second = UnfinishedPrintFile(Path(u"a.pdf"_s));
        QVERIFY(second != first);
        Write(second, whole);
        DropPrintFile(second);
        QCOMPARE(Read(first), old);
    }

    void a_link_stays_a_link()
    {
        QVERIFY(QDir(m_folder->path()).mkdir(u"there"_s));
        Write(Path(u"there/real.pdf"_s), old);
        QVERIFY(QFile::link(Path(u"there/real.pdf"_s), Path(u"a.pdf"_s)));
        const QString unfinished = UnfinishedPrintFile(Path(u"a.pdf"_s));
        QVERIFY(unfinished.startsWith(Path(u"there/"_s)));
        Write(unfinished, whole);
        QVERIFY(FinishPrintFile(unfinished, Path(u"a.pdf"_s)));
        QVERIFY(QFileInfo(Path(u"a.pdf"_s)).isSymLink());
        QCOMPARE(Read(Path(u"there/real.pdf"_s)), whole);
    }

    void a_device_is_written_itself_and_never_removed()
    {
        QCOMPARE(UnfinishedPrintFile(u"/dev/full"_s), u"/dev/full"_s);
        DropPrintFile(u"/dev/full"_s);
        QVERIFY(QFile::exists(u"/dev/full"_s));
    }

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    QStringList Files() const { return QDir(m_folder->path()).entryList(QDir::Files); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

const TestFile<TestPrintFile> test_file(__FILE__);
#include "test_print_file.moc"
