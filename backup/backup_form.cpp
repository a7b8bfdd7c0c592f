#include "backup/backup_form.h"

#include "app/program.h"
#include "backup/copying.h"
#include "backup/texts.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/file_names.h"

#include <QCursor>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// Drive text and folder of one run; found once, before the question.
struct Destination {
    QString Drive;
    QString Folder;
};

/// The pointer shows that the program works; never while a box is open.
struct BusyPointer {
    BusyPointer() { QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor)); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

/// The bar of one run: at its minimum before and after, also when the run fails.
struct ProgressRun {
    QProgressBar* Bar;
    explicit ProgressRun(QProgressBar* bar)
        : Bar(bar)
    {
        Bar->setValue(Bar->minimum());
    }
    ~ProgressRun() { Bar->setValue(Bar->minimum()); }
    ProgressRun(const ProgressRun&) = delete;
    ProgressRun& operator=(const ProgressRun&) = delete;

    FileDone Counting(qsizetype count) const
    {
        return [bar = Bar, count](qsizetype position) {
            const auto maximum = static_cast<float>(bar->maximum());
            bar->setValue(qRound(ProgressValue(maximum, count, position)));
            bar->repaint(); // no event is handled until the last file is copied
        };
    }
};

void ShowFolder(const BackupForm& form, const Destination& destination)
{
    const QString tip = BackupFolderTip(destination.Drive, destination.Folder);
    form.Command10->setToolTip(tip);
    form.Command11->setToolTip(tip);
}

Destination FindDestination(const BackupForm& form)
{
    Destination destination;
    destination.Drive = form.FindDrive();
    destination.Folder = BackupFolder(destination.Drive, form.FindFallback());
    ShowFolder(form, destination);
    return destination;
}

bool StickConfirmed(const Program& program, const QString& question)
{
    MessageBox box;
    box.text = question;
    box.title = BackupTitle;
    box.buttons = BoxButtons::OkCancel;
    return program.Ask(box) == BoxAnswer::Ok;
}

/// Tinted when the copies lie on the computer that they are to be saved from.
void ShowDone(Program& program, const Destination& destination, qsizetype copies)
{
    const QString when
        = program.Today().toString(u"dd.MM.yyyy "_s) + program.Backup.Clock().toString(u"HH:mm"_s);
    const QString folder = QDir::toNativeSeparators(QDir::cleanPath(destination.Folder));
    const bool on_stick = !destination.Drive.isEmpty();
    QLabel* line = program.Backup.DoneLine;
    Tint(line, on_stick ? TintKind::None : TintKind::Unsaved);
    line->setAutoFillBackground(!on_stick);
    ShowWarningLine(line, BackupDone(destination.Drive, when, folder, copies));
}

bool FolderAskedFor(Program& program, QEvent&)
{
    ShowBackupFolder(program);
    return false;
}

QPushButton* MakeButton(Program& program, QWidget* frame, const QString& caption,
    const QString& name, void (*handler)(Program&))
{
    auto* button = Named(MakeButton(frame, caption), name);
    On(program, button, &QPushButton::clicked, handler);
    // A stick comes and goes while the window is open: the tool tip is looked up when it is needed.
    OnEvent(program, button, QEvent::Enter, FolderAskedFor);
    OnEvent(program, button, QEvent::FocusIn, FolderAskedFor);
    return button;
}

} // namespace

QWidget* BuildBackupFrame(Program& program, QWidget* parent)
{
    BackupForm& form = program.Backup;
    if (!form.FindDrive)
        form.FindDrive = FindRemovableDrive;
    if (!form.FindFallback)
        form.FindFallback = [&program] { return FallbackOf(program.Files.DataDirectory); };

    auto* frame = new QGroupBox(u"Datensicherung"_s, parent);
    form.Command10 = MakeButton(program, frame, u"Sichern"_s, u"Command10"_s, SaveBackup);
    form.Command11
        = MakeButton(program, frame, u"Wiederherstellen"_s, u"Command11"_s, RestoreBackup);
    form.PB1 = Named(new QProgressBar(frame), u"PB1"_s);
    form.PB1->setRange(0, 100);
    form.PB1->setValue(form.PB1->minimum());
    form.PB1->setTextVisible(false);
    form.PB1->setMaximumHeight(form.PB1->fontMetrics().height()); // a bar, not an empty field
    form.PB1->setAccessibleName(u"Fortschritt der Datensicherung"_s);

    auto* grid = new QGridLayout(frame);
    grid->setSpacing(FrameSpacing);
    grid->addWidget(form.Command10, 0, 0);
    grid->addWidget(form.Command11, 0, 1);
    grid->addWidget(form.PB1, 1, 0, 1, 2);
    form.DoneLine = MakeWarningLine(frame, u"BackupDone"_s, TintKind::None);
    form.DoneLine->setAutoFillBackground(false);
    grid->addWidget(form.DoneLine, 2, 0, 1, 2);
    return frame;
}

void ShowBackupFolder(Program& program) { FindDestination(program.Backup); }

void SaveBackup(Program& program) // Command10, "Sichern"
{
    const Destination destination = FindDestination(program.Backup);
    CheckBackupFolder(program.Files, destination.Folder);
    CreateBackupFolder(destination.Folder);
    const QStringList names = DataFileNames(program.Files.DataDirectory, Links::Follow);
    const ProgressRun run(program.Backup.PB1);
    if (!StickConfirmed(program, AskForStick))
        return;
    ShowWarningLine(program.Backup.DoneLine, {}); // a run that fails leaves no old one standing
    qsizetype copies = 0;
    {
        const BusyPointer busy;
        copies = BackUpFiles(program.Files, destination.Folder, names, run.Counting(names.size()));
    }
    ShowDone(program, destination, copies);
    Tell(program.Ask, SavedTitle, SavedTo(destination.Drive));
}

void RestoreBackup(Program& program) // Command11, "Wiederherstellen"
{
    const Destination destination = FindDestination(program.Backup);
    CheckBackupFolder(program.Files, destination.Folder);
    const QStringList names = DataFileNames(destination.Folder, Links::PassOver);
    const ProgressRun run(program.Backup.PB1);
    if (!StickConfirmed(program, AskForSavedStick))
        return;
    DataFileNames(
        destination.Folder, Links::PassOver); // throws when the stick was pulled meanwhile
    {
        const BusyPointer busy;
        RestoreFiles(program.Files, destination.Folder, names, run.Counting(names.size()));
    }
    LoadReplacedYear(program);
    Tell(program.Ask, RestoredTitle, RestoredFrom(destination.Drive));
}
