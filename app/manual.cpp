#include "app/manual.h"

#include "app/manual_window.h"
#include "app/program.h"
#include "app/texts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTabWidget>

QString ManualChapter(int tab)
{
    static const QString chapters[]
        = { QStringLiteral("stammdaten"), QStringLiteral("druckvorlagen"),
              QStringLiteral("kontofuehrung"), QStringLiteral("einstellungen") };
    return tab >= 0 && tab < 4 ? chapters[tab] : chapters[0];
}

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
    ShowManualPage(program, path, ManualChapter(program.Window.SSTab1->currentIndex()));
}
