// What a routine throws.
#pragma once

#include "data/runtime_error.h"

#include <stdexcept>

/// The RuntimeError of the routine; a std::logic_error when it throws none, which fails the test.
template <typename Routine> RuntimeError ErrorOf(Routine routine)
{
    try {
        routine();
    } catch (const RuntimeError& error) {
        return error;
    }
    throw std::logic_error("no RuntimeError was thrown");
}
