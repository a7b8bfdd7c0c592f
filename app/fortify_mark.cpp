// A mark in the built program for scripts/check-hardening: the level at which the C library's
// checked calls are really switched on (they need optimisation as well as the flag). The calls
// themselves cannot be counted: Qt makes most of them.
#include <features.h>

#ifdef __USE_FORTIFY_LEVEL
constexpr char Level = '0' + __USE_FORTIFY_LEVEL;
#else
constexpr char Level = '0';
#endif

extern const char ParzelloFortifyMark[];
[[gnu::used]] const char ParzelloFortifyMark[]
    = { 'f', 'o', 'r', 't', 'i', 'f', 'y', ' ', 'l', 'e', 'v', 'e', 'l', ' ', Level, '\0' };
