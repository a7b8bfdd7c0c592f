// The real printer behind the print run, its dialog, and the progress of long runs.
#pragma once

#include "statement/printing.h"

#include <QString>

class QPrinter;
class QPrintDialog;
class QWidget;
struct StatementState;

/// Puts the dialog's choices in order: the page numbers on the tab decide, so the dialog's own
/// range, selection and collating are switched off.
void PreparePrintDialog(QPrintDialog& dialog);

/// Shows the printer dialog; false when it was cancelled.
bool AskForPrinter(QPrinter& printer, QWidget* window);

/// A4, portrait, 300 dots per inch, the printable area as large as the printer allows.
void SetUpPrinter(QPrinter& printer);

/// The bills of these pages in full size.
PrintJob JobFor(const StatementState& statement, const PageRange& range);

/// Prints the pages of the job on that printer; its lengths are printer dots. A long run shows the
/// busy pointer and a progress box that can be cancelled between pages. A run that is cancelled or
/// fails just ends and says nothing.
void PrintStatementPages(
    QPrinter& printer, const StatementState& statement, const PrintJob& job, QWidget* window);
