// What app/single_start needs of the operating system: a lock that the system gives up with the
// program, and a way for a later start to call the first one. Each system has a start_lock_….cpp of
// its own.
#pragma once

#include <QString>

#include <functional>
#include <memory>

/// The lock that this program holds and the ear that later starts call; defined by each system.
struct StartLock;

/// Neither holds nor hears anything yet.
std::shared_ptr<StartLock> MakeStartLock();

enum class LockOutcome { Taken, HeldByAnother, Impossible };

/// Locks an existing state directory for this program.
LockOutcome TakeLock(StartLock& lock, const QString& state_directory);

/// From now on later starts can call this program, which holds the lock. Without an ear it still
/// runs; only a later start cannot call it.
void OpenEar(StartLock& lock, const QString& state_directory);

/// Asks the program that holds the lock to show its window; false when it does not hear.
bool CallFirst(const QString& state_directory);

/// Runs the handler for each call, those that lie there already included.
void Listen(StartLock& lock, std::function<void()> handler);
