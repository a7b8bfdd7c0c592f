// Values in INI files as the platform's private-profile routines read and write them: bytes in code
// page 1252, changed in place, every other byte of the file stays. Which keys there are is the
// business of price_settings and bank_settings. Format: docs/file-formats.md, "INI files"; recorded
// answers: tests/fixtures/facts/ini_read.tsv and ini_write.tsv.
#pragma once

#include "data/line_file.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/// The value as a read with a buffer of 255 bytes gives it: blanks around and one pair of quotation
/// marks removed, cut after 254 bytes. Names are compared without regard to case, umlauts included;
/// the first section and the first key of a name count. A missing section or key gives "".
QByteArray IniValue(const QByteArray& ini, const QByteArray& section, const QByteArray& key);

/// The file with this value, written as given. Only the line of the key changes (its name keeps its
/// spelling); a new key goes behind the last key of its section, a new section to the end.
QByteArray WithIniValue(const QByteArray& ini, const QByteArray& section, const QByteArray& key,
    const QByteArray& value);

/// One value of a file of the DataDirectory; a missing file gives "". Throws RuntimeError (File)
/// when a file that is there cannot be read.
QString ReadIni(
    const DataFiles& files, const QString& section, const QString& key, const QString& name);

/// The values of several keys of one section, in the order of the keys. Reads the file once.
QStringList ReadIniValues(
    const DataFiles& files, const QString& section, const QStringList& keys, const QString& name);

struct IniEntry {
    QString key;
    QString value; ///< line breaks in it are stored as blanks, since they would end the value
};

/// Writes one value; creates file and section as needed. Throws RuntimeError (File).
void WriteIni(const DataFiles& files, const QString& section, const QString& key,
    const QString& value, const QString& name);

/// Writes several values of one section, in this order and in one rewrite of the file, so that a
/// crash never leaves half of them. A file that holds them already is not rewritten. Throws
/// RuntimeError (File).
void WriteIniValues(const DataFiles& files, const QString& section,
    const QVector<IniEntry>& entries, const QString& name);
