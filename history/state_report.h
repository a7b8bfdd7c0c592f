// One kept state as a report: its lines as a table with the captions of the fields.
#pragma once

#include "data/data_files.h"
#include "data/redo_record.h"
#include "report/report.h"

#include <optional>

/// Lines that the file does not hold any more, or not so, are marked; `now` is what it holds,
/// nothing when it cannot be read.
Report StateReport(const RedoRecord& state, const std::optional<QByteArray>& now);
