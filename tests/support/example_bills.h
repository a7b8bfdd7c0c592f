// The bills of an example club, read without a window: what the program holds in memory after the
// club's year was loaded, and the tables that say what has to stand on the pages.
#pragma once

#include "statement/bill_source.h"
#include "statement/statement_state.h"

#include <QDate>
#include <QStringList>
#include <QVector>

/// A year of an example club.
struct ExampleYear {
    QString Club; ///< folder below tests/fixtures/examples
    QString Year;
    QDate Today;
    QString Tables; ///< folder of bills.tsv and totals.tsv
    int Members = 0;
    bool EveryMemberHasABill = true; ///< false: the drawing stops at the first new member
};

/// Every year of every example club.
QVector<ExampleYear> ExampleYears();

/// Lists, prices, bank and club name of that year. Files that a first start would make are taken
/// from the club's expected files.
BillSource SourceOf(const ExampleYear& example);

/// All pages drawn.
StatementState PagesOf(const ExampleYear& example);

/// The texts of a page as rows of bills.tsv, without the column member.
QStringList TextRows(const StatementState& statement, qsizetype page);

/// The rows of that page in the table bills.tsv of the year, without the column member.
QVector<QStringList> ExpectedTextRows(const ExampleYear& example);
QStringList ExpectedTotals(const ExampleYear& example);

/// A source with one member and prices that count, for tests of single rules.
BillSource OneMember(const QString& record, const QString& previous_record = {});
