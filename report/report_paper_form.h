// Reports on paper: A4, at the foot of every page the club, the page number and the date.
#pragma once

#include "report/report.h"
#include "report/report_choices.h"

#include <QString>

class QPrinter;

/// What stands below a printed page beside its number, or above it (Report::edge).
struct PaperFoot {
    QString club;
    QString date;
};

/// Prints the report on that printer (A4 as the report lies, margins of 15 mm). Throws RuntimeError
/// (File) when the printer cannot begin.
void PrintReport(
    QPrinter& printer, const Report& report, const ReportChoices& choices, const PaperFoot& foot);

/// "Prüfbericht 2026 – Kleingarten Parzello" gives "Prüfbericht 2026.pdf": the title up to the
/// dash, what no file name may hold replaced by "-".
QString PdfNameOf(const QString& title);
