// The dialog "Abrechnungen als PDF": a file for each member, one for all, or the shown page.
#pragma once

#include <QString>

#include <functional>

class QWidget;
struct Program;

/// What the dialog asks of the desktop; tests put their own in.
struct BillsAsPdfSeams {
    /// A folder chosen by the user, beginning with the given one; empty: none.
    std::function<QString(QWidget* parent, const QString& folder)> ChooseFolder;
    std::function<void(const QString& folder)> OpenFolder;
};

/// The folder that the dialog proposes: the user's documents, then "Abrechnungen" and the year.
QString ProposedBillsFolder(const QString& year_text);

/// Opens the dialog `BillsAsPdf` over the window.
void ShowBillsAsPdf(Program& program);
