// What copying to and from a stick needs of the operating system beyond data/system_files: which
// files a folder holds, links, file times, and waiting until the medium has everything. Nothing is
// thrown here: routines return 0 or an error number (ReasonOf).
#pragma once

#include <QString>
#include <QStringList>

constexpr int IsALink = -101; ///< a link stands where a file or folder of its own is needed
constexpr int IsDataDirectory = -102; ///< the backup folder is the folder of the data itself

/// What to do with links when a folder is listed.
enum class Links { Follow, PassOver };

/// Names of the regular files of a folder, in no order. Folders, pipes and devices are passed over.
int ListFiles(const QString& folder, Links links, QStringList& names);

/// 0 when there is a folder of that name, and not only a link to one.
int CheckFolder(const QString& folder);

/// Creates the folder; one that exists already is fine, a link is not.
int MakeFolder(const QString& folder);

bool IsLink(const QString& path);

/// True when both names lead to the same folder.
bool IsSameFolder(const QString& a, const QString& b);

/// Gives a file the access and change times of another one.
int CopyFileTimes(const QString& from, const QString& to);

/// Waits until everything written to the medium of that folder has arrived there.
int FlushMedium(const QString& folder);

/// German wording of an error number of this file or of data/system_files.
QString MediumReasonOf(int error);
