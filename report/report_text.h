// A report as lines of text, for tests and for whoever compares two of them.
#pragma once

#include "report/report.h"

/// One line per heading, sentence and row (cells separated by tabs, a bar as so many #, of ten).
/// Indents, looks, tints and targets of links leave no trace. A page break is a line of "=", a line
/// to sign stands as "____ caption".
QString TextOfReport(const Report& report);
