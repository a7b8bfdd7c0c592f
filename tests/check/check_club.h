// A club in good order for tests of the check report: 30 members, two years of files in a temporary
// folder, loaded by the program's own routines without a window. A test spoils one thing and looks
// at what the rules say.
#pragma once

#include "check/check.h"
#include "data/data_files.h"

#include <QHash>
#include <QTemporaryDir>

#include <functional>
#include <optional>

/// How far the year has come.
enum class Season { January, HalfRead, ReadyToPrint };

struct CheckClub {
    explicit CheckClub(Season season = Season::ReadyToPrint);

    QString Year = QStringLiteral("2026"); ///< the year that is loaded
    QDate Today { 2026, 11, 21 };
    QList<MemberRecord> Members;
    QList<MemberRecord> LastYear;
    PriceSettings Prices;
    PriceSettings LastYearPrices;
    QStringList Ticks { QStringLiteral("1"), QStringLiteral("1") }; ///< as stored
    QStringList LastYearTicks { QStringLiteral("1"), QStringLiteral("1") };
    BankSettings Bank;
    QStringList BankLines;
    QStringList CashBoxLines;
    QStringList LastYearBankLines;
    QStringList LastYearCashBoxLines;
    QHash<QString, std::optional<QByteArray>> Raw; ///< other bytes of a file; nothing: no file
    std::function<void(CheckSource&)> Spoil; ///< changes what is in memory, once it is loaded

    /// Writes the files and loads the year, as the program does.
    CheckSource Load();

    /// What the report finds in it.
    CheckResult Check();

private:
    void WriteFiles() const;
    void Write(const QString& name, const QByteArray& bytes) const;
    QByteArray Config() const;

    QTemporaryDir m_folder;
};

/// The first finding with that id, nothing when there is none.
std::optional<Finding> FindingOf(const CheckResult& result, const QString& id);
