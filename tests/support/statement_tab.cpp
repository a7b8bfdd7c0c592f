#include "tests/support/statement_tab.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPrinter>
#include <QTest>

LoneStatementTab::LoneStatementTab(const ExampleYear& example)
{
    const BillSource source = SourceOf(example);
    program.ClubName = source.ClubName;
    program.Year.YearText = source.YearText;
    program.Year.LoadedYear = source.LoadedYear;
    program.Members = source.Members;
    program.Prices = source.Prices;
    program.Bank = source.Bank;
    program.Today = [today = source.Today] { return today; };
    program.Ask = [this](const MessageBox& box) {
        Boxes += box.text + QStringLiteral(" | ") + box.detail;
        return BoxAnswer::Ok;
    };
    program.PrintFrame.ShowPrintDialog = [this](QPrinter&) {
        ++DialogsShown;
        return false;
    };
    BuildStatementTab(program, &Tab);
    WithErrorBox(program.Errors, program.Ask, [this] { RebuildStatementPages(program); });
}

void LoneStatementTab::Show(int width, int height)
{
    Tab.resize(width, height);
    Tab.show();
    QApplication::processEvents();
}

void LoneStatementTab::Click(const char* name)
{
    QTest::mouseClick(Control<QAbstractButton>(name), Qt::LeftButton);
}

QString LoneStatementTab::TextOf(const char* name) const
{
    return Control<QLineEdit>(name)->text();
}

void LoneStatementTab::Type(const char* name, const QString& text)
{
    auto* field = Control<QLineEdit>(name);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

QString LoneStatementTab::PrintTo(const QString& name)
{
    const QString path = Folder.filePath(name);
    program.PrintFrame.ShowPrintDialog = [this, path](QPrinter& printer) {
        ++DialogsShown;
        Job = printer.docName();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        return true;
    };
    return path;
}

ExampleYear YearOf(const QString& club)
{
    for (const ExampleYear& example : ExampleYears()) {
        if (example.Club == club)
            return example;
    }
    qFatal("no example %s", qPrintable(club));
}
