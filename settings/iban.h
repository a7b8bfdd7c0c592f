// Whether an account number can be right: its form and check digits (ISO 13616, ISO 7064).
#pragma once

#include <QString>

/// Without blanks (the no-break one too), letters made capital.
QString CompactIban(const QString& text);

/// True when the compact form has two letters, two digits and 11 to 30 letters or digits, 22
/// characters with digits alone behind the letters when it is German, and its remainder by 97 is 1.
bool IsIban(const QString& text);
