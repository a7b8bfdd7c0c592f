// The ledger as a table: five columns of texts, made when the view asks for them.
#pragma once

#include "cashbook/ledger_rows.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

/// Columns of the table.
enum LedgerColumn { DateColumn, TextColumn, DepositColumn, WithdrawalColumn, BalanceColumn };

class LedgerModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// The columns in their order, as LedgerColumns in cashbook/texts.h.
    void SetColumns(const QStringList& columns);
    void SetRows(const LedgerRows& rows); ///< no row is a hit any more
    const LedgerRows& Rows() const { return m_rows; }

    /// Rows that a search found, in ascending order, and which of them is the current one (0 is the
    /// first, -1: none). Their ground is tinted.
    void SetHits(const std::vector<int>& rows);
    void SetCurrentHit(int hit);
    const std::vector<int>& Hits() const { return m_hits; }
    int CurrentHit() const { return m_current_hit; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;

    /// Amounts are right-aligned; below zero they are red, and so is what is no number or no day in
    /// the form dd.mm.yyyy, on a tinted ground. Qt::UserRole is the row's key ("Zeile 1").
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QStringList m_columns;
    QVariant Ground(const LedgerRow& row, const QModelIndex& index) const;

    LedgerRows m_rows;
    std::vector<int> m_hits;
    int m_current_hit = -1;
};
