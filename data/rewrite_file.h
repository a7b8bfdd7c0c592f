// The one routine that rewrites a data file, and what finishes its work after a crash. How a
// rewrite survives everything: docs/saving.md.
#pragma once

#include "data/data_files.h"

#include <QByteArray>
#include <QString>

/// Rewrites the file whole and in place: a redo record of the new content is synced first, then the
/// file is emptied, written and synced, then the record is removed. Creates a missing file. Throws
/// RuntimeError (File); its sentence says what has become of the file:
/// - the record could not be written, or the file could not be opened: it is untouched;
/// - the rewrite failed: it has its old content again;
/// - and that failed too: the record stays and stands for the file (ReadBytes) until the next start
///   or the next save finishes it.
void RewriteFile(const DataFiles& files, const QString& name, const QByteArray& content);

/// At start, before anything is read: finishes complete redo records, drops incomplete ones. Throws
/// RuntimeError (File) when a complete record cannot be finished (the others are finished all the
/// same); that record is kept then and stands for the file.
void FinishRewrites(const DataFiles& files);
