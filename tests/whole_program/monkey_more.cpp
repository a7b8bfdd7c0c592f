// The random user behind the button "Mehr".
#include "tests/whole_program/monkey.h"

#include "outgoing/bills_as_pdf_form.h"
#include "statement/statement_pages.h"

#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QTableWidget>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

void Choose(Monkey& monkey, const QString& entry)
{
    Find<QAction>(monkey.Club.program.Window.Window, entry)->trigger();
}

/// The window or dialog of that name while it is open.
QWidget* Opened(const Monkey& monkey, const QString& name)
{
    auto* window = monkey.Club.program.Window.Window->findChild<QWidget*>(name);
    return window != nullptr && window->isVisible() ? window : nullptr;
}

void Close(QWidget* window)
{
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void CloseReports(Program& program)
{
    for (auto& [kind, opened] : program.Reports.Opened)
        opened.Window->hide();
}

QStringList LinksOf(const OpenedReport& opened)
{
    static const QRegularExpression link(u"href=\"([^\"]+)\""_s);
    QStringList links;
    for (auto found = link.globalMatch(opened.Shown); found.hasNext();)
        links += found.next().captured(1);
    return links;
}

/// The history is emptied now and then only; what it held is then gone as it was said.
void Follow(Monkey& monkey, OpenedReport& opened, const QString& link)
{
    Program& program = monkey.Club.program;
    const bool empties = link.contains(u"empty"_s);
    if (empties && Below(monkey, 10) != 0)
        return;
    if (link.contains(u"take"_s))
        monkey.LastAction = u"taking back by "_s + link;
    Q_EMIT opened.Text->anchorClicked(QUrl(link));
    if (empties && !opened.Shown.contains(u"take"_s))
        ForgetConfirmed(monkey.Kept);
    Check(monkey, program.Errors.Depth == 0, "a link leaves no handler open");
}

QStringList PageTexts(const Program& program)
{
    QStringList texts;
    for (qsizetype page = 0; page < PageCount(program.Statement); ++page)
        texts += DescribePage(ContentsOfPage(program.Statement, page).member);
    return texts;
}

} // namespace

void ReadAReport(Monkey& monkey)
{
    static const QStringList entries { u"MoreCheck"_s, u"MoreOpenItems"_s, u"MoreCashReport"_s,
        u"MoreCashBook"_s, u"MoreYears"_s, u"MoreHistory"_s };
    Program& program = monkey.Club.program;
    const QString& entry = entries[Below(monkey, entries.size())];
    monkey.LastAction = u"reading "_s + entry;
    Choose(monkey, entry);
    OpenedReport& opened = *OpenedReportOf(program, entry.sliced(4));
    const QStringList links = LinksOf(opened);
    if (!links.isEmpty())
        Follow(monkey, opened, links[Below(monkey, links.size())]);
    CloseReports(program);
}

void LookIntoAWindow(Monkey& monkey)
{
    static const QStringList names { u"ReadingsWindow"_s, u"AlignWindow"_s, u"BillsAsPdf"_s,
        u"TransferCode"_s, u"MeterChange"_s, u"ReportWindow"_s };
    static const QStringList entries { u"MoreCheck"_s, u"MoreReadings"_s, u"MoreAlign"_s,
        u"MoreOpenItems"_s, u"MoreCashReport"_s, u"MoreCashBook"_s, u"MoreYears"_s, u"MorePdf"_s,
        u"MoreCode"_s, u"MoreMeter"_s, u"MoreHistory"_s };
    Program& program = monkey.Club.program;
    const QString& entry = entries[Below(monkey, entries.size())];
    monkey.LastAction = u"looking into "_s + entry;
    const QStringList pages = PageTexts(program);
    KeptPromise before;
    LookAtFiles(before, program.Files);
    Choose(monkey, entry);
    for (const QString& name : names) {
        if (QWidget* window = Opened(monkey, name))
            Close(window);
    }
    KeptPromise after;
    LookAtFiles(after, program.Files);
    Check(monkey, before.Files == after.Files, "looking changes no file");
    Check(monkey, PageTexts(program) == pages, "looking changes no page");
}

void TypeAReading(Monkey& monkey)
{
    monkey.LastAction = u"typing a reading"_s;
    Choose(monkey, u"MoreReadings"_s);
    QTableWidget* table = monkey.Club.program.Readings.ReadingsTable;
    if (table->rowCount() > 0) {
        const int column = Below(monkey, 2) == 0 ? 3 : 7; // "Strom Ende", "Wasser Ende"
        table->setCurrentCell(Below(monkey, table->rowCount()), column);
        table->edit(table->currentIndex());
        if (auto* field = table->viewport()->findChild<QLineEdit*>()) {
            field->selectAll();
            TypeKeys(field, AnyText(monkey));
            QTest::keyClick(field, Below(monkey, 2) == 0 ? Qt::Key_Return : Qt::Key_Up);
        }
    }
    monkey.Club.program.Readings.ReadingsWindow->close();
}

void AlignTheYears(Monkey& monkey)
{
    monkey.LastAction = u"aligning the years"_s;
    Choose(monkey, u"MoreAlign"_s);
    QWidget* window = Opened(monkey, u"AlignWindow"_s);
    if (window == nullptr)
        return; // there is no list of last year
    auto* table = Find<QTableWidget>(window, u"AlignList"_s);
    for (int row = 0; row < table->rowCount(); ++row) {
        QTableWidgetItem* offer = table->item(row, 3);
        if (offer->flags() & Qt::ItemIsUserCheckable && Below(monkey, 2) == 0)
            offer->setCheckState(Qt::Checked);
        QTableWidgetItem* reading = table->item(row, 4 + Below(monkey, 4));
        if (reading->flags() & Qt::ItemIsEditable)
            reading->setText(AnyText(monkey));
    }
    Find<QPushButton>(window, u"AlignApply"_s)->click();
    Close(window);
}

void CreatePdfs(Monkey& monkey)
{
    static const QStringList splits { u"BillsPerMember"_s, u"BillsInOne"_s, u"BillsShownPage"_s };
    monkey.LastAction = u"creating PDFs"_s;
    Choose(monkey, u"MorePdf"_s);
    QWidget* dialog = Opened(monkey, u"BillsAsPdf"_s);
    Find<QLineEdit>(dialog, u"BillsFolder"_s)->setText(monkey.Club.Folder.filePath(u"pdf"_s));
    Find<QRadioButton>(dialog, splits[Below(monkey, splits.size())])->click();
    Find<QPushButton>(dialog, u"BillsCreate"_s)->click();
    Close(dialog);
}

void SwitchTheCode(Monkey& monkey)
{
    monkey.LastAction = u"switching the code"_s;
    Program& program = monkey.Club.program;
    Choose(monkey, u"MoreCode"_s);
    QWidget* dialog = Opened(monkey, u"TransferCode"_s);
    if (Below(monkey, 3) == 0)
        TypeKeys(Find<QLineEdit>(dialog, u"CodePayee"_s), AnyText(monkey));
    Find<QCheckBox>(dialog, u"CodeOnEveryBill"_s)->click();
    Close(dialog);
    const StatementState& with = program.Statement;
    StatementState without = with;
    without.AddedItems = nullptr;
    for (qsizetype page = 0; page < PageCount(with); ++page) {
        const QStringList bill = DescribePage(ContentsOfPage(without, page).member);
        const QStringList shown = DescribePage(ContentsOfPage(with, page).member);
        Check(monkey, shown.mid(0, bill.size()) == bill, "the code only comes beside the bill");
        Check(monkey, with.AddedItems || shown.size() == bill.size(), "switched off it is gone");
    }
}

void ChangeAMeter(Monkey& monkey)
{
    monkey.LastAction = u"changing a meter"_s;
    Choose(monkey, u"MoreMeter"_s);
    QWidget* dialog = Opened(monkey, u"MeterChange"_s);
    if (Below(monkey, 2) == 0)
        Find<QRadioButton>(dialog, u"MeterWater"_s)->click();
    for (const QString& name : { u"MeterOldOut"_s, u"MeterNewIn"_s }) {
        auto* field = Find<QLineEdit>(dialog, name);
        field->selectAll();
        TypeKeys(field, AnyText(monkey));
    }
    auto* enter = Find<QPushButton>(dialog, u"MeterEnter"_s);
    if (enter->isEnabled())
        enter->click();
    if (QWidget* open = Opened(monkey, u"MeterChange"_s))
        Close(open);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TakeBackByKey(Monkey& monkey)
{
    monkey.LastAction = u"taking back by the key"_s;
    const auto keys = monkey.Club.program.Window.Window->findChildren<QShortcut*>();
    for (QShortcut* key : keys) {
        if (key->key() == QKeySequence(u"Ctrl+Z"_s)) {
            Q_EMIT key->activated();
            return;
        }
    }
}
