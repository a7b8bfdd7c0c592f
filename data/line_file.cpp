#include "data/line_file.h"

QString PathOf(const DataFiles& files, const QString& name) { return files.DataDirectory + name; }
QString FileNameOf(const QString& name) { return name; }
bool FileExists(const DataFiles&, const QString&) { return false; }
QByteArray ReadBytes(const DataFiles&, const QString&) { return {}; }
QStringList ReadLines(const DataFiles&, const QString&) { return {}; }
QByteArray BytesOfLines(const QStringList&) { return {}; }
void RewriteFile(const DataFiles&, const QString&, const QByteArray&) { }
void RewriteLines(const DataFiles&, const QString&, const QStringList&) { }
void FinishRewrites(const DataFiles&) { }
