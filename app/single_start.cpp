#include "app/single_start.h"

#include "app/start_lock.h"
#include "data/system_files.h"
#include "data/whole_files.h"

#include <QApplication>
#include <QThread>
#include <QWidget>

namespace {

// The first program is between its lock and its ear, or just ending: both last only moments.
constexpr int attempts = 20;
constexpr unsigned long pause_milliseconds = 50;

LockOutcome TryToLock(StartLock& lock, const QString& state_directory)
{
    if (state_directory.isEmpty() || MakePrivateFolder(state_directory))
        return LockOutcome::Impossible;
    return TakeLock(lock, state_directory);
}

} // namespace

SingleStart::SingleStart()
    : Lock(MakeStartLock())
{
}

SingleStart::~SingleStart() = default;

bool TakeDataDirectory(SingleStart& start, const DataFiles& files)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const LockOutcome outcome = TryToLock(*start.Lock, files.StateDirectory);
        if (outcome == LockOutcome::Taken)
            OpenEar(*start.Lock, files.StateDirectory);
        if (outcome != LockOutcome::HeldByAnother)
            return true;
        if (CallFirst(files.StateDirectory))
            return false;
        QThread::msleep(pause_milliseconds);
    }
    return false;
}

void OnLaterStart(SingleStart& start, std::function<void()> handler)
{
    Listen(*start.Lock, std::move(handler));
}

void BringToFront(QWidget& window)
{
    QWidget* front = &window;
    if (QWidget* dialog = QApplication::activeModalWidget(); dialog != nullptr)
        front = dialog;
    if (window.isVisible()) { // not yet while the program still starts
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
        window.raise();
    }
    if (front->isVisible()) {
        front->raise();
        front->activateWindow();
    }
}
