// Builds the tab "Einstellungen" out of its frames and connects its handlers. What they do stands
// in settings_actions_form.cpp.
#include "settings/settings_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/stacking.h"
#include "settings/bank_frames_form.h"
#include "settings/price_frame_form.h"
#include "settings/settings_marks_form.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QResizeEvent>
#include <QScrollArea>
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

QWidget* BuildPage(Program& program, QScrollArea* scroll)
{
    auto* page = new QWidget;
    auto* content = new QWidget(page);
    content->setMaximumWidth(content->fontMetrics().averageCharWidth() * widest_page);
    auto* frames = new QBoxLayout(QBoxLayout::LeftToRight, content);
    frames->setContentsMargins(0, 0, 0, 0);
    frames->setSpacing(TabSpacing);
    const PriceFrame prices = BuildPriceFrame(program.SettingsTab, content);
    prices.frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    frames->addWidget(prices.frame, 0, Qt::AlignTop);
    frames->addWidget(BuildBankFrames(program, content), 1);

    auto* across = new QHBoxLayout;
    across->addWidget(content, 1);
    across->addStretch();
    auto* down = new QVBoxLayout(page);
    down->setContentsMargins(TabSpacing, TabSpacing, TabSpacing, TabSpacing);
    down->addLayout(across);
    down->addStretch(1);

    const Stacking stacking { frames, prices };
    HookEvent(scroll->viewport(), QEvent::Resize, [stacking](QEvent& event) {
        stacking.Arrange(static_cast<QResizeEvent&>(event).size().width());
        return false;
    });
    return page;
}

void PriceEdited(Program& program)
{
    program.Settings.SettingsSaved = false;
    program.Settings.PricesEdited = true;
    ShowSettingsMarks(program);
}

void BankEdited(Program& program)
{
    program.Settings.SettingsSaved = false;
    ShowSettingsMarks(program);
}

/// Marks follow every text, typed or set by code; edits are only what the user does.
void ConnectField(Program& program, QLineEdit* field, void (*edited)(Program&))
{
    On(program, field, &QLineEdit::textEdited, edited);
    On(program, field, &QLineEdit::textChanged, ShowSettingsMarks);
}

void ConnectCalendar(
    Program& program, QCalendarWidget* calendar, void (*pick)(Program&, const QDate&))
{
    On(program, calendar, &QCalendarWidget::clicked, pick);
    On(program, calendar, &QCalendarWidget::activated, pick);
}

void ConnectHandlers(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    for (std::size_t i = 0; i < PriceCount; ++i)
        ConnectField(program, form.Text4[i], PriceEdited);
    for (QLineEdit* field : form.Text6) {
        ConnectField(program, field, BankEdited);
        if (QCompleter* names = field->completer(); names != nullptr)
            On(program, names, qOverload<const QString&>(&QCompleter::activated), BankEdited);
    }
    ConnectField(program, form.C1->lineEdit(), PriceEdited);
    On(program, form.C1, &QComboBox::activated, PriceEdited);
    On(program, form.Check1, &QCheckBox::clicked, PriceEdited);
    On(program, form.Check2, &QCheckBox::clicked, PriceEdited);
    ConnectCalendar(program, form.Calendar1, PickBillingDate);
    ConnectCalendar(program, form.Calendar2, PickPaymentDeadline);
    On(program, form.Command5, &QPushButton::clicked, SavePriceSettings);
    On(program, form.Command7, &QPushButton::clicked, SaveBankSettings);
}

bool TabShown(Program& program, QEvent&)
{
    OfferContactNames(program); // members may have been added or renamed meanwhile
    return false;
}

} // namespace

void BuildSettingsTab(Program& program, QWidget* tab)
{
    auto* scroll = new QScrollArea(tab);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(BuildPage(program, scroll));
    scroll->viewport()->setAutoFillBackground(false); // the tab's own ground, as on the other tabs
    scroll->widget()->setAutoFillBackground(false);
    auto* whole = new QVBoxLayout(tab);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll);

    ConnectHandlers(program);
    OnEvent(program, tab, QEvent::Show, TabShown);
}
