// Errors of the operating system by name: each has its German wording.
#include "data/system_error.h"
#include "data/system_error_linux.h"
#include "tests/support/test_file.h"

#include <QtTest>

#include <cerrno>

using namespace Qt::StringLiterals;

class TestSystemError : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void every_named_error_has_a_wording_of_its_own()
    {
        for (int kind = int(Fault::None) + 1; kind < int(Fault::Unnamed); ++kind) {
            const QString reason = ReasonOf(static_cast<Fault>(kind));
            QVERIFY2(!reason.contains(u"Betriebssystems"_s), qPrintable(reason));
        }
    }

    void numbers_of_this_system_have_names_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << ENOENT << u"Datei oder Verzeichnis nicht gefunden"_s;
        QTest::newRow("rights") << EACCES << u"Keine Berechtigung"_s;
        QTest::newRow("space") << ENOSPC
                               << u"Auf dem Gerät ist kein Speicherplatz mehr verfügbar"_s;
        QTest::newRow("too large") << EFBIG << u"Die Datei ist zu groß"_s;
        QTest::newRow("no name") << ENOTTY << u"Fehler 25 des Betriebssystems"_s;
    }

    void numbers_of_this_system_have_names()
    {
        QFETCH(int, number);
        QFETCH(QString, reason);
        QCOMPARE(ReasonOf(ErrorOfNumber(number)), reason);
    }

    void nothing_failed_is_no_error()
    {
        QVERIFY(!ErrorOfNumber(0));
        QVERIFY(ErrorOfNumber(EIO));
    }

    void what_is_not_there_is_missing_and_what_may_not_be_seen_is_not()
    {
        for (const Fault kind :
            { Fault::Missing, Fault::NotAFolder, Fault::NameTooLong, Fault::NotAFileName })
            QVERIFY(MeansMissing(kind));
        for (const Fault kind : { Fault::None, Fault::NoAccess, Fault::BrokenMedium })
            QVERIFY(!MeansMissing(kind));
    }
};

const TestFile<TestSystemError> test_file(__FILE__);
#include "test_system_error.moc"
