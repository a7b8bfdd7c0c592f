// Texts and names made comparable: "Müller", "MUELLER" and "mueller" are the same then, "Muller" is
// another name. And what a whole word is in such a text.
#pragma once

#include <QString>
#include <QStringView>
#include <QVector>

/// Lower case; ä ö ü ß æ œ þ ð are ae oe ue ss ae oe th d, å ø are a o, every other letter loses
/// its mark; typographic apostrophes and dashes become ' and -, no-break blanks and tabs a blank.
QString Folded(const QString& text);

/// A folded text that still knows where it came from.
struct FoldedText {
    QString Text;
    QString Source; ///< what was folded, decomposed letters composed
    QVector<int> Origins; ///< for each character of Text its place in Source, and the length of
                          ///< Source behind the last one
};
FoldedText Fold(const QString& text);

/// The part of the source that became the characters [begin, end) of the folded text.
QStringView SourceOf(const FoldedText& folded, qsizetype begin, qsizetype end);

bool IsLetterOrDigit(QChar sign);

/// True when no letter or digit stands directly beside [begin, end) of a folded text, and no hyphen
/// or apostrophe with a letter on its far side: "lang" is one in "lang-2025" and "(lang)", not in
/// "lang-meier", "d'lang" and "lang2".
bool BeginsWord(QStringView folded, qsizetype begin);
bool EndsWord(QStringView folded, qsizetype end);
bool IsWholeWord(QStringView folded, qsizetype begin, qsizetype end);

/// A garden number as it is compared: folded, trimmed, without leading zeros ("007" is "7").
QString GardenKey(const QString& garden);

/// Trimmed, and runs of blanks (the no-break one and tabs too) become one blank.
QString WithSingleBlanks(const QString& text);
