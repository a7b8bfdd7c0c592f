#include "backup/copying.h"

#include "data/history.h"
#include "data/whole_files.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A copy grows under this name, which the pattern does not match, and gets its own when complete.
const QString UnfinishedName = u".parzello.neu"_s;

constexpr qint64 most_bytes = 4 * LargestFile; // of all files of a restore together

RuntimeError CopyError(const QString& file, const SystemError& error, const QString& remedy)
{
    Place where;
    where.file = file;
    where.remedy = remedy;
    return { ErrorKind::File, where, ReasonOf(error) };
}

QString InFolder(const QString& folder, const QString& name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

bool IsPlainName(const QString& name)
{
    return std::none_of(name.begin(), name.end(), [](QChar character) {
        return character.category() == QChar::Other_Control || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator
            || character == QChar::ReplacementCharacter // bytes that are no text
            || character == u'/' || character == u'\\';
    });
}

// So that the box shows the name in one line.
QString Shown(QString name)
{
    for (QChar& character : name) {
        if (!IsPlainName(QString(character)))
            character = u'?';
    }
    return name;
}

bool ComesBefore(const QString& a, const QString& b)
{
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

/// Reads a file of the stick itself, never what a link points to.
QByteArray ReadFromStick(const QString& folder, const QString& name)
{
    const QString path = InFolder(folder, name);
    QByteArray content;
    const SystemError error = IsLink(path) ? Fault::IsALink : ReadFileBytes(path, content);
    if (error) {
        throw CopyError(name, error,
            u"Die Datei kann nicht aus „%1“ gelesen werden. Es wurde nichts "
            "wiederhergestellt, alle Daten sind wie zuvor. Bitte prüfen, ob der "
            "Stick noch steckt, und noch einmal wiederherstellen."_s.arg(folder));
    }
    return content;
}

QByteArray ReadFromData(const DataFiles& files, const QString& name)
{
    try {
        return ReadBytes(files, u'\\' + name);
    } catch (RuntimeError& error) {
        AppendToRemedy(
            error, u"Die Sicherung ist unvollständig. Bitte danach noch einmal sichern."_s);
        throw;
    }
}

SystemError WriteToFolder(
    const QString& source, const QString& folder, const QString& name, const QByteArray& content)
{
    const QString unfinished = InFolder(folder, UnfinishedName);
    SystemError error = RemoveFile(unfinished); // left over when a stick was pulled
    Overwritten done = Overwritten::Nothing;
    if (!error)
        error = OverwriteFile(unfinished, content, done);
    if (!error) {
        CopyFileTimes(source, unfinished); // a medium that keeps no times is still a backup
        error = ReplaceFile(unfinished, InFolder(folder, name));
    }
    if (error)
        RemoveFile(unfinished); // the stick may be gone: then there is nothing to remove
    return error;
}

RuntimeError BackupFailed(const QString& file, const SystemError& error, const QString& folder)
{
    return CopyError(file, error,
        u"Die Sicherung nach „%1“ ist unvollständig. Bitte prüfen, ob der Stick "
        "noch steckt, nicht schreibgeschützt ist und genug Platz hat, und noch "
        "einmal sichern."_s.arg(folder));
}

/// Reads every copy back; gives their number.
qsizetype VerifyCopies(const DataFiles& files, const QString& folder, const QStringList& names)
{
    qsizetype copies = 0;
    for (const QString& name : names) {
        const QByteArray content = ReadFromData(files, name);
        if (content.isEmpty())
            continue;
        const QString path = InFolder(folder, name);
        ForgetCached(path);
        QByteArray copy;
        if (const SystemError error = ReadFileBytes(path, copy))
            throw BackupFailed(name, error, folder);
        if (copy != content)
            throw BackupFailed(name, Fault::WrittenOtherwise, folder);
        ++copies;
    }
    return copies;
}

QList<QByteArray> ReadAllFromStick(const QString& folder, const QStringList& names)
{
    QList<QByteArray> contents;
    qint64 bytes = 0;
    for (const QString& name : names) {
        contents += ReadFromStick(folder, name);
        bytes += contents.last().size();
        if (bytes > most_bytes) {
            throw CopyError(name, Fault::TooLarge,
                u"Die Dateien in „%1“ sind zusammen zu groß für eine Sicherung "
                "dieses Programms. Es wurde nichts wiederhergestellt."_s.arg(folder));
        }
    }
    return contents;
}

/// A medium may have turned "Konto2016.pz" into capitals, and a file of that name would be found by
/// nobody: the program's own files get the program's spelling, others that of the file they
/// replace.
QString NameInDataDirectory(const QStringList& existing, const QString& name)
{
    static const QRegularExpression own(
        u"^(mitgliedsdaten|konto|handkasse|config)(\\d*\\.(?:pz|ini))$"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = own.match(name);
    for (const char* spelling : { "Mitgliedsdaten", "Konto", "HandKasse", "Config" }) {
        const QString known = QString::fromLatin1(spelling);
        if (known.compare(match.captured(1), Qt::CaseInsensitive) == 0)
            return known + match.captured(2).toLower();
    }
    if (existing.contains(name))
        return name;
    for (const QString& other : existing) {
        if (other.compare(name, Qt::CaseInsensitive) == 0)
            return other;
    }
    return name;
}

RuntimeError FolderUnreadable(const QString& folder, const SystemError& error, Links links)
{
    const QString what = u"Der Ordner „%1“ kann nicht gelesen werden. Es wurde "
                         "nichts kopiert. "_s.arg(folder);
    if (links == Links::Follow)
        return CopyError({}, error, what + u"Bitte prüfen, ob er noch da ist."_s);
    return CopyError({}, error,
        what
            + u"Bitte den Stick mit den gesicherten Daten einstecken, einen "
              "Augenblick warten und es noch einmal versuchen."_s);
}

void CheckTarget(const DataFiles& files, const QString& name)
{
    const QString path = InFolder(files.DataDirectory, name);
    const QString what = u"Die Datei im Ordner „%1“ kann nicht ersetzt werden. Es wurde nichts "
                         "wiederhergestellt, alle Daten sind wie zuvor."_s.arg(files.DataDirectory);
    if (IsLink(path))
        throw CopyError(name, Fault::IsALink, what);
    if (const SystemError error = CheckWritable(path))
        throw FileError(files, name, error, FileDeed::Restore, what);
}

void Replace(const DataFiles& files, const QString& name, const QByteArray& content)
{
    try {
        RewriteFile(files, u'\\' + name, content);
    } catch (RuntimeError& error) {
        AppendToRemedy(error,
            u"Die Wiederherstellung ist unvollständig. Bitte danach noch einmal "
            "wiederherstellen."_s);
        throw;
    }
}

} // namespace

bool IsDataFileName(const QString& name)
{
    return name.endsWith(u".pz"_s, Qt::CaseInsensitive)
        || name.endsWith(u".ini"_s, Qt::CaseInsensitive)
        || name.endsWith(u".xls"_s, Qt::CaseInsensitive);
}

QStringList DataFileNames(const QString& folder, Links links)
{
    QStringList all;
    SystemError error = links == Links::PassOver ? CheckFolder(folder) : Fault::None;
    if (!error)
        error = ListFiles(folder, links, all);
    if (error)
        throw FolderUnreadable(folder, error, links);
    QStringList names;
    for (const QString& name : all) {
        if (!IsDataFileName(name))
            continue;
        if (!IsPlainName(name)) {
            throw CopyError(Shown(name), Fault::NotAFileName,
                u"Es wurde nichts kopiert. Bitte die Datei im Ordner „%1“ löschen "
                "oder umbenennen und es noch einmal versuchen."_s.arg(folder));
        }
        names += name;
    }
    std::sort(names.begin(), names.end(), ComesBefore);
    return names;
}

void CheckBackupFolder(const DataFiles& files, const QString& folder)
{
    if (!IsSameFolder(files.DataDirectory, folder))
        return;
    throw CopyError({}, Fault::IsDataDirectory,
        u"Der Sicherungsordner „%1“ ist der Ordner, in dem das Programm selbst mit "
        "seinen Daten liegt. Es wurde nichts kopiert. Bitte einen (anderen) "
        "USB-Stick einstecken, einen Augenblick warten und es noch einmal "
        "versuchen."_s.arg(folder));
}

void CreateBackupFolder(const QString& folder)
{
    const SystemError error = MakeFolder(folder);
    if (!error)
        return;
    throw CopyError({}, error,
        u"Der Ordner „%1“ kann nicht angelegt werden. Es wurde nichts gesichert. "
        "Bitte prüfen, ob der Stick noch steckt und nicht schreibgeschützt ist."_s.arg(folder));
}

qsizetype BackUpFiles(
    const DataFiles& files, const QString& folder, const QStringList& names, const FileDone& done)
{
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QByteArray content = ReadFromData(files, names[i]);
        SystemError error;
        if (!content.isEmpty()) {
            error
                = WriteToFolder(InFolder(files.DataDirectory, names[i]), folder, names[i], content);
        }
        if (error)
            throw BackupFailed(names[i], error, folder);
        done(i);
    }
    if (const SystemError error = FlushMedium(folder))
        throw BackupFailed({}, error, folder);
    return VerifyCopies(files, folder, names);
}

void RestoreFiles(
    const DataFiles& files, const QString& folder, const QStringList& names, const FileDone& done)
{
    const QList<QByteArray> contents = ReadAllFromStick(folder, names);
    QStringList existing;
    ListFiles(files.DataDirectory, Links::Follow, existing); // an error shows at the first target
    QStringList targets;
    for (const QString& name : names) {
        targets += NameInDataDirectory(existing, name);
        CheckTarget(files, targets.last());
    }
    const SavingAction action(files, Deed::Restored);
    for (qsizetype i = 0; i < names.size(); ++i) {
        Replace(files, targets[i], contents[i]);
        CopyFileTimes(InFolder(folder, names[i]), InFolder(files.DataDirectory, targets[i]));
        done(i);
    }
}

float ProgressValue(float maximum, qsizetype count, qsizetype position)
{
    return maximum / static_cast<float>(count) * static_cast<float>(position + 1);
}
