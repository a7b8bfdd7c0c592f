// What copying to and from a stick needs of the operating system beyond data/system_files: which
// files a folder holds, links, file times, and waiting until the medium has everything. Nothing is
// thrown here: routines return an error by name. Each system has a medium_….cpp of its own.
#pragma once

#include "data/system_error.h"

#include <QString>
#include <QStringList>

/// What to do with links when a folder is listed.
enum class Links { Follow, PassOver };

/// Names of the regular files of a folder, in no order. Folders, pipes and devices are passed over.
SystemError ListFiles(const QString& folder, Links links, QStringList& names);

/// None when there is a folder of that name, and not only a link to one.
SystemError CheckFolder(const QString& folder);

/// Creates the folder; one that exists already is fine, a link is not.
SystemError MakeFolder(const QString& folder);

bool IsLink(const QString& path);

/// True when both names lead to the same folder.
bool IsSameFolder(const QString& a, const QString& b);

/// Gives a file the access and change times of another one.
SystemError CopyFileTimes(const QString& from, const QString& to);

/// Lets the system drop what it keeps of a file in memory, so that reading it asks the medium.
void ForgetCached(const QString& path);

/// Waits until everything written to the medium of that folder has arrived there.
SystemError FlushMedium(const QString& folder);
