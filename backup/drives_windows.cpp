// The platform with drive letters; compiled there only.
#include "backup/drives.h"

#include <windows.h>

QString FindRemovableDrive()
{
    return FirstRemovableLetter(
        [](const QString& letter) { return GetDriveTypeA(letter.toLatin1().constData()); });
}
