// The code that a bank's program reads from a bill: what it says (EPC069-12, version 2) and its
// squares.
#pragma once

#include "money/cents.h"
#include "statement/page.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// A transfer to the club.
struct BankTransfer {
    QString Payee; ///< as typed
    QString Iban; ///< as typed
    std::optional<Cents> Amount; ///< nothing: the bill was not drawn
    QString Purpose; ///< PurposeText (money/purpose_text.h)
};

/// Why there is no code, as a sentence; empty when there is one.
QString NoCodeReason(const BankTransfer& transfer);

/// Eleven lines joined by LF, UTF-8, at most 331 bytes: a purpose that is too long loses characters
/// from its end. Only for a transfer without a NoCodeReason.
QByteArray TransferPayload(const BankTransfer& transfer);

/// The squares of a code, row by row; true is black.
struct CodeSquares {
    int Side = 0; ///< modules a side: 17 + 4 × version
    std::vector<bool> Black; ///< Side × Side of them
};

/// Row and column begin at 0, in the upper left corner.
bool IsBlack(const CodeSquares& squares, int row, int column);

/// Level M, 8-bit mode, the smallest version that holds the bytes, at most 13. Throws RuntimeError
/// Overflow for more than 331 bytes.
CodeSquares SquaresOf(const QByteArray& payload);

/// The page items of the code: "Zahlen mit Code" and a filled rectangle for each run of black
/// squares in a row, two page pixels a square, right edge 620, lower edge 250.
PageItems CodeItems(const CodeSquares& squares);

/// The rectangle that must stay free of everything else: quiet zone and text.
PageBox CodeSpace(int side);
