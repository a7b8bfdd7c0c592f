// Bytes of the files become text and text becomes bytes: code page 1252. The only place where that
// happens. Which letter stands in for one that the code page lacks: data/best_fit.h.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Every byte becomes one character; the five unassigned bytes become the control characters of the
/// same number, so that all 256 bytes survive DecodeAnsi and EncodeAnsi.
QString DecodeAnsi(QByteArrayView bytes);

/// Characters that the code page lacks become their best-fit letter ("Ł" becomes "L"), decomposed
/// letters are composed first; what has no likeness becomes "?".
QByteArray EncodeAnsi(const QString& text);

/// A typed or pasted text as it will be stored: line breaks (CR LF is one) and control characters a
/// blank each, everything else as EncodeAnsi and DecodeAnsi give it back. Applied to its own result
/// it changes nothing.
QString AsStored(const QString& text);
