// German whatever the desktop's language is.
#include "app/german.h"

#include "report/report_browser_form.h"
#include "tests/support/test_file.h"

#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

#include <memory>

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
