// The entries of lists that this process stored while a window is open (papers, watermarks, bins,
// overlays), and which of them somebody else has changed or deleted since. The window tells the
// person, who would otherwise not know that the later of two changes won.
#pragma once

#include <framework/list/list_store.h>
#include <framework/spool/printer_change.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvhost {

struct ListEntry {
    std::string name;
    std::string content;  // whatever tells two versions apart
};
using ListEntries = std::map<DWORD, ListEntry>;  // by id

// What was stored of one list.
class StoredEntries {
 public:
    void Note(const ListEntries& before, const ListEntries& after);
    bool IsEmpty() const { return stored_.empty(); }
    // One sentence for each entry that is not as it was stored here; each is told once.
    std::vector<std::string> Overruled(std::string_view kind, const ListEntries& now);

 private:
    struct Entry {
        std::string name;
        std::optional<std::string> content;  // none of one that was deleted here
    };
    std::map<DWORD, Entry> stored_;
};

// The entries of all lists of a printer. One lasts at a time.
class StoredEntriesWatch : private kvspool::ChangeWatcher {
 public:
    StoredEntriesWatch(std::string printer, kv::StatePlace place);
    ~StoredEntriesWatch() override;
    StoredEntriesWatch(const StoredEntriesWatch&) = delete;
    StoredEntriesWatch& operator=(const StoredEntriesWatch&) = delete;

    // Looks at what is stored now, of those lists that this process stored entries of. A list that
    // cannot be read now is looked at another time.
    std::vector<std::string> Overruled();

 private:
    void Begun(const kvspool::OpenPrinter& printer) override;
    void Ending(const kvspool::OpenPrinter& printer) override;
    void Ended(bool kept) override;
    bool ReadOverlays(ListEntries& entries) const;

    const std::string printer_;
    const kv::StatePlace place_;
    std::map<const kvlist::ListFormat*, StoredEntries> lists_;
    StoredEntries overlays_;
    std::optional<ListEntries> overlaysBefore_, overlaysAfter_;  // of the change that is open
};

}  // namespace kvhost
