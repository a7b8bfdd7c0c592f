// Account numbers: form and check digits.
#include "settings/iban.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestIban : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void form_and_check_digits_decide_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("right");
        const auto row = [](const char* name, const QString& text, bool right) {
            QTest::newRow(name) << text << right;
        };
        row("German, with blanks", u"DE27 1002 0030 0012 3456 78"_s, true);
        row("small letters, no-break blanks", u"de52\u00A05006 0070\t0000 0000 42"_s, true);
        row("one digit exchanged", u"DE27 1002 0030 0012 3456 87"_s, false);
        row("check digits off by one", u"DE28 1002 0030 0012 3456 78"_s, false);
        row("German, one short", u"DE27 1002 0030 0012 3456 7"_s, false);
        row("German, a letter", u"DE27 1002 0030 0012 3456 7A"_s, false);
        row("letters elsewhere", u"GB82 WEST 1234 5698 7654 32"_s, true);
        row("shortest", u"NO93 8601 1117 947"_s, true);
        row("too short", u"NO93 8601 1117 94"_s, false);
        row("no letters in front", u"1227 1002 0030 0012 3456 78"_s, false);
        row("no check digits", u"DEX7 1002 0030 0012 3456 78"_s, false);
        row("sign within", u"GB82-WEST-1234-5698-7654-32"_s, false);
        row("a German letter", u"GB82 WÄST 1234 5698 7654 32"_s, false);
        row("empty", {}, false);
        row("35 characters", u"AA00"_s + QString(31, u'0'), false);
    }

    void form_and_check_digits_decide()
    {
        QFETCH(QString, text);
        QTEST(IsIban(text), "right");
    }
};

const TestFile<TestIban> test_file(__FILE__);
#include "test_iban.moc"
