#include "data/collation.h"

int CompareTexts(const QString& a, const QString& b) { return QString::compare(a, b); }
QByteArray CollationKey(const QString& text) { return text.toUtf8(); }
QStringList SortedTexts(const QStringList& texts) { return texts; }
