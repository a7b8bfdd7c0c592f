// The saving actions of the program that the crash-matrix interrupts at every call.
#pragma once

#include "data/data_files.h"

#include <QList>

struct Program;

/// Either a routine on plain files, or a click in the real window.
struct CrashAction {
    const char* name;
    void (*prepare)(const DataFiles& files); ///< what lies there before, written past the program
    void (*run)(const DataFiles& files); ///< throws RuntimeError; null: an action of the window
    void (*fill)(Program& program) = nullptr; ///< starts up and fills the fields of the window
    void (*press)(Program& program) = nullptr; ///< what saves; the only part that is interrupted
};

/// All of them. Running one twice gives the same files as running it once.
const QList<CrashAction>& CrashActions();

/// Those of the window.
QList<CrashAction> WindowActions();
