// The tour through the money reports: what is open, and the papers for the audit.
#include "tests/tour/tour.h"

#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

static const QSize window_size(940, 640); // pixels of a picture in the manual

OpenedReport& Tour::OpenByMore(Qt::Key letter, const QString& kind)
{
    User->Click(u"More"_s);
    QTest::keyClick(program->Window.More.MoreMenu, letter);
    OpenedReport* opened = OpenedReportOf(*program, kind);
    if (opened == nullptr)
        qFatal("the menu does not open %s", qPrintable(kind));
    opened->Window->resize(window_size);
    QCoreApplication::processEvents();
    return *opened;
}

static QString TextIn(const OpenedReport& opened) { return opened.Text->toPlainText(); }

static void Save(const OpenedReport& opened, const QString& name)
{
    QVERIFY(opened.Window->grab().save(OutPath(name)));
    QTest::mouseClick(opened.Window->findChild<QPushButton*>(u"ReportClose"_s), Qt::LeftButton);
    QVERIFY(!opened.Window->isVisible());
}

void Tour::the_open_items_name_who_still_has_to_pay()
{
    OpenedReport& opened = OpenByMore(Qt::Key_O, u"OpenItems"_s);
    const QString text = TextIn(opened);
    QVERIFY(text.startsWith(u"Offene Posten 2026\n"_s));
    QVERIFY(text.contains(u"Offene Forderungen: "_s));
    QVERIFY(text.contains(u"2 von 3 bezahlt"_s)); // Bielfeldt
    Save(opened, u"offene-posten.png"_s);
}

void Tour::the_cash_report_is_made_for_the_auditors()
{
    OpenedReport& opened = OpenByMore(Qt::Key_K, u"CashReport"_s);
    const QString text = TextIn(opened);
    QVERIFY(text.contains(u"Abrechnungen der Mitglieder"_s));
    QVERIFY(text.contains(u"Kassenprüfung 2026"_s));
    program->Reports.AskPdfPath = [](const QString& name) { return OutPath(name); };
    QTest::mouseClick(opened.Window->findChild<QPushButton*>(u"ReportPdf"_s), Qt::LeftButton);
    QVERIFY(QFile::exists(OutPath(u"Kassenbericht 2026.pdf"_s)));
    Save(opened, u"kassenbericht.png"_s);
}

void Tour::the_cash_book_lists_every_booking()
{
    OpenedReport& opened = OpenByMore(Qt::Key_B, u"CashBook"_s);
    QVERIFY(TextIn(opened).contains(u"Nikolaus für die Kinder"_s));
    Save(opened, u"kassenbuch.png"_s);
}

void Tour::the_years_stand_side_by_side()
{
    OpenedReport& opened = OpenByMore(Qt::Key_J, u"Years"_s);
    QVERIFY(TextIn(opened).contains(u"2025"_s) && TextIn(opened).contains(u"2026"_s));
    opened.Window->resize(window_size.width(), window_size.height() / 2); // two years are short
    Save(opened, u"jahre-im-vergleich.png"_s);
}
