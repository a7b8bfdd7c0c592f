// The names of this system's error numbers, for the files that call it.
#pragma once

#include "data/system_error.h"

/// The name of an errno value; Fault::None for 0.
SystemError ErrorOfNumber(int number);

/// The name of the error of the call that has just failed (errno).
SystemError LastError();
