// The window of every report: a text with links, "Drucken", "Als PDF", "Schließen". What stands in
// it is made anew whenever it is looked at; nothing is kept but what the reader chose.
#pragma once

#include "report/report.h"
#include "report/report_choices.h"

#include <QString>

#include <functional>
#include <map>

class QLineEdit;
class QPrinter;
class QTextBrowser;
class QWidget;
struct Program;

struct ReportKind {
    QString Name; ///< tells the kinds apart ("Check"); one window each
    QString Caption; ///< what a screen reader calls the text ("Prüfbericht")
    std::function<Report(Program&, const ReportChoices&)> Make; ///< the report as it is now
    std::function<void(Program&, const QString& action)>
        Act; ///< carries out the report's own links; may be missing
    int Characters = 95; ///< width of the window when it opens, as far as the screen goes
};

/// A window that was opened; it is hidden while it is closed.
struct OpenedReport {
    QWidget* Window = nullptr; ///< object name "ReportWindow"
    QTextBrowser* Text = nullptr; ///< "ReportText"
    QLineEdit* Search = nullptr; ///< "ReportSearch", shown by Ctrl+F
    ReportKind Kind;
    ReportChoices Choices;
    QString Shown; ///< the HTML in the text, so that what did not change does not jump
};

struct ReportWindows {
    std::map<QString, OpenedReport> Opened; ///< by the name of the kind
    int Postponed = 0; ///< above 0: redraws are told when the running sequence ends
    bool RedrawMissed = false; ///< a redraw was not told yet

    /// Lets the user set up the printer; false ends the printing. Tests put a printer file here.
    std::function<bool(QPrinter&)> ShowPrintDialog;
    /// The path of the PDF; empty: none. The suggestion is a file name.
    std::function<QString(const QString& suggestion)> AskPdfPath;
    /// Called after each redraw of the bills, besides the windows.
    std::function<void(Program&)> AfterRedraw;
};

/// Opens the window of that kind, or brings the opened one to the front.
void ShowReport(Program& program, const ReportKind& kind);

/// The opened window of that kind, null when there was none yet. It may be hidden.
OpenedReport* OpenedReportOf(Program& program, const QString& kind);

/// Makes every visible report anew.
void RefreshReports(Program& program);

/// The bills were drawn again: visible reports are made anew, unless that is postponed.
void TellRedraw(Program& program);

/// While it lives, redraws are not told; the end of the outermost one tells them once. For
/// sequences that draw several times and are only done with the last step.
class RedrawsPostponed {
public:
    explicit RedrawsPostponed(Program& program);
    ~RedrawsPostponed();
    RedrawsPostponed(const RedrawsPostponed&) = delete;
    RedrawsPostponed& operator=(const RedrawsPostponed&) = delete;

private:
    Program& m_program;
};
