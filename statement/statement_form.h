// The tab "Druckvorlagen": the preview of the bills and its paging; printing is print_frame_form.
#pragma once

class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;
class QWidget;
struct Program;

struct StatementForm {
    QWidget* P1 = nullptr; ///< viewport that shows one page surface
    QWidget* P2 = nullptr; ///< the shown page surface, named P2(index)
    QWidget* Desk = nullptr; ///< the grey ground on which the page lies
    QScrollBar* VScroll1 = nullptr;
    int Zoom = 100; ///< percent, 50 to 300: the size of the picture alone
    int LeftOut = 0; ///< pixels of a larger page that lie left of the viewport
    QLineEdit* Text7 = nullptr; ///< "Angezeigte Seite"
    QLineEdit* Text9 = nullptr; ///< "Gesamtseitenzahl"
    QLabel* UnfinishedLine = nullptr; ///< says that amounts are missing on the shown page
    QPushButton* Command9Next = nullptr; ///< Command9(0)
    QPushButton* Command9Previous = nullptr; ///< Command9(1)
};

void BuildStatementTab(Program& program, QWidget* tab);

/// One page per member, page 1 shown, page fields set; draws all pages.
void RebuildStatementPages(Program& program);

/// Clears the totals list and redraws every page from the member lists and settings in memory.
/// Errors of bad records or numbers are reported here and callers go on: one new member never
/// leaves the year half loaded.
void DrawStatementPages(Program& program);

/// Text9 and Text8(1) show the number of members.
void SetPageFields(Program& program);

/// Scroll bar and page fit the sizes of viewport and page surface.
void FitPreview(Program& program);

void NextPage(Program& program); ///< Command9(0)
void PreviousPage(Program& program); ///< Command9(1)

void FocusPage(const Program& program); ///< Ctrl+2: the shown page

/// The shown page is painted again, with what is added to the pages by then.
void RepaintPage(const Program& program);
