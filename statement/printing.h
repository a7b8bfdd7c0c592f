// Printing pictures: which pages, how large, in which order. The printer is a handful of functions,
// so that the rules can be tested without one; the real one is statement_printer.
#pragma once

#include <QString>

#include <functional>
#include <optional>

/// A printer as the print run sees it. Lengths are in the printer's own scale mode unless said.
struct PrintDevice {
    std::function<void(int orientation)> SetOrientation; ///< 1 portrait, 2 landscape
    std::function<double()> ScaleWidth; ///< width of the printable area
    std::function<double()> ScaleHeight;
    std::function<int()> ScaleMode;
    std::function<double(double length, int from_mode, int to_mode)> ScaleX; ///< across
    std::function<double(double length, int from_mode, int to_mode)> ScaleY; ///< along
    /// Draws the picture of surface index (-1: the single picture).
    std::function<void(qsizetype index, double left, double top, double width, double height)>
        PaintPicture;
    std::function<void()> NewPage;
    std::function<void()> EndDoc;
};

inline constexpr int HimetricMode = 8; ///< scale mode of 0.01 mm

/// Size of a picture in 0.01 mm.
struct PictureSize {
    double width = 0.0;
    double height = 0.0;
};

/// What is printed. Without surfaces the single picture is printed.
struct PrintJob {
    std::optional<PictureSize> picture;
    std::optional<qsizetype> surfaces; ///< number of page surfaces in the row
    QString page_selection; ///< whole numbers joined with ";", one per surface; 0 skips it
    std::optional<double> scale_factor; ///< 1 when not given, at most 1
    double left = 0.0;
    double top = 0.0;
    qsizetype first = 0; ///< index of the first surface
    qsizetype last = 0; ///< index of the last surface; before first: nothing is painted
    bool last_page_first = false; ///< from the last index back to the first
};

/// Prints each surface on a sheet of its own, as large as the printable area allows. A surface
/// without a flag in the selection is printed. Throws RuntimeError TypeMismatch for a flag that is
/// no whole number and SubscriptOutOfRange for an index beyond the row.
void PrintPictureToPage(const PrintDevice& printer, const PrintJob& job);

/// Indices from 0 of the first and last page.
struct PageRange {
    qsizetype first = 0;
    qsizetype last = 0;
};

/// The pages between two typed page numbers; nothing when one of them is no whole number, lies
/// outside 1 to pages, or from lies behind to.
std::optional<PageRange> RangeToPrint(const QString& from, const QString& to, qsizetype pages);
