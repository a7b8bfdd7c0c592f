// The desktop's printer dialog, behind PrintFrameForm::ShowPrintDialog.
#pragma once

class QPrintDialog;
class QPrinter;
class QWidget;

/// Puts the dialog's choices in order: the page numbers on the tab decide, so the dialog's own
/// range, selection and collating are switched off.
void PreparePrintDialog(QPrintDialog& dialog);

/// Shows the printer dialog; false when it was cancelled.
bool AskForPrinter(QPrinter& printer, QWidget* window);
