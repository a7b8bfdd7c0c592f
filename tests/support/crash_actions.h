// The saving actions of the program that the crash-matrix interrupts at every call.
#pragma once

#include "data/data_files.h"

#include <QList>

struct CrashAction {
    const char* name;
    void (*prepare)(const DataFiles& files); ///< what lies there before, written past the program
    void (*run)(const DataFiles& files); ///< the program's own routines; throws RuntimeError
};

/// All of them. Running one twice gives the same files as running it once.
const QList<CrashAction>& CrashActions();
