#include "app/manual_window.h"

#include "app/manual_pictures.h"
#include "app/program.h"
#include "app/texts.h"
#include "controls/fields.h"
#include "controls/frames.h"

#include <QAbstractTextDocumentLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int text_characters = 100; // width of the text when the window opens
constexpr int contents_characters = 34;
constexpr int first_height = 760;
constexpr int gap = 6; // pixels above a heading at the top
constexpr int chapter_level = 2; // of headings; the sections of a chapter stand one lower

/// The controls of the window; it has no other state.
struct ManualControls {
    QLineEdit* Search;
    QTreeWidget* Contents;
    QTextBrowser* Text;
};

ManualControls ControlsOf(const QWidget* window)
{
    return { Find<QLineEdit>(window, u"ManualSearch"_s),
        Find<QTreeWidget>(window, u"ManualContents"_s), Find<QTextBrowser>(window, u"Manual"_s) };
}

// --- contents ---------------------------------------------------------------------------------

void FillContents(const ManualControls& controls)
{
    const QSignalBlocker silent(controls.Contents);
    controls.Contents->clear();
    QTreeWidgetItem* chapter = nullptr;
    const QTextDocument* document = controls.Text->document();
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level < chapter_level || level > chapter_level + 1)
            continue;
        auto* entry = new QTreeWidgetItem({ block.text() });
        entry->setData(0, Qt::UserRole, block.blockNumber());
        entry->setToolTip(0, block.text()); // a long one is cut
        if (level == chapter_level || chapter == nullptr) {
            controls.Contents->addTopLevelItem(entry);
            chapter = entry;
        } else {
            chapter->addChild(entry);
        }
    }
}

void ContentsPicked(const ManualControls& controls, const QTreeWidgetItem* entry) // ManualContents
{
    if (entry == nullptr)
        return;
    const QTextDocument* document = controls.Text->document();
    const QTextBlock block = document->findBlockByNumber(entry->data(0, Qt::UserRole).toInt());
    const QRectF place = document->documentLayout()->blockBoundingRect(block);
    controls.Text->verticalScrollBar()->setValue(qRound(place.top()) - gap);
}

/// The entry of the section that is read now is marked; only its chapter shows its sections.
void MarkSection(const ManualControls& controls)
{
    const int at_top = controls.Text->cursorForPosition(QPoint(0, 2 * gap)).blockNumber();
    QTreeWidgetItem* now = nullptr;
    for (QTreeWidgetItemIterator entry(controls.Contents); *entry != nullptr; ++entry) {
        if ((*entry)->data(0, Qt::UserRole).toInt() <= at_top)
            now = *entry;
    }
    const QSignalBlocker silent(controls.Contents);
    controls.Contents->setCurrentItem(now);
    const QTreeWidgetItem* chapter
        = now != nullptr && now->parent() != nullptr ? now->parent() : now;
    for (int i = 0; i < controls.Contents->topLevelItemCount(); ++i) {
        QTreeWidgetItem* entry = controls.Contents->topLevelItem(i);
        entry->setExpanded(entry == chapter);
    }
}

// --- search -----------------------------------------------------------------------------------

/// What follows a place that was found is seen as well.
void ShowBelowHit(QTextBrowser* text)
{
    const int height = text->viewport()->height();
    const int place = text->cursorRect().top();
    if (place > height * 3 / 4)
        text->verticalScrollBar()->setValue(
            text->verticalScrollBar()->value() + place - height / 3);
}

/// Beyond the last place the search begins again at the first. Words that are nowhere move nothing.
void FindNext(const ManualControls& controls, QTextDocument::FindFlags direction = {})
{
    const QString words = controls.Search->text();
    const QTextCursor before = controls.Text->textCursor();
    const int place = controls.Text->verticalScrollBar()->value();
    bool is_found = words.isEmpty() || controls.Text->find(words, direction);
    if (!is_found) {
        controls.Text->moveCursor(direction ? QTextCursor::End : QTextCursor::Start);
        is_found = controls.Text->find(words, direction);
    }
    if (is_found && !words.isEmpty()) {
        ShowBelowHit(controls.Text);
    } else if (!is_found) {
        controls.Text->setTextCursor(before);
        controls.Text->verticalScrollBar()->setValue(place);
    }
    Tint(controls.Search, is_found ? TintKind::None : TintKind::Wrong,
        is_found ? QString() : u"Das steht nicht im Handbuch."_s);
}

/// What is looked for is nearly always further on in what is read now: so the search begins at the
/// top of the view, wherever the caret stood, and the view stays.
void SearchFromTop(const ManualControls& controls)
{
    QScrollBar* bar = controls.Text->verticalScrollBar();
    const int place = bar->value();
    controls.Text->setTextCursor(controls.Text->cursorForPosition(QPoint(0, gap)));
    bar->setValue(place);
}

void SearchTyped(const ManualControls& controls) // ManualSearch
{
    if (!controls.Text->viewport()->rect().intersects(controls.Text->cursorRect()))
        SearchFromTop(controls); // one has scrolled on since
    QTextCursor cursor = controls.Text->textCursor();
    cursor.setPosition(cursor.selectionStart()); // a longer word may stand at the same place
    controls.Text->setTextCursor(cursor);
    FindNext(controls);
}

/// The first Escape leaves the search, the next one closes.
void EscapePressed(const ManualControls& controls)
{
    if (controls.Search->hasFocus())
        return controls.Text->setFocus();
    controls.Text->window()->hide();
}

// --- building ---------------------------------------------------------------------------------

QWidget* BuildSide(QWidget* window)
{
    auto* side = new QWidget(window);
    auto* search
        = Named(MakeField(side, FieldKind::Text, 20, u"Im Handbuch suchen"_s), u"ManualSearch"_s);
    search->setPlaceholderText(u"Suchen (Strg+F)"_s);
    auto* contents = Named(new QTreeWidget(side), u"ManualContents"_s);
    contents->setAccessibleName(u"Inhalt"_s);
    contents->setHeaderHidden(true);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins({});
    column->setSpacing(FrameSpacing);
    column->addWidget(search);
    column->addWidget(contents);
    return side;
}

QTextBrowser* BuildText(QWidget* window)
{
    auto* text = Named(new QTextBrowser(window), u"Manual"_s);
    text->setAccessibleName(u"Handbuch"_s);
    // A bar that comes while the text is laid out narrows it, the pictures shrink in the midst of
    // it, and what stands between two of them is not laid out any more.
    text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QPalette palette = text->palette(); // what was found is seen while the search has the focus
    palette.setBrush(QPalette::Inactive, QPalette::Highlight,
        palette.brush(QPalette::Active, QPalette::Highlight));
    palette.setBrush(QPalette::Inactive, QPalette::HighlightedText,
        palette.brush(QPalette::Active, QPalette::HighlightedText));
    text->setPalette(palette);
    return text;
}

void ConnectManual(Program& program, QWidget* window)
{
    const ManualControls controls = ControlsOf(window);
    const auto key = [&](const QKeySequence& keys, auto routine) {
        On(program, new QShortcut(keys, window), &QShortcut::activated,
            [controls, routine](Program&) { routine(controls); });
    };
    key(QKeySequence(Qt::Key_Escape), EscapePressed);
    key(QKeySequence(Qt::Key_F3), [](const ManualControls& c) { FindNext(c); });
    key(QKeySequence(u"Shift+F3"_s),
        [](const ManualControls& c) { FindNext(c, QTextDocument::FindBackward); });
    key(QKeySequence(u"Ctrl+F"_s), [](const ManualControls& c) {
        SearchFromTop(c);
        c.Search->setFocus();
        c.Search->selectAll();
    });
    OnEvent(program, controls.Search, QEvent::FocusIn, [controls](Program&, QEvent& event) {
        if (static_cast<QFocusEvent&>(event).reason() == Qt::MouseFocusReason)
            SearchFromTop(controls);
        return false;
    });
    On(program, controls.Search, &QLineEdit::textChanged,
        [controls](Program&) { SearchTyped(controls); });
    On(program, controls.Search, &QLineEdit::returnPressed,
        [controls](Program&) { FindNext(controls); });
    On(program, controls.Contents, &QTreeWidget::currentItemChanged,
        [controls](
            Program&, QTreeWidgetItem* now, QTreeWidgetItem*) { ContentsPicked(controls, now); });
    On(program, controls.Text->verticalScrollBar(), &QScrollBar::valueChanged,
        [controls](Program&) { MarkSection(controls); });
    OnEvent(program, controls.Text->viewport(), QEvent::Resize, [controls](Program&, QEvent&) {
        FitPictures(controls.Text);
        return false;
    });
}

QWidget* BuildManual(Program& program)
{
    auto* window = Named(new QWidget(program.Window.Window, Qt::Window), u"ManualWindow"_s);
    window->setWindowTitle(u"Handbuch – "_s + WindowCaption);
    auto* halves = new QSplitter(window);
    halves->addWidget(BuildSide(window));
    halves->addWidget(BuildText(window));
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    const int character = window->fontMetrics().averageCharWidth();
    window->resize(SizeOnScreen(
        window, QSize((contents_characters + text_characters) * character, first_height)));
    halves->setSizes({ contents_characters * character, text_characters * character });
    (new QVBoxLayout(window))->addWidget(halves);
    ConnectManual(program, window);
    return window;
}

} // namespace

void ShowManualPage(Program& program, const QString& path, const QString& anchor)
{
    auto* window = program.Window.Window->findChild<QWidget*>(u"ManualWindow"_s);
    if (window == nullptr)
        window = BuildManual(program);
    const ManualControls controls = ControlsOf(window);
    controls.Text->setSource(QUrl::fromLocalFile(path));
    FillContents(controls);
    window->show();
    window->raise();
    window->activateWindow();
    controls.Text->setFocus();
    FitPictures(controls.Text);
    controls.Text->scrollToAnchor(anchor);
    MarkSection(controls);
}
