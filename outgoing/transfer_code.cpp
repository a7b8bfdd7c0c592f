#include "outgoing/transfer_code.h"

#include "data/runtime_error.h"
#include "money/purpose_text.h"
#include "settings/iban.h"

#include <qrencode.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype most_bytes = 331;
constexpr qsizetype longest_payee = 70;
constexpr Cents largest_transfer = 99'999'999'999; // 999.999.999,99 €
constexpr int largest_version = 13;
constexpr int square_size = 2; // page pixels; one cannot be read from paper
constexpr int right_edge = 620;
constexpr int lower_edge = 250;
constexpr int quiet = 8; // page pixels: four squares
constexpr int text_above = 22; // page pixels from the text's top to the code's

QString AmountLine(Cents cents)
{
    return u"EUR%1.%2"_s.arg(cents / 100).arg(cents % 100, 2, 10, QLatin1Char('0'));
}

QByteArray Joined(const BankTransfer& transfer, const QString& purpose)
{
    const QStringList lines { u"BCD"_s, u"002"_s, u"1"_s, u"SCT"_s, {},
        TransferText(transfer.Payee, longest_payee), CompactIban(transfer.Iban),
        AmountLine(*transfer.Amount), {}, {}, purpose };
    return lines.join(u'\n').toUtf8();
}

PageFill Run(int side, int row, int first, int last)
{
    const int left = right_edge - square_size * side;
    const int top = lower_edge - square_size * side;
    return { left + square_size * first, top + square_size * row, square_size * (last - first + 1),
        square_size };
}

} // namespace

QString NoCodeReason(const BankTransfer& transfer)
{
    if (!IsIban(transfer.Iban))
        return u"Die IBAN besteht ihre Prüfung nicht."_s;
    if (TransferText(transfer.Payee, longest_payee).isEmpty())
        return u"Der Kontoinhaber fehlt."_s;
    if (!transfer.Amount)
        return u"Für dieses Mitglied ist keine Rechnung da."_s;
    if (*transfer.Amount <= 0)
        return u"Es ist nichts zu zahlen."_s;
    if (*transfer.Amount > largest_transfer)
        return u"Der Betrag ist zu groß für einen Code."_s;
    return {};
}

QByteArray TransferPayload(const BankTransfer& transfer)
{
    QString purpose = transfer.Purpose;
    QByteArray payload = Joined(transfer, purpose);
    while (payload.size() > most_bytes && !purpose.isEmpty()) {
        purpose.chop(1);
        payload = Joined(transfer, purpose);
    }
    while (purpose.endsWith(u' ')) {
        purpose.chop(1);
        payload = Joined(transfer, purpose);
    }
    return payload;
}

CodeSquares SquaresOf(const QByteArray& payload)
{
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
        QRcode_encodeData(static_cast<int>(payload.size()),
            reinterpret_cast<const unsigned char*>(payload.constData()), 0, QR_ECLEVEL_M),
        QRcode_free);
    if (!code || code->version > largest_version)
        throw RuntimeError { ErrorKind::Overflow, {}, {} };
    CodeSquares squares { code->width, {} };
    const auto count
        = static_cast<std::size_t>(code->width) * static_cast<std::size_t>(code->width);
    squares.Black.reserve(count);
    for (std::size_t place = 0; place < count; ++place)
        squares.Black.push_back((code->data[place] & 1U) != 0);
    return squares;
}

bool IsBlack(const CodeSquares& squares, int row, int column)
{
    const auto side = static_cast<std::size_t>(squares.Side);
    return squares.Black.at(
        static_cast<std::size_t>(row) * side + static_cast<std::size_t>(column));
}

PageItems CodeItems(const CodeSquares& squares)
{
    PageItems items;
    const int side = squares.Side;
    AddRightAligned(items, u"code_caption"_s, right_edge,
        lower_edge - square_size * side - text_above, u"Zahlen mit Code"_s);
    for (int row = 0; row < side; ++row) {
        int first = -1;
        for (int column = 0; column <= side; ++column) {
            const bool black = column < side && IsBlack(squares, row, column);
            if (black && first < 0)
                first = column;
            if (!black && first >= 0) {
                items.emplace_back(Run(side, row, first, column - 1));
                first = -1;
            }
        }
    }
    return items;
}

PageBox CodeSpace(int side)
{
    const int left = right_edge - square_size * side;
    const int top = lower_edge - square_size * side;
    return { left - quiet, top - text_above, right_edge + quiet, lower_edge + quiet };
}
