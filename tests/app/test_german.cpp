// German whatever the desktop's language is.
#include "app/german.h"

#include "report/report_browser_form.h"
#include "tests/support/more_club.h"
#include "tests/support/test_file.h"

#include <QAbstractButton>
#include <QAction>
#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTextBrowser>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Every text that the window shows, says or could show.
QStringList TextsOf(const QWidget* window)
{
    QStringList texts { window->windowTitle() };
    for (const QWidget* widget : window->findChildren<QWidget*>())
        texts += { widget->toolTip(), widget->accessibleName(), widget->accessibleDescription() };
    for (const auto* button : window->findChildren<QAbstractButton*>())
        texts += button->text();
    for (const auto* label : window->findChildren<QLabel*>())
        texts += label->text();
    for (const auto* field : window->findChildren<QLineEdit*>())
        texts += field->placeholderText();
    for (const auto* action : window->findChildren<QAction*>())
        texts += { action->text(), action->toolTip() };
    for (const auto* text : window->findChildren<QTextBrowser*>())
        texts += text->toPlainText();
    for (const auto* table : window->findChildren<QTableWidget*>()) {
        for (int column = 0; column < table->columnCount(); ++column)
            texts += table->horizontalHeaderItem(column)->text();
    }
    return texts.replaceInStrings(u"&"_s, QString());
}

/// Words of Qt's own captions in English that are no German ones.
const QRegularExpression english(
    u"\\b(Cancel|Close|Save|Open|Apply|Print|Copy|Paste|Cut|Undo|Redo|Delete|Select|All|Yes|No|"
    "Help|Search|Find|Page|File|Files|Folder|Directory|Look|Location|Clear|Zoom In|Zoom Out|"
    "Discard|Reset|Retry|Ignore|Abort|The|and|of|Size|Type|Options|Properties|Color|Pages)\\b"_s);

QString EnglishIn(const QStringList& texts)
{
    for (const QString& text : texts) {
        if (english.match(text).hasMatch())
            return text;
    }
    return {};
}

} // namespace

class TestGerman : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(InstallGerman(*qApp), "Qt's German translation is missing"); }

    void standard_buttons_are_german()
    {
        const QDialogButtonBox buttons(QDialogButtonBox::Cancel | QDialogButtonBox::Save);
        QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text().remove(QLatin1Char('&')),
            QStringLiteral("Abbrechen"));
        QCOMPARE(buttons.button(QDialogButtonBox::Save)->text().remove(QLatin1Char('&')),
            QStringLiteral("Speichern"));
    }

    void the_context_menu_of_a_field_is_german()
    {
        QLineEdit field;
        const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
        QStringList entries;
        for (const QAction* action : menu->actions())
            entries += action->text().remove(QLatin1Char('&'));
        QVERIFY2(entries.join(QLatin1Char('|')).contains(QStringLiteral("Einfügen")),
            qPrintable(entries.join(QLatin1Char('|'))));
    }

    void the_context_menu_of_a_report_is_german()
    {
        ReportBrowser text(nullptr);
        text.setPlainText(QStringLiteral("Offene Posten"));
        const std::unique_ptr<QMenu> menu(text.createStandardContextMenu());
        QStringList entries;
        for (const QAction* action : menu->actions())
            entries += action->text().remove(QLatin1Char('&'));
        QVERIFY2(entries.join(QLatin1Char('|')).contains(QStringLiteral("Kopieren")),
            qPrintable(entries.join(QLatin1Char('|'))));
    }

    void every_window_behind_more_is_german_data()
    {
        QTest::addColumn<QString>("entry");
        for (const QString& entry : MoreClub::Entries())
            QTest::newRow(qPrintable(entry)) << entry;
    }

    void every_window_behind_more_is_german()
    {
        QFETCH(QString, entry);
        MoreClub club;
        const QStringList texts = TextsOf(club.Open(entry));
        QVERIFY(texts.join(QString()).size() > 30);
        QCOMPARE(EnglishIn(texts), QString());
    }

    void the_dialogs_of_the_toolkit_are_german()
    {
        QFileDialog folders;
        folders.setOption(QFileDialog::DontUseNativeDialog);
        folders.setFileMode(QFileDialog::Directory);
        QCOMPARE(EnglishIn(TextsOf(&folders)), QString());
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        QPrintDialog print(&printer);
        QCOMPARE(EnglishIn(TextsOf(&print)), QString());
        QVERIFY(TextsOf(&print).join(u'|').contains(u"Drucken"_s));
    }

    void english_captions_would_be_found()
    {
        QCOMPARE(EnglishIn({ u"Abbrechen"_s, u"&Cancel"_s }), u"&Cancel"_s);
        QCOMPARE(EnglishIn({ u"Select All"_s }), u"Select All"_s);
    }

    void weeks_begin_on_monday_and_months_are_german()
    {
        QCalendarWidget calendar;
        QCOMPARE(calendar.firstDayOfWeek(), Qt::Monday);
        QCOMPARE(calendar.locale().monthName(3), QStringLiteral("März"));
        QCOMPARE(QLocale().decimalPoint(), QStringLiteral(","));
    }
};

const TestFile<TestGerman> test_file(__FILE__);
#include "test_german.moc"
