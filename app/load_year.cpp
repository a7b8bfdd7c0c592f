#include "app/load_year.h"

#include "app/program.h"
#include "app/texts.h"
#include "cashbook/ledger_form.h"
#include "cashbook/payment_lists_form.h"
#include "controls/fields.h"
#include "data/dates.h"
#include "data/file_names.h"
#include "settings/bank_frames_form.h"
#include "settings/price_frame_form.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int box_characters = 10; // at most

} // namespace

QHBoxLayout* BuildYearRow(Program& program, QWidget* parent)
{
    YearForm& form = program.YearRow;
    form.Command3[1] = Named(MakeButton(parent, QStringLiteral("◄"),
                                 QStringLiteral("Ein Jahr zurück. Geladen wird es mit „Laden“.")),
        QStringLiteral("Command3"), 1);
    form.Command3[1]->setAccessibleName(QStringLiteral("Ein Jahr zurück"));
    form.Text2 = Named(MakeField(parent, FieldKind::DisplayOnly, 5, QStringLiteral("Jahr")),
        QStringLiteral("Text2"));
    form.Text2->setAlignment(Qt::AlignCenter);
    form.Text2->setMaximumWidth(form.Text2->fontMetrics().averageCharWidth() * box_characters);
    form.Command3[0] = Named(MakeButton(parent, QStringLiteral("►"),
                                 QStringLiteral("Ein Jahr vor. Geladen wird es mit „Laden“.")),
        QStringLiteral("Command3"), 0);
    form.Command3[0]->setAccessibleName(QStringLiteral("Ein Jahr vor"));
    form.Command4 = Named(
        MakeButton(parent, QStringLiteral("Laden"),
            QStringLiteral("Lädt die Mitglieder, Preise und Konten des Jahres, das links steht.")),
        QStringLiteral("Command4"));
    for (QPushButton* arrow : form.Command3)
        arrow->setFixedWidth(std::max(32, arrow->fontMetrics().averageCharWidth() * 4));
    form.Command4->setMinimumWidth(0); // this row decides how narrow the tab can be

    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(form.Command3[1]);
    row->addWidget(form.Text2, 1);
    row->addWidget(form.Command3[0]);
    row->addWidget(form.Command4);
    row->addStretch();
    for (int index = 0; index < 2; ++index) {
        On(program, form.Command3[static_cast<std::size_t>(index)], &QPushButton::clicked,
            [index](Program& p) { StepYear(p, index); });
    }
    On(program, form.Command4, &QPushButton::clicked, LoadYear);
    return row;
}

void ShowYear(Program& program)
{
    ShowYearNotes(program);
    QLineEdit* year_box = program.YearRow.Text2;
    year_box->setText(program.Year.YearText);
    const QString& year = program.Year.YearText;
    const QString& loaded = program.Year.LoadedYear;
    const bool nothing_to_say
        = loaded == year || (loaded.isEmpty() && !FileExists(program.Files, MembersFileName(year)));
    if (nothing_to_say)
        Tint(year_box, TintKind::None);
    else if (loaded.isEmpty())
        Tint(year_box, TintKind::OtherYear,
            QStringLiteral("Die Daten von %1 sind nicht geladen. „Laden“ lädt sie.").arg(year));
    else
        Tint(year_box, TintKind::OtherYear,
            QStringLiteral("Gezeigt werden noch die Daten von %1. „Laden“ lädt %2; ein Speichern "
                           "ohne Laden schreibt die gezeigten Mitglieder, Preise und Buchungen in "
                           "das Jahr %2.")
                .arg(loaded, year));
}

void StepYear(Program& program, int index)
{
    const QString present = QString::number(program.Today().year());
    if (index == 1)
        program.Year.YearText = PreviousYear(program.Year.YearText);
    else if (program.Year.YearText != present)
        program.Year.YearText = NextYear(program.Year.YearText);
    ShowYear(program);
}

namespace {

void ClearLedgers(Program& program)
{
    program.CashBook.Bank = {};
    program.CashBook.CashBox = {};
}

void ShowFirstOrCurrentMember(Program& program)
{
    qint16& current = program.Member.CurrentMember;
    if (current < 0 || current >= program.Members.RecordList.size())
        current = 0;
    ShowMember(program);
}

} // namespace

void ReadMembersOfYear(Program& program)
{
    const BillingYear& year = program.Year.YearText;
    program.Year.Troubles.NotLoaded.insert(year); // should reading throw
    const BothYears read = ReadBothYears(program.Files, year);
    program.Members = read.Lists;
    program.Year.LoadedYear = year;
    program.Year.Troubles.NotLoaded.remove(year);
    if (read.PreviousYearError)
        ReportError(program.Errors, program.Ask, *read.PreviousYearError);
}

void LoadYear(Program& program)
{
    const BillingYear& year = program.Year.YearText;
    if (!FileExists(program.Files, MembersFileName(year))) {
        MessageBox box;
        box.text = NoDataForYear(year);
        box.title = DataErrorTitle;
        program.Ask(box);
        return;
    }
    const RedrawsPostponed until_done(program);
    ReadMembersOfYear(program);
    ClearLedgers(program);
    ClearFields(program, 1);
    ShowYear(program);
    ShowNameList(program);
    ShowCashBookNames(program);
    OfferContactNames(program);

    program.Year.CurrentLedgerName = BankLedgerFileName(year);
    ShowSettingsYear(program);
    SetPageFields(program);
    RunStep(program, ReadCashBoxLedger);
    MakeBankAccountCurrent(program);
    program.Year.CurrentLedgerName = QStringLiteral("/Konto") + year + QStringLiteral(".pz");

    RunStep(program, LoadSettings);
    RunStep(program, RebuildStatementPages);
    RunStep(program, DrawStatementPages);
    RunStep(program, ShowLedger);
    RunStep(program, ShowFirstOrCurrentMember);
}

void LoadReplacedYear(Program& program)
{
    const bool loads = FileExists(program.Files, MembersFileName(program.Year.YearText));
    LoadYear(program);
    if (!loads)
        return; // "Datenfehler" was shown, and everything in memory stayed
    program.CashBook.LedgerChanged = false;
    program.CashBook.Bank.Unsaved = false;
    program.CashBook.CashBox.Unsaved = false;
    CountAsSaved(program.Settings);
}
