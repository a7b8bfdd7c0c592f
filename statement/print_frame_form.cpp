#include "statement/print_frame_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "history/sent_pages_form.h"
#include "statement/print_dialog.h"
#include "statement/statement_pages.h"
#include "statement/statement_printer.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// --- handlers ---------------------------------------------------------------------------------

void AllPagesChosen(Program& program) // Option1
{
    if (program.PrintFrame.Option1->isChecked())
        program.Statement.PrintAllPages = true;
    ShowWhatWillBePrinted(program);
}

void SinglePagesChosen(Program& program) // Option2
{
    if (program.PrintFrame.Option2->isChecked())
        program.Statement.PrintAllPages = false;
    ShowWhatWillBePrinted(program);
}

// --- building ---------------------------------------------------------------------------------

QLineEdit* PageNumberField(QWidget* parent, int index, const QString& accessible_name)
{
    auto* field = Named(MakeField(parent, FieldKind::Text, 6, accessible_name), u"Text8"_s, index);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setToolTip(u"Gedruckt wird immer von dieser bis zu dieser Seite."_s);
    return KeepNarrow(field);
}

void LayOut(const PrintFrameForm& form, QWidget* frame)
{
    auto* options = new QHBoxLayout;
    options->setSpacing(TabSpacing);
    options->addWidget(form.Option1);
    options->addWidget(form.Option2);
    options->addStretch();
    auto* pages = new QHBoxLayout;
    pages->setSpacing(FrameSpacing);
    pages->addWidget(MakeCaption(frame, u"Seite"_s, form.Text8From));
    pages->addWidget(form.Text8From);
    pages->addWidget(new QLabel(u"–"_s, frame));
    pages->addWidget(form.Text8To);
    pages->addStretch();
    auto* column = new QVBoxLayout(frame);
    column->setSpacing(FrameSpacing);
    column->addLayout(options);
    column->addLayout(pages);
    column->addWidget(form.UnfinishedLine);
    column->addWidget(form.YearLine);
    column->addWidget(form.Command6);
}

void ConnectHandlers(Program& program)
{
    const PrintFrameForm& form = program.PrintFrame;
    On(program, form.Option1, &QRadioButton::clicked, AllPagesChosen);
    On(program, form.Option2, &QRadioButton::clicked, SinglePagesChosen);
    On(program, form.Text8From, &QLineEdit::textChanged, ShowWhatWillBePrinted);
    On(program, form.Text8To, &QLineEdit::textChanged, ShowWhatWillBePrinted);
    On(program, form.Command6, &QPushButton::clicked, PrintStatements);
}

void ShowWhatIsWrongWithThePages(const Program& program)
{
    const PrintFrameForm& form = program.PrintFrame;
    const StatementState& statement = program.Statement;
    const qsizetype first = statement.FinishedPages;
    if (IsUnfinished(statement, first))
        ShowWarningLine(form.UnfinishedLine, u"Ab Seite %1 fehlen Beträge."_s.arg(first + 1),
            ErrorSentence(*statement.Stopped));
    else
        ShowWarningLine(form.UnfinishedLine, {});
    const BillSource& source = statement.Source;
    const bool other_year = !source.LoadedYear.isEmpty() && source.YearText != source.LoadedYear;
    ShowWarningLine(form.YearLine,
        other_year ? u"Auf den Seiten steht %1, gerechnet sind sie aus den Daten von %2."_s.arg(
            source.YearText, source.LoadedYear)
                   : QString());
}

} // namespace

QWidget* BuildPrintFrame(Program& program, QWidget* parent)
{
    PrintFrameForm& form = program.PrintFrame;
    auto* frame = Named(new QGroupBox(u"Drucken"_s, parent), u"Frame11"_s, 0);
    form.Option1 = Named(new QRadioButton(u"Alles"_s, frame), u"Option1"_s);
    form.Option2 = Named(new QRadioButton(u"Seiten"_s, frame), u"Option2"_s);
    for (QRadioButton* option : { form.Option1, form.Option2 }) {
        option->setToolTip(u"Gedruckt wird in beiden Fällen von Seite – bis Seite."_s);
        KeepOutlineClear(option);
    }
    form.Option2->setChecked(true); // the page numbers always decide
    form.Text8From = PageNumberField(frame, 0, u"Drucken von Seite"_s);
    form.Text8From->setText(u"1"_s);
    form.Text8To = PageNumberField(frame, 1, u"Drucken bis Seite"_s);
    form.UnfinishedLine = MakeWarningLine(frame, u"UnfinishedPages"_s, TintKind::Wrong);
    form.YearLine = MakeWarningLine(frame, u"PrintedYear"_s, TintKind::OtherYear);
    form.Command6 = Named(MakeButton(frame, u"Drucken"_s), u"Command6"_s);
    MakePrimary(form.Command6);
    form.Command6->setToolTip(u"Druckt die Abrechnungen (Strg+P)"_s);
    LayOut(form, frame);
    if (!form.ShowPrintDialog)
        form.ShowPrintDialog
            = [parent](QPrinter& printer) { return AskForPrinter(printer, parent); };
    ConnectHandlers(program);
    return frame;
}

/// Nothing is said when the fields name no pages, so they show it beforehand.
void ShowWhatWillBePrinted(Program& program)
{
    const PrintFrameForm& form = program.PrintFrame;
    const qsizetype pages = PageCount(program.Statement);
    const auto range = RangeToPrint(form.Text8From->text(), form.Text8To->text(), pages);
    TintKind tint = TintKind::None;
    QString reason;
    if (!range && pages > 0) {
        tint = TintKind::Wrong;
        reason = u"So wird nichts gedruckt: Es gibt die Seiten 1 bis %1."_s.arg(pages);
    } else if (range && form.Option1->isChecked() && range->last - range->first + 1 < pages) {
        tint = TintKind::Unsaved;
        reason = u"Gedruckt werden die Seiten %1 bis %2, auch wenn „Alles“ gewählt ist."_s
                     .arg(range->first + 1)
                     .arg(range->last + 1);
    }
    for (QLineEdit* field : { form.Text8From, form.Text8To })
        Tint(field, tint, reason);
    ShowWhatIsWrongWithThePages(program);
}

void PrintStatements(Program& program) // Command6
{
    const PrintFrameForm& form = program.PrintFrame;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(TitleOfPages(program.Statement));
    printer.setCreator(u"Kleingarten Parzello"_s);
    printer.setDuplex(QPrinter::DuplexNone); // one sheet per bill, unless the dialog says otherwise
    if (!form.ShowPrintDialog(printer))
        return;
    const qsizetype pages = PageCount(program.Statement);
    const auto range = RangeToPrint(form.Text8From->text(), form.Text8To->text(), pages);
    if (!range)
        return; // nothing is printed, and nothing is said
    SetUpPrinter(printer);
    PrintJob job = JobFor(program.Statement, *range);
    job.last_page_first = printer.pageOrder() == QPrinter::LastPageFirst;
    printer.setPageOrder(QPrinter::FirstPageFirst); // turned round here, not a second time there
    const SentHow how = printer.outputFileName().isEmpty() ? SentHow::Printed : SentHow::Pdf;
    if (PrintStatementPages(printer, program.Statement, job, form.Command6->window()))
        KeepSentPages(program, how, { *range });
}
