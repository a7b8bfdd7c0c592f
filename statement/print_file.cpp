#include "statement/print_file.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

/// A PDF ends with this mark; one that was cut off by a full disk does not.
bool IsWholePdf(const QString& path)
{
    constexpr qint64 length = 16; // bytes at the end that hold the mark
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(0, file.size() - length)))
        return false;
    return file.readAll().contains("%%EOF");
}

/// The file itself when the path is a link.
QString WithoutLinks(const QString& path)
{
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

bool MayBeReplaced(const QFileInfo& target)
{
    const bool folder_takes_files = QFileInfo(target.absolutePath()).isWritable();
    return !target.exists() || (target.isFile() && target.isWritable() && folder_takes_files);
}

} // namespace

QString UnfinishedPrintFile(const QString& target)
{
    const QString file = WithoutLinks(target);
    if (!MayBeReplaced(QFileInfo(file)))
        return file;
    QString unfinished = file + u".unfertig"_s;
    for (int i = 2; QFileInfo::exists(unfinished); ++i)
        unfinished = file + u".unfertig%1"_s.arg(i);
    return unfinished;
}

bool FinishPrintFile(const QString& unfinished, const QString& target)
{
    const QString file = WithoutLinks(target);
    if (!IsWholePdf(unfinished)) {
        DropPrintFile(unfinished);
        return false;
    }
    std::error_code error;
    if (unfinished != file)
        std::filesystem::rename(QFileInfo(unfinished).filesystemAbsoluteFilePath(),
            QFileInfo(file).filesystemAbsoluteFilePath(), error);
    if (error)
        DropPrintFile(unfinished);
    return !error;
}

void DropPrintFile(const QString& unfinished)
{
    if (QFileInfo(unfinished).isFile())
        QFile::remove(unfinished);
}
