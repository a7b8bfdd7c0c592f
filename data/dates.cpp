#include "data/dates.h"

QString ShortDate(const QDate& date) { return date.toString(QStringLiteral("dd.MM.yyyy")); }
std::optional<QDate> ParseDate(const QString&) { return std::nullopt; }
QString FormatDateText(const QString& text) { return text; }
bool IsWellFormedDate(const QString&) { return true; }
QString PreviousYear(const QString& year_text) { return QString::number(year_text.toInt() - 1); }
QString NextYear(const QString& year_text) { return QString::number(year_text.toInt() + 1); }
