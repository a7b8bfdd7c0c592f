// What the bills' files hold, drawn in the order in which they are written.
#pragma once

#include "outgoing/bill_files.h"

#include <QByteArray>

#include <cstddef>
#include <functional>
#include <vector>

class QWidget;

/// A PDF as one file for each page; empty when that cannot be done.
using PageSplitter = std::function<std::vector<QByteArray>(const QByteArray& pdf)>;

/// Draws single bills some at a time and then takes them apart: a PDF of one page costs several
/// times what the page costs, because the toolkit puts the page's fonts together for each anew.
class BillContents {
public:
    /// The files are those of BillFilesOf: one, or one for each page, in the order of the pages.
    BillContents(const StatementState& statement, std::vector<BillFile> files, QWidget* window,
        PageSplitter split);

    /// The bytes of the next file, to be asked for once for each; empty when the drawing was
    /// cancelled or failed. A file of many pages shows the progress box of printing.
    QByteArray Next();

private:
    void DrawAhead();

    const StatementState& m_statement;
    std::vector<BillFile> m_files;
    QWidget* m_window;
    PageSplitter m_split;
    std::size_t m_at_once;
    std::vector<QByteArray> m_drawn; ///< those from m_first on
    std::size_t m_first = 0;
    std::size_t m_next = 0;
};
