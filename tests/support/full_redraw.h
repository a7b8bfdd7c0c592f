// What the window shows beside what it would show if all of it were drawn anew from the lists:
// whatever is kept from one drawing to the next must not be seen.
#pragma once

#include "app/program.h"

#include <QString>

/// The first difference between the drawn pages, totals and ledger rows and a drawing from nothing;
/// empty when there is none. The shown page is compared as a picture too.
QString DifferenceToFullRedraw(const Program& program);
