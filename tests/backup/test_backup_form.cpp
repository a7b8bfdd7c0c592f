// The frame "Datensicherung": order of the steps, texts of the boxes, the bar, loading the restored
// year. The rules of copying are proved in test_copying.
#include "tests/support/club.h"

#include "controls/fields.h"
#include "data/file_names.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QDate Day(2017, 11, 20);

const QString AskToSave
    = u"Bitte stecken Sie zur Datensicherung einen USB Stick in einen Ihrer USB Anschlüße und drücken Sie die OK Taste"_s;
const QString AskToRestore
    = u"Bitte stecken Sie den USB Stick mit den gesicherten Daten in Ihren USB Anschluß: und drücken Sie die OK Taste"_s;

QStringList NamesIn(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

void WriteTo(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// A club in its routine, its window built and its year loaded; the boxes of that are forgotten.
struct StartedClub : TestClub {
    QString Stick = Drive + u"/Parzello"_s;

    explicit StartedClub(const QString& example = u"ordinary-year"_s)
    {
        CopyExample(example);
        Start(Day);
        Boxes.clear();
    }

    void Save() { program.Backup.Command10->click(); }
    void Restore() { program.Backup.Command11->click(); }
    int Bar() const { return program.Backup.PB1->value(); }

    void FillStick()
    {
        Save();
        Boxes.clear();
    }
};

/// Values that the bar has painted, and the look of the pointer at that moment.
struct PaintRecorder : QObject {
    QList<int> Values;
    QList<Qt::CursorShape> Pointers;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            const int value = qobject_cast<QProgressBar*>(watched)->value();
            if (!Values.isEmpty() && Values.last() == value)
                return false; // once by the bar itself, once by the program
            Values += value;
            const QCursor* pointer = QGuiApplication::overrideCursor();
            Pointers += pointer == nullptr ? Qt::ArrowCursor : pointer->shape();
        }
        return false;
    }
};

} // namespace

class TestBackupForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_frame_has_its_captions_and_a_bar_from_0_to_100()
    {
        StartedClub club;
        const auto* save = club.Control<QPushButton>("Command10");
        const auto* restore = club.Control<QPushButton>("Command11");
        const auto* bar = club.Control<QProgressBar>("PB1");
        QCOMPARE(save->text(), u"Sichern"_s);
        QCOMPARE(restore->text(), u"Wiederherstellen"_s);
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), 100);
        QCOMPARE(bar->value(), 0);
        const auto* frame = qobject_cast<QGroupBox*>(save->parentWidget());
        QVERIFY(frame != nullptr);
        QCOMPARE(frame->title(), u"Datensicherung"_s);
        QCOMPARE(restore->parentWidget(), frame);
        QCOMPARE(bar->parentWidget(), frame);
    }

    void saving_asks_copies_and_says_so()
    {
        StartedClub club;
        club.Write(u"SonderAbrechnungMeier2017.xls"_s, "table");
        club.Write(u"Liste.txt"_s, "not ours");
        club.Save();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[0].text, AskToSave);
        QCOMPARE(club.Boxes[0].title, u"Datensicherung"_s);
        QCOMPARE(club.Boxes[0].buttons, BoxButtons::OkCancel);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::None);
        QCOMPARE(club.Boxes[1].text, u"Daten auf "_s + club.Drive + u" gesichert!"_s);
        QCOMPARE(club.Boxes[1].title, u"Datensicherug"_s);
        QCOMPARE(club.Boxes[1].buttons, BoxButtons::Ok);
        QCOMPARE(club.Boxes[1].icon, BoxIcon::None);
        QCOMPARE(NamesIn(club.Stick),
            QStringList(
                { u"Config.ini"_s, u"Config1.ini"_s, u"HandKasse2016.pz"_s, u"HandKasse2017.pz"_s,
                    u"Konto2016.pz"_s, u"Konto2017.pz"_s, u"Mitgliedsdaten2016.pz"_s,
                    u"Mitgliedsdaten2017.pz"_s, u"SonderAbrechnungMeier2017.xls"_s }));
        for (const QString& name : NamesIn(club.Stick))
            QCOMPARE(BytesOf(club.Stick + u'/' + name), club.Read(name));
        QCOMPARE(club.Bar(), 0);
    }

    void the_club_name_is_neither_saved_nor_restored()
    {
        StartedClub club;
        club.FillStick();
        QVERIFY(!QFile::exists(club.Stick + u"/V.dat"_s));
        WriteTo(club.Stick + u"/V.dat"_s, "another club\r\n");
        const QByteArray own = club.Read(u"V.dat"_s);
        QVERIFY(!own.isEmpty());
        club.Restore();
        QCOMPARE(club.Read(u"V.dat"_s), own);
    }

    void cancelling_saves_nothing()
    {
        StartedClub club;
        club.Answers = { BoxAnswer::Cancel };
        club.Save();
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY(QDir(club.Stick).exists()); // created before the question
        QVERIFY(NamesIn(club.Stick).isEmpty());
        QCOMPARE(club.Bar(), 0);
    }

    void the_drive_is_searched_before_the_question()
    {
        StartedClub club;
        QStringList order;
        club.program.Backup.FindDrive = [&] {
            order += u"search"_s;
            return club.Drive;
        };
        const AskRoutine ask = club.program.Ask;
        club.program.Ask = [&](const MessageBox& box) {
            order += box.title;
            order += QDir(club.Stick).exists() ? u"folder"_s : u"no folder"_s;
            club.Drive = u"/nowhere"_s; // a stick inserted now is not found by this run
            return ask(box);
        };
        club.Save();
        QCOMPARE(order,
            QStringList({ u"search"_s, u"Datensicherung"_s, u"folder"_s, u"Datensicherug"_s,
                u"folder"_s }));
        QVERIFY(club.Boxes[1].text.contains(club.Stick.chopped(9)));

        order.clear();
        club.Drive = club.Stick.chopped(9);
        club.Restore();
        QCOMPARE(order.mid(0, 2), QStringList({ u"search"_s, u"Datensicherung"_s }));
        QCOMPARE(order.count(u"search"_s), 1);
    }

    void the_bar_is_repainted_after_each_file_while_the_pointer_is_busy()
    {
        StartedClub club;
        club.program.Window.SSTab1->setCurrentIndex(3);
        club.program.Window.Window->resize(1600, 1400); // what is scrolled out is not painted
        club.program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowExposed(club.program.Window.Window));
        QCoreApplication::processEvents();
        PaintRecorder recorder;
        club.program.Backup.PB1->installEventFilter(&recorder);
        club.Save();
        // eight files: 12.5, 25, 37.5 ... in whole steps of the bar
        const QList<int> expected { 13, 25, 38, 50, 63, 75, 88, 100 };
        QCOMPARE(recorder.Values.mid(0, 8), expected);
        for (qsizetype i = 0; i < 8; ++i)
            QCOMPARE(recorder.Pointers[i], Qt::WaitCursor);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void the_bar_is_full_and_the_pointer_free_while_the_last_box_is_open()
    {
        StartedClub club;
        QList<int> values;
        QList<bool> busy;
        const AskRoutine ask = club.program.Ask;
        club.program.Ask = [&](const MessageBox& box) {
            values += club.Bar();
            busy += QGuiApplication::overrideCursor() != nullptr;
            return ask(box);
        };
        club.Save();
        QCOMPARE(values, QList<int>({ 0, 100 }));
        QCOMPARE(busy, QList<bool>({ false, false }));
        QCOMPARE(club.Bar(), 0);
        values.clear();
        club.Restore();
        QCOMPARE(values.first(), 0);
        QCOMPARE(values.last(), 100);
        QVERIFY(!busy.contains(true));
        QCOMPARE(club.Bar(), 0);
    }

    void without_files_the_bar_stays_at_its_minimum()
    {
        TestClub club;
        club.Start(Day);
        club.Boxes.clear();
        QList<int> values;
        const AskRoutine ask = club.program.Ask;
        club.program.Ask = [&](const MessageBox& box) {
            values += club.program.Backup.PB1->value();
            return ask(box);
        };
        club.program.Backup.Command10->click();
        QCOMPARE(club.BoxTexts(),
            QStringList({ u"Datensicherung: "_s + AskToSave,
                u"Datensicherug: Daten auf "_s + club.Drive + u" gesichert!"_s }));
        QCOMPARE(values, QList<int>({ 0, 0 }));
        QVERIFY(NamesIn(club.Drive + u"/Parzello"_s).isEmpty());
    }

    void a_finished_backup_says_below_the_bar_where_it_went_and_when()
    {
        StartedClub club;
        club.program.Backup.Clock = [] { return QTime(22, 20, 59); };
        const auto* line = club.Control<QLabel>("BackupDone");
        QVERIFY(line->isHidden());
        club.Save();
        QVERIFY(!line->isHidden());
        QCOMPARE(line->text(),
            u"20.11.2017 22:20 nach %1, 8 Dateien, geprüft"_s.arg(
                QDir::toNativeSeparators(club.Stick)));
        QCOMPARE(TintOf(line), TintKind::None);
    }

    void a_backup_without_a_stick_is_tinted()
    {
        StartedClub club;
        club.program.Backup.Clock = [] { return QTime(8, 5); };
        club.Drive.clear();
        club.Save();
        const auto* line = club.Control<QLabel>("BackupDone");
        QCOMPARE(line->text(),
            u"20.11.2017 08:05, kein USB-Stick: gesichert nach %1, 8 Dateien, geprüft"_s.arg(
                QDir::toNativeSeparators(club.Folder.filePath(u"root/Parzello"_s))));
        QCOMPARE(TintOf(line), TintKind::Unsaved);
    }

    void a_backup_that_fails_leaves_no_line_of_an_earlier_one()
    {
        StartedClub club;
        club.Save();
        const QString copy = club.Stick + u"/Konto2017.pz"_s;
        QVERIFY(QFile::remove(copy) && QDir().mkpath(copy + u"/x"_s));
        club.Save();
        QCOMPARE(club.Boxes.last().icon, BoxIcon::Error);
        QVERIFY(club.Control<QLabel>("BackupDone")->isHidden());
    }

    void an_existing_empty_folder_is_fine()
    {
        StartedClub club;
        QVERIFY(QDir().mkdir(club.Stick));
        club.Save();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].title, u"Datensicherug"_s);
        QCOMPARE(NamesIn(club.Stick).size(), 8);
    }

    void without_a_drive_the_data_goes_to_the_root_of_its_volume()
    {
        StartedClub club;
        club.Drive.clear();
        club.Save();
        QCOMPARE(club.Boxes[1].text, u"Daten auf  gesichert!"_s); // two blanks
        QCOMPARE(NamesIn(club.Folder.filePath(u"root/Parzello"_s)).size(), 8);
        club.Boxes.clear();
        club.Write(u"Konto2017.pz"_s, "damaged");
        club.Restore();
        QCOMPARE(club.Boxes.last().text, u"Daten von  wieder hergestellt!"_s);
        QVERIFY(club.Read(u"Konto2017.pz"_s) != "damaged");
    }

    void without_a_drive_and_a_writable_root_the_data_goes_home()
    {
        StartedClub club;
        club.Drive.clear();
        WriteTo(club.Folder.filePath(u"root/Parzello"_s), "a file in the way");
        club.Save();
        QCOMPARE(NamesIn(club.Folder.filePath(u"home/Parzello"_s)).size(), 8);
    }

    void a_backup_into_the_data_directory_is_refused()
    {
        StartedClub club;
        club.Drive.clear();
        QVERIFY(QDir().rename(
            club.program.Files.DataDirectory, club.Folder.filePath(u"root/Parzello"_s)));
        club.program.Files.DataDirectory = club.Folder.filePath(u"root/Parzello"_s);
        const QByteArray ledger = club.Read(u"Konto2017.pz"_s);
        for (auto* button : { club.program.Backup.Command10, club.program.Backup.Command11 }) {
            club.Boxes.clear();
            button->click();
            QCOMPARE(club.Boxes.size(), 1);
            QCOMPARE(club.Boxes[0].title, u"Kleingarten Parzello"_s);
            QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
            QCOMPARE(club.Boxes[0].text, u"Daten und Sicherung lägen im selben Ordner"_s);
            QCOMPARE(club.Read(u"Konto2017.pz"_s), ledger);
        }
    }

    void a_folder_that_cannot_be_created_is_reported_before_the_question()
    {
        StartedClub club;
        WriteTo(club.Stick, "a file in the way");
        club.Save();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QCOMPARE(club.Boxes[0].text, u"Ist kein Verzeichnis"_s);
        QVERIFY(club.Boxes[0].detail.contains(club.Stick));
    }

    void a_copy_that_fails_is_named_and_no_success_is_told()
    {
        StartedClub club;
        QVERIFY(QDir().mkpath(club.Stick + u"/Konto2017.pz"_s));
        club.Save();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].title, u"Kleingarten Parzello"_s);
        QCOMPARE(club.Boxes[1].icon, BoxIcon::Error);
        QVERIFY(club.Boxes[1].detail.startsWith(u"Datei „Konto2017.pz“: "_s));
        QCOMPARE(club.Bar(), 0);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QVERIFY(!NamesIn(club.Stick).contains(u"Mitgliedsdaten2016.pz"_s));
        QVERIFY(!NamesIn(club.Stick).contains(u".parzello.neu"_s));
    }

    void a_stick_pulled_during_the_question_is_reported()
    {
        StartedClub club;
        club.FillStick();
        const QByteArray ledger = club.Read(u"Konto2017.pz"_s);
        const AskRoutine ask = club.program.Ask;
        club.program.Ask = [&](const MessageBox& box) {
            QDir(club.Stick).removeRecursively();
            return ask(box);
        };
        club.Restore();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].text, u"Datei oder Verzeichnis nicht gefunden"_s);
        QCOMPARE(club.Boxes[1].icon, BoxIcon::Error);
        QCOMPARE(club.Read(u"Konto2017.pz"_s), ledger);

        club.Boxes.clear();
        club.Save();
        QCOMPARE(club.Boxes.size(), 2);
        QVERIFY(club.Boxes[1].detail.startsWith(u"Datei „Config.ini“: "_s));
        QVERIFY(!QDir(club.Stick).exists());
    }

    void restoring_asks_copies_loads_the_year_and_says_so()
    {
        StartedClub club;
        club.FillStick();
        const QByteArray members = club.Read(u"Mitgliedsdaten2017.pz"_s);
        const QByteArray prices = club.Read(u"Config.ini"_s);
        const QStringList names = club.program.Members.NameList;
        QVERIFY(names.size() > 1);
        club.Write(u"Mitgliedsdaten2017.pz"_s, "Falsch;Fritz;;;;;;;;;;;;;;\r\n");
        club.Write(u"Config.ini"_s, "");
        LoadYear(club.program);
        QCOMPARE(club.program.Members.NameList, QStringList({ u"Falsch,Fritz"_s }));
        club.Boxes.clear();
        club.Restore();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[0].text, AskToRestore);
        QCOMPARE(club.Boxes[0].title, u"Datensicherung"_s);
        QCOMPARE(club.Boxes[0].buttons, BoxButtons::OkCancel);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::None);
        QCOMPARE(club.Boxes[1].text, u"Daten von "_s + club.Drive + u" wieder hergestellt!"_s);
        QCOMPARE(club.Boxes[1].title, u"Daten Wiederherstellung"_s);
        QCOMPARE(club.Boxes[1].buttons, BoxButtons::Ok);
        QCOMPARE(club.Boxes[1].icon, BoxIcon::None);
        QCOMPARE(club.Read(u"Mitgliedsdaten2017.pz"_s), members);
        QCOMPARE(club.Read(u"Config.ini"_s), prices);
        QCOMPARE(club.program.Members.NameList, names);
        QCOMPARE(club.Bar(), 0);
    }

    void cancelling_restores_nothing()
    {
        StartedClub club;
        club.FillStick();
        club.Write(u"Konto2017.pz"_s, "changed since\r\n");
        club.Answers = { BoxAnswer::Cancel };
        club.Restore();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Read(u"Konto2017.pz"_s), QByteArray("changed since\r\n"));
    }

    void restoring_without_a_folder_is_an_error_and_loads_nothing()
    {
        StartedClub club;
        const QByteArray ledger = club.Read(u"Konto2017.pz"_s);
        club.program.Members.NameList += u"Nicht,Geladen"_s;
        club.Restore();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].title, u"Kleingarten Parzello"_s);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QCOMPARE(club.Boxes[0].text, u"Datei oder Verzeichnis nicht gefunden"_s);
        QVERIFY(club.Boxes[0].detail.contains(club.Stick));
        QCOMPARE(club.Read(u"Konto2017.pz"_s), ledger);
        QCOMPARE(club.program.Members.NameList.last(), u"Nicht,Geladen"_s);
    }

    void a_zero_length_file_is_not_saved_but_restored()
    {
        StartedClub club;
        club.Write(u"Config1.ini"_s, "");
        club.Save();
        QVERIFY(!QFile::exists(club.Stick + u"/Config1.ini"_s));
        club.Write(u"Config1.ini"_s, "[Daten]\r\nBankname=Bank\r\n");
        WriteTo(club.Stick + u"/Config1.ini"_s, "");
        club.Restore();
        QVERIFY(club.Exists(u"Config1.ini"_s));
        QCOMPARE(club.Read(u"Config1.ini"_s), QByteArray());
    }

    void names_with_line_breaks_on_the_stick_are_refused_and_nothing_is_written()
    {
        StartedClub club;
        club.FillStick();
        WriteTo(club.Stick + u"/Konto\n2017.pz"_s, "x");
        club.Write(u"Konto2017.pz"_s, "changed since\r\n");
        club.Restore();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QVERIFY(club.Boxes[0].detail.startsWith(u"Datei „Konto?2017.pz“: "_s));
        QCOMPARE(club.Read(u"Konto2017.pz"_s), QByteArray("changed since\r\n"));
    }

    void a_failing_restore_neither_loads_nor_tells_success()
    {
        StartedClub club;
        club.FillStick();
        const QByteArray prices = club.Read(u"Config.ini"_s);
        club.Write(u"Config.ini"_s, "changed since");
        QVERIFY(QFile::remove(club.Path(u"Mitgliedsdaten2016.pz"_s)));
        QVERIFY(QDir().mkdir(club.Path(u"Mitgliedsdaten2016.pz"_s)));
        club.program.Members.NameList += u"Nicht,Geladen"_s;
        club.Restore();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].icon, BoxIcon::Error);
        QVERIFY(club.Boxes[1].detail.startsWith(u"Datei „Mitgliedsdaten2016.pz“: "_s));
        QCOMPARE(club.Read(u"Config.ini"_s), QByteArray("changed since"));
        QCOMPARE(club.program.Members.NameList.last(), u"Nicht,Geladen"_s);
        QCOMPARE(club.Bar(), 0);
    }

    void restoring_while_the_year_has_no_file_reports_it_and_then_success()
    {
        StartedClub club;
        club.FillStick();
        club.program.Year.YearText = u"2012"_s;
        club.program.CashBook.LedgerChanged = true;
        club.program.CashBook.Bank.Unsaved = true;
        club.Restore();
        QCOMPARE(club.BoxTexts(),
            QStringList({ u"Datensicherung: "_s + AskToRestore,
                u"Datenfehler: Für 2012 sind keine Daten gespeichert."_s,
                u"Daten Wiederherstellung: Daten von "_s + club.Drive
                    + u" wieder hergestellt!"_s }));
        // the bookings are still in memory, so they are still asked for
        QVERIFY(club.program.CashBook.LedgerChanged);
        QVERIFY(club.program.CashBook.Bank.Unsaved);
    }

    void unsaved_changes_are_replaced_and_not_asked_for()
    {
        StartedClub club;
        club.FillStick();
        const QByteArray ledger = club.Read(u"Konto2017.pz"_s);
        CashBookState& book = club.program.CashBook;
        book.Bank.Lines += u"20.11.2017;Noch nicht gespeichert;1,00;0,00"_s;
        book.CashBox.Lines += u"20.11.2017;Auch nicht;1,00;0,00"_s;
        book.LedgerChanged = true;
        book.Bank.Unsaved = true;
        book.CashBox.Unsaved = true;
        club.program.Settings.SettingsSaved = false;
        club.program.Settings.PricesEdited = true;
        club.Restore();
        QVERIFY(!book.Bank.Lines.join(u'\n').contains(u"Noch nicht gespeichert"_s));
        QVERIFY(!book.CashBox.Lines.join(u'\n').contains(u"Auch nicht"_s));
        club.Boxes.clear();
        TabChanged(club.program, 0);
        AskForUnsaved(club.program);
        QCOMPARE(club.BoxTexts(), QStringList());
        QCOMPARE(club.Read(u"Konto2017.pz"_s), ledger);
    }

    void the_tool_tips_name_the_folder_in_use()
    {
        StartedClub club;
        const BackupForm& form = club.program.Backup;
        ShowBackupFolder(club.program);
        for (const auto* button : { form.Command10, form.Command11 })
            QCOMPARE(button->toolTip(), u"Ordner der Sicherung: "_s + club.Stick + u'/');
        club.Drive.clear();
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(form.Command11, &enter);
        const QString without = u"Kein USB-Stick gefunden. Ordner der Sicherung: "_s
            + club.Folder.filePath(u"root/Parzello/"_s);
        for (const auto* button : { form.Command10, form.Command11 })
            QCOMPARE(button->toolTip(), without);
        club.Drive = club.Stick.chopped(9);
        QFocusEvent focus(QEvent::FocusIn);
        QCoreApplication::sendEvent(form.Command10, &focus);
        QCOMPARE(form.Command10->toolTip(), u"Ordner der Sicherung: "_s + club.Stick + u'/');
        club.Drive.clear();
        club.Answers = { BoxAnswer::Cancel };
        club.Save();
        QCOMPARE(form.Command10->toolTip(), without);
    }
};

const TestFile<TestBackupForm> test_file(__FILE__);
#include "test_backup_form.moc"
