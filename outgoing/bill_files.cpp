#include "outgoing/bill_files.h"

#include "data/records.h"
#include "data/system_files.h"
#include "statement/annual_statement.h"
#include "statement/statement_pages.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool IsDrawn(const StatementState& statement, qsizetype page)
{
    return page >= 0 && page < statement.StatementTotals.size();
}

qsizetype ShownIndex(const StatementState& statement) { return statement.ShownPage - 1; }

QStringList NamesOfAll(const StatementState& statement)
{
    QList<BillNameParts> members;
    for (qsizetype page = 0; page < PageCount(statement); ++page) {
        const MemberRecord fields = SplitRecord(statement.Source.Members.RecordList[page]);
        members.append(
            { PrintedSurname(FieldOrEmpty(fields, Surname)), FieldOrEmpty(fields, FirstName),
                FieldOrEmpty(fields, PlotNumber), IsDrawn(statement, page) });
    }
    return BillFileNames(statement.Source.YearText, members);
}

/// The folder as it really is, also while its last parts are not there yet.
QString RealPath(const QString& folder)
{
    const QFileInfo info(QDir::cleanPath(QDir(folder).absolutePath()));
    if (info.exists() || info.isRoot())
        return info.canonicalFilePath();
    return RealPath(info.absolutePath()) + u'/' + info.fileName();
}

SystemError WriteNew(const QString& path, const QByteArray& content)
{
    SystemFile file;
    if (const SystemError error = file.Open(path, OpenMode::CreateNew))
        return error;
    qint64 position = 0;
    while (position < content.size()) {
        qsizetype written = 0;
        const auto error = file.WriteSome(
            content.constData() + position, content.size() - position, position, written);
        if (error)
            return error;
        position += written;
    }
    return file.Close();
}

} // namespace

std::vector<BillFile> BillFilesOf(const StatementState& statement, BillSplit split)
{
    const qsizetype drawn = std::min(PageCount(statement), statement.StatementTotals.size());
    if (drawn == 0)
        return {};
    if (split == BillSplit::AllInOneFile)
        return { { AllBillsFileName(statement.Source.YearText), { 0, drawn - 1 } } };
    std::vector<BillFile> files;
    const QStringList names = NamesOfAll(statement);
    for (qsizetype page = 0; page < drawn; ++page) {
        if (split == BillSplit::FilePerMember || page == ShownIndex(statement))
            files.push_back({ names[page], { page, page } });
    }
    return files;
}

QStringList MembersWithoutBill(const StatementState& statement, BillSplit split)
{
    QStringList names;
    for (qsizetype page = 0; page < PageCount(statement); ++page) {
        const bool asked = split != BillSplit::ShownPage || page == ShownIndex(statement);
        if (asked && !IsDrawn(statement, page))
            names += NameEntry(SplitRecord(statement.Source.Members.RecordList[page]));
    }
    return names;
}

bool LiesIn(const QString& folder, const QString& data_directory)
{
    const QString inner = RealPath(folder);
    const QString outer = RealPath(data_directory);
    return inner == outer || inner.startsWith(outer + u'/');
}

qsizetype CountExisting(const QString& folder, const std::vector<BillFile>& files)
{
    return std::count_if(files.begin(), files.end(), [&folder](const BillFile& file) {
        return QFileInfo::exists(QDir(folder).filePath(file.Name));
    });
}

SystemError WriteBillFile(const QString& folder, const QString& name, const QByteArray& content)
{
    const QString path = QDir(folder).filePath(name);
    const QString unfinished = QDir(folder).filePath(u"unfertig-parzello.tmp"_s);
    UnlinkFile(unfinished); // of a run that was cut off
    SystemError error = WriteNew(unfinished, content);
    if (!error)
        error = RenameFile(unfinished, path);
    if (error)
        UnlinkFile(unfinished);
    return error;
}
