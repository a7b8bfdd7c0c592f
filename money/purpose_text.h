// The text of a payment by which its bill and member are found again.
#pragma once

#include <QString>
#include <QStringList>

/// "Abrechnung 2026 Garten 7 Meier Anna": surname as stored; an empty garden is left out with its
/// word. Only the signs that a transfer carries (TransferText), at most 140.
QString PurposeText(const QString& year_text, const QStringList& member_fields);

/// The signs that every bank takes: letters, German ones too, digits, blanks and / - ? : ( ) . , '
/// + & * $ %. Other letters lose their mark, what is left becomes a blank; single blanks, trimmed,
/// cut at so many characters.
QString TransferText(const QString& text, qsizetype longest);
