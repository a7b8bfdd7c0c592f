#include "report/report_form.h"

#include "app/follow_link.h"
#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/dates.h"
#include "report/report_browser_form.h"
#include "report/report_html.h"
#include "report/report_paper_form.h"
#include "statement/print_dialog.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLineEdit>
#include <QMainWindow>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStandardPaths>
#include <QTextBrowser>
#include <QTextCursor>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int first_height = 700; // pixels

Report MakeReport(Program& program, const OpenedReport& opened)
{
    Report report = opened.Kind.Make(program, opened.Choices);
    SortTables(report, opened.Choices);
    return report;
}

void Refresh(Program& program, OpenedReport& opened)
{
    const Report report = MakeReport(program, opened);
    opened.Window->setWindowTitle(report.title);
    const QString html = HtmlOfReport(report, opened.Choices, HtmlUse::Screen);
    if (html == opened.Shown)
        return;
    const int scrolled = opened.Text->verticalScrollBar()->value();
    opened.Text->setHtml(html);
    opened.Text->verticalScrollBar()->setValue(scrolled);
    opened.Shown = html;
}

// --- handlers ---------------------------------------------------------------------------------

void LinkFollowed(Program& program, OpenedReport& opened, const QUrl& url)
{
    const LinkTarget target = LinkTargetOf(url.path());
    if (target.kind != LinkKind::Action)
        return FollowLink(program, target);
    if (!TakeChoice(opened.Choices, target.control) && opened.Kind.Act)
        opened.Kind.Act(program, target.control);
    Refresh(program, opened);
}

void Print(Program& program, const OpenedReport& opened, QPrinter& printer)
{
    printer.setCreator(u"Kleingarten Parzello"_s);
    PrintReport(printer, MakeReport(program, opened), opened.Choices,
        { program.ClubName, ShortDate(program.Today()) });
}

void PrintClicked(Program& program, OpenedReport& opened) // ReportPrint
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(opened.Window->windowTitle());
    const auto& ask = program.Reports.ShowPrintDialog;
    if (ask ? ask(printer) : AskForPrinter(printer, opened.Window))
        Print(program, opened, printer);
}

QString AskForPdfPath(QWidget* window, const QString& suggestion)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileDialog::getSaveFileName(
        window, u"Als PDF"_s, folder + u'/' + suggestion, u"PDF (*.pdf)"_s);
}

void PdfClicked(Program& program, OpenedReport& opened) // ReportPdf
{
    const QString suggestion = PdfNameOf(opened.Window->windowTitle());
    const auto& ask = program.Reports.AskPdfPath;
    const QString path = ask ? ask(suggestion) : AskForPdfPath(opened.Window, suggestion);
    if (path.isEmpty())
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    Print(program, opened, printer);
}

/// Beyond the last place the search begins again at the first.
void FindNext(OpenedReport& opened)
{
    if (opened.Text->find(opened.Search->text()))
        return;
    opened.Text->moveCursor(QTextCursor::Start);
    opened.Text->find(opened.Search->text());
}

void FindFromStart(OpenedReport& opened)
{
    opened.Text->moveCursor(QTextCursor::Start);
    FindNext(opened);
}

void ShowSearch(OpenedReport& opened)
{
    opened.Search->show();
    opened.Search->setFocus();
    opened.Search->selectAll();
}

/// The first Escape leaves the search, the next one closes.
void EscapePressed(OpenedReport& opened)
{
    if (!opened.Search->hasFocus())
        return opened.Window->hide();
    opened.Search->hide();
    opened.Text->setFocus();
}

// --- building ---------------------------------------------------------------------------------

/// Connects a signal to a routine of that window, inside WithErrorBox.
template <typename Sender, typename Signal, typename Routine>
void OnReport(Program& program, const QString& kind, Sender* sender, Signal signal, Routine routine)
{
    On(program, sender, signal,
        [kind, routine](Program& p) { routine(p, p.Reports.Opened[kind]); });
}

QTextBrowser* BuildText(Program& program, QWidget* window, const ReportKind& kind)
{
    auto* text = Named<QTextBrowser>(new ReportBrowser(window), u"ReportText"_s);
    text->setAccessibleName(kind.Caption);
    text->setOpenLinks(false);
    On(program, text, &QTextBrowser::anchorClicked,
        [name = kind.Name](
            Program& p, const QUrl& url) { LinkFollowed(p, p.Reports.Opened[name], url); });
    return text;
}

QHBoxLayout* BuildButtons(Program& program, QWidget* window, const QString& kind)
{
    auto* print = Named(
        MakeButton(window, u"Drucken"_s, u"Druckt den Bericht (Strg+P)"_s), u"ReportPrint"_s);
    auto* pdf = Named(
        MakeButton(window, u"Als PDF"_s, u"Speichert den Bericht als PDF"_s), u"ReportPdf"_s);
    auto* close = Named(
        MakeButton(window, u"Schließen"_s, u"Schließt das Fenster (Esc)"_s), u"ReportClose"_s);
    OnReport(program, kind, print, &QPushButton::clicked, PrintClicked);
    OnReport(program, kind, pdf, &QPushButton::clicked, PdfClicked);
    On(program, close, &QPushButton::clicked, [window](Program&) { window->hide(); });
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addStretch();
    for (QPushButton* button : { print, pdf, close })
        row->addWidget(button);
    return row;
}

void BuildKeys(Program& program, QWidget* window, const QString& kind)
{
    const auto key = [&](const QKeySequence& keys, auto routine) {
        OnReport(program, kind, new QShortcut(keys, window), &QShortcut::activated, routine);
    };
    key(QKeySequence(Qt::Key_Escape), [](Program&, OpenedReport& o) { EscapePressed(o); });
    key(QKeySequence(u"Ctrl+P"_s), PrintClicked);
    key(QKeySequence(u"Ctrl+F"_s), [](Program&, OpenedReport& o) { ShowSearch(o); });
    key(QKeySequence(Qt::Key_F3), [](Program&, OpenedReport& o) { FindNext(o); });
}

QLineEdit* BuildSearch(Program& program, QWidget* window, const QString& kind)
{
    auto* search
        = Named(MakeField(window, FieldKind::Text, 20, u"Im Bericht suchen"_s), u"ReportSearch"_s);
    search->setPlaceholderText(u"Suchen …"_s);
    search->hide();
    OnReport(program, kind, search, &QLineEdit::textChanged,
        [](Program&, OpenedReport& o) { FindFromStart(o); });
    OnReport(program, kind, search, &QLineEdit::returnPressed,
        [](Program&, OpenedReport& o) { FindNext(o); });
    return search;
}

void BuildWindow(Program& program, const ReportKind& kind)
{
    auto* window = Named(new QWidget(program.Window.Window, Qt::Window), u"ReportWindow"_s);
    OpenedReport& opened = program.Reports.Opened[kind.Name];
    opened.Window = window;
    opened.Text = BuildText(program, window, kind);
    opened.Search = BuildSearch(program, window, kind.Name);
    auto* column = new QVBoxLayout(window);
    column->setSpacing(FrameSpacing);
    column->addWidget(opened.Text, 1);
    column->addWidget(opened.Search);
    column->addLayout(BuildButtons(program, window, kind.Name));
    BuildKeys(program, window, kind.Name);
    const int width = window->fontMetrics().averageCharWidth() * kind.Characters;
    window->resize(SizeOnScreen(window, QSize(width, first_height)));
    OnEvent(program, window, QEvent::WindowActivate, [name = kind.Name](Program& p, QEvent&) {
        Refresh(p, p.Reports.Opened[name]);
        return false;
    });
}

} // namespace

OpenedReport* OpenedReportOf(Program& program, const QString& kind)
{
    const auto found = program.Reports.Opened.find(kind);
    return found == program.Reports.Opened.end() ? nullptr : &found->second;
}

void ShowReport(Program& program, const ReportKind& kind)
{
    if (OpenedReportOf(program, kind.Name) == nullptr)
        BuildWindow(program, kind);
    OpenedReport& opened = program.Reports.Opened[kind.Name];
    opened.Kind = kind;
    Refresh(program, opened);
    opened.Window->show();
    opened.Window->raise();
    opened.Window->activateWindow();
    opened.Text->setFocus();
}

void RefreshReports(Program& program)
{
    for (auto& [name, opened] : program.Reports.Opened) {
        if (opened.Window->isVisible())
            Refresh(program, opened);
    }
}

void TellRedraw(Program& program)
{
    ReportWindows& reports = program.Reports;
    if (reports.Postponed > 0) {
        reports.RedrawMissed = true;
        return;
    }
    RefreshReports(program);
    if (reports.AfterRedraw)
        reports.AfterRedraw(program);
}

RedrawsPostponed::RedrawsPostponed(Program& program)
    : m_program(program)
{
    ++m_program.Reports.Postponed;
}

RedrawsPostponed::~RedrawsPostponed()
{
    ReportWindows& reports = m_program.Reports;
    --reports.Postponed;
    if (reports.Postponed == 0 && std::exchange(reports.RedrawMissed, false))
        WithErrorBox(m_program.Errors, m_program.Ask, [this] { TellRedraw(m_program); });
}
