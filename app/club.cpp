#include "app/club.h"

#include "app/program.h"
#include "app/texts.h"
#include "cashbook/ledger_view_form.h"
#include "data/file_names.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

void ReadClubName(Program& program)
{
    const bool is_there = FileExists(program.Files, ClubNameFile);
    program.Window.Text5->setVisible(!is_there);
    program.Window.Command22->setVisible(!is_there);
    if (is_there)
        program.ClubName = ReadFirstLine(program.Files, ClubNameFile);
    else
        program.Window.Text5->setFocus();
}

void ShowClubName(Program& program)
{
    program.Window.ClubNameLabel->setText(
        program.ClubName.isEmpty() ? ClubNamePlaceholder : program.ClubName);
}

void ClubNameEntered(Program& program) // Text5, the Enter key
{
    if (program.Window.Text5->text() != ClubNameHint) // one Enter too many after the first box
        SaveClubName(program);
}

void SaveClubName(Program& program)
{
    const QString typed = program.Window.Text5->text();
    RewriteLines(program.Files, ClubNameFile, { typed });
    program.ClubName = typed;
    program.Window.ClubNameLabel->setText(
        typed); // an empty name shows nothing until the next start
    program.Window.SSTab1->setFocus(); // before the box goes, else its neighbour "Beenden" gets it
    program.Window.Text5->hide();
    program.Window.Command22->hide();
    ShowUnsaved(program);
    DrawStatementPages(program); // the name stands on every bill
    ShowAccountTitle(program);
}
