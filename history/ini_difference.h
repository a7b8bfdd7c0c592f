// What became of the values of an INI file between two of its states.
#pragma once

#include "history/file_kinds.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

struct IniPlace {
    QString Section;
    QString Key;

    bool operator==(const IniPlace&) const = default;
};

/// All keys of the file with their sections, each once, in its order.
QList<IniPlace> PlacesOfIni(const QByteArray& ini);

/// The value there as the program reads it.
QString ValueOfIni(const QByteArray& ini, const IniPlace& place);

/// What the window calls the value: "Stromkosten 2026"; of the bank file "IBAN" for the key "BLZ".
QString IniCaption(FileKind kind, const IniPlace& place);

/// "Stromkosten 2026: 0,35 → 0,37" for each value that differs.
QStringList IniChanges(FileKind kind, const QByteArray& before, const QByteArray& after);
