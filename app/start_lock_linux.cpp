#include "app/start_lock.h"

#include "data/data_files.h"

#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

struct StartLock {
    StartLock() = default;
    StartLock(const StartLock&) = delete;
    StartLock& operator=(const StartLock&) = delete;
    ~StartLock();

    int File = -1; ///< descriptor of the locked file in the state directory
    int Ear = -1; ///< descriptor of the socket
    QString EarPath;
    std::unique_ptr<QSocketNotifier> Notifier;
};

namespace {

constexpr std::size_t longest_token = 512;
constexpr const char* token_variable = "XDG_ACTIVATION_TOKEN";

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

StartLock::~StartLock()
{
    Notifier.reset();
    if (Ear >= 0) {
        ::unlink(QFile::encodeName(EarPath).constData());
        ::close(Ear);
    }
    if (File >= 0)
        ::close(File);
}

std::shared_ptr<StartLock> MakeStartLock() { return std::make_shared<StartLock>(); }

LockOutcome TakeLock(StartLock& lock, const QString& state_directory)
{
    const QByteArray path = QFile::encodeName(state_directory + QStringLiteral("/sperre"));
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0)
        return LockOutcome::Impossible;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
        lock.File = file;
        return LockOutcome::Taken;
    }
    const bool is_held = errno == EWOULDBLOCK;
    ::close(file);
    return is_held ? LockOutcome::HeldByAnother : LockOutcome::Impossible;
}

void OpenEar(StartLock& lock, const QString& state_directory)
{
    const QString path = EarPathOf(state_directory);
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
    lock.Ear = ear;
    lock.EarPath = path;
}

// What a desktop hands to a program that may come to the front is handed on to the first program.
bool CallFirst(const QString& state_directory)
{
    sockaddr_un address;
    const int caller = MakeAddress(EarPathOf(state_directory), address) ? NewSocket() : -1;
    if (caller < 0)
        return false;
    const QByteArray token = qgetenv(token_variable).left(longest_token);
    const ssize_t sent = ::sendto(caller, token.constData(), static_cast<std::size_t>(token.size()),
        MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    const bool is_full = sent < 0 && errno == EAGAIN; // calls enough lie there already
    ::close(caller);
    return sent >= 0 || is_full;
}

void Listen(StartLock& lock, std::function<void()> handler)
{
    if (lock.Ear < 0)
        return;
    const int ear = lock.Ear;
    lock.Notifier = std::make_unique<QSocketNotifier>(ear, QSocketNotifier::Read);
    QObject::connect(lock.Notifier.get(), &QSocketNotifier::activated, lock.Notifier.get(),
        [ear, handler = std::move(handler)] { HearAll(ear, handler); });
}
