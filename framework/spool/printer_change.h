// Who watches what this process changes of a printer (kvspool.h). Used by the host's window, which
// remembers what it stored.
#pragma once

#include "printer_handles.h"

namespace kvspool {

class ChangeWatcher {
 public:
    virtual ~ChangeWatcher() = default;
    // Nothing is written yet; nobody else writes any more.
    virtual void Begun(const OpenPrinter& printer) = 0;
    // All is written that is about to be kept.
    virtual void Ending(const OpenPrinter& printer) = 0;
    // After Ending; what was written is on the disk, or none of it.
    virtual void Ended(bool kept) = 0;
};
// Null ends it. One watches at a time, and starts and ends while no change is open.
void WatchChanges(ChangeWatcher* watcher);

}  // namespace kvspool
