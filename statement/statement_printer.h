// The real printer behind the print run, and the progress of long runs.
#pragma once

#include "statement/printing.h"

#include <QByteArray>

class QPrinter;
class QWidget;
struct StatementState;

/// Pages from which on a run shows its progress; shorter ones take less than a second.
inline constexpr int LongRun = 50;

/// A4, portrait, 300 dots per inch, the printable area as large as the printer allows.
void SetUpPrinter(QPrinter& printer);

/// The bills of these pages in full size.
PrintJob JobFor(const StatementState& statement, const PageRange& range);

/// Prints the pages of the job on that printer; its lengths are printer dots. A long run shows the
/// busy pointer and a progress box that can be cancelled between pages. A run that is cancelled or
/// fails prints nothing at all and says nothing: no sheet has gone to the printer by then, and no
/// unfinished file stays. True when everything went out.
bool PrintStatementPages(
    QPrinter& printer, const StatementState& statement, const PrintJob& job, QWidget* window);

/// The bills of these pages as a PDF file's bytes, the pages as on paper; empty when the run was
/// cancelled or failed. A long run shows the same progress box.
QByteArray PdfOfPages(const StatementState& statement, const PageRange& range, QWidget* window);
