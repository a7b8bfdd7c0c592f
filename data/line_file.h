// Text files as lists of lines (code page 1252, CR LF), and the one routine that rewrites a file.
// How a rewrite survives a crash: docs/architecture.md, "Nothing confirmed is lost".
#pragma once

#include "data/runtime_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Where the club's files lie and where unfinished rewrites are noted. The first parameter of
/// everything that touches files.
struct DataFiles {
    QString DataDirectory; ///< without a last slash; names that begin with a backslash are appended
    QString StateDirectory; ///< outside the DataDirectory; redo records live here
};

/// DataDirectory + name; the backslash (or slash) that begins the name becomes the separator of
/// this system.
QString PathOf(const DataFiles& files, const QString& name);

/// The part of a path or of a name like "\Konto2016.pz" behind the last separator, for messages.
QString FileNameOf(const QString& path_or_name);

/// True when a directory look-up finds a file (not a folder) of that name; the file is not opened.
/// Throws RuntimeError (File) when the look-up itself fails: "missing" would be a guess then, and a
/// file that is thought to be missing gets overwritten by the next year's first save.
bool FileExists(const DataFiles& files, const QString& name);

/// The whole file as bytes. Throws RuntimeError (File) with the system's reason when it cannot be
/// read.
QByteArray ReadBytes(const DataFiles& files, const QString& name);

/// Positions in the lists are 16-bit numbers, and a text field holds as many characters: a longer
/// file or line could be loaded but not shown and saved without loss.
constexpr qsizetype MostLines = 32767;
constexpr qsizetype LongestLine = 32767;

/// The lines of a file: a line ends at CR LF (not part of the line), the last one may lack it; an
/// empty file has none. A lone CR or LF belongs to its line. Throws RuntimeError (File; Overflow
/// beyond MostLines or LongestLine).
QStringList ReadLines(const DataFiles& files, const QString& name);

/// The first line alone, whatever follows; empty for an empty file. Throws like ReadLines.
QString ReadFirstLine(const DataFiles& files, const QString& name);

/// The bytes of a file with these lines, each ended by CR LF.
QByteArray BytesOfLines(const QStringList& lines);

/// Rewrites the file whole and in place: a redo record of the new content is synced first, then the
/// file is emptied, written and synced, then the record is removed. Creates a missing file. Throws
/// RuntimeError (File): when the record could not be written, the old file is untouched; when the
/// rewrite failed, the record finishes it at the next start.
void RewriteFile(const DataFiles& files, const QString& name, const QByteArray& content);

/// RewriteFile with BytesOfLines. Throws RuntimeError Overflow, and changes nothing, for what
/// ReadLines would refuse.
void RewriteLines(const DataFiles& files, const QString& name, const QStringList& lines);

/// At start, before anything is read: finishes complete redo records, drops incomplete ones. Throws
/// RuntimeError (File) when a complete record cannot be finished; the record is kept then.
void FinishRewrites(const DataFiles& files);
