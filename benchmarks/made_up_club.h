// A club of any size for measurements: files that a treasurer could have, the same in every run.
#pragma once

#include "app/program.h"

#include <QTemporaryDir>

/// The bytes of a year's files with so many members or bookings.
QByteArray MembersBytes(int members, bool last_year);
QByteArray PricesBytes();
QByteArray BankBytes(int members);
QByteArray LedgerBytes(int bookings); ///< in any order, as put together by hand

/// The same in booking order, as each file is that the program wrote.
QByteArray OrderedLedgerBytes(int bookings);

/// A folder with a club's files of 2016 and 2017 and a program over it. It is 1 December 2017.
struct MadeUpClub {
    QTemporaryDir Folder;
    Program program;

    MadeUpClub(int members, int bookings);
    MadeUpClub(int members, const QByteArray& ledger);
    ~MadeUpClub();
    MadeUpClub(const MadeUpClub&) = delete;
    MadeUpClub& operator=(const MadeUpClub&) = delete;

    /// The window as it is shown at a start; returns when it was painted for the first time.
    void Open();
    qint64 BytesOfFiles() const;
};

/// Runs the event loop until the widget has been painted.
void WaitForPaint(QWidget* window);
