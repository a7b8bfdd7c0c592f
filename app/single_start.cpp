#include "app/single_start.h"

#include "data/system_files.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <QWidget>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

// The first program is between its lock and its ear, or just ending: both last only moments.
constexpr int attempts = 20;
constexpr unsigned long pause_milliseconds = 50;

constexpr std::size_t longest_token = 512;
constexpr const char* token_variable = "XDG_ACTIVATION_TOKEN";

enum class LockOutcome { Taken, HeldByAnother, Impossible };

LockOutcome TryLock(SingleStart& start, const QString& state_directory)
{
    if (state_directory.isEmpty() || MakePrivateFolder(state_directory) != 0)
        return LockOutcome::Impossible;
    const QByteArray path = QFile::encodeName(state_directory + QStringLiteral("/sperre"));
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0)
        return LockOutcome::Impossible;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
        start.Lock = file;
        return LockOutcome::Taken;
    }
    const bool is_held = errno == EWOULDBLOCK;
    ::close(file);
    return is_held ? LockOutcome::HeldByAnother : LockOutcome::Impossible;
}

// The runtime folder is emptied at every log-in; the state directory does where there is none.
QString EarPathOf(const QString& state_directory)
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.startsWith(QLatin1Char('/')) || !QFileInfo(runtime).isWritable())
        return state_directory + QStringLiteral("/fenster");
    return runtime + QStringLiteral("/parzello-") + FileNameOf(state_directory);
}

bool MakeAddress(const QString& path, sockaddr_un& address)
{
    const QByteArray name = QFile::encodeName(path);
    address = {};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(name.size()) >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    return true;
}

int NewSocket() { return ::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0); }

// Without an ear this program still runs; only a later start cannot call it.
void OpenEar(SingleStart& start, const QString& path)
{
    sockaddr_un address;
    if (!MakeAddress(path, address))
        return;
    const int ear = NewSocket();
    if (ear < 0)
        return;
    ::unlink(address.sun_path); // left by a crash; whoever holds the lock may remove it
    if (::bind(ear, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        ::close(ear);
        return;
    }
    start.Ear = ear;
    start.EarPath = path;
}

// What a desktop hands to a program that may come to the front is handed on to the first program.
bool CallFirst(const QString& path)
{
    sockaddr_un address;
    const int caller = MakeAddress(path, address) ? NewSocket() : -1;
    if (caller < 0)
        return false;
    const QByteArray token = qgetenv(token_variable).left(longest_token);
    const ssize_t sent = ::sendto(caller, token.constData(), static_cast<std::size_t>(token.size()),
        MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    const bool is_full = sent < 0 && errno == EAGAIN; // calls enough lie there already
    ::close(caller);
    return sent >= 0 || is_full;
}

void HearAll(int ear, const std::function<void()>& handler)
{
    char token[longest_token];
    ssize_t length = ::recv(ear, token, sizeof token, 0);
    if (length < 0)
        return;
    for (ssize_t more = length; more >= 0; more = ::recv(ear, token, sizeof token, 0))
        length = more;
    if (length > 0)
        qputenv(token_variable, QByteArray(token, length));
    handler();
}

} // namespace

SingleStart::~SingleStart()
{
    Notifier.reset();
    if (Ear >= 0) {
        ::unlink(QFile::encodeName(EarPath).constData());
        ::close(Ear);
    }
    if (Lock >= 0)
        ::close(Lock);
}

bool TakeDataDirectory(SingleStart& start, const DataFiles& files)
{
    const QString ear_path = EarPathOf(files.StateDirectory);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const LockOutcome outcome = TryLock(start, files.StateDirectory);
        if (outcome == LockOutcome::Taken)
            OpenEar(start, ear_path);
        if (outcome != LockOutcome::HeldByAnother)
            return true;
        if (CallFirst(ear_path))
            return false;
        QThread::msleep(pause_milliseconds);
    }
    return false;
}

void OnLaterStart(SingleStart& start, std::function<void()> handler)
{
    if (start.Ear < 0)
        return;
    const int ear = start.Ear;
    start.Notifier = std::make_unique<QSocketNotifier>(ear, QSocketNotifier::Read);
    QObject::connect(start.Notifier.get(), &QSocketNotifier::activated, start.Notifier.get(),
        [ear, handler = std::move(handler)] { HearAll(ear, handler); });
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
