#include "app/manual.h"

#include "app/program.h"
#include "app/texts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMainWindow>
#include <QTabWidget>
#include <QTextBrowser>
#include <QUrl>

QString ManualChapter(int tab)
{
    static const QString chapters[]
        = { QStringLiteral("stammdaten"), QStringLiteral("druckvorlagen"),
              QStringLiteral("kontofuehrung"), QStringLiteral("einstellungen") };
    return tab >= 0 && tab < 4 ? chapters[tab] : chapters[0];
}

namespace {

QTextBrowser* ManualWindow(Program& program)
{
    const QString name = QStringLiteral("Manual");
    if (auto* open = program.Window.Window->findChild<QTextBrowser*>(name))
        return open;
    auto* manual = Named(new QTextBrowser(program.Window.Window), name);
    manual->setWindowFlag(Qt::Window);
    manual->setWindowTitle(QStringLiteral("Handbuch – ") + WindowCaption);
    manual->setAccessibleName(QStringLiteral("Handbuch"));
    manual->resize(manual->fontMetrics().averageCharWidth() * 100, 700);
    return manual;
}

} // namespace

void ShowManual(Program& program)
{
    const QString path
        = QCoreApplication::applicationDirPath() + QStringLiteral("/handbuch/handbuch.html");
    if (!QFileInfo::exists(path)) {
        MessageBox box;
        box.title = WindowCaption;
        box.icon = BoxIcon::Information;
        box.text = QStringLiteral("Das Handbuch ist nicht da.");
        box.detail = QStringLiteral("Es gehört in den Ordner „handbuch“ neben dem Programm.");
        program.Ask(box);
        return;
    }
    QTextBrowser* manual = ManualWindow(program);
    manual->setSource(QUrl::fromLocalFile(path));
    const QString chapter = ManualChapter(program.Window.SSTab1->currentIndex());
    manual->show();
    manual->raise();
    manual->activateWindow();
    manual->scrollToAnchor(chapter);
}
