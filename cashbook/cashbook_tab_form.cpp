// Makes the controls of the tab "Kontoführung" and lays them out. What they do stands in
// cashbook_form.cpp and ledger_form.cpp, which event runs what in cashbook_wiring_form.cpp.
#include "app/program.h"
#include "cashbook/ledger_model.h"
#include "cashbook/texts.h"
#include "controls/calendar.h"
#include "controls/fields.h"
#include "controls/stacking.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr int date_characters = 11;
constexpr int amount_characters = 10;
constexpr int name_characters = 16;
constexpr int text_characters = 24;
constexpr int note_characters = 12;

/// A list whose selection says who has paid. Mouse and keys move the current entry only; marks are
/// set by code.
class PaidMarkList : public QListWidget {
public:
    using QListWidget::QListWidget;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex&, const QEvent*) const override
    {
        return QItemSelectionModel::NoUpdate;
    }
};

QFont Larger(const QFont& font, qreal factor)
{
    QFont larger = font;
    larger.setPointSizeF(font.pointSizeF() * factor);
    larger.setBold(true);
    return larger;
}

/// Marks and marked rows are as clear without the focus as with it.
void KeepSelectionClear(QWidget* view)
{
    QPalette palette;
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
        palette.color(QPalette::Active, QPalette::Highlight));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText,
        palette.color(QPalette::Active, QPalette::HighlightedText));
    view->setPalette(palette);
}

// Above: whose account, how much is on it, the way to the other one

QLabel* MakeTitle(QWidget* tab)
{
    auto* title = Named(new QLabel(tab), QStringLiteral("Label21"));
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true); // club and bank names are long
    title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    title->setFont(Larger(title->font(), 1.25));
    return title;
}

/// Black or red on white on every desktop: these colours mean something.
QLabel* MakeBalance(QWidget* tab)
{
    auto* balance = Named(new QLabel(tab), QStringLiteral("BalanceLabel"));
    balance->setTextFormat(Qt::PlainText);
    balance->setFont(Larger(balance->font(), 1.75));
    balance->setFrameShape(QFrame::StyledPanel);
    balance->setAutoFillBackground(true);
    balance->setMargin(FrameSpacing / 2);
    balance->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    balance->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return balance;
}

QHBoxLayout* BuildHead(CashBookForm& form, QWidget* tab)
{
    form.Label21 = MakeTitle(tab);
    form.BalanceLabel = MakeBalance(tab);
    form.Command15
        = Named(MakeButton(tab, SwitchToCashBox, QStringLiteral("Zeigt das andere Konto")),
            QStringLiteral("Command15"));
    auto* head = new QHBoxLayout;
    head->setSpacing(TabSpacing);
    head->addWidget(form.Label21, 1);
    head->addWidget(MakeCaption(tab, QStringLiteral("aktueller Kontostand"), form.BalanceLabel));
    head->addWidget(form.BalanceLabel, 0, Qt::AlignVCenter); // a long title is higher
    head->addWidget(form.Command15);
    return head;
}

QTableView* BuildLedgerView(CashBookForm& form, QWidget* tab)
{
    auto* view = Named(new QTableView(tab), QStringLiteral("ListView1"));
    form.ListView1 = view;
    form.Ledger = new LedgerModel(view);
    view->setModel(form.Ledger);
    view->setAccessibleName(QStringLiteral("Buchungen"));
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setAlternatingRowColors(true);
    view->setShowGrid(false);
    view->setWordWrap(false);
    view->setMinimumHeight(view->fontMetrics().lineSpacing() * 8); // the heading and some rows
    view->setTabKeyNavigation(false);
    view->setCornerButtonEnabled(false);
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed); // quick at 100,000 rows
    view->horizontalHeader()->setHighlightSections(false);
    view->horizontalHeader()->setSectionsClickable(false);
    KeepSelectionClear(view);
    return view;
}

// Below: the booking that is typed, and the lists that fill its fields

QCalendarWidget* BuildCalendar(CashBookForm& form, QWidget* tab)
{
    form.Cal3
        = Named(MakeCalendar(tab, QStringLiteral("Buchungsdatum wählen")), QStringLiteral("Cal3"));
    form.Cal3->setToolTip(QStringLiteral("Ein Klick oder die Eingabetaste schreibt den Tag in das "
                                         "Feld „Datum“"));
    form.Cal3->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    return form.Cal3;
}

void MakeEntryFields(CashBookForm& form, QWidget* frame)
{
    const QString captions[] = { QStringLiteral("Datum"), QStringLiteral("Vorgang"),
        QStringLiteral("Einzahlen"), QStringLiteral("Abheben") };
    const int characters[]
        = { date_characters, text_characters, amount_characters, amount_characters };
    for (std::size_t i = 0; i < form.Text10.size(); ++i) {
        const bool amount = i >= 2;
        form.Text10[i]
            = Named(MakeField(frame, amount ? FieldKind::Amount : FieldKind::Text, characters[i],
                        captions[i], amount ? QStringLiteral("€") : QString()),
                QStringLiteral("Text10"), static_cast<int>(i));
    }
    form.Text10[0]->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    form.Text11 = Named(MakeField(frame, FieldKind::DisplayOnly, note_characters,
                            QStringLiteral("Raten Vereinbarung")),
        QStringLiteral("Text11"));
    form.Text11->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form.Text11->setToolTip(QStringLiteral("Nur ein Hinweis, er wird nicht gebucht"));
}

/// A text that is there while it has something to say.
QLabel* MakeMark(QWidget* frame, const QString& name)
{
    auto* mark = Named(new QLabel(frame), name);
    mark->setTextFormat(Qt::PlainText);
    mark->setBackgroundRole(QPalette::Base);
    mark->setMargin(FrameSpacing / 4);
    return mark;
}

QHBoxLayout* BuildButtonRow(CashBookForm& form, QWidget* frame)
{
    form.Command12[0] = Named(MakeButton(frame, QStringLiteral("OK"),
                                  QStringLiteral("Bucht die Felder darüber oder ersetzt die "
                                                 "markierte Zeile. Datum und Vorgang müssen "
                                                 "ausgefüllt sein.")),
        QStringLiteral("Command12"), 0);
    MakePrimary(form.Command12[0]);
    form.Command12[1] = Named(MakeButton(frame, QStringLiteral("Löschen"),
                                  QStringLiteral("Löscht die angeklickte Zeile")),
        QStringLiteral("Command12"), 1);
    form.CommandSaveLedger = Named(MakeButton(frame, QStringLiteral("Speichern"),
                                       QStringLiteral("Schreibt alle Buchungen des gezeigten "
                                                      "Kontos in seine Datei (Strg+S)")),
        QStringLiteral("CommandSaveLedger"));
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(form.Command12[0]);
    row->addWidget(form.Command12[1]);
    row->addStretch(1);
    row->addWidget(form.CommandSaveLedger);
    return row;
}

/// A row of its own: its long caption would push the fields above it aside.
QHBoxLayout* BuildNoteRow(CashBookForm& form, QWidget* frame)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(MakeCaption(frame, form.Text11->accessibleName(), form.Text11));
    row->addWidget(form.Text11, 1);
    return row;
}

QFrame* BuildEntryFrame(CashBookForm& form, QWidget* tab)
{
    auto* frame = new QFrame(tab);
    frame->setFrameShape(QFrame::StyledPanel);
    MakeEntryFields(form, frame);
    const auto caption = [&](std::size_t i) {
        return MakeCaption(frame, form.Text10[i]->accessibleName(), form.Text10[i]);
    };
    form.ReplaceMark = MakeMark(frame, QStringLiteral("ReplaceMark"));
    form.UnsavedMark = MakeMark(frame, QStringLiteral("UnsavedMark"));
    auto* grid = new QGridLayout(frame);
    grid->setSpacing(FrameSpacing);
    grid->setColumnStretch(3, 1);
    grid->addWidget(caption(0), 0, 0);
    grid->addWidget(form.Text10[0], 0, 1);
    grid->addWidget(form.ReplaceMark, 0, 2, 1, 2, Qt::AlignLeft);
    grid->addWidget(caption(1), 1, 0);
    grid->addWidget(form.Text10[1], 1, 1, 1, 3);
    grid->addWidget(caption(2), 2, 0);
    grid->addWidget(form.Text10[2], 2, 1);
    grid->addWidget(caption(3), 2, 2);
    grid->addWidget(form.Text10[3], 2, 3, Qt::AlignLeft);
    grid->addLayout(BuildNoteRow(form, frame), 3, 0, 1, 4);
    grid->setRowStretch(4, 1);
    grid->addWidget(form.UnsavedMark, 5, 0, 1, 4, Qt::AlignRight);
    grid->addLayout(BuildButtonRow(form, frame), 6, 0, 1, 4);
    return frame;
}

QVBoxLayout* WithCaption(QListWidget* list, const QString& caption, QWidget* tab)
{
    list->setAccessibleName(caption);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setTextElideMode(Qt::ElideRight);
    list->setMinimumHeight(list->fontMetrics().lineSpacing() * 4);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    KeepSelectionClear(list);
    MakeRowsRoomy(list);
    auto* column = new QVBoxLayout;
    column->setSpacing(FrameSpacing / 2);
    QLabel* above = MakeCaption(tab, caption, list);
    above->setWordWrap(true);
    column->addWidget(above);
    column->addWidget(list, 1);
    return column;
}

QVBoxLayout* BuildPayees(CashBookForm& form, QWidget* tab)
{
    form.List9 = Named(new QListWidget(tab), QStringLiteral("List9"));
    form.List9->addItems(RecurringPayees);
    QVBoxLayout* column
        = WithCaption(form.List9, QStringLiteral("sich wiederholende Vorgänge"), tab);
    form.List9->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents); // none is cut off
    form.List9->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    return column;
}

QVBoxLayout* BuildNames(CashBookForm& form, QWidget* tab)
{
    form.List4 = Named(new PaidMarkList(tab), QStringLiteral("List4"));
    form.List4->setSelectionMode(QAbstractItemView::MultiSelection);
    form.List4->setMinimumWidth(form.List4->fontMetrics().averageCharWidth() * name_characters);
    form.List4->setAccessibleDescription(
        QStringLiteral("Markiert ist, wessen Abrechnung in diesem Konto gebucht ist. Die Leertaste "
                       "oder die Eingabetaste schlägt die Zahlung vor."));
    return WithCaption(form.List4, QStringLiteral("Namen"), tab);
}

} // namespace

void BuildCashBookTab(Program& program, QWidget* tab)
{
    CashBookForm& form = program.CashBookTab;
    auto* column = new QVBoxLayout(tab);
    column->setContentsMargins(TabSpacing, TabSpacing, TabSpacing, TabSpacing);
    column->setSpacing(TabSpacing);
    column->addLayout(BuildHead(form, tab));
    column->addWidget(BuildLedgerView(form, tab), 1);

    auto* booking = new QHBoxLayout;
    booking->setSpacing(TabSpacing);
    booking->addWidget(BuildCalendar(form, tab));
    booking->addWidget(BuildEntryFrame(form, tab), 1);
    auto* lists = new QHBoxLayout;
    lists->setSpacing(TabSpacing);
    lists->addLayout(BuildPayees(form, tab), 1);
    lists->addLayout(BuildNames(form, tab), 1);
    auto* below = new QBoxLayout(QBoxLayout::LeftToRight);
    below->setSpacing(TabSpacing);
    below->addLayout(booking, 5);
    below->addLayout(lists, 3);
    column->addLayout(below);
    StackWhenNarrow(below, below, tab);
    ConnectCashBookTab(program);
}
