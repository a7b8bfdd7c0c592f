// usage: halve_pictures FOLDER
// Makes name.png of half the size from each name@2x.png. The manual window shows the small one on
// ordinary screens (scaling it there would be coarse) and the large one on fine screens.
#include <QDir>
#include <QGuiApplication>
#include <QImage>

int main(int argument_count, char** arguments)
{
    const QGuiApplication application(argument_count, arguments);
    const QDir folder(application.arguments().value(1));
    const QStringList names = folder.entryList({ QStringLiteral("*@2x.png") }, QDir::Files);
    for (const QString& name : names) {
        const QImage large(folder.filePath(name));
        const QImage half
            = large.scaled(large.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QString half_name = name;
        half_name.remove(QStringLiteral("@2x"));
        if (half.isNull() || !half.save(folder.filePath(half_name))) {
            qCritical("halve_pictures: %s", qPrintable(name));
            return 1;
        }
    }
    return 0;
}
