// The similar character of code page 1252 for a character that it lacks.
#pragma once

#include <QtGlobal>

/// The byte of the similar character ("Ł" gives 'L', a full-width "Ａ" gives 'A', "′" gives an
/// apostrophe); "?" when there is none. Only for characters that the code page lacks.
uchar BestFit(char16_t character);
