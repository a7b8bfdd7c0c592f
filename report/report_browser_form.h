// The text of a report as a control: what is copied from its tables lands in a spreadsheet as
// cells.
#pragma once

#include <QTextBrowser>

class ReportBrowser : public QTextBrowser {
public:
    explicit ReportBrowser(QWidget* parent);

protected:
    /// As HTML, and as text: a line for each row, its cells separated by tabs.
    QMimeData* createMimeDataFromSelection() const override;
};

class QTextCursor;

/// The selected text; the cells of a row are separated by tabs, rows and paragraphs by line breaks.
QString TextOfSelection(const QTextCursor& selection);
