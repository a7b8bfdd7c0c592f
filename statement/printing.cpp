#include "statement/printing.h"

#include "data/german_numbers.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

constexpr int portrait = 1;
constexpr int landscape = 2;

struct PrintedSize {
    double width = 0.0;
    double height = 0.0;
};

QList<double> Flags(const QString& page_selection)
{
    QList<double> flags;
    if (page_selection.isEmpty())
        return flags;
    for (const QString& text : page_selection.split(QLatin1Char(';'))) {
        const double flag = NumberOf(text, {});
        if (flag != std::floor(flag))
            throw RuntimeError { ErrorKind::TypeMismatch, {}, {} };
        flags += flag;
    }
    return flags;
}

/// The largest size of the picture's shape within the printable area, in the printer's scale mode,
/// cut to whole numbers.
PrintedSize Fit(const PrintDevice& printer, const PictureSize& picture, double scale_factor)
{
    const int mode = printer.ScaleMode();
    const double picture_ratio = picture.width / picture.height;
    const double width = printer.ScaleX(printer.ScaleWidth(), mode, HimetricMode) * scale_factor;
    const double height = printer.ScaleY(printer.ScaleHeight(), mode, HimetricMode) * scale_factor;
    PrintedSize size;
    if (picture_ratio >= width / height) {
        size.width = printer.ScaleX(width, HimetricMode, mode);
        size.height = printer.ScaleY(width / picture_ratio, HimetricMode, mode);
    } else {
        size.height = printer.ScaleY(height, HimetricMode, mode);
        size.width = printer.ScaleX(height * picture_ratio, HimetricMode, mode);
    }
    return { std::floor(size.width), std::floor(size.height) };
}

/// A whole page number between 1 and pages, as index from 0.
std::optional<qsizetype> PageIndex(const QString& text, qsizetype pages)
{
    const ParsedDouble number = ParseDouble(text);
    if (number.outcome != NumberOutcome::Ok || number.value != std::floor(number.value))
        return std::nullopt;
    if (number.value < 1 || number.value > static_cast<double>(pages))
        return std::nullopt;
    return static_cast<qsizetype>(number.value) - 1;
}

} // namespace

void PrintPictureToPage(const PrintDevice& printer, const PrintJob& job)
{
    const QList<double> flags = Flags(job.page_selection);
    if (!job.picture || job.picture->width == 0 || job.picture->height == 0)
        return;
    printer.SetOrientation(job.picture->width / job.picture->height >= 1 ? landscape : portrait);
    const PrintedSize size
        = Fit(printer, *job.picture, std::min(job.scale_factor.value_or(1.0), 1.0));
    if (!job.surfaces) {
        printer.PaintPicture(-1, job.left, job.top, size.width, size.height);
        printer.EndDoc();
        return;
    }
    for (qsizetype i = job.first; i <= job.last; ++i) {
        const qsizetype k = job.last_page_first ? job.last - (i - job.first) : i;
        if (k < 0 || k >= *job.surfaces)
            throw RuntimeError { ErrorKind::SubscriptOutOfRange, {}, {} };
        if (flags.value(k, 1.0) != 0)
            printer.PaintPicture(k, job.left, job.top, size.width, size.height);
        if (i != job.last)
            printer.NewPage();
    }
    printer.EndDoc();
}

std::optional<PageRange> RangeToPrint(const QString& from, const QString& to, qsizetype pages)
{
    const std::optional<qsizetype> first = PageIndex(from, pages);
    const std::optional<qsizetype> last = PageIndex(to, pages);
    if (!first || !last || *first > *last)
        return std::nullopt;
    return PageRange { *first, *last };
}
