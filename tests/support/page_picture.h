// A bill page painted by the tests: what screen and paper are compared with.
#pragma once

#include "statement/statement_state.h"

#include <QImage>

/// The page as picture, scale picture pixels per page pixel; page 0 is the first.
QImage PagePicture(const StatementState& statement, qsizetype page, double scale = 1.0);
