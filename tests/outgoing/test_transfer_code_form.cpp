// The dialog "Überweisungscode" and the codes on preview, paper and PDF.
#include "money/member_matching.h"
#include "money/purpose_text.h"
#include "outgoing/payment_code.h"
#include "outgoing/transfer_code_form.h"
#include "statement/page_player.h"
#include "statement/statement_pages.h"
#include "statement/statement_printer.h"
#include "tests/support/club.h"
#include "tests/support/printed.h"
#include "tests/support/test_file.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QProcess>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString iban = u"DE27 1002 0030 0012 3456 78"_s;

struct CodeClub : TestClub {
    CodeClub()
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        SetIban(iban);
    }

    void SetIban(const QString& text)
    {
        program.Bank.Iban = text;
        DrawStatementPages(program);
    }
    void Open() { Control<QAction>("MoreCode")->trigger(); }
    void TurnOn()
    {
        Open();
        Control<QCheckBox>("CodeOnEveryBill")->setChecked(true);
    }
    PageItems Page(qsizetype index) { return ContentsOfPage(program.Statement, index).member; }
};

QStringList Described(const PageItems& items) { return DescribePage(items); }

/// The rectangle that a text covers, page pixels.
QRect RectOf(const PageText& text)
{
    return { TextLeft(text), text.y, TextWidth(text), text.point_size == 14 ? 22 : 13 };
}

} // namespace

class TestTransferCodeForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothing_is_on_the_page_before_it_is_wanted()
    {
        CodeClub club;
        const QStringList before = Described(club.Page(0));
        club.Open();
        QVERIFY(!club.Control<QCheckBox>("CodeOnEveryBill")->isChecked());
        QCOMPARE(Described(club.Page(0)), before);
        club.Control<QCheckBox>("CodeOnEveryBill")->setChecked(true);
        const QStringList with = Described(club.Page(0));
        QCOMPARE(with.mid(0, before.size()), before); // its items come last
        QVERIFY(with.size() > before.size() + 100);
        club.Control<QCheckBox>("CodeOnEveryBill")->setChecked(false);
        QCOMPARE(Described(club.Page(0)), before);
    }

    void the_account_holder_is_the_club_until_something_else_is_typed()
    {
        CodeClub club;
        club.Open();
        QCOMPARE(club.Control<QLineEdit>("CodePayee")->text(), club.program.ClubName);
        QCOMPARE(club.Control<QLineEdit>("CodePayee")->maxLength(), 70);
        QCOMPARE(club.Control<QLineEdit>("CodeIban")->text(), iban);
        QVERIFY(!club.Control<QLabel>("CodePicture")->pixmap().isNull());
        club.Control<QLineEdit>("CodePayee")->setText(u"Gartenfreunde"_s);
        const PageCode code
            = CodeOfPage(club.program.Statement, club.program.TransferCode.Payee, 0);
        QCOMPARE(code.Transfer.Payee, u"Gartenfreunde"_s);
    }

    void members_without_a_code_are_listed_with_the_reason()
    {
        CodeClub club;
        club.SetIban(u"DE28 1002 0030 0012 3456 78"_s);
        club.Open();
        const auto* list = club.Control<QListWidget>("CodeWithout");
        QCOMPARE(list->count(), club.program.Members.RecordList.size());
        QCOMPARE(list->item(0)->text(),
            club.program.Members.NameList[0] + u": Die IBAN besteht ihre Prüfung nicht."_s);
        QCOMPARE(
            club.Control<QLabel>("CodePicture")->text(), u"Die IBAN besteht ihre Prüfung nicht."_s);
        club.Control<QCheckBox>("CodeOnEveryBill")->setChecked(true);
        QVERIFY(!Described(club.Page(0)).join(u'\n').contains(u"Zahlen mit Code"_s));
    }

    void an_address_that_reaches_into_the_place_keeps_the_code_away()
    {
        CodeClub club;
        MemberRecord fields = SplitRecord(club.program.Members.RecordList[0]);
        fields[Street] = QString(90, u'W');
        club.program.Members.RecordList[0] = JoinRecord(fields);
        DrawStatementPages(club.program);
        const PageCode code = CodeOfPage(club.program.Statement, u"Verein"_s, 0);
        QCOMPARE(code.Reason, u"Die Anschrift reicht in den Platz des Codes."_s);
        QVERIFY(ItemsOfCode(code).empty());
    }

    void nothing_of_the_page_touches_the_code_data()
    {
        QTest::addColumn<int>("version");
        for (int version = 6; version <= 13; ++version)
            QTest::addRow("version %d", version) << version;
    }

    void nothing_of_the_page_touches_the_code()
    {
        QFETCH(int, version);
        CodeClub club;
        const PageBox box = CodeSpace(17 + 4 * version);
        const QRect space(QPoint(box.x1, box.y1), QPoint(box.x2 - 1, box.y2 - 1));
        const PageContents contents = ContentsOfPage(club.program.Statement, 0);
        int seen = 0;
        for (const PageItems* items : { contents.fixed, &contents.member }) {
            for (const PageItem& item : *items) {
                ++seen;
                if (const auto* text = std::get_if<PageText>(&item))
                    QVERIFY2(!RectOf(*text).intersects(space), qPrintable(text->text));
                else if (const auto* frame = std::get_if<PageBox>(&item))
                    QVERIFY(!QRect(QPoint(frame->x1, frame->y1), QPoint(frame->x2, frame->y2))
                                 .intersects(space));
            }
        }
        QVERIFY(seen > 50);
        QVERIFY(space.right() < PageWidth);
    }

    void the_printed_code_reads_as_the_payload_data()
    {
        QTest::addColumn<int>("dots");
        QTest::newRow("150 dpi") << 150;
        QTest::newRow("300 dpi") << 300;
    }

    void the_printed_code_reads_as_the_payload()
    {
        QFETCH(int, dots);
        CodeClub club;
        club.TurnOn();
        const qsizetype pages = club.program.Members.RecordList.size();
        const QString pdf = club.Folder.filePath(u"bills.pdf"_s);
        QFile file(pdf);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(PdfOfPages(club.program.Statement, { 0, pages - 1 }, nullptr));
        file.close();
        const QString pictures = club.Folder.filePath(u"page"_s);
        QCOMPARE(QProcess::execute(
                     u"pdftoppm"_s, { u"-png"_s, u"-r"_s, QString::number(dots), pdf, pictures }),
            0);
        const QStringList made
            = QDir(club.Folder.path()).entryList({ u"page*.png"_s }, QDir::Files, QDir::Name);
        QCOMPARE(made.size(), pages);
        int codes = 0;
        for (qsizetype page = 0; page < pages; ++page) {
            const QString payee = club.program.TransferCode.Payee;
            const PageCode code = CodeOfPage(club.program.Statement, payee, page);
            if (!code.Reason.isEmpty())
                continue;
            ++codes;
            QProcess reader;
            reader.start(u"zbarimg"_s,
                { u"--quiet"_s, u"--raw"_s, u"-Sdisable"_s, u"-Sqrcode.enable"_s,
                    u"-Sqrcode.binary"_s, club.Folder.filePath(made[page]) });
            QVERIFY(reader.waitForFinished());
            QCOMPARE(reader.readAllStandardOutput().trimmed(), TransferPayload(code.Transfer));
        }
        QVERIFY(codes > 5);
    }

    void the_purpose_finds_its_member_again()
    {
        CodeClub club;
        const QStringList records = club.program.Members.RecordList;
        const MemberIndex index = MakeMemberIndex(records);
        for (qsizetype member = 0; member < records.size(); ++member) {
            const QString purpose = PurposeText(u"2017"_s, SplitRecord(records[member]));
            QCOMPARE(MatchMembers(index, ReadPaymentText(purpose)),
                QVector<int>(1, static_cast<int>(member)));
        }
    }
};

const TestFile<TestTransferCodeForm> test_file(__FILE__);
#include "test_transfer_code_form.moc"
