// A data directory of its own for harnesses that go through real files.
#pragma once

#include "data/data_files.h"

#include <QByteArray>
#include <QStringList>

/// An empty data directory and its state directory, the same folders on every call; removed at the
/// end of the program.
DataFiles EmptyScratchFiles();

/// Writes a file of the data directory without any help of the program.
void PutFile(const DataFiles& files, const char* name, const QByteArray& content);

/// Reads it back in the same way; ends the program when it is not there.
QByteArray FileBytes(const DataFiles& files, const char* name);

/// The lines of a file, split naively: CR LF ends a line, without any CR an LF does; nothing
/// stands behind the last one.
QStringList NaiveLines(const QByteArray& content);
