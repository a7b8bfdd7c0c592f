// Names made comparable, whole words, and the index of names against trying every member.
#include "money/folding.h"
#include "money/member_matching.h"
#include "money/purpose_text.h"

#include "data/records.h"
#include "tests/support/test_file.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList surnames { u"Lang"_s, u"Langer"_s, u"Meier"_s, u"Meier-Kunz"_s, u"Kunz"_s,
    u"Meier2"_s, u"van Dijk"_s, u"van Houten"_s, u"van"_s, u"Dijk"_s, u"Müller"_s, u"MUELLER"_s,
    u"D'Angelo"_s, u"O'Neil2"_s, u"Otto"_s, u"Hans"_s, u"'t Hooft"_s, u"Rest"_s, u"Groß Klein"_s };
const QStringList first_names { u"Otto"_s, u"Anna"_s, u"Hans"_s, u"Hans-Peter"_s, u"Karl Heinz"_s,
    u"Änne"_s, u"José"_s, u""_s };

template <typename List> const QString& OneOf(QRandomGenerator& random, const List& list)
{
    return list[random.bounded(list.size())];
}

QStringList RandomMembers(QRandomGenerator& random)
{
    QStringList records;
    for (int i = 1 + random.bounded(12); i > 0; --i)
        records += u"%1;%2;;;;%3"_s.arg(OneOf(random, surnames), OneOf(random, first_names))
                       .arg(1 + random.bounded(8));
    return records;
}

QString RandomText(QRandomGenerator& random)
{
    const QStringList signs { u" "_s, u" "_s, u"-"_s, u" - "_s, u"/"_s, u", "_s, u""_s };
    QString text = random.bounded(3) > 0 ? u"Abrechnung "_s : QString();
    for (int i = random.bounded(5); i > 0; --i) {
        const int kind = random.bounded(6);
        if (kind < 3)
            text += OneOf(random, surnames);
        else if (kind == 3)
            text += OneOf(random, first_names);
        else if (kind == 4)
            text += u"Garten %1"_s.arg(1 + random.bounded(9));
        else
            text += u"H."_s;
        text += OneOf(random, signs);
    }
    if (random.bounded(4) == 0)
        text += u" Abrechnung"_s;
    return random.bounded(4) == 0 ? text.toUpper() : text;
}

// --- the rules once more, member by member, with regular expressions ---------------------------

struct Place {
    qsizetype begin = 0;
    qsizetype end = 0;
};

bool Inside(const Place& a, const Place& b)
{
    return b.begin <= a.begin && a.end <= b.end && b.end - b.begin > a.end - a.begin;
}

QString Pattern(const QString& name)
{
    QStringList parts = Folded(name).split(QRegularExpression(u"[ -]+"_s), Qt::SkipEmptyParts);
    for (QString& part : parts)
        part = QRegularExpression::escape(part);
    return parts.join(u"(?: +| *- *)"_s);
}

QVector<Place> Places(const QString& text, const QString& pattern)
{
    QVector<Place> places;
    if (pattern.isEmpty())
        return places;
    const QRegularExpression whole(
        u"(?<![a-z0-9])(?<![a-z][-'])(?:"_s + pattern + u")(?![a-z0-9])(?![-'][a-z])"_s);
    for (auto found = whole.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        places += Place { match.capturedStart(), match.capturedEnd() };
    }
    return places;
}

struct Member {
    QString surname;
    QString first_name;
    QString garden;
    QVector<Place> places {};
    int rank = 0;
};

/// The places of a member's surname and their ranks.
QVector<std::pair<Place, int>> SurnamePlaces(const Member& member, const PaymentText& payment)
{
    QVector<std::pair<Place, int>> places;
    const QString& text = payment.Rest.Text;
    const auto exact = [&](const Place& place, const QString& name) {
        return SourceOf(payment.Rest, place.begin, place.end) == name ? 3 : 2;
    };
    for (const Place& place : Places(text, Pattern(member.surname)))
        places += { place, exact(place, member.surname) };
    if (member.surname.endsWith(u'2')) {
        for (const Place& place : Places(text, Pattern(member.surname.chopped(1))))
            places += { place, 1 };
    }
    const QString first_part = member.surname.section(u' ', 0, 0);
    if (member.surname.contains(u' ') && payment.BehindWord >= 0) {
        for (const Place& place : Places(text, Pattern(first_part))) {
            const bool behind = place.begin >= payment.BehindWord
                && text.mid(payment.BehindWord, place.begin - payment.BehindWord)
                       .trimmed()
                       .isEmpty();
            if (behind)
                places += { place, exact(place, first_part) };
        }
    }
    return places;
}

bool Apart(const Place& place, const Member& member)
{
    return std::any_of(member.places.begin(), member.places.end(),
        [&place](const Place& own) { return place.end <= own.begin || own.end <= place.begin; });
}

QVector<Place> FirstNamePlaces(const QString& text, const QString& pattern, const Member& member)
{
    QVector<Place> places = Places(text, pattern);
    places.removeIf([&member](const Place& place) { return !Apart(place, member); });
    return places;
}

QVector<int> ByFirstName(
    const QVector<Member>& all, const QVector<int>& candidates, const QString& text)
{
    QVector<int> found;
    QVector<Place> whole;
    for (const int i : candidates)
        whole += FirstNamePlaces(text, Pattern(all[i].first_name), all[i]);
    for (const int i : candidates) {
        QVector<Place> own = FirstNamePlaces(text, Pattern(all[i].first_name), all[i]);
        own.removeIf([&whole](const Place& place) {
            return std::any_of(whole.begin(), whole.end(),
                [&place](const Place& other) { return Inside(place, other); });
        });
        if (!own.isEmpty())
            found += i;
    }
    for (const int i : found.isEmpty() ? candidates : QVector<int>()) {
        const QStringList parts
            = all[i].first_name.split(QRegularExpression(u"[ -]+"_s), Qt::SkipEmptyParts);
        const bool has
            = parts.size() > 1 && std::any_of(parts.begin(), parts.end(), [&](const QString& part) {
                  return !FirstNamePlaces(text, Pattern(part), all[i]).isEmpty();
              });
        if (has)
            found += i;
    }
    for (const int i : found.isEmpty() ? candidates : QVector<int>()) {
        const QString initial = Folded(all[i].first_name.left(1));
        const QRegularExpression with_point(u"(?<![a-z0-9])(?<![a-z][-'])"_s + initial + u"\\."_s);
        for (auto it = with_point.globalMatch(text); !initial.isEmpty() && it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            if (Apart({ match.capturedStart(), match.capturedEnd() }, all[i]) && !found.contains(i))
                found += i;
        }
    }
    return found;
}

QVector<int> MatchOneByOne(const QStringList& records, const PaymentText& payment)
{
    QVector<Member> all;
    QVector<int> owners;
    QVector<Place> every_place;
    for (const QString& record : records) {
        const QStringList fields = SplitRecord(record);
        all += Member { fields[Surname], fields[FirstName], fields[PlotNumber] };
        if (!payment.Garden.isEmpty() && all.last().garden == payment.Garden)
            owners += static_cast<int>(all.size()) - 1;
        for (const auto& [place, rank] : SurnamePlaces(all.last(), payment))
            every_place += place;
    }
    QVector<int> candidates;
    for (int i = 0; i < static_cast<int>(all.size()); ++i) {
        for (const auto& [place, rank] : SurnamePlaces(all[i], payment)) {
            const Place here = place;
            if (std::any_of(every_place.begin(), every_place.end(),
                    [&here](const Place& other) { return Inside(here, other); }))
                continue;
            all[i].places += place;
            all[i].rank = std::max(all[i].rank, rank);
        }
        if (!all[i].places.isEmpty())
            candidates += i;
    }
    if (candidates.isEmpty())
        return owners.size() == 1 ? owners : QVector<int>();
    if (candidates.size() == 1) {
        if (owners.size() == 1 && owners.front() != candidates.front())
            candidates += owners.front();
        std::sort(candidates.begin(), candidates.end());
        return candidates;
    }
    QVector<int> by_garden = candidates;
    by_garden.removeIf([&](int i) { return !owners.contains(i); });
    const QVector<int> by_name = ByFirstName(all, candidates, payment.Rest.Text);
    QVector<int> left = by_garden.isEmpty() ? by_name : by_garden;
    if (!by_garden.isEmpty() && !by_name.isEmpty()) {
        left.removeIf([&](int i) { return !by_name.contains(i); });
        if (left.isEmpty())
            return candidates;
    }
    if (left.isEmpty())
        left = candidates;
    int best = 0;
    for (const int i : left)
        best = std::max(best, all[i].rank);
    left.removeIf([&](int i) { return all[i].rank != best; });
    return left;
}

} // namespace

class TestFolding : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_that_are_the_same_name_fold_alike_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("folded");
        QTest::addRow("umlauts") << u"MÜLLER Äöü"_s << u"mueller aeoeue"_s;
        QTest::addRow("sharp s") << u"Weiß WEISS"_s << u"weiss weiss"_s;
        QTest::addRow("northern letters") << u"ÆŒÞÐÅØ æœþðåø"_s << u"aeoethdao aeoethdao"_s;
        QTest::addRow("marks") << u"Muñoz José Çelik Šimić Ÿ"_s << u"munoz jose celik simic y"_s;
        QTest::addRow("a mark of its own") << u"Jose\u0301"_s << u"jose"_s;
        QTest::addRow("strokes") << u"Łukasz Đinđić"_s << u"lukasz dindic"_s;
        QTest::addRow("apostrophes") << u"D’A‘B`C´D"_s << u"d'a'b'c'd"_s;
        QTest::addRow("dashes and blanks") << u"A–B—C\u00A0D\tE"_s << u"a-b-c d e"_s;
        QTest::addRow("signs") << u"§ 5 €; 1. Rate"_s << u"§ 5 €; 1. rate"_s;
    }
    void texts_that_are_the_same_name_fold_alike()
    {
        QFETCH(QString, text);
        QTEST(Folded(text), "folded");
        QTEST(Fold(text).Text, "folded");
        QCOMPARE(Folded(Folded(text)), Folded(text));
    }

    void a_folded_place_leads_back_to_its_source()
    {
        const FoldedText folded = Fold(u"Abrechnung Groß Köhler"_s);
        const qsizetype place = folded.Text.indexOf(u"gross"_s);
        QCOMPARE(SourceOf(folded, place, place + 5), u"Groß"_s);
        const qsizetype last = folded.Text.indexOf(u"koehler"_s);
        QCOMPARE(SourceOf(folded, last, folded.Text.size()), u"Köhler"_s);
    }

    void whole_words_are_tied_to_nothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("whole");
        for (const char* text : { "lang", "lang-2025", "lang/meier", "(lang)", "lang.", "2 - lang",
                 "-lang", "lang'", "1-lang" })
            QTest::addRow("%s", text) << QString::fromUtf8(text) << true;
        for (const char* text :
            { "langer", "lang2", "lang-meier", "d'lang", "klang", "meier-lang" })
            QTest::addRow("%s", text) << QString::fromUtf8(text) << false;
    }
    void whole_words_are_tied_to_nothing()
    {
        QFETCH(QString, text);
        const qsizetype place = text.indexOf(u"lang"_s);
        QTEST(IsWholeWord(text, place, place + 4), "whole");
    }

    void gardens_are_compared_without_leading_zeros_data()
    {
        QTest::addColumn<QString>("garden");
        QTest::addColumn<QString>("key");
        QTest::addRow("zeros") << u"007"_s << u"7"_s;
        QTest::addRow("letter") << u" 012A "_s << u"12a"_s;
        QTest::addRow("only zeros") << u"00"_s << u"0"_s;
        QTest::addRow("empty") << u" "_s << u""_s;
    }
    void gardens_are_compared_without_leading_zeros()
    {
        QFETCH(QString, garden);
        QTEST(GardenKey(garden), "key");
    }

    void the_index_finds_what_trying_every_member_finds()
    {
        QRandomGenerator random(1789);
        int several = 0;
        int one = 0;
        for (int round = 0; round < 300; ++round) {
            const QStringList records = RandomMembers(random);
            const MemberIndex index = MakeMemberIndex(records);
            for (int i = 0; i < 4; ++i) {
                const QString text = RandomText(random);
                const PaymentText payment = ReadPaymentText(text);
                const QVector<int> found = MatchMembers(index, payment);
                const QVector<int> expected = MatchOneByOne(records, payment);
                if (found != expected)
                    qWarning() << text << records << found << expected;
                QCOMPARE(found, expected);
                several += found.size() > 1 ? 1 : 0;
                one += found.size() == 1 ? 1 : 0;
            }
        }
        QVERIFY(several > 50 && one > 50);
    }

    void the_purpose_text_finds_its_member()
    {
        QRandomGenerator random(42);
        for (int round = 0; round < 1000; ++round) {
            QStringList records = RandomMembers(random);
            records.removeDuplicates(); // twins in name and garden cannot be told apart
            records.removeIf([](const QString& record) { return record.contains(u";;;;;"_s); });
            const MemberIndex index = MakeMemberIndex(records);
            for (int member = 0; member < static_cast<int>(records.size()); ++member) {
                const QString text = PurposeText(u"2026"_s, SplitRecord(records[member]));
                const QVector<int> found = MatchMembers(index, ReadPaymentText(text));
                if (found != QVector<int> { member })
                    qWarning() << text << records << found;
                QCOMPARE(found, QVector<int> { member });
            }
        }
    }

    void the_purpose_text_has_only_the_signs_of_a_transfer_data()
    {
        QTest::addColumn<QString>("record");
        QTest::addColumn<QString>("text");
        QTest::addRow("garden") << u"Krüger;Uwe;;;;7"_s << u"Abrechnung 2026 Garten 7 Krüger Uwe"_s;
        QTest::addRow("no garden") << u"Sommer;Eva;;;; "_s << u"Abrechnung 2026 Sommer Eva"_s;
        QTest::addRow("a 2") << u"Lorenz2;Ida;;;;12a"_s
                             << u"Abrechnung 2026 Garten 12a Lorenz2 Ida"_s;
        QTest::addRow("other signs") << u"Capek/García;Zoë #1;;;;A 3"_s
                                     << u"Abrechnung 2026 Garten A 3 Capek/Garcia Zoe 1"_s;
        QTest::addRow("long") << QString(100, u'Ö') + u';' + QString(100, u'Ü') + u";;;;100"_s
                              << u"Abrechnung 2026 Garten 100 "_s + QString(100, u'Ö') + u' '
                + QString(12, u'Ü');
    }
    void the_purpose_text_has_only_the_signs_of_a_transfer()
    {
        QFETCH(QString, record);
        QTEST(PurposeText(u"2026"_s, SplitRecord(record)), "text");
    }
};

const TestFile<TestFolding> test_file(__FILE__);
#include "test_folding.moc"
