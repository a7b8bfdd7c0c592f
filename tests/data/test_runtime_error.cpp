// The wording of error boxes.
#include "data/runtime_error.h"
#include "data/system_error.h"

#include "tests/support/test_file.h"

#include <QtTest>

class TestRuntimeError : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void headlines_are_the_platforms()
    {
        QCOMPARE(ErrorHeadline({ ErrorKind::Overflow, {}, {} }),
            QStringLiteral("Laufzeitfehler 6: Überlauf"));
        QCOMPARE(ErrorHeadline({ ErrorKind::SubscriptOutOfRange, {}, {} }),
            QStringLiteral("Laufzeitfehler 9: Index außerhalb des gültigen Bereichs"));
        QCOMPARE(ErrorHeadline({ ErrorKind::TypeMismatch, {}, {} }),
            QStringLiteral("Laufzeitfehler 13: Typen unverträglich"));
        QCOMPARE(ErrorHeadline({ ErrorKind::InvalidIndex, {}, {} }),
            QStringLiteral("Laufzeitfehler 381: Ungültiger Index"));
        QCOMPARE(ErrorHeadline({ ErrorKind::File, {}, ReasonOf(Fault::NoSpace) }),
            QStringLiteral("Auf dem Gerät ist kein Speicherplatz mehr verfügbar"));
    }

    void the_sentence_names_file_line_member_and_field()
    {
        Place where;
        where.file = QStringLiteral("Mitgliedsdaten2016.pz");
        where.line = 3;
        where.member = QStringLiteral("Meier,Anna");
        where.field = QStringLiteral("Endstand Strom");
        where.content = QStringLiteral("12x");
        where.remedy = QStringLiteral("Bitte dort eine Zahl eintragen.");
        QCOMPARE(ErrorSentence({ ErrorKind::TypeMismatch, where, {} }),
            QStringLiteral("Datei „Mitgliedsdaten2016.pz“, Zeile 3, Mitglied „Meier,Anna“, Feld "
                           "„Endstand Strom“ "
                           "(dort steht „12x“): Bitte dort eine Zahl eintragen."));
    }

    void empty_places_are_left_out()
    {
        Place where;
        where.file = QStringLiteral("V.dat");
        QCOMPARE(ErrorSentence({ ErrorKind::File, where, {} }), QStringLiteral("Datei „V.dat“."));
        QCOMPARE(ErrorSentence({ ErrorKind::Overflow, {}, {} }), QString());
    }
};

const TestFile<TestRuntimeError> test_file(__FILE__);
#include "test_runtime_error.moc"
