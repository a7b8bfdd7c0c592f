// A club in which every window behind "Mehr" has something to show: last year's list lacks a line,
// a reading is missing, saves lie in the history.
#pragma once

#include "tests/support/club.h"

#include <QStringList>

struct MoreClub : TestClub {
    MoreClub();

    /// The entries of the menu, in its order ("MoreCheck").
    static QStringList Entries();

    /// Chooses the entry of the menu; returns the window that it brought to the front.
    QWidget* Open(const QString& entry);

    /// Closes it, and lets dialogs go.
    static void Close(QWidget* window);
};
