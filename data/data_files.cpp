#include "data/data_files.h"

#include "data/system_files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace {

constexpr int key_length = 32; // hexadecimal digits; more than enough to tell folders apart

bool IsSeparator(QChar character)
{
    return character == QLatin1Char('\\') || character == QLatin1Char('/');
}

QString KeyOf(const QString& data_directory)
{
    const QString canonical = QFileInfo(data_directory).canonicalFilePath();
    const QString path = canonical.isEmpty() ? QDir(data_directory).absolutePath() : canonical;
    const QByteArray hash
        = QCryptographicHash::hash(QFile::encodeName(path), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(key_length));
}

QString TooLargeRemedy()
{
    return QStringLiteral("So groß ist keine Datei dieses Programms. Bitte prüfen, ob sie "
                          "beschädigt ist.");
}

QString ReadRemedy(const SystemError& error, const QString& folder)
{
    switch (error.Kind) {
    case Fault::NoAccess:
    case Fault::NotPermitted:
        return QStringLiteral("Bitte die Leserechte der Datei und des Ordners „%1“ prüfen.")
            .arg(folder);
    case Fault::TooLarge:
        return TooLargeRemedy();
    default:
        return QStringLiteral("Bitte prüfen, ob die Datei im Ordner „%1“ liegt und der "
                              "Datenträger in Ordnung ist.")
            .arg(folder);
    }
}

QString WriteRemedy(const SystemError& error, const QString& folder, const QString& again)
{
    switch (error.Kind) {
    case Fault::NoSpace:
    case Fault::NoQuota:
        return QStringLiteral("Bitte auf dem Datenträger Platz schaffen und %1.").arg(again);
    case Fault::NoAccess:
    case Fault::NotPermitted:
        return QStringLiteral("Bitte die Schreibrechte der Datei und des Ordners „%1“ prüfen und "
                              "%2.")
            .arg(folder, again);
    case Fault::ReadOnlyMedium:
        return QStringLiteral("Bitte den Schreibschutz des Datenträgers aufheben und %1.")
            .arg(again);
    case Fault::Missing:
    case Fault::NotAFolder:
        return QStringLiteral("Bitte prüfen, ob der Ordner „%1“ noch da ist, und %2.")
            .arg(folder, again);
    case Fault::NotAFileName:
        return QStringLiteral("Bitte die Datei umbenennen.");
    case Fault::TooLarge:
        return TooLargeRemedy();
    default:
        return QStringLiteral("Bitte prüfen, ob der Datenträger mit dem Ordner „%1“ in Ordnung "
                              "ist, und %2.")
            .arg(folder, again);
    }
}

QString Again(FileDeed deed)
{
    switch (deed) {
    case FileDeed::Finish:
        return QStringLiteral("das Programm neu starten");
    case FileDeed::Restore:
        return QStringLiteral("noch einmal wiederherstellen");
    default:
        return QStringLiteral("noch einmal speichern");
    }
}

QString Remedy(const SystemError& error, const QString& folder, FileDeed deed)
{
    if (error == Fault::IsAFolder || error == Fault::NotARegularFile) {
        return QStringLiteral("Im Ordner „%1“ liegt an der Stelle der Datei etwas anderes. Bitte "
                              "dieses umbenennen oder verschieben.")
            .arg(folder);
    }
    if (deed == FileDeed::Read)
        return ReadRemedy(error, folder);
    return WriteRemedy(error, folder, Again(deed));
}

} // namespace

QString StateDirectoryFor(const QString& data_directory)
{
    const QString folder = UserStateFolder();
    return folder.isEmpty() ? QString()
                            : folder + QStringLiteral("/parzello/") + KeyOf(data_directory);
}

QString NameWithin(const QString& name)
{
    return !name.isEmpty() && IsSeparator(name[0]) ? name.mid(1) : name;
}

QString PathOf(const DataFiles& files, const QString& name)
{
    return files.DataDirectory + QLatin1Char('/') + NameWithin(name);
}

QString FileNameOf(const QString& path_or_name)
{
    qsizetype begin = path_or_name.size();
    while (begin > 0 && !IsSeparator(path_or_name[begin - 1]))
        --begin;
    return path_or_name.mid(begin);
}

RuntimeError FileError(const DataFiles& files, const QString& name, const SystemError& error,
    FileDeed deed, const QString& before)
{
    Place where;
    where.file = FileNameOf(name);
    where.remedy = Remedy(error, files.DataDirectory, deed);
    RuntimeError refused { ErrorKind::File, where, ReasonOf(error) };
    if (!before.isEmpty())
        PrependToRemedy(refused, before);
    return refused;
}
