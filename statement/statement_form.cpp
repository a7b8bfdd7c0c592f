#include "statement/statement_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/records.h"
#include "statement/page_preview.h"
#include "statement/preview_paging.h"
#include "statement/statement_pages.h"
#include "statement/zoom_form.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int desk_margin = 10; // pixels beside the page: room for its shadow

qsizetype MemberCount(const Program& program) { return program.Members.RecordList.size(); }

BillSource SourceOf(const Program& program)
{
    BillSource source;
    source.ClubName = program.ClubName;
    source.YearText = program.Year.YearText;
    source.LoadedYear = program.Year.LoadedYear;
    source.Members = program.Members;
    source.Prices = program.Prices;
    source.Bank = program.Bank;
    source.Today = program.Today();
    return source;
}

// --- showing ----------------------------------------------------------------------------------

/// What a screen reader says about the shown page.
QString PageName(const Program& program)
{
    const qsizetype index = program.Statement.ShownPage - 1;
    if (index >= MemberCount(program))
        return u"Leere Seite"_s;
    const QStringList fields = SplitRecord(program.Members.RecordList[index]);
    return u"Abrechnung %1 %2, Seite %3 von %4"_s.arg(FieldOrEmpty(fields, FirstName),
        FieldOrEmpty(fields, Surname), QString::number(index + 1),
        QString::number(MemberCount(program)));
}

void ShowWhatIsMissing(const Program& program)
{
    const StatementState& statement = program.Statement;
    QLabel* line = program.StatementPreview.UnfinishedLine;
    if (IsUnfinished(statement, statement.ShownPage - 1))
        ShowWarningLine(
            line, u"Auf dieser Seite fehlen Beträge."_s, ErrorSentence(*statement.Stopped));
    else
        ShowWarningLine(line, {});
}

void ShowPage(Program& program)
{
    StatementForm& form = program.StatementPreview;
    form.Text7->setText(QString::number(program.Statement.ShownPage));
    form.P2->setObjectName(ControlName(u"P2"_s, program.Statement.ShownPage - 1));
    form.P2->setAccessibleName(PageName(program));
    form.P2->move(LeftOfPage(program), TopOfShownPage(program.Statement));
    form.P2->update();
    ShowWhatIsMissing(program);
    form.Desk->update(); // the shadow goes with the page
}

void FitScrollBar(Program& program)
{
    StatementForm& form = program.StatementPreview;
    const ScrollRange range = ScrollRangeFor(form.P2->height(), form.P1->height());
    form.VScroll1->setPageStep(qMax(1, range.large_step));
    form.VScroll1->setRange(0, range.maximum); // a value beyond it moves the page back
}

// --- handlers ---------------------------------------------------------------------------------

void Scrolled(Program& program, int value) // VScroll1
{
    ScrollShownPage(program.Statement, value);
    ShowPage(program);
}

bool ViewportResized(Program& program, QEvent&) // P1
{
    FitScrollBar(program);
    program.StatementPreview.Desk->update();
    return false;
}

bool FocusMoved(Program& program, QEvent&) // P1: the page's edge shows the focus
{
    program.StatementPreview.Desk->update();
    return false;
}

// --- building ---------------------------------------------------------------------------------

QWidget* BuildPreview(Program& program, QWidget* tab)
{
    StatementForm& form = program.StatementPreview;
    auto* desk = new PreviewDesk(tab);
    form.Desk = desk;
    form.VScroll1 = Named(new QScrollBar(Qt::Vertical, tab), u"VScroll1"_s);
    form.VScroll1->setAccessibleName(u"Seite verschieben"_s);
    auto* viewport = Named(new PageViewport(desk, form.VScroll1), u"P1"_s);
    form.P1 = viewport;
    form.P1->setAccessibleName(u"Seitenvorschau"_s);
    form.P1->setMinimumHeight(200);
    form.P2 = Named(new PageSurface(form.P1,
                        [&program] {
                            const qsizetype index = program.Statement.ShownPage - 1;
                            return ContentsOfPage(program.Statement, index);
                        }),
        u"P2"_s, 0);
    desk->Page = form.P2;
    desk->Viewport = viewport;

    auto* row = new QHBoxLayout(desk);
    row->setContentsMargins(desk_margin, 0, desk_margin, 0);
    row->addStretch();
    row->addWidget(form.P1, 1); // a larger page takes the room beside it
    row->addStretch();
    return desk;
}

QLineEdit* DisplayField(QWidget* parent, const QString& name, const QString& caption)
{
    return KeepNarrow(Named(MakeField(parent, FieldKind::DisplayOnly, 6, caption), name));
}

QWidget* BuildPagesFrame(Program& program, QWidget* tab)
{
    StatementForm& form = program.StatementPreview;
    auto* frame = Named(new QGroupBox(u"Seiten"_s, tab), u"Frame11"_s, 1);
    form.Text7 = DisplayField(frame, u"Text7"_s, u"Angezeigte Seite"_s);
    form.Text9 = DisplayField(frame, u"Text9"_s, u"Gesamtseitenzahl"_s);
    form.Command9Previous = Named(MakeButton(frame, u"◀ Vorherige"_s), u"Command9"_s, 1);
    form.Command9Previous->setAccessibleName(u"Vorherige Seite"_s);
    form.Command9Previous->setToolTip(u"Vorherige Seite (Alt+Bild auf)"_s);
    form.Command9Next = Named(MakeButton(frame, u"Nächste ▶"_s), u"Command9"_s, 0);
    form.Command9Next->setAccessibleName(u"Nächste Seite"_s);
    form.Command9Next->setToolTip(u"Nächste Seite (Alt+Bild ab)"_s);

    auto* grid = new QGridLayout(frame);
    grid->setSpacing(FrameSpacing);
    grid->addWidget(MakeCaption(frame, u"Angezeigte Seite"_s, form.Text7), 0, 0);
    grid->addWidget(form.Text7, 0, 1);
    grid->addWidget(MakeCaption(frame, u"Gesamtseitenzahl"_s, form.Text9), 1, 0);
    grid->addWidget(form.Text9, 1, 1);
    grid->setColumnStretch(2, 1);
    for (QPushButton* button : { form.Command9Previous, form.Command9Next })
        button->setMinimumWidth(0); // side by side they take what room the frame has
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(FrameSpacing);
    buttons->addWidget(form.Command9Previous);
    buttons->addWidget(form.Command9Next);
    grid->addLayout(buttons, 2, 0, 1, 3);
    form.UnfinishedLine = MakeWarningLine(frame, u"UnfinishedLine"_s, TintKind::Wrong);
    grid->addWidget(form.UnfinishedLine, 3, 0, 1, 3);
    return frame;
}

/// Keys that work wherever the focus is on the tab.
void BuildKeys(Program& program, QWidget* tab)
{
    const auto key = [&](int keys, auto routine) {
        auto* shortcut = new QShortcut(QKeySequence(keys), tab);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        On(program, shortcut, &QShortcut::activated, routine);
    };
    key(Qt::Key_PageUp, [](Program& p) {
        p.StatementPreview.VScroll1->triggerAction(QScrollBar::SliderPageStepSub);
    });
    key(Qt::Key_PageDown, [](Program& p) {
        p.StatementPreview.VScroll1->triggerAction(QScrollBar::SliderPageStepAdd);
    });
    key(static_cast<int>(Qt::ALT) | Qt::Key_PageUp, PreviousPage);
    key(static_cast<int>(Qt::ALT) | Qt::Key_PageDown, NextPage);
}

void ConnectHandlers(Program& program)
{
    const StatementForm& form = program.StatementPreview;
    On(program, form.VScroll1, &QScrollBar::valueChanged, Scrolled);
    OnEvent(program, form.P1, QEvent::Resize, ViewportResized);
    OnEvent(program, form.P1, QEvent::Wheel, ZoomByWheel);
    OnEvent(program, form.Desk, QEvent::Wheel, ZoomByWheel);
    OnEvent(program, form.P1, QEvent::KeyPress, MovePageByKey);
    OnEvent(program, form.P1, QEvent::FocusIn, FocusMoved);
    OnEvent(program, form.P1, QEvent::FocusOut, FocusMoved);
    On(program, form.Command9Next, &QPushButton::clicked, NextPage);
    On(program, form.Command9Previous, &QPushButton::clicked, PreviousPage);
}

} // namespace

void BuildStatementTab(Program& program, QWidget* tab)
{
    StatementForm& form = program.StatementPreview;
    QWidget* preview = BuildPreview(program, tab);
    auto* side = new QWidget(tab);
    side->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(TabSpacing, TabSpacing, TabSpacing, TabSpacing);
    column->setSpacing(TabSpacing);
    column->addWidget(BuildPagesFrame(program, side));
    column->addWidget(BuildPrintFrame(program, side));
    column->addStretch();

    auto* row = new QHBoxLayout(tab);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(preview, 1);
    row->addWidget(form.VScroll1);
    row->addWidget(side);

    BuildKeys(program, tab);
    BuildZoomKeys(program, tab);
    ConnectHandlers(program);
}

void SetPageFields(Program& program)
{
    const QString pages = QString::number(MemberCount(program));
    program.PrintFrame.Text8To->setText(pages);
    program.StatementPreview.Text9->setText(pages);
}

void DrawStatementPages(Program& program)
{
    program.Statement.StatementTotals.clear(); // whoever redraws wants the totals of this drawing
    try {
        DrawAllPages(program.Statement, SourceOf(program));
    } catch (const RuntimeError& error) {
        // Reported here, so that the callers go on and never leave the year half loaded.
        ReportError(program.Errors, program.Ask, error);
    }
    FitScrollBar(program);
    ShowWhatWillBePrinted(program);
    ShowPage(program);
    program.CashBookTab.PartPaid.reset(); // the bills may be others
    TellRedraw(program);
}

void RebuildStatementPages(Program& program)
{
    RebuildPreview(program.Statement, MemberCount(program));
    SetPageFields(program);
    DrawStatementPages(program);
}

void NextPage(Program& program) // Command9(0)
{
    StepToNextPage(program.Statement, MemberCount(program));
    ShowPage(program);
}

void PreviousPage(Program& program) // Command9(1)
{
    StepToPreviousPage(program.Statement);
    ShowPage(program);
}

void FitPreview(Program& program)
{
    FitScrollBar(program);
    ShowPage(program);
}

void FocusPage(const Program& program)
{
    program.StatementPreview.P1->setFocus(Qt::ShortcutFocusReason);
}

void RepaintPage(const Program& program) { program.StatementPreview.P2->update(); }
