// Last year's list put into the order of this year's: what both lists have in common, and one offer
// for each difference. No window and no file in here.
#pragma once

#include "data/records.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

enum class AlignKind {
    Same, ///< the same person in both years
    Tenant, ///< another name, the same garden: a change of the tenant, left as it is
    Missing, ///< a member without a line of last year: one is put in
    Moved, ///< a member whose line stands elsewhere: it is put here
    MovedAway, ///< where that line stands now
    Gone ///< a line of last year without a member: it is taken out
};

/// A place of the lists side by side; positions count from 0, -1: none.
struct AlignRow {
    AlignKind kind = AlignKind::Same;
    qsizetype member = -1; ///< this year's position
    qsizetype line = -1; ///< last year's position
    QString member_name; ///< "Meier,Anna"
    QString line_name;
    QString offer; ///< what the tick means; empty for rows without one
};

/// The longest common sequence of surname and first name; where several members bear a name the
/// plot number tells them apart.
std::vector<AlignRow> AlignLists(const QStringList& members, const QStringList& last_year);

/// True for rows that can be ticked.
bool IsOffer(const AlignRow& row);

/// A line of last year for a member who has none: name, address, plot and these four readings.
QString LineForMissing(const QString& member_record, const QStringList& readings);

/// A ticked offer; readings are typed for a missing line alone.
struct AlignChoice {
    std::size_t row = 0;
    QStringList readings = { {}, {}, {}, {} };
};

struct AlignedYear {
    QStringList lines; ///< last year's list with the ticked offers carried out
    qsizetype added = 0;
    qsizetype removed = 0;
};

AlignedYear CarryOut(const std::vector<AlignRow>& rows, const std::vector<AlignChoice>& choices,
    const QStringList& members, const QStringList& last_year);
