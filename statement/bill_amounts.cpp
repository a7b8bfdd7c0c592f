#include "statement/bill_amounts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int address_left = 60;
constexpr int address_top = 180;
constexpr int address_line_height = 20;

/// Where a row stands on the page and what its elements are called there.
struct RowPlace {
    QString name;
    int top;
    int amount_edge = AmountEdge;
};

const std::array<RowPlace, BillRowCount>& RowPlaces()
{
    static const std::array<RowPlace, BillRowCount> places { { { u"row_1"_s, Row1 },
        { u"row_2"_s, Row2 }, { u"row_3"_s, Row3 }, { u"row_4"_s, Row4 }, { u"row_5"_s, Row5 },
        { u"row_6"_s, Row6 }, { u"row_7"_s, Row7, WaterPrepaymentEdge }, { u"row_8"_s, Row8 },
        { u"row_9"_s, Row9 }, { u"row_10"_s, Row10 }, { u"row_11"_s, Row11 },
        { u"row_12"_s, Row12 }, { u"row_13"_s, Row13 }, { u"row_14"_s, Row14 },
        { u"row_15"_s, Row15 }, { u"row_16"_s, Row16 }, { u"row_16b"_s, Row16b },
        { u"row_17"_s, Row17 } } };
    return places;
}

void DrawAddress(PageItems& page, const QStringList& lines)
{
    const QString elements[] { u"address_name"_s, u"address_street"_s, u"address_town"_s };
    for (qsizetype i = 0; i < lines.size(); ++i)
        AddText(page, elements[i], address_left,
            address_top + static_cast<int>(i) * address_line_height, lines[i]);
}

void DrawRow(PageItems& page, BillRow number, const StatementRow& row)
{
    const RowPlace& place = RowPlaces()[number];
    if (row.quantity)
        AddRightAligned(page, place.name + u"_quantity"_s, QuantityEdge, place.top, *row.quantity);
    if (row.amount)
        AddRightAligned(page, place.name + u"_amount"_s, place.amount_edge, place.top,
            AmountText(number, *row.amount));
    if (row.subtotal)
        AddRightAligned(page, place.name + u"_subtotal"_s, SubtotalEdge, place.top,
            SubtotalText(*row.subtotal));
}

} // namespace

void DrawStatement(PageItems& page, const AnnualStatement& statement)
{
    DrawAddress(page, statement.address);
    for (std::size_t row = 0; row < BillRowCount; ++row)
        DrawRow(page, static_cast<BillRow>(row), statement.rows[row]);
    if (statement.total)
        AddRightAligned(
            page, u"row_18_total"_s, SubtotalEdge, Row18, GrandTotalText(*statement.total));
}

QString AmountText(BillRow row, double amount)
{
    const bool deduction = row == ElectricityPaidRow || row == WaterPaidRow;
    return FormatNumber(amount, deduction ? u"-0.00"_s : u"0.00"_s);
}

QString SubtotalText(double subtotal) { return FormatNumber(subtotal, u"0.00"_s); }

QString GrandTotalText(float total) { return FormatNumber(total, u"0.00  €"_s); }
