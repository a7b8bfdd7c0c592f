// A report as plain data: headings, sentences, tables and links. One routine makes HTML of it
// (report_html), one a text for tests (report_text), one puts it in the order that the reader chose
// (report_choices). No window in here; the window is report_form.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

/// Where a link leads. The control's object name says which tab comes to the front.
enum class LinkKind {
    None,
    Tab, ///< position is the tab, 0 to 3
    Control, ///< the control gets the focus
    Member, ///< position is the member, 0 the first; then the control, when one is named
    BankRow, ///< position is the row of the bank account, 0 the first; -1: the account alone
    CashBoxRow, ///< the same in the cash box
    BillPage, ///< position is the member whose bill is shown
    Action ///< something that the report itself does; control is its name
};

struct LinkTarget {
    LinkKind kind = LinkKind::None;
    QString control; ///< object name ("Text3(6)"), or the name of the action
    qsizetype position = -1;

    bool operator==(const LinkTarget&) const = default;
};

/// "Member/3/Text3(6)": the address of the link in the window.
QString LinkAddress(const LinkTarget& target);

/// The target of such an address; None for any other text.
LinkTarget LinkTargetOf(const QString& address);

enum class TextLook { Plain, Bold, Small };

/// A piece of a sentence; a link when it has a target.
struct ReportText {
    QString text;
    LinkTarget target = {};
    TextLook look = TextLook::Plain;
};

struct ReportHeading {
    QString text;
    int level = 1; ///< 1 the report's own, 2 a section, 3 an entry
};

/// How far a sentence stands in from the left.
enum class Indent { None, One, Two };

struct ReportSentence {
    std::vector<ReportText> texts;
    Indent indent = Indent::None;
};

enum class RowTint { None, Good, Attention, Bad, Calm };

/// Pale: the value is not the whole one. Warning: it is below zero.
enum class BarLook { Full, Pale, Warning };

struct ReportCell {
    ReportText text = {};
    Indent indent = Indent::None;
    std::optional<double> sort_value = {}; ///< what the column is sorted by; without it the text
    std::optional<double> bar = {}; ///< 0 to 1: a bar of that length behind the text
    BarLook bar_look = BarLook::Full;
};

struct ReportRow {
    std::vector<ReportCell> cells; ///< as many as the table has columns
    RowTint tint = RowTint::None;
    bool total = false; ///< stands below a line, bold, and last whatever the table is sorted by
};

enum class ColumnKind { Text, Number }; ///< numbers are right-aligned

struct ReportColumn {
    QString caption;
    ColumnKind kind = ColumnKind::Text;
    bool sortable = false; ///< its caption is a link that sorts by it; needs a name of the table
    int share = 0; ///< percent of the page's width; 0: as wide as what stands in it
};

/// A sheet to be filled in by hand has lines around its cells and high rows.
enum class TableLook { Plain, Sheet };

struct ReportTable {
    QString name = {}; ///< tells the report's tables apart when they are sorted
    std::vector<ReportColumn> columns = {}; ///< no row of captions when all are empty
    std::vector<ReportRow> rows = {};
    TableLook look = TableLook::Plain;
};

struct ReportPageBreak { };

/// Lines to sign or to write on, side by side, each with a caption below it, which may be empty.
struct ReportSignatures {
    QStringList captions;
};

using ReportItem
    = std::variant<ReportHeading, ReportSentence, ReportTable, ReportPageBreak, ReportSignatures>;

enum class PaperSide { Portrait, Landscape };

/// Where club and day stand on every printed page.
enum class PaperEdge { Below, Above };

struct Report {
    QString title; ///< of the window and the printed document
    std::vector<ReportItem> items = {};
    PaperSide paper = PaperSide::Portrait;
    PaperEdge edge = PaperEdge::Below;
};

// Short ways to put a report together.

void AddHeading(Report& report, int level, const QString& text);
void AddSentence(Report& report, const QString& text, Indent indent = Indent::None);
void AddLinkLine(
    Report& report, const QString& text, const LinkTarget& target, Indent indent = Indent::None);

/// A cell of plain text.
ReportCell TextCell(const QString& text, const LinkTarget& target = {});

/// A cell that is sorted by this value.
ReportCell NumberCell(const QString& text, double value);
