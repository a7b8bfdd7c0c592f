// What a rule of the check report found, and the short ways to say it in German.
#pragma once

#include "report/report.h"

#include <QHash>
#include <QString>

#include <utility>
#include <vector>

/// How much it matters. Error: a bill, a page or an account is wrong or something is lost with the
/// next save. Warning: probably not wanted. Hint: good to know.
enum class Level { Error, Warning, Hint };

/// A member, line or price that the sentence is about.
struct FindingRow {
    QString text;
    LinkTarget target = {};
};

/// A sentence with its rows. Findings with the same id and part stand together as one entry.
struct Finding {
    QString id; ///< rule and variant: "C05a"; stays the same in every version
    Level level = Level::Hint;
    QString sentence = {};
    QString remedy = {}; ///< empty: nothing is to be done
    LinkTarget target = {}; ///< where the sentence itself leads when it has no rows
    std::vector<FindingRow> rows = {};
    QString part = {}; ///< tells the entries of one variant apart ("Strom", "Wasser")
};

using FindingList = std::vector<Finding>;

/// What one rule has found so far.
struct Findings {
    FindingList All;
    /// Where each stands last, by sentence, id and part: a sentence of its own for each member of a
    /// large club must not be looked for one by one.
    QHash<std::pair<QString, std::pair<QString, QString>>, std::size_t> Places;
};

/// Appends the finding. Rows that only differ in their sentence are collected by their caller.
void Add(Findings& findings, Finding finding);

/// Appends the row to the finding of that id, part and sentence, or appends the finding with it.
void AddTo(Findings& findings, const Finding& finding, const FindingRow& row);

/// "1 Buchung", "7 Buchungen".
QString CountOf(qsizetype count, const QString& one, const QString& many);

/// „text“
QString Quoted(const QString& text);

/// A member's field in the tab "Stammdaten" (0 is the first member); field as MemberField.
LinkTarget MemberTarget(qsizetype member, int field);

/// The control that record field 0 to 15 is typed into: "Text3(6)", "Text1(4)".
QString ControlOfMemberField(int field);

LinkTarget ControlTarget(const QString& control);

// Targets that several rules share.
LinkTarget LoadTarget(); ///< "Laden"
LinkTarget YearBackTarget(); ///< the arrow to the year before
LinkTarget PriceTarget(std::size_t field); ///< Text4(field)
LinkTarget BankTarget(std::size_t field); ///< Text6(field)
