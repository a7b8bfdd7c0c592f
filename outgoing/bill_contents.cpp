#include "outgoing/bill_contents.h"

#include "statement/statement_printer.h"

#include <algorithm>
#include <utility>

namespace {

/// Few enough that "Abbrechen" is heard at once and that no progress box comes up.
constexpr std::size_t bills_at_once = 40;
static_assert(bills_at_once < LongRun);

} // namespace

BillContents::BillContents(const StatementState& statement, std::vector<BillFile> files,
    QWidget* window, PageSplitter split)
    : m_statement(statement)
    , m_files(std::move(files))
    , m_window(window)
    , m_split(std::move(split))
    , m_at_once(bills_at_once)
{
}

QByteArray BillContents::Next()
{
    if (m_next == m_first + m_drawn.size())
        DrawAhead();
    return m_drawn.empty() ? QByteArray() : m_drawn[m_next++ - m_first];
}

void BillContents::DrawAhead()
{
    m_first = m_next;
    m_drawn.clear();
    const std::size_t count = std::min(m_at_once, m_files.size() - m_first);
    const PageRange pages { m_files[m_first].Pages.first, m_files[m_first + count - 1].Pages.last };
    const QByteArray pdf = PdfOfPages(m_statement, pages, m_window);
    if (pdf.isEmpty())
        return;
    if (count == 1) {
        m_drawn = { pdf };
        return;
    }
    m_drawn = m_split(pdf);
    if (m_drawn.size() == count)
        return;
    m_at_once = 1; // slower, but the same bills
    DrawAhead();
}
