#include "data/ansi_text.h"

QString DecodeAnsi(const QByteArray& bytes) { return QString::fromLatin1(bytes); }
QByteArray EncodeAnsi(const QString& text) { return text.toLatin1(); }
QString AsStored(const QString& text) { return text; }
