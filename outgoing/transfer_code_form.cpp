#include "outgoing/transfer_code_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "outgoing/payment_code.h"
#include "statement/page_player.h"
#include "statement/statement_form.h"
#include "statement/statement_pages.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int payee_characters = 70;
constexpr int shown_payee_characters = 40;
constexpr int rows_without_code = 4;

/// The controls of the dialog.
struct TransferCodeForm {
    QCheckBox* OnEveryBill = nullptr;
    QLineEdit* Payee = nullptr;
    QLabel* Code = nullptr; ///< the code of the shown page as a picture, or why there is none
    QLabel* WithoutCaption = nullptr;
    QListWidget* Without = nullptr; ///< members without a code and why
};

TransferCodeForm FormOf(const QDialog* dialog)
{
    return { Find<QCheckBox>(dialog, u"CodeOnEveryBill"_s), Find<QLineEdit>(dialog, u"CodePayee"_s),
        Find<QLabel>(dialog, u"CodePicture"_s), Find<QLabel>(dialog, u"CodeWithoutCaption"_s),
        Find<QListWidget>(dialog, u"CodeWithout"_s) };
}

qsizetype ShownIndex(const Program& program) { return program.Statement.ShownPage - 1; }

QPixmap PictureOf(const CodeSquares& squares)
{
    constexpr int square = 3; // pixels
    constexpr int quiet = 4; // squares
    const int side = (squares.Side + 2 * quiet) * square;
    QPixmap picture(side, side);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    for (int row = 0; row < squares.Side; ++row) {
        for (int column = 0; column < squares.Side; ++column) {
            if (IsBlack(squares, row, column))
                painter.fillRect(
                    (column + quiet) * square, (row + quiet) * square, square, square, Qt::black);
        }
    }
    return picture;
}

void ShowCode(const Program& program, const TransferCodeForm& form)
{
    const qsizetype index = ShownIndex(program);
    PageCode code = CodeOfPage(program.Statement, form.Payee->text(), index);
    if (index < 0 || index >= PageCount(program.Statement))
        code.Reason = u"Es ist keine Seite da."_s;
    if (code.Reason.isEmpty())
        form.Code->setPixmap(PictureOf(code.Squares));
    else
        form.Code->setText(code.Reason);
    form.Code->setAccessibleDescription(code.Reason);
}

void ShowMembersWithout(const Program& program, const TransferCodeForm& form)
{
    form.Without->clear();
    for (qsizetype index = 0; index < PageCount(program.Statement); ++index) {
        const QString reason = CodeOfPage(program.Statement, form.Payee->text(), index).Reason;
        if (!reason.isEmpty())
            form.Without->addItem(program.Members.NameList.value(index) + u": "_s + reason);
    }
    const auto count = form.Without->count();
    form.WithoutCaption->setText(count == 0 ? u"Jedes Mitglied bekommt einen Code."_s
            : count == 1                    ? u"1 Mitglied bekommt keinen Code:"_s
                                            : u"%1 Mitglieder bekommen keinen Code:"_s.arg(count));
    form.Without->setVisible(count > 0);
}

/// The preview, paper and PDF ask for a page's code when it is seen or printed.
void PutCodeOnBills(Program& program)
{
    if (program.TransferCode.OnEveryBill) {
        program.Statement.AddedItems = [&program](const PageBill& bill) {
            return ItemsOfCode(CodeOfBill(program.Statement, program.TransferCode.Payee, bill));
        };
    } else {
        program.Statement.AddedItems = nullptr;
    }
    RepaintPage(program);
}

void ChoiceChanged(Program& program, const TransferCodeForm& form)
{
    program.TransferCode = { form.OnEveryBill->isChecked(), form.Payee->text() };
    ShowCode(program, form);
    ShowMembersWithout(program, form);
    PutCodeOnBills(program);
}

QLabel* AddSentence(QDialog* dialog, QGridLayout* grid, const QString& text)
{
    auto* label = new QLabel(text, dialog);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    grid->addWidget(label, grid->rowCount(), 0, 1, 2);
    return label;
}

void AddAccount(const Program& program, QDialog* dialog, QGridLayout* grid)
{
    auto* payee
        = Named(MakeField(dialog, FieldKind::Text, shown_payee_characters, u"Kontoinhaber"_s),
            u"CodePayee"_s);
    payee->setMaxLength(payee_characters);
    AddRow(grid, u"&Kontoinhaber"_s, payee);
    AddSentence(dialog, grid,
        u"Banken vergleichen den Kontoinhaber: Bitte so schreiben, wie er auf dem Kontoauszug steht."_s);
    auto* iban = Named(MakeField(dialog, FieldKind::DisplayOnly, shown_payee_characters, u"IBAN"_s),
        u"CodeIban"_s);
    iban->setAlignment(Qt::AlignLeft | Qt::AlignVCenter); // letters come first, as on paper
    AddRow(grid, u"IBAN"_s, iban);
    iban->setText(program.Statement.Source.Bank.Iban);
    payee->setText(
        program.TransferCode.Payee.isEmpty() ? program.ClubName : program.TransferCode.Payee);
}

void AddPictureAndList(QDialog* dialog, QGridLayout* grid)
{
    auto* code = Named(new QLabel(dialog), u"CodePicture"_s);
    code->setAccessibleName(u"Code der gezeigten Seite"_s);
    code->setWordWrap(true);
    code->setAlignment(Qt::AlignCenter);
    grid->addWidget(code, grid->rowCount(), 0, 1, 2);
    Named(AddSentence(dialog, grid, {}), u"CodeWithoutCaption"_s);
    auto* without = Named(new QListWidget(dialog), u"CodeWithout"_s);
    without->setAccessibleName(u"Mitglieder ohne Code"_s);
    without->setMinimumHeight(without->fontMetrics().lineSpacing() * rows_without_code);
    grid->addWidget(without, grid->rowCount(), 0, 1, 2);
}

QDialog* BuildDialog(const Program& program)
{
    auto* dialog = Named(new QDialog(program.Window.Window), u"TransferCode"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(u"Überweisungscode"_s);
    auto* grid = new QGridLayout(dialog);
    auto* on_every_bill
        = Named(new QCheckBox(u"&Code auf jede Abrechnung setzen"_s, dialog), u"CodeOnEveryBill"_s);
    KeepOutlineClear(on_every_bill);
    on_every_bill->setChecked(program.TransferCode.OnEveryBill);
    grid->addWidget(on_every_bill, 0, 0, 1, 2);
    AddAccount(program, dialog, grid);
    AddPictureAndList(dialog, grid);
    QPushButton* close = Named(MakeButton(dialog, u"Schließen"_s), u"CodeClose"_s);
    QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::accept);
    grid->addWidget(close, grid->rowCount(), 0, 1, 2, Qt::AlignRight);
    return dialog;
}

} // namespace

void ShowTransferCode(Program& program)
{
    QDialog* dialog = BuildDialog(program);
    const TransferCodeForm form = FormOf(dialog);
    On(program, form.OnEveryBill, &QCheckBox::toggled,
        [form](Program& p) { ChoiceChanged(p, form); });
    On(program, form.Payee, &QLineEdit::textChanged,
        [form](Program& p) { ChoiceChanged(p, form); });
    ChoiceChanged(program, form);
    dialog->open(); // over the window alone; returns at once
}
