// The contents of the bills' files beside pages that were drawn alone.
#include "outgoing/bill_contents.h"
#include "outgoing/payment_code.h"
#include "outgoing/single_pages.h"
#include "statement/statement_pages.h"
#include "statement/statement_printer.h"
#include "tests/support/club.h"
#include "tests/support/printed.h"
#include "tests/support/test_file.h"

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct ContentsClub : TestClub {
    /// The example's members, or so many copies of them, whose surnames nobody else has.
    explicit ContentsClub(int members = 0)
    {
        CopyExample(u"ordinary-year"_s);
        if (members > 0) {
            for (const char* file : { "Mitgliedsdaten2016.pz", "Mitgliedsdaten2017.pz" })
                CopyMembers(QString::fromLatin1(file), members);
        }
        Start({ 2017, 11, 20 });
    }

    void CopyMembers(const QString& file, int count)
    {
        const QStringList lines
            = QString::fromLatin1(Read(file)).split(u"\r\n"_s, Qt::SkipEmptyParts);
        QString copies;
        for (int member = 0; member < count; ++member) {
            MemberRecord fields = SplitRecord(lines[member % lines.size()]);
            fields[::Surname] = u"Wer%1er"_s.arg(member);
            copies += JoinRecord(fields) + u"\r\n"_s;
        }
        Write(file, copies.toLatin1());
    }

    const StatementState& Statement() const { return program.Statement; }
    qsizetype Bills() const { return PageCount(program.Statement); }
    QString Surname(qsizetype page) const
    {
        return SplitRecord(program.Members.RecordList[page]).value(::Surname);
    }

    /// Each file's bytes, drawn as the dialog has them drawn.
    std::vector<QByteArray> Contents(const PageSplitter& split = SinglePages) const
    {
        const std::vector<BillFile> files = BillFilesOf(Statement(), BillSplit::FilePerMember);
        BillContents contents(Statement(), files, nullptr, split);
        std::vector<QByteArray> all;
        for (std::size_t file = 0; file < files.size(); ++file)
            all.push_back(contents.Next());
        return all;
    }
    QByteArray Alone(qsizetype page) const
    {
        return PdfOfPages(Statement(), { page, page }, nullptr);
    }
    QString FileWith(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
        return file.fileName();
    }
};

QString Said(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString RawText(const QString& pdf) { return Said(u"pdftotext"_s, { u"-raw"_s, pdf, u"-"_s }); }

/// What the document says of itself, but for its length and the moment.
QStringList Properties(const QString& pdf)
{
    static const QRegularExpression differing(u"^(File size|CreationDate):"_s);
    QStringList lines = Said(u"pdfinfo"_s, { pdf }).split(u'\n');
    lines.removeIf([](const QString& line) { return differing.match(line).hasMatch(); });
    return lines;
}

/// A line for each font: which, and that it is inside; without the numbers of the objects.
QStringList Fonts(const QString& pdf)
{
    static const QRegularExpression numbers(u" +\\d+ +\\d+$"_s);
    QStringList lines = Said(u"pdffonts"_s, { pdf }).trimmed().split(u'\n');
    for (QString& line : lines)
        line.remove(numbers);
    lines.removeDuplicates();
    lines.sort();
    return lines;
}

} // namespace

class TestBillContents : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_bill_is_the_same_as_one_that_is_drawn_alone()
    {
        const ContentsClub club;
        const std::vector<QByteArray> contents = club.Contents();
        QVERIFY(contents.size() > 5);
        for (std::size_t i = 0; i < contents.size(); ++i) {
            const QString one = club.FileWith(u"one.pdf"_s, contents[i]);
            const QString alone
                = club.FileWith(u"alone.pdf"_s, club.Alone(static_cast<qsizetype>(i)));
            QCOMPARE(RawText(one), RawText(alone));
            QVERIFY(RawText(one).contains(club.Surname(static_cast<qsizetype>(i))));
            QCOMPARE(Properties(one), Properties(alone));
            const QSize size(794, 1123); // 96 dots per inch
            QCOMPARE(PictureOfPdf(one, 0, size), PictureOfPdf(alone, 0, size));
        }
    }

    void its_fonts_are_inside()
    {
        const ContentsClub club;
        const QStringList fonts = Fonts(club.FileWith(u"one.pdf"_s, club.Contents()[1]));
        QCOMPARE(fonts, Fonts(club.FileWith(u"alone.pdf"_s, club.Alone(1))));
        QCOMPARE(fonts.filter(u"LiberationSans"_s).size(), 2); // regular and bold
        QCOMPARE(fonts.filter(QRegularExpression(u"Identity-H +yes +no +yes$"_s)).size(), 2);
    }

    void it_holds_nothing_of_other_members()
    {
        const ContentsClub club(12);
        const std::vector<QByteArray> contents = club.Contents();
        for (std::size_t i = 0; i < contents.size(); ++i) {
            const std::vector<QByteArray> alone
                = SinglePages(club.Alone(static_cast<qsizetype>(i)));
            QCOMPARE(alone.size(), std::size_t(1));
            for (const char* part : { " 0 obj\n", "endstream\n", "/Type /Page ", "/Contents " })
                QCOMPARE(contents[i].count(part), alone[0].count(part));
            QCOMPARE(contents[i].count("/Contents "), 1);
            const QString text = RawText(club.FileWith(u"one.pdf"_s, contents[i]));
            for (std::size_t other = 0; other < contents.size(); ++other)
                QCOMPARE(text.contains(u"Wer%1er"_s.arg(other)), other == i);
        }
    }

    void its_code_to_pay_by_can_be_read()
    {
        ContentsClub club;
        club.program.Bank.Iban = u"DE27 1002 0030 0012 3456 78"_s;
        DrawStatementPages(club.program);
        club.Control<QAction>("MoreCode")->trigger();
        club.Control<QCheckBox>("CodeOnEveryBill")->setChecked(true);
        const std::vector<QByteArray> contents = club.Contents();
        for (const qsizetype page : { qsizetype(0), qsizetype(1), club.Bills() - 1 }) {
            const PageCode code
                = CodeOfPage(club.Statement(), club.program.TransferCode.Payee, page);
            QCOMPARE(code.Reason, QString());
            const QString one = club.FileWith(u"one.pdf"_s, contents[std::size_t(page)]);
            const QString picture = club.Folder.filePath(u"page.png"_s);
            QVERIFY(PictureOfPdf(one, 0, { 1240, 1754 }).save(picture)); // 150 dots per inch
            const QString read = Said(u"zbarimg"_s,
                { u"--quiet"_s, u"--raw"_s, u"-Sdisable"_s, u"-Sqrcode.enable"_s,
                    u"-Sqrcode.binary"_s, picture });
            QCOMPARE(read.trimmed().toUtf8(), TransferPayload(code.Transfer));
        }
    }

    void bills_are_drawn_some_at_a_time_and_each_once_data()
    {
        QTest::addColumn<int>("members");
        QTest::addColumn<QList<int>>("pages");
        QTest::newRow("one") << 1 << QList<int>();
        QTest::newRow("two") << 2 << QList<int>({ 2 });
        QTest::newRow("one less") << 39 << QList<int>({ 39 });
        QTest::newRow("as many as are drawn at once") << 40 << QList<int>({ 40 });
        QTest::newRow("one more") << 41 << QList<int>({ 40 });
        QTest::newRow("twice and some") << 83 << QList<int>({ 40, 40, 3 });
    }

    void bills_are_drawn_some_at_a_time_and_each_once()
    {
        QFETCH(int, members);
        QFETCH(QList<int>, pages);
        const ContentsClub club(members);
        QList<int> split;
        const std::vector<QByteArray> contents = club.Contents([&](const QByteArray& pdf) {
            split += PagesOfPdf(club.FileWith(u"together.pdf"_s, pdf));
            return SinglePages(pdf);
        });
        QCOMPARE(split, pages);
        QCOMPARE(contents.size(), static_cast<std::size_t>(members));
        for (int member = 0; member < members; ++member) {
            if (member % 40 != 0 && member % 40 != 39 && member != members - 1)
                continue; // between others of the same drawing
            const QString one
                = club.FileWith(u"one.pdf"_s, contents[static_cast<std::size_t>(member)]);
            QCOMPARE(PagesOfPdf(one), 1);
            QVERIFY(RawText(one).contains(u"Wer%1er"_s.arg(member)));
        }
    }

    void without_the_library_each_is_drawn_alone()
    {
        const ContentsClub club;
        int asked = 0;
        const std::vector<QByteArray> contents = club.Contents([&asked](const QByteArray&) {
            ++asked;
            return std::vector<QByteArray>();
        });
        QCOMPARE(asked, 1);
        QCOMPARE(contents.size(), static_cast<std::size_t>(club.Bills()));
        for (qsizetype page = 0; page < club.Bills(); ++page) {
            const QString one
                = club.FileWith(u"one.pdf"_s, contents[static_cast<std::size_t>(page)]);
            QCOMPARE(PagesOfPdf(one), 1);
            QVERIFY(RawText(one).contains(club.Surname(page)));
        }
    }

    void all_bills_in_one_file_are_not_taken_apart()
    {
        const ContentsClub club;
        BillContents contents(club.Statement(),
            BillFilesOf(club.Statement(), BillSplit::AllInOneFile), nullptr,
            [](const QByteArray&) -> std::vector<QByteArray> { qFatal("taken apart"); });
        QCOMPARE(PagesOfPdf(club.FileWith(u"all.pdf"_s, contents.Next())), club.Bills());
    }
};

const TestFile<TestBillContents> test_file(__FILE__);
#include "test_bill_contents.moc"
