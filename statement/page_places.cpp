#include "statement/page_places.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {

constexpr int line_height = 12; // of a text of size 8
constexpr int column_width = 80;
constexpr int address_width = 300;

bool Covers(const PageText& text, int x, int y)
{
    const int left = text.right_aligned ? text.x - column_width : text.x;
    const int right = text.right_aligned ? text.x : text.x + address_width;
    return x > left && x <= right && y >= text.y && y < text.y + line_height;
}

} // namespace

QString ElementAt(const PageItems& items, int x, int y)
{
    for (const PageItem& item : items) {
        const auto* text = std::get_if<PageText>(&item);
        if (text != nullptr && Covers(*text, x, y))
            return text->element;
    }
    return {};
}

QString ControlOfElement(const QString& element)
{
    static const QMap<QString, QString> controls { { u"address_name"_s, u"Text3(0)"_s },
        { u"address_street"_s, u"Text3(2)"_s }, { u"address_town"_s, u"Text3(3)"_s },
        { u"row_1_quantity"_s, u"Text1(1)"_s }, { u"row_1_amount"_s, u"Text1(1)"_s },
        { u"row_1_factor"_s, u"Text4(0)"_s }, { u"row_3_amount"_s, u"Text1(1)"_s },
        { u"row_4_amount"_s, u"Text4(2)"_s }, { u"row_6_quantity"_s, u"Text1(4)"_s },
        { u"row_6_amount"_s, u"Text1(4)"_s }, { u"row_6_factor"_s, u"Text4(1)"_s },
        { u"row_8_amount"_s, u"Text1(4)"_s }, { u"row_10_amount"_s, u"Text4(3)"_s },
        { u"row_11_quantity"_s, u"Text3(6)"_s }, { u"row_12_quantity"_s, u"Text3(6)"_s },
        { u"row_13_quantity"_s, u"Text3(6)"_s }, { u"row_11_factor"_s, u"Text4(4)"_s },
        { u"row_12_factor"_s, u"Text4(5)"_s }, { u"row_13_factor"_s, u"Text4(6)"_s },
        { u"row_11_amount"_s, u"Text4(4)"_s }, { u"row_12_amount"_s, u"Text4(5)"_s },
        { u"row_13_amount"_s, u"Text4(6)"_s }, { u"row_14_amount"_s, u"Text3(8)"_s },
        { u"row_15_amount"_s, u"Text3(9)"_s }, { u"row_16_amount"_s, u"Text3(10)"_s },
        { u"row_16b_amount"_s, u"Text3(11)"_s } };
    return controls.value(element);
}
