// Which members have paid, and which have a special billing file.
#include "cashbook/member_marks.h"

#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Folder {
    QTemporaryDir root;
    DataFiles files { root.path(), root.filePath(u"state"_s) };

    void Make(const QString& name) const
    {
        QFile file(root.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
};

QStringList Ledger(const QStringList& texts)
{
    QStringList lines;
    for (const QString& text : texts)
        lines += u"01.01.2016;"_s + text + u";1,00;0,00"_s;
    return lines;
}

} // namespace

class TestMemberMarks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_special_billing_file_of_the_year_marks_its_member()
    {
        const Folder folder;
        folder.Make(u"SonderAbrechnungMeier2016.xls"_s);
        folder.Make(u"SonderAbrechnungLang2015.xls"_s);
        folder.Make(u"SonderAbrechnungvan Dijk2016.xls"_s);
        const QStringList names { u"Meier,Anna"_s, u"Lang,Otto"_s, u"van Dijk,Jan"_s };
        QCOMPARE(OverviewRows(folder.files, names, u"2016"_s),
            QStringList({ u"Meier,Anna SonderAbrechnung"_s, u"Lang,Otto"_s,
                u"van Dijk,Jan SonderAbrechnung"_s }));
        QCOMPARE(OverviewRows(folder.files, names, u"2015"_s),
            QStringList({ u"Meier,Anna"_s, u"Lang,Otto SonderAbrechnung"_s, u"van Dijk,Jan"_s }));
    }

    void the_file_is_found_in_any_case_of_letters_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("extension") << u"SonderAbrechnungMeier2016.XLS"_s;
        QTest::newRow("all of it") << u"SONDERABRECHNUNGMEIER2016.Xls"_s;
    }

    void the_file_is_found_in_any_case_of_letters()
    {
        QFETCH(QString, file);
        const Folder folder;
        folder.Make(file);
        QCOMPARE(OverviewRows(folder.files, { u"Meier,Anna"_s, u"Lang,Otto"_s }, u"2016"_s),
            QStringList({ u"Meier,Anna SonderAbrechnung"_s, u"Lang,Otto"_s }));
    }

    void all_members_of_a_surname_share_the_file()
    {
        const Folder folder;
        folder.Make(u"SonderAbrechnungMeier2016.xls"_s);
        QCOMPARE(OverviewRows(folder.files, { u"Meier,Anna"_s, u"Meier,Otto"_s }, u"2016"_s),
            QStringList({ u"Meier,Anna SonderAbrechnung"_s, u"Meier,Otto SonderAbrechnung"_s }));
    }

    void a_folder_of_that_name_is_no_file()
    {
        const Folder folder;
        QDir(folder.root.path()).mkdir(u"SonderAbrechnungMeier2016.xls"_s);
        QCOMPARE(OverviewRows(folder.files, { u"Meier,Anna"_s }, u"2016"_s),
            QStringList { u"Meier,Anna"_s });
    }

    void a_surname_that_is_no_file_name_has_no_file()
    {
        const Folder folder;
        const QStringList names { u"A/B,C"_s, QString(5000, u'x') + u",y"_s, u",Anna"_s };
        QCOMPARE(OverviewRows(folder.files, names, u"2016"_s), names);
    }

    void a_payment_marks_the_members_whose_surname_it_contains_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("paid");
        QTest::newRow("payment") << u"Meier,Anna"_s << u"Abrechnung Meier"_s << true;
        QTest::newRow("other words around")
            << u"Meier,Anna"_s << u"1. Rate Meier, Abrechnung 2016"_s << true;
        QTest::newRow("part of another name") << u"Lang,Otto"_s << u"Abrechnung Langer"_s << true;
        QTest::newRow("another member") << u"Langer,Otto"_s << u"Abrechnung Lang"_s << false;
        QTest::newRow("no statement") << u"Meier,Anna"_s << u"Spende Meier"_s << false;
        QTest::newRow("small letters in the name")
            << u"Meier,Anna"_s << u"Abrechnung meier"_s << false;
        QTest::newRow("small letters in the word")
            << u"Meier,Anna"_s << u"abrechnung Meier"_s << false;
        QTest::newRow("surname with a blank") << u"van Dijk,Jan"_s << u"Abrechnung van"_s << false;
        QTest::newRow("surname within the word") << u"Rech,Eva"_s << u"Abrechnung Lang"_s << false;
        QTest::newRow("surname is in the word") << u"rech,Eva"_s << u"Abrechnung Lang"_s << true;
        QTest::newRow("no surname") << u",Eva"_s << u"Abrechnung Lang"_s << true;
    }
    void a_payment_marks_the_members_whose_surname_it_contains()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, text);
        QFETCH(const bool, paid);
        QCOMPARE(
            PaidMarks({ name }, Ledger({ u"Porto"_s, text, u"Pacht"_s })), QVector<bool> { paid });
    }

    void all_marks_are_those_of_looking_for_each_surname_alone()
    {
        QRandomGenerator dice(3);
        const auto word = [&dice](int longest) {
            QString letters;
            for (int i = dice.bounded(longest + 1); i > 0; --i)
                letters += QChar(u"abcĂA"_s[dice.bounded(5)]); // two of one low byte
            return letters;
        };
        for (int round = 0; round < 300; ++round) {
            QStringList names;
            QStringList texts;
            for (int i = 0; i < 8; ++i)
                names += word(3) + u",Eva"_s;
            for (int i = 0; i < 5; ++i)
                texts += dice.bounded(3) == 0 ? word(6) : u"Abrechnung "_s + word(6);
            QVector<bool> expected;
            for (const QString& name : names) {
                expected += std::any_of(texts.begin(), texts.end(), [&](const QString& text) {
                    return text.contains(u"Abrechnung"_s)
                        && text.contains(name.section(u',', 0, 0));
                });
            }
            QCOMPARE(PaidMarks(names, Ledger(texts)), expected);
        }
    }

    void two_members_of_a_surname_are_marked_by_one_line()
    {
        QCOMPARE(PaidMarks({ u"Meier,Anna"_s, u"Lang,Otto"_s, u"Meier,Jan"_s },
                     Ledger({ u"Abrechnung Meier"_s })),
            QVector<bool>({ true, false, true }));
    }

    void name_and_word_have_to_stand_in_the_same_booking()
    {
        QCOMPARE(PaidMarks({ u"Meier,Anna"_s }, Ledger({ u"Abrechnung Lang"_s, u"Meier"_s })),
            QVector<bool> { false });
        QCOMPARE(
            PaidMarks({ u"tL,Anna"_s }, Ledger({ u"Abrechnung Rest"_s, u"Lang Abrechnung"_s })),
            QVector<bool> { false });
    }

    void only_the_text_of_a_booking_counts()
    {
        QCOMPARE(PaidMarks({ u"Meier,Anna"_s },
                     { u"Abrechnung Meier;Porto;Abrechnung Meier;Abrechnung Meier"_s, u"x"_s }),
            QVector<bool> { false });
    }

    void an_empty_ledger_touches_no_mark()
    {
        QVERIFY(PaidMarks({ u"Meier,Anna"_s }, {}).isEmpty());
    }
};

const TestFile<TestMemberMarks> test_file(__FILE__);
#include "test_member_marks.moc"
