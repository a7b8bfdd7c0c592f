// What the reader of a report chose by its links: an order of rows, a filter, whole lists.
#pragma once

#include "report/report.h"

#include <QMap>
#include <QSet>
#include <QString>

struct SortChoice {
    int column = 0;
    Qt::SortOrder order = Qt::AscendingOrder;

    bool operator==(const SortChoice&) const = default;
};

/// Kept by the window as long as it lives, handed to the routine that makes the report.
struct ReportChoices {
    QSet<QString> ShownWhole; ///< names of the lists that are shown with all their rows
    QString Filter; ///< name of the chosen filter; empty: none
    QMap<QString, SortChoice> Sorting; ///< by name of the table
};

/// Links that change the choices.
LinkTarget ShowAllLink(const QString& list);
LinkTarget FilterLink(const QString& filter); ///< the empty name takes the filter away
LinkTarget SortLink(const QString& table, int column);

/// Carries out such a link: a second click on the same column turns the order around. False for any
/// other action, which is the report's own business.
bool TakeChoice(ReportChoices& choices, const QString& action);

/// Sorts every table that has a choice: by the values of the column, else in German word order;
/// rows that are alike keep their order, totals stay last.
void SortTables(Report& report, const ReportChoices& choices);
