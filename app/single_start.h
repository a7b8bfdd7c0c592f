// A second start on the same data: the first one's window comes to the front and the second ends.
// The lock is held by the system, so a crash leaves nothing that could hold up the next start, and
// nothing of this lies in the data directory. How a system locks and calls: app/start_lock.h.
#pragma once

#include "data/data_files.h"

#include <functional>
#include <memory>

class QWidget;
struct StartLock;

/// The lock of a data directory and the ear for later starts. Both end with it.
struct SingleStart {
    SingleStart();
    SingleStart(const SingleStart&) = delete;
    SingleStart& operator=(const SingleStart&) = delete;
    ~SingleStart();

    std::shared_ptr<StartLock> Lock; ///< what the system gives for them
};

/// To be called before anything else touches the files. True: this program may go on (also where
/// the state directory allows no lock: looking at the data must always be possible). False: another
/// one has the directory and has been asked to show its window; this one is to end.
bool TakeDataDirectory(SingleStart& start, const DataFiles& files);

/// Runs the handler whenever a later start has ended in favour of this one, those before this call
/// included. Needs a running event loop.
void OnLaterStart(SingleStart& start, std::function<void()> handler);

/// Brings the window in front of all others, unfolded when it is minimised; an open dialog comes
/// with it. A window that is not shown yet stays so.
void BringToFront(QWidget& window);
