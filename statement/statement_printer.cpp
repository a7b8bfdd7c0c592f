#include "statement/statement_printer.h"

#include "data/runtime_error.h"
#include "statement/page_player.h"
#include "statement/print_file.h"
#include "statement/reading_order.h"
#include "statement/statement_pages.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QProgressDialog>
#include <QTemporaryDir>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int dots_per_inch = 300;
constexpr double himetric_per_inch = 2540.0;
constexpr double page_dots_per_inch = 96.0;
constexpr int dot_mode = 3; // scale mode of the printer: dots

/// The user does not want the pages after all.
struct PrintCancelled { };

/// What the box of a run says and whether it offers to stop.
struct ProgressWords {
    QString Label; ///< %1 is the sheet, %2 their number
    QString CancelButton; ///< empty: too late to stop
};

/// The progress box of a long run.
class Progress {
public:
    Progress(const PrintJob& job, const ProgressWords& words, QWidget* window)
        : m_box({}, words.CancelButton, 0, static_cast<int>(job.last - job.first + 1), window)
        , m_label(words.Label)
    {
        const bool shown = m_box.maximum() >= LongRun;
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

    void ShowNextSheet()
    {
        ++m_sheet;
        m_box.setLabelText(m_label.arg(m_sheet).arg(m_box.maximum()));
        m_box.setValue(m_sheet); // lets the button "Abbrechen" be pressed
    }

    bool Cancelled() const { return m_box.wasCanceled(); }

private:
    QProgressDialog m_box;
    QString m_label;
    int m_sheet = 0;
};

struct Run {
    QPagedPaintDevice& printer; ///< a real one, or a file's
    int resolution; ///< dots per inch
    const StatementState& statement;
    Progress progress;
    QPainter painter {};
};

double Convert(int resolution, double length, int from_mode, int to_mode)
{
    const double inches = length / (from_mode == HimetricMode ? himetric_per_inch : resolution);
    return inches * (to_mode == HimetricMode ? himetric_per_inch : resolution);
}

QRect PrintableDots(const Run& run)
{
    return run.printer.pageLayout().paintRectPixels(run.resolution);
}

void PaintPage(Run& run, qsizetype index, double left, double top, double width, double height)
{
    if (!run.painter.isActive() && !run.painter.begin(&run.printer))
        throw RuntimeError { ErrorKind::File, {}, {} };
    run.progress.ShowNextSheet();
    const PageContents contents = ContentsOfPage(run.statement, index);
    run.painter.save();
    run.painter.translate(left, top);
    run.painter.setClipRect(QRectF(0, 0, width, height)); // a page ends at its edge
    PlayPage(run.painter, InReadingOrder(contents.fixed, contents.member), width / PageWidth);
    run.painter.restore();
}

void RequireNotCancelled(const Run& run)
{
    if (run.progress.Cancelled())
        throw PrintCancelled {};
}

void EndDocument(Run& run)
{
    RequireNotCancelled(run); // on the last page
    if (run.painter.isActive() && !run.painter.end())
        throw RuntimeError { ErrorKind::File, {}, {} };
}

void BeginSheet(Run& run)
{
    RequireNotCancelled(run);
    if (!run.painter.isActive() && !run.painter.begin(&run.printer))
        throw RuntimeError { ErrorKind::File, {}, {} };
    if (!run.printer.newPage())
        throw RuntimeError { ErrorKind::File, {}, {} };
}

PrintDevice DeviceOf(Run& run)
{
    PrintDevice device;
    const auto convert = [&run](double length, int from_mode, int to_mode) {
        return Convert(run.resolution, length, from_mode, to_mode);
    };
    device.SetOrientation = [&run](int orientation) {
        run.printer.setPageOrientation(
            orientation == 2 ? QPageLayout::Landscape : QPageLayout::Portrait);
    };
    device.ScaleWidth = [&run] { return PrintableDots(run).width(); };
    device.ScaleHeight = [&run] { return PrintableDots(run).height(); };
    device.ScaleMode = [] { return dot_mode; };
    device.ScaleX = convert;
    device.ScaleY = convert;
    device.PaintPicture = [&run](qsizetype index, double left, double top, double width,
                              double height) { PaintPage(run, index, left, top, width, height); };
    device.NewPage = [&run] { BeginSheet(run); };
    device.EndDoc = [&run] { EndDocument(run); };
    return device;
}

/// True when the last sheet was painted. A run that is cancelled or fails ends without a word, as
/// it does when the dialog is cancelled.
bool PaintAllSheets(QPagedPaintDevice& printer, const StatementState& statement,
    const PrintJob& job, const ProgressWords& words, QWidget* window)
{
    Run run { printer, printer.logicalDpiX(), statement, Progress(job, words, window) };
    try {
        PrintPictureToPage(DeviceOf(run), job);
        return true;
    } catch (const PrintCancelled&) {
        return false;
    } catch (const RuntimeError&) {
        return false;
    }
}

const ProgressWords printing { u"Seite %1 von %2 wird gedruckt …"_s, u"Abbrechen"_s };
const ProgressWords making_file { u"Seite %1 von %2 …"_s, u"Abbrechen"_s };
const ProgressWords preparing { u"Seite %1 von %2 wird vorbereitet …"_s, u"Abbrechen"_s };
const ProgressWords sending { u"Seite %1 von %2 geht an den Drucker …"_s, {} };

bool PrintIntoFile(
    QPrinter& printer, const StatementState& statement, const PrintJob& job, QWidget* window)
{
    const QString target = printer.outputFileName();
    const QString unfinished = UnfinishedPrintFile(target);
    printer.setOutputFileName(unfinished);
    if (PaintAllSheets(printer, statement, job, printing, window))
        return FinishPrintFile(unfinished, target);
    DropPrintFile(unfinished);
    return false;
}

/// What a printer was given cannot be taken back, so the run is painted once for nothing: only when
/// all sheets were good and wanted do they go to the printer.
bool PrintOnPaper(
    QPrinter& printer, const StatementState& statement, const PrintJob& job, QWidget* window)
{
    const QTemporaryDir folder;
    QPrinter rehearsal(QPrinter::HighResolution);
    rehearsal.setOutputFormat(QPrinter::PdfFormat);
    rehearsal.setOutputFileName(folder.filePath(u"bills.pdf"_s));
    SetUpPrinter(rehearsal);
    return PaintAllSheets(rehearsal, statement, job, preparing, window)
        && PaintAllSheets(printer, statement, job, sending, window);
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

QByteArray PdfOfPages(const StatementState& statement, const PageRange& range, QWidget* window)
{
    QByteArray content;
    QBuffer buffer(&content);
    QPdfWriter writer(&buffer);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
    writer.setResolution(dots_per_inch);
    writer.setTitle(TitleOfPages(statement));
    writer.setCreator(u"Kleingarten Parzello"_s);
    buffer.open(QIODevice::WriteOnly);
    if (!PaintAllSheets(writer, statement, JobFor(statement, range), making_file, window))
        return {};
    return content;
}

bool PrintStatementPages(
    QPrinter& printer, const StatementState& statement, const PrintJob& job, QWidget* window)
{
    return printer.outputFileName().isEmpty() ? PrintOnPaper(printer, statement, job, window)
                                              : PrintIntoFile(printer, statement, job, window);
}
