// Text files as lists of lines (code page 1252, CR LF): look-up and reading; the routines that
// write stand in data/rewrite_file.h.
#pragma once

#include "data/data_files.h"
#include "data/rewrite_file.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// True when a directory look-up finds a file (not a folder) of that name; the file is not opened.
/// Throws RuntimeError (File) when the look-up itself fails: "missing" would be a guess then, and a
/// file that is thought to be missing gets overwritten by the next year's first save.
bool FileExists(const DataFiles& files, const QString& name);

/// The whole file as bytes. Throws RuntimeError (File) with the system's reason when it cannot be
/// read.
QByteArray ReadBytes(const DataFiles& files, const QString& name);

/// Bytes. A club of 32,767 members has a file of some six million; a damaged one of a hundred would
/// keep the window busy for a long time before anybody could say so.
constexpr qint64 LargestText = 32LL * 1024 * 1024;

/// ReadBytes for a file of text: throws RuntimeError (File) for more than LargestText.
QByteArray ReadTextBytes(const DataFiles& files, const QString& name);

/// Positions in the lists are 16-bit numbers, and a text field holds as many characters: a longer
/// file or line could be loaded but not shown and saved without loss.
constexpr qsizetype MostLines = 32767;
constexpr qsizetype LongestLine = 32767;

/// The lines of a file: a line ends at CR LF (not part of the line), the last one may lack it; an
/// empty file has none. A lone CR or LF belongs to its line; yet in a file without any CR each LF
/// ends a line. Throws RuntimeError (File, also beyond
/// LargestText; Overflow beyond most_lines or LongestLine).
QStringList ReadLines(
    const DataFiles& files, const QString& name, qsizetype most_lines = MostLines);

/// The lines in front of the first empty one; what stands behind it is not looked at, however
/// damaged it is. Throws like ReadLines.
QStringList ReadLinesUpToEmpty(
    const DataFiles& files, const QString& name, qsizetype most_lines = MostLines);

/// The first line alone, whatever follows; empty for an empty file. Throws like ReadLines.
QString ReadFirstLine(const DataFiles& files, const QString& name);

/// The bytes of a file with these lines, each ended by CR LF.
QByteArray BytesOfLines(const QStringList& lines);

/// RewriteFile with BytesOfLines. Throws, and changes nothing, for what ReadLines would refuse.
void RewriteLines(const DataFiles& files, const QString& name, const QStringList& lines,
    qsizetype most_lines = MostLines);
