// Texts by number.
#include "check/text_numbers.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestTextNumbers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void equal_texts_get_the_same_number_in_the_order_of_coming()
    {
        TextNumbers numbers(3);
        const QString again = u"xMeier"_s.mid(1);
        QCOMPARE(numbers.NumberOf(u"Meier"), 0);
        QCOMPARE(numbers.NumberOf(u"Meierhof"), 1);
        QCOMPARE(numbers.NumberOf(again), 0);
        QCOMPARE(numbers.NumberOf(u""), 2);
        QCOMPARE(numbers.Count(), 3);
        QCOMPARE(numbers.TextOf(1), u"Meierhof");
    }

    void a_text_that_never_came_is_not_found()
    {
        TextNumbers numbers(2);
        numbers.NumberOf(u"Meier");
        QCOMPARE(numbers.Find(u"Meier"), 0);
        QCOMPARE(numbers.Find(u"Maier"), -1);
        QCOMPARE(numbers.Count(), 1);
    }

    void as_many_texts_as_promised_keep_their_numbers()
    {
        constexpr int count = 1000;
        QStringList texts;
        for (int i = 0; i < count; ++i)
            texts += u"Name %1"_s.arg(i);
        TextNumbers numbers(count);
        for (int i = 0; i < count; ++i)
            QCOMPARE(numbers.NumberOf(texts[i]), i);
        for (int i = 0; i < count; ++i)
            QCOMPARE(numbers.Find(texts[i]), i);
    }
};

const TestFile<TestTextNumbers> test_file(__FILE__);
#include "test_text_numbers.moc"
