// The pages of a PDF as files of their own.
#include "outgoing/single_pages.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// A PDF of these objects; the first is the list of what is in the document.
QByteArray PdfOf(const QList<QByteArray>& objects)
{
    QByteArray pdf("%PDF-1.4\n");
    QByteArray places;
    for (qsizetype i = 0; i < objects.size(); ++i) {
        places += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
        pdf += QByteArray::number(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const QByteArray count = QByteArray::number(objects.size() + 1);
    const QByteArray begin = QByteArray::number(pdf.size());
    return pdf + "xref\n0 " + count + "\n0000000000 65535 f \n" + places + "trailer\n<< /Size "
        + count + " /Root 1 0 R /Info 8 0 R >>\nstartxref\n" + begin + "\n%%EOF\n";
}

QByteArray Stream(const QByteArray& content)
{
    return "<< /Length " + QByteArray::number(content.size()) + " >>\nstream\n" + content
        + "\nendstream";
}

QByteArray PageDrawing(int content)
{
    return "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents "
        + QByteArray::number(content) + " 0 R /Resources << /XObject << /X 7 0 R >> >> >>";
}

/// Two pages that draw one thing in common.
QByteArray TwoPages()
{
    return PdfOf(
        { "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R 4 0 R] /Count 2 >>",
            PageDrawing(5), PageDrawing(6), Stream("1 w % Krüger"), Stream("2 w % Hollerbusch"),
            Stream("% both"), "<< /Title (Abrechnung) /CreationDate (D:20261122) >>" });
}

} // namespace

class TestSinglePages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void each_page_becomes_a_document()
    {
        const std::vector<QByteArray> files = SinglePages(TwoPages());
        QCOMPARE(files.size(), std::size_t(2));
        for (const QByteArray& file : files) {
            QVERIFY2(file.startsWith("%PDF-1.4\n"), file.constData());
            QVERIFY(file.endsWith("%%EOF\n"));
            QCOMPARE(file.count("/Type /Page "), 1);
            QVERIFY(file.contains("/Count 1 "));
            QVERIFY(file.contains("% both"));
        }
    }

    void a_document_holds_nothing_of_the_other_pages()
    {
        const std::vector<QByteArray> files = SinglePages(TwoPages());
        QCOMPARE(files.size(), std::size_t(2));
        QVERIFY(files[0].contains("Krüger") && !files[0].contains("Hollerbusch"));
        QVERIFY(files[1].contains("Hollerbusch") && !files[1].contains("Krüger"));
        for (const QByteArray& file : files) // contents, catalog, list, page, common, properties
            QCOMPARE(file.count(" 0 obj\n"), 6);
    }

    void properties_of_the_document_are_those_of_each()
    {
        for (const QByteArray& file : SinglePages(TwoPages())) {
            QVERIFY(file.contains("/Title (Abrechnung)"));
            QVERIFY(file.contains("/CreationDate (D:20261122)"));
        }
    }

    void each_document_has_a_sign_of_its_own_that_its_content_makes()
    {
        const auto sign = [](const QByteArray& file) { return file.mid(file.indexOf("/ID [")); };
        const std::vector<QByteArray> files = SinglePages(TwoPages());
        QCOMPARE(files.size(), std::size_t(2));
        QVERIFY(files[0].contains("/ID ["));
        QVERIFY(sign(files[0]) != sign(files[1]));
        QVERIFY(files == SinglePages(TwoPages()));
    }

    void what_is_no_whole_pdf_has_no_pages_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a text") << QByteArray("Abrechnung\n");
        QTest::newRow("without a list of pages") << PdfOf({ "<< /Type /Catalog >>", "null", "null",
            "null", "null", "null", "null", "<< /Title (Abrechnung) >>" });
        QTest::newRow("the first half") << TwoPages().left(TwoPages().size() / 2);
    }

    void what_is_no_whole_pdf_has_no_pages()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(SinglePages(bytes).empty());
    }
};

const TestFile<TestSinglePages> test_file(__FILE__);
#include "test_single_pages.moc"
