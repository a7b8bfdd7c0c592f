#include "cashbook/ledger_model.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace {

bool IsAmount(int column) { return column >= DepositColumn; }

int AlignmentOf(int column)
{
    const auto side = IsAmount(column) ? Qt::AlignRight : Qt::AlignLeft;
    return static_cast<int>(side | Qt::AlignVCenter);
}

QString TextOf(const LedgerRow& row, int column)
{
    switch (column) {
    case DateColumn:
        return row.date;
    case TextColumn:
        return row.text;
    case DepositColumn:
        return row.deposit;
    case WithdrawalColumn:
        return row.withdrawal;
    case BalanceColumn:
        return row.balance;
    default:
        return {};
    }
}

bool IsUncounted(const LedgerRow& row, int column)
{
    return (column == DepositColumn && !row.counted.deposit)
        || (column == WithdrawalColumn && !row.counted.withdrawal);
}

bool IsWrong(const LedgerRow& row, int column)
{
    return IsUncounted(row, column) || (column == DateColumn && !row.well_dated);
}

bool IsDarkDesktop() { return QGuiApplication::palette().color(QPalette::Base).lightness() < 128; }

/// A red that can be read on the ground of the table.
QColor Red() { return IsDarkDesktop() ? QColor(0xff, 0x80, 0x80) : QColor(0xd0, 0, 0); }

/// More of the text than of its ground. The palette's own colour for that need not fit its ground:
/// dark desktops that name none leave the light one's.
QColor Quiet()
{
    constexpr float share = 0.6F;
    QColor colour = QGuiApplication::palette().color(QPalette::Text);
    colour.setAlphaF(share);
    return colour;
}

/// Most bookings have one amount; the other one's zero steps back.
bool IsNothing(const LedgerRow& row, int column)
{
    return (column == DepositColumn || column == WithdrawalColumn)
        && TextOf(row, column) == QStringLiteral("0,00 €");
}

QVariant ForegroundOf(const LedgerRow& row, int column)
{
    const bool negative = IsAmount(column) && ShowsBelowZero(TextOf(row, column));
    if (negative || IsWrong(row, column))
        return Red();
    if (IsNothing(row, column))
        return Quiet();
    return {};
}

QVariant BackgroundOf(const LedgerRow& row, int column)
{
    if (!IsWrong(row, column))
        return {};
    return IsDarkDesktop() ? QColor(0x50, 0x24, 0x24) : QColor(0xfa, 0xd8, 0xd8);
}

QColor HitGround() { return IsDarkDesktop() ? QColor(0x4a, 0x42, 0x10) : QColor(0xff, 0xf3, 0xb0); }

QColor CurrentHitGround()
{
    return IsDarkDesktop() ? QColor(0x80, 0x66, 0x00) : QColor(0xff, 0xd0, 0x40);
}

QVariant ToolTipOf(const LedgerRow& row, int column)
{
    if (IsUncounted(row, column))
        return QStringLiteral("Das ist keine Zahl, der Betrag zählt als 0. Ein Klick auf die Zeile "
                              "holt die Buchung zum Berichtigen in die Felder.");
    if (IsWrong(row, column))
        return QStringLiteral("Das ist kein Tag in der Form TT.MM.JJJJ, die Buchung steht deshalb "
                              "nicht an ihrer Stelle. Ein Klick auf die Zeile holt sie zum "
                              "Berichtigen in die Felder.");
    constexpr qsizetype longest = 500;
    const QString text = TextOf(row, column).left(longest); // cut off in its column, perhaps
    return text.isEmpty() ? QString() : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

} // namespace

void LedgerModel::SetColumns(const QStringList& columns)
{
    beginResetModel();
    m_columns = columns;
    endResetModel();
}

void LedgerModel::SetRows(const LedgerRows& rows)
{
    beginResetModel();
    m_rows = rows;
    m_hits.clear();
    m_current_hit = -1;
    endResetModel();
}

void LedgerModel::SetHits(const std::vector<int>& rows)
{
    if (rows.empty() && m_hits.empty())
        return;
    m_hits = rows;
    SetCurrentHit(-1);
}

void LedgerModel::SetCurrentHit(int hit)
{
    m_current_hit = hit;
    const QModelIndex last = index(rowCount() - 1, columnCount() - 1);
    if (last.isValid())
        Q_EMIT dataChanged(last.sibling(0, 0), last, { Qt::BackgroundRole });
}

QVariant LedgerModel::Ground(const LedgerRow& row, const QModelIndex& index) const
{
    const auto hit = std::lower_bound(m_hits.begin(), m_hits.end(), index.row());
    if (hit == m_hits.end() || *hit != index.row())
        return BackgroundOf(row, index.column());
    return hit - m_hits.begin() == m_current_hit ? CurrentHitGround() : HitGround();
}

int LedgerModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.lines.size());
}

int LedgerModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant LedgerModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    if (role == Qt::TextAlignmentRole)
        return AlignmentOf(index.column());
    const LedgerRow row = RowAt(m_rows, index.row());
    switch (role) {
    case Qt::DisplayRole:
        return TextOf(row, index.column());
    case Qt::ForegroundRole:
        return ForegroundOf(row, index.column());
    case Qt::BackgroundRole:
        return Ground(row, index);
    case Qt::ToolTipRole:
        return ToolTipOf(row, index.column());
    case Qt::UserRole:
        return row.key;
    default:
        return {};
    }
}

QVariant LedgerModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return m_columns.value(section);
    if (role == Qt::TextAlignmentRole)
        return AlignmentOf(section);
    return {};
}
