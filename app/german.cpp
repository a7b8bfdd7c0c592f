#include "app/german.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

bool InstallGerman(QCoreApplication& application)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto* translator = new QTranslator(&application);
    const QString beside_program
        = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
    const QString name = QStringLiteral("qtbase_de");
    if (!translator->load(name, beside_program)
        && !translator->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return false;
    QCoreApplication::installTranslator(translator);
    return true;
}
