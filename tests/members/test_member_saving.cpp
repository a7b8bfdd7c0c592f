// When the members file of a year may be written, and what an error says.
#include "members/member_saving.h"

#include "data/file_names.h"
#include "tests/support/error_of.h"
#include "tests/support/test_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Club {
    QTemporaryDir root;
    DataFiles files { root.filePath(u"data"_s), root.filePath(u"state"_s) };

    Club()
    {
        QDir().mkpath(files.DataDirectory);
        QDir().mkpath(files.StateDirectory);
    }

    void Put(const BillingYear& year, const QByteArray& content) const
    {
        QFile file(PathOf(files, MembersFileName(year)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QByteArray Get(const BillingYear& year) const
    {
        QFile file(PathOf(files, MembersFileName(year)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
};

MemberLists OneMember()
{
    MemberLists lists;
    lists.RecordList = QStringList { u"Alt;Eva"_s };
    return lists;
}

} // namespace

class TestMemberSaving : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_file_that_was_never_loaded_is_not_replaced()
    {
        const Club club;
        club.Put(u"2017"_s, "Berta\r\n");
        const RuntimeError error = ErrorOf(
            [&] { SaveMembers(OneMember(), club.files, u"2017"_s, {}, {}, u"Das Ende."_s); });
        QVERIFY(error.where.remedy.contains(u"nicht geladen"_s));
        QCOMPARE(error.where.file, u"Mitgliedsdaten2017.pz"_s);
        QCOMPARE(club.Get(u"2017"_s), QByteArray("Berta\r\n"));
    }

    void a_year_without_a_file_gets_one()
    {
        const Club club;
        QVERIFY(!SaveMembers(OneMember(), club.files, u"2017"_s, {}, {}, {}));
        QCOMPARE(club.Get(u"2017"_s), QByteArray("Alt;Eva\r\n"));
    }

    void a_file_that_cannot_be_written_names_what_became_of_the_input()
    {
        const Club club;
        QDir(club.files.DataDirectory).mkdir(u"Mitgliedsdaten2017.pz"_s); // a folder in its place
        const RuntimeError error = ErrorOf(
            [&] { SaveMembers(OneMember(), club.files, u"2017"_s, {}, {}, u"Das Ende."_s); });
        QVERIFY2(error.where.remedy.endsWith(u"Das Ende."_s), qPrintable(error.where.remedy));
    }
};

const TestFile<TestMemberSaving> test_file(__FILE__);
#include "test_member_saving.moc"
