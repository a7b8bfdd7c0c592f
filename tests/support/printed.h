// What stands on a printed page: words with their places and pictures, read back from a PDF by the
// tools of poppler-utils.
#pragma once

#include <QImage>
#include <QString>
#include <QVector>

/// A word of a PDF; places in page pixels of the bill (649 across the sheet).
struct PrintedWord {
    int page = 0; ///< 0 is the first page
    QString text;
    double left = 0.0;
    double right = 0.0;
    double top = 0.0;
};

QVector<PrintedWord> WordsOfPdf(const QString& path);

/// The text of one page as a reader sees it, lines and columns kept.
QString TextOfPdfPage(const QString& path, int page);

int PagesOfPdf(const QString& path);

/// Title of the document: what a print queue shows.
QString TitleOfPdf(const QString& path);

/// Size of the first page as pdfinfo says it, e.g. "595 x 842 pts (A4)".
QString PageSizeOfPdf(const QString& path);

/// Dots per inch in which the first page was painted.
int DotsPerInchOfPdf(const QString& path);

/// A page as picture of that size; page 0 is the first.
QImage PictureOfPdf(const QString& path, int page, const QSize& size);

/// Share (0 to 1) of the dark pixels of a that have a dark pixel of b within so many pixels.
double InkCoveredBy(const QImage& a, const QImage& b, int distance);
