// A finished run of bills goes into the history, with each member's total.
#pragma once

#include "history/sent_out.h"
#include "statement/printing.h"

struct Program;

/// To be called when the last of these pages has gone out. Pages without a total are kept with an
/// empty one.
void KeepSentPages(const Program& program, SentHow how, const QList<PageRange>& pages);
