#include "settings/settings_form.h"

#include "app/program.h"
#include "cashbook/ledger_view_form.h"
#include "controls/fields.h"
#include "controls/stacking.h"
#include "settings/bank_frames_form.h"
#include "settings/price_frame_form.h"

#include <QGroupBox>
#include <QVBoxLayout>

namespace {

constexpr int widest_page
    = 170; // characters; beyond that fields only grow away from their captions

/// What stands side by side where there is room goes one below the other where there is not (large
/// fonts, small windows): nobody has to scroll sideways. First the frames, then the columns of the
/// first frame.
struct Stacking {
    QBoxLayout* frames;
    PriceFrame prices;

    void Arrange(int width) const
    {
        const int frame_margins
            = prices.frame->minimumSizeHint().width() - prices.columns->minimumSize().width();
        const int prices_width = WidthSideBySide(prices.columns) + frame_margins;
        const int tab_width = 2 * TabSpacing + frames->spacing() + prices_width
            + frames->itemAt(1)->minimumSize().width();
        SetSideBySide(frames, tab_width <= width);
        SetSideBySide(prices.columns, 2 * TabSpacing + prices_width <= width);
    }
};

/// The tab lies in the scroll area of its page; the width that is seen is that of its viewport.
void StackWhenNarrow(QWidget* tab, const Stacking& stacking)
{
    QWidget* viewport = tab->parentWidget();
    HookEvent(viewport, QEvent::Resize, [stacking, viewport](QEvent&) {
        stacking.Arrange(viewport->width());
        return false;
    });
}

bool TabShown(Program& program, QEvent&)
{
    OfferContactNames(program); // members may have been added or renamed meanwhile
    return false;
}

} // namespace

void BuildSettingsTab(Program& program, QWidget* tab)
{
    auto* content = new QWidget(tab);
    content->setMaximumWidth(content->fontMetrics().averageCharWidth() * widest_page);
    auto* frames = new QBoxLayout(QBoxLayout::LeftToRight, content);
    frames->setContentsMargins(0, 0, 0, 0);
    frames->setSpacing(TabSpacing);
    const PriceFrame prices = BuildPriceFrame(program, content);
    prices.frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    frames->addWidget(prices.frame, 0, Qt::AlignTop);
    frames->addWidget(BuildBankFrames(program, content), 1);

    auto* across = new QHBoxLayout;
    across->addWidget(content, 1);
    across->addStretch();
    auto* down = new QVBoxLayout(tab);
    down->setContentsMargins(TabSpacing, TabSpacing, TabSpacing, TabSpacing);
    down->addLayout(across);
    down->addStretch(1);

    StackWhenNarrow(tab, { frames, prices });
    OnEvent(program, tab, QEvent::Show, TabShown);
}

void LoadSettings(Program& program)
{
    RunStep(program, LoadPrices);
    RunStep(program, LoadBank);
    ShowAccountTitle(program); // it names the bank
    ShowPriceMarks(program);
    ShowBankMarks(program);
}

void RestoreSettingsFields(Program& program)
{
    RestorePriceFields(program);
    RestoreBankFields(program);
    CountAsSaved(program.Settings);
    program.CashBook.LedgerChanged = false;
}
