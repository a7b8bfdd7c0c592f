#include "statement/page.h"

#include "tests/support/test_file.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_page_is_described_item_by_item_in_drawing_order()
    {
        PageItems page;
        AddText(page, u"title"_s, 60, 260, u" Ä "_s, BoldStyle);
        AddBox(page, 1, 2, 3, 4);
        AddRightAligned(page, u"row_1_amount"_s, AmountEdge, Row1, u"62,50"_s);
        AddLine(page, 5, 6, 7, 8);
        AddText(page, u"iban_red"_s, 35, 644, u"IBAN"_s, RedStyle);
        AddText(page, u"club_name"_s, 35, 60, u"KGV"_s, ClubNameStyle);
        QCOMPARE(DescribePage(page),
            (QStringList { u"text\ttitle\t Ä \tleft\t60\t260\t8\t1\t0,0,0"_s, u"box\t1\t2\t3\t4"_s,
                u"text\trow_1_amount\t62,50\tright\t538\t306\t8\t0\t0,0,0"_s, u"line\t5\t6\t7\t8"_s,
                u"text\tiban_red\tIBAN\tleft\t35\t644\t8\t1\t192,0,0"_s,
                u"text\tclub_name\tKGV\tleft\t35\t60\t14\t0\t0,0,0"_s }));
    }
};

const TestFile<TestPage> test_file(__FILE__);
#include "test_page.moc"
