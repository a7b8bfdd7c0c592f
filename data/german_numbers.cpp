#include "data/german_numbers.h"

ParsedDouble ParseDouble(const QString&) { return {}; }
ParsedSingle ParseSingle(const QString&) { return {}; }
bool IsNumber(const QString&) { return false; }
double NumberOf(const QString&, const Place&) { return 0; }
float SingleOf(const QString&, const Place&) { return 0; }
double AmountOf(const QString&, const Place&) { return 0; }
ParsedSingle ParseTextOfSingle(const QString&) { return {}; }
QString TextOfDouble(double) { return {}; }
QString TextOfSingle(float) { return {}; }
double RoundTo(double value, int) { return value; }
QString FormatNumber(double, const QString&) { return {}; }
QString FormatNumber(float, const QString&) { return {}; }
QString FormatText(const QString& text, const QString&) { return text; }
