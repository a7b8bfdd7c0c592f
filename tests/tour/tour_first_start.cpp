// The tour in an empty folder: a club begins.
#include "tests/tour/tour.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

void Tour::a_club_begins_in_an_empty_folder()
{
    QVERIFY(QDir(Folder.path()).mkdir(u"Neuer Verein"_s));
    Club = ClubFolder { Folder.filePath(u"Neuer Verein"_s), {} };
}
