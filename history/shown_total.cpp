#include "history/shown_total.h"

#include "data/german_numbers.h"

using namespace Qt::StringLiterals;

QString ShownTotal(const QString& text_of_single)
{
    return text_of_single.isEmpty()
        ? QString()
        : FormatNumber(ParseTextOfSingle(text_of_single).value, u"0.00"_s);
}
