// What lies behind "Mehr" costs nothing while it is not used: files, pages and every text of the
// main window are the same to the byte, whether or not its windows were looked at between two
// saves.
#include "statement/statement_pages.h"
#include "tests/support/more_club.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// What a user can see or find on the disk.
struct Traces {
    QMap<QString, QByteArray> Files;
    QStringList Pages;
    QStringList Texts; ///< of the main window, by object name
    QStringList Boxes;
};

void AddTexts(QStringList& texts, const QWidget* parent)
{
    const auto children = parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* child : children) {
        if (child->isWindow())
            continue;
        const QVariant text = child->property("text");
        const QVariant title = child->property("title");
        texts += u"%1|%2|%3|%4"_s.arg(
            child->objectName(), text.toString(), title.toString(), child->toolTip());
        AddTexts(texts, child);
    }
}

Traces TracesOf(const TestClub& club)
{
    Traces traces;
    const QStringList names = QDir(club.program.Files.DataDirectory)
                                  .entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : names)
        traces.Files[name] = club.Read(name);
    for (qsizetype page = 0; page < PageCount(club.program.Statement); ++page) {
        const PageContents contents = ContentsOfPage(club.program.Statement, page);
        traces.Pages += DescribePage(*contents.fixed) + DescribePage(contents.member);
    }
    AddTexts(traces.Texts, club.Window());
    traces.Boxes = club.BoxTexts();
    return traces;
}

void LookBehindMore(MoreClub& club)
{
    for (const QString& entry : MoreClub::Entries())
        MoreClub::Close(club.Open(entry));
}

/// Some of a year's work; between its steps the routine runs.
Traces Work(void (*between)(MoreClub&))
{
    MoreClub club;
    between(club);
    club.Control<QListWidget>("List1")->setCurrentRow(2);
    club.Control<QLineEdit>("Text3(4)")->setText(u"0815"_s);
    club.Control<QPushButton>("Command1(0)")->click();
    between(club);
    club.Control<QLineEdit>("Text1(1)")->setText(u"4999"_s);
    club.Control<QPushButton>("Command2")->click();
    between(club);
    club.program.Window.SSTab1->setCurrentIndex(CashBookTab);
    club.Control<QLineEdit>("Text10(0)")->setText(u"19.11.2017"_s);
    club.Control<QLineEdit>("Text10(1)")->setText(u"Porto"_s);
    club.Control<QLineEdit>("Text10(3)")->setText(u"7,80"_s);
    club.Control<QPushButton>("Command12(0)")->click();
    club.program.CashBookTab.CommandSaveLedger->click();
    between(club);
    club.program.Window.SSTab1->setCurrentIndex(SettingsTab);
    club.Control<QLineEdit>("Text4(0)")->setText(u"0,37"_s);
    club.Control<QPushButton>("Command5")->click();
    club.program.Window.SSTab1->setCurrentIndex(MembersTab);
    between(club);
    return TracesOf(club);
}

} // namespace

class TestMoreUnused : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void looking_behind_the_button_changes_no_byte()
    {
        const Traces without = Work([](MoreClub&) {});
        const Traces with = Work(LookBehindMore);
        QVERIFY(
            without.Files.size() >= 8 && without.Pages.size() > 400 && without.Texts.size() > 200);
        QCOMPARE(with.Files, without.Files);
        QCOMPARE(with.Pages, without.Pages);
        QCOMPARE(with.Texts, without.Texts);
        QCOMPARE(with.Boxes, without.Boxes);
    }

    void nothing_of_it_is_there_before_it_is_asked_for()
    {
        const MoreClub club;
        QVERIFY(club.program.Reports.Opened.empty());
        QVERIFY(club.program.Readings.ReadingsWindow == nullptr);
        QVERIFY(!club.program.Statement.AddedItems);
        for (const QWidget* widget : club.Window()->findChildren<QWidget*>())
            QVERIFY2(!widget->isWindow() || widget->objectName() == u"MoreMenu"_s
                    || !widget->isVisible(),
                qPrintable(widget->objectName()));
    }
};

const TestFile<TestMoreUnused> test_file(__FILE__);
#include "test_more_unused.moc"
