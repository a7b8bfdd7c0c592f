// Which files the bills become, and writing one of them.
#pragma once

#include "data/system_error.h"
#include "outgoing/bill_file_names.h"
#include "statement/printing.h"
#include "statement/statement_state.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

enum class BillSplit { FilePerMember, AllInOneFile, ShownPage };

/// A file and the pages in it: the drawn ones, which are always the first ones of all.
struct BillFile {
    QString Name;
    PageRange Pages;
};

/// The files of the drawn bills; a bill that was not drawn is in none.
std::vector<BillFile> BillFilesOf(const StatementState& statement, BillSplit split);

/// Names of the members without a bill, as in the name list.
QStringList MembersWithoutBill(const StatementState& statement, BillSplit split);

/// True when the folder is the data directory or lies in it, whatever links lead there.
bool LiesIn(const QString& folder, const QString& data_directory);

/// How many of the files are in the folder already.
qsizetype CountExisting(const QString& folder, const std::vector<BillFile>& files);

/// Writes a file; it appears under its name, in place of an older one, only when it is whole. An
/// error leaves nothing behind.
SystemError WriteBillFile(const QString& folder, const QString& name, const QByteArray& content);
