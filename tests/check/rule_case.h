// A rule of the check report as a row of a table: a club that it finds something in, and one that
// it only almost does.
#pragma once

#include "tests/check/check_club.h"

#include <QtTest>

using Change = void (*)(CheckClub& club);

struct RuleCase {
    const char* id; ///< rule and variant
    Change spoil; ///< the rule finds this
    Change almost; ///< and not this
    QString says; ///< the sentence
    QString row; ///< the first row; empty: not looked at
    Season season = Season::ReadyToPrint;
};

Q_DECLARE_METATYPE(const RuleCase*)

/// A row of test data for each case, named by its id and number.
template <std::size_t Count> void AddRuleRows(const RuleCase (&cases)[Count])
{
    QTest::addColumn<const RuleCase*>("rule");
    int number = 0;
    for (const RuleCase& rule : cases)
        QTest::addRow("%s %d", rule.id, ++number) << &rule;
}

/// The rule says its sentence about the spoilt club and nothing about the other one.
inline void VerifyRule(const RuleCase& rule)
{
    const QString id = QString::fromLatin1(rule.id);
    CheckClub spoilt(rule.season);
    rule.spoil(spoilt);
    const auto found = FindingOf(spoilt.Check(), id);
    QVERIFY2(found.has_value(), "nothing was found");
    QCOMPARE(found->sentence, rule.says);
    if (!rule.row.isEmpty())
        QCOMPARE(found->rows.empty() ? QString() : found->rows.front().text, rule.row);
    CheckClub good(rule.season);
    rule.almost(good);
    const auto almost = FindingOf(good.Check(), id);
    QVERIFY2(!almost, almost ? qPrintable(almost->sentence) : "");
}
