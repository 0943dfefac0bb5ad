// See stored_entries.h.
#include <host/window/stored_entries.h>

#include <module/lists/overlay_entries.h>
#include <platform/registry/state_store.h>
#include <platform/shell/paths.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace kvhost {
namespace {

constexpr const char* kOverlayTexts[] = {kvui::kOverlayNames, kvui::kOverlayPaths};

struct KindCaption {
    kvlist::ListKind kind;
    const char* caption;
};
constexpr KindCaption kCaptions[] = {
    {kvlist::ListKind::kPaper, "Custom paper"},
    {kvlist::ListKind::kWatermark, "Watermark"},
    {kvlist::ListKind::kInputBin, "Paper source"},
    {kvlist::ListKind::kOutputBin, "Output bin"},
};

const char* CaptionOf(kvlist::ListKind kind) {
    const auto found = std::find_if(std::begin(kCaptions), std::end(kCaptions),
                                    [kind](const KindCaption& row) { return row.kind == kind; });
    return found->caption;
}

// The name is the first text of each kind of record, and what readers work out anew is no content.
ListEntries EntriesOf(const kvlist::ListFormat& format, const kvlist::Records& records) {
    ListEntries entries;
    for (kvlist::Record record : records) {
        const char* name = record.data() + format.texts[0].offset;
        const DWORD id = kvlist::RecordId(format, record.data());
        ListEntry entry{std::string(name, strnlen(name, format.texts[0].size)), {}};
        std::fill_n(record.begin() + static_cast<std::ptrdiff_t>(format.derived.offset),
                    format.derived.size, '\0');
        entry.content = std::move(record);
        entries[id] = std::move(entry);
    }
    return entries;
}

}  // namespace

void StoredEntries::Note(const ListEntries& before, const ListEntries& after) {
    for (const auto& [id, entry] : after) {
        const auto was = before.find(id);
        const bool isSame = was != before.end() && was->second.content == entry.content;
        if (!isSame) stored_[id] = {entry.name, entry.content};
    }
    for (const auto& [id, entry] : before) {
        if (!after.contains(id)) stored_[id] = {entry.name, std::nullopt};
    }
}

std::vector<std::string> StoredEntries::Overruled(std::string_view kind, const ListEntries& now) {
    std::vector<std::string> sentences;
    std::erase_if(stored_, [&](const auto& item) {
        const auto& [id, mine] = item;
        const auto is = now.find(id);
        const char* fate = nullptr;
        if (!mine.content) {
            if (is != now.end()) fate = "was stored again by somebody else after you deleted it";
        } else if (is == now.end()) {
            fate = "was deleted by somebody else after you";
        } else if (is->second.content != *mine.content) {
            fate = "was changed by somebody else after you";
        }
        if (fate) sentences.push_back(std::string(kind) + " \"" + mine.name + "\" " + fate);
        return fate != nullptr;
    });
    return sentences;
}

StoredEntriesWatch::StoredEntriesWatch(std::string printer, kv::StatePlace place)
    : printer_(std::move(printer)), place_(place) {
    kvspool::WatchChanges(this);
    kvlist::WatchLists([this](const kvlist::ListFormat& format, const std::string& name,
                              const kvlist::Records& before, const kvlist::Records& after) {
        if (!kv::EqualsIgnoringCase(name, printer_)) return;
        lists_[&format].Note(EntriesOf(format, before), EntriesOf(format, after));
    });
}

StoredEntriesWatch::~StoredEntriesWatch() {
    kvspool::WatchChanges(nullptr);
    kvlist::WatchLists(nullptr);
}

std::vector<std::string> StoredEntriesWatch::Overruled() {
    std::vector<std::string> all;
    const auto tell = [&](StoredEntries& list, const char* kind, const ListEntries& now) {
        for (std::string& sentence : list.Overruled(kind, now)) all.push_back(std::move(sentence));
    };
    for (auto& [format, list] : lists_) {
        kvlist::Records common, own;
        if (list.IsEmpty()) continue;
        if (kvlist::ReadCommonList(*format, printer_, common) == kvlist::StoredList::kUnreadable ||
            kvlist::ReadOwnList(*format, printer_, own) == kvlist::StoredList::kUnreadable) {
            continue;
        }
        common.insert(common.end(), own.begin(), own.end());
        tell(list, CaptionOf(format->kind), EntriesOf(*format, common));
    }
    ListEntries overlays;
    if (!overlays_.IsEmpty() && ReadOverlays(overlays)) tell(overlays_, "Form overlay", overlays);
    return all;
}

bool StoredEntriesWatch::ReadOverlays(ListEntries& entries) const {
    kv::StateStore& store = kv::StateStore::Of(place_);
    kv::StoredValue ids, texts[2];
    const auto read = [&](const char* name, kv::StoredValue& value) {
        const DWORD error = store.GetPrinterData(printer_, name, value);
        return error == ERROR_SUCCESS || error == ERROR_FILE_NOT_FOUND;
    };
    if (!read(kvui::kOverlayIds, ids) || !read(kOverlayTexts[0], texts[0]) ||
        !read(kOverlayTexts[1], texts[1])) {
        return false;
    }
    std::vector<DWORD> found;
    kvui::ParseOverlayIds(ids.data.c_str(), kvui::kMostOverlayIds, found);
    for (const DWORD id : found) {
        std::string name, path;
        kvui::FindOverlayEntry(texts[0].data, id, name);
        kvui::FindOverlayEntry(texts[1].data, id, path);
        entries[id] = {name, name + '\0' + path};
    }
    return true;
}

void StoredEntriesWatch::Begun(const kvspool::OpenPrinter& printer) {
    overlaysBefore_.reset();
    ListEntries now;
    const bool isMine = printer.place == place_ && kv::EqualsIgnoringCase(printer.name, printer_);
    if (isMine && ReadOverlays(now)) overlaysBefore_ = std::move(now);
}

void StoredEntriesWatch::Ending(const kvspool::OpenPrinter&) {
    overlaysAfter_.reset();
    ListEntries now;
    if (overlaysBefore_ && ReadOverlays(now)) overlaysAfter_ = std::move(now);
}

void StoredEntriesWatch::Ended(bool kept) {
    if (kept && overlaysAfter_) overlays_.Note(*overlaysBefore_, *overlaysAfter_);
    overlaysBefore_.reset();
}

}  // namespace kvhost
