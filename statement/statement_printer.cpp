#include "statement/statement_printer.h"

#include "data/runtime_error.h"
#include "statement/page_player.h"
#include "statement/statement_pages.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <QProgressDialog>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int dots_per_inch = 300;
constexpr double himetric_per_inch = 2540.0;
constexpr double page_dots_per_inch = 96.0;
constexpr int dot_mode = 3; // scale mode of the printer: dots
constexpr qsizetype long_run = 50; // pages; shorter runs take less than a second

/// The user does not want the remaining pages.
struct PrintCancelled { };

/// The progress box of a long run.
class Progress {
public:
    Progress(const PrintJob& job, QWidget* window)
        : m_box({}, u"Abbrechen"_s, 0, static_cast<int>(job.last - job.first + 1), window)
        , m_first(job.first)
    {
        const bool shown = m_box.maximum() >= long_run;
        m_box.setObjectName(u"PrintProgress"_s);
        m_box.setWindowTitle(u"Drucken"_s);
        m_box.setWindowModality(Qt::WindowModal);
        m_box.setMinimumDuration(shown ? 0 : std::numeric_limits<int>::max());
        m_box.setAutoReset(false); // stays until the last page is finished
        m_box.setAutoClose(false);
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~Progress() { QGuiApplication::restoreOverrideCursor(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(qsizetype page)
    {
        const int number = static_cast<int>(page - m_first) + 1;
        m_box.setLabelText(Label(number));
        m_box.setValue(number); // lets the button "Abbrechen" be pressed
    }

    bool Cancelled() const { return m_box.wasCanceled(); }

private:
    QString Label(int number) const
    {
        return u"Seite %1 von %2 wird gedruckt …"_s.arg(number).arg(m_box.maximum());
    }

    QProgressDialog m_box;
    qsizetype m_first;
};

struct Run {
    QPrinter& printer;
    const StatementState& statement;
    Progress progress;
    QPainter painter {};
};

double Convert(const QPrinter& printer, double length, int from_mode, int to_mode)
{
    const double inches
        = length / (from_mode == HimetricMode ? himetric_per_inch : printer.resolution());
    return inches * (to_mode == HimetricMode ? himetric_per_inch : printer.resolution());
}

void PaintPage(Run& run, qsizetype index, double left, double top, double width, double height)
{
    if (!run.painter.isActive() && !run.painter.begin(&run.printer))
        throw RuntimeError { ErrorKind::File, {}, {} };
    run.progress.Show(index);
    const PageContents contents = ContentsOfPage(run.statement, index);
    run.painter.save();
    run.painter.translate(left, top);
    run.painter.setClipRect(QRectF(0, 0, width, height)); // a page ends at its edge
    for (const PageItems* items : { contents.fixed, &contents.member }) {
        if (items != nullptr)
            PlayPage(run.painter, *items, width / PageWidth);
    }
    run.painter.restore();
}

void BeginSheet(Run& run)
{
    if (run.progress.Cancelled())
        throw PrintCancelled {};
    if (!run.painter.isActive() && !run.painter.begin(&run.printer))
        throw RuntimeError { ErrorKind::File, {}, {} };
    if (!run.printer.newPage())
        throw RuntimeError { ErrorKind::File, {}, {} };
}

PrintDevice DeviceOf(Run& run)
{
    PrintDevice device;
    QPrinter& printer = run.printer;
    const auto convert = [&printer](double length, int from_mode, int to_mode) {
        return Convert(printer, length, from_mode, to_mode);
    };
    device.SetOrientation = [&printer](int orientation) {
        printer.setPageOrientation(
            orientation == 2 ? QPageLayout::Landscape : QPageLayout::Portrait);
    };
    device.ScaleWidth = [&printer] { return printer.pageRect(QPrinter::DevicePixel).width(); };
    device.ScaleHeight = [&printer] { return printer.pageRect(QPrinter::DevicePixel).height(); };
    device.ScaleMode = [] { return dot_mode; };
    device.ScaleX = convert;
    device.ScaleY = convert;
    device.PaintPicture = [&run](qsizetype index, double left, double top, double width,
                              double height) { PaintPage(run, index, left, top, width, height); };
    device.NewPage = [&run] { BeginSheet(run); };
    device.EndDoc = [&run] { run.painter.end(); };
    return device;
}

} // namespace

void SetUpPrinter(QPrinter& printer)
{
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setResolution(dots_per_inch);
    const QPageLayout layout = printer.pageLayout();
    printer.setPageMargins(layout.minimumMargins(), layout.units());
}

PrintJob JobFor(const StatementState& statement, const PageRange& range)
{
    PrintJob job;
    job.picture = PictureSize { PageWidth * himetric_per_inch / page_dots_per_inch,
        PageHeight * himetric_per_inch / page_dots_per_inch };
    job.surfaces = PageCount(statement);
    job.page_selection = statement.PageSelection;
    job.first = range.first;
    job.last = range.last;
    return job;
}

void PrintStatementPages(
    QPrinter& printer, const StatementState& statement, const PrintJob& job, QWidget* window)
{
    Run run { printer, statement, Progress(job, window) };
    try {
        PrintPictureToPage(DeviceOf(run), job);
    } catch (const PrintCancelled&) {
        // The user ended the run; the painter ends the document behind the last whole page.
    } catch (const RuntimeError&) {
        // The run ends without a word, as it does when the dialog is cancelled.
    }
}
