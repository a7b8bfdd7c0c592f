// A data directory and a state directory of their own, for tests of plain files.
#pragma once

#include "data/data_files.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

struct DataFolders {
    QTemporaryDir root;
    DataFiles files;

    DataFolders();

    /// Path of a file in the data directory.
    QString Path(const QString& name) const;

    /// Writes a file of the data directory past the program.
    void Put(const QString& name, const QByteArray& content) const;

    /// The content of a file of the data directory; "(none)" when there is none.
    QByteArray Get(const QString& name) const;

    /// Names in the data directory, sorted.
    QStringList Names() const;

    /// Names in the state directory besides the history, sorted; none when it is missing.
    QStringList StateNames() const;
};
