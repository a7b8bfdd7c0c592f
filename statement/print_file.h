// The file of a print run that goes into a file: all of it or nothing. While the run goes on it
// writes beside the file that was asked for.
#pragma once

#include <QString>

/// The file to write to while a run for that file is not finished: a new one beside it, or the file
/// itself where nothing may be put in its place (a device, a file or folder that is
/// write-protected).
QString UnfinishedPrintFile(const QString& target);

/// Puts a finished run into its place; what stands there is replaced in one step. False when the
/// unfinished file is no whole PDF (a full disk) or cannot be put there; it is gone then.
bool FinishPrintFile(const QString& unfinished, const QString& target);

/// Removes what a run has left that did not get to its end. Devices stay.
void DropPrintFile(const QString& unfinished);
