// See list_copy.h.
#include "list_copy.h"

#include <platform/security/access.h>
#include <platform/shell/handle_table.h>
#include <winbase.h>

#include <algorithm>
#include <cstring>
#include <unordered_map>

#include "described_records.h"

namespace kvlist {
namespace {

// A number of its own beside those of the platform's tables and the spooler's.
constexpr auto kListSpace = static_cast<kv::HandleSpace>(9);
using CopyTable = kv::HandleTable<WorkingCopy, kListSpace>;

CopyTable& Copies() {
    static CopyTable table;
    return table;
}

bool IsKnownScope(DWORD scope) {
    return scope == kScopeCommon || scope == kScopeCommonAndOwn || scope == kScopeUser ||
           scope == kScopeAdministrator;
}

bool InScope(Owner owner, DWORD scope) {
    return IsKnownScope(scope) && (scope != kScopeCommon || owner != Owner::kUser);
}

// The list of a printer on which nobody stored one yet. Bins that come with an option are in it
// too: readers offer those whose option is installed. Papers and watermarks of the description are
// part of every list and need no start.
Records InitialRecords(const ListFormat& format, const PrinterBlock& printer) {
    switch (format.kind) {
        case ListKind::kInputBin:
            return DescribedInputBins(printer);
        case ListKind::kOutputBin:
            return DescribedOutputBins(printer);
        case ListKind::kPaper:
        case ListKind::kWatermark:
            break;
    }
    return {};
}

Records DescribedRecords(const ListFormat& format, const PrinterBlock& printer) {
    switch (format.kind) {
        case ListKind::kPaper:
            return DescribedPapers(printer);
        case ListKind::kWatermark:
            return DescribedWatermarks(printer);
        case ListKind::kInputBin:
        case ListKind::kOutputBin:
            break;
    }
    return {};
}

}  // namespace

std::string PrinterName(const PrinterBlock& printer) {
    return std::string(printer.printerName,
                       strnlen(printer.printerName, sizeof printer.printerName));
}

std::shared_ptr<WorkingCopy> WorkingCopy::Read(const ListFormat& format,
                                               const PrinterBlock& printer) {
    const std::string name = PrinterName(printer);
    Records common, own;
    const StoredList stored = ReadCommonList(format, name, common);
    if (stored == StoredList::kUnreadable) return nullptr;
    if (stored == StoredList::kMissing) common = InitialRecords(format, printer);
    if (format.firstUserId != 0 && ReadOwnList(format, name, own) == StoredList::kUnreadable) {
        return nullptr;
    }
    std::shared_ptr<WorkingCopy> copy(new WorkingCopy(format, name));
    for (Record& record : DescribedRecords(format, printer)) {
        copy->entries_.push_back({Owner::kDescription, std::move(record)});
    }
    for (Record& record : common) copy->entries_.push_back({Owner::kEverybody, std::move(record)});
    copy->AddOwn(std::move(own));
    return copy;
}

// Stores from before ids were kept apart: an administrator may have given the id of a user's entry
// to a common one. The user's entry then gets one that no common entry is ever given, and takes it
// from no other entry of the user.
void WorkingCopy::AddOwn(Records own) {
    std::unordered_set<DWORD> others, taken;
    for (const Entry& entry : entries_) others.insert(RecordId(format_, entry.record.data()));
    taken = others;
    for (const Record& record : own) taken.insert(RecordId(format_, record.data()));
    DWORD fresh = format_.firstPrivateId;
    for (Record& record : own) {
        const DWORD id = RecordId(format_, record.data());
        if (others.contains(id)) {
            Note(Owner::kUser, id, &record);
            while (taken.contains(fresh)) ++fresh;
            std::memcpy(record.data() + format_.idOffset, &fresh, sizeof fresh);
            Note(Owner::kUser, fresh++, &record).isMended = true;
        }
        entries_.push_back({Owner::kUser, std::move(record)});
    }
}

int WorkingCopy::Count(DWORD scope) const {
    return static_cast<int>(
        std::count_if(entries_.begin(), entries_.end(),
                      [&](const Entry& entry) { return InScope(entry.owner, scope); }));
}

int WorkingCopy::CopyTo(void* buffer, DWORD scope) const {
    char* target = static_cast<char*>(buffer);
    int count = 0;
    for (const Entry& entry : entries_) {
        if (!InScope(entry.owner, scope)) continue;
        std::memcpy(target, entry.record.data(), format_.recordSize);
        target += format_.recordSize;
        ++count;
    }
    return count;
}

WorkingCopy::Entry* WorkingCopy::FindEntry(DWORD id) {
    for (Entry& entry : entries_) {
        if (RecordId(format_, entry.record.data()) == id) return &entry;
    }
    return nullptr;
}

const Record* WorkingCopy::Find(DWORD id) const {
    const Entry* entry = const_cast<WorkingCopy*>(this)->FindEntry(id);
    return entry ? &entry->record : nullptr;
}

// Ids are given one after the other and anew only when all were, so that settings that name a
// deleted entry do not come upon a new one.
DWORD WorkingCopy::ReserveId(DWORD lowest, DWORD highest) const {
    const auto pick = [this](IdRange range, DWORD next, std::unordered_set<DWORD> taken) {
        for (const Entry& entry : entries_) taken.insert(RecordId(format_, entry.record.data()));
        const auto firstFree = [&](DWORD first, DWORD last) {
            while (first <= last && taken.contains(first)) ++first;
            return first <= last ? first : DWORD{0};
        };
        const DWORD fresh = firstFree(next, range.highest);
        return fresh != 0 ? fresh : firstFree(range.lowest, std::min(next - 1, range.highest));
    };
    DWORD id = 0;
    SetLastError(kvlist::ReserveId(format_, printer_, {lowest, highest}, pick, id));
    return id;
}

// Bins are one list for everybody whose working copy anyone may edit: only its Write asks for
// rights, because dialogs undo their edits entry by entry.
bool WorkingCopy::MayChange(const Entry& entry) const {
    switch (entry.owner) {
        case Owner::kDescription:
            return false;
        case Owner::kEverybody:
            return format_.firstUserId == 0 || kv::ActsAsAdministrator();
        case Owner::kUser:
            return true;
    }
    return false;
}

bool WorkingCopy::DiffersInDerivedFieldOnly(const Record& left, const Record& right) const {
    const Field& derived = format_.derived;
    const std::size_t end = derived.offset + derived.size;
    return left.compare(0, derived.offset, right, 0, derived.offset) == 0 &&
           left.compare(end, std::string::npos, right, end, std::string::npos) == 0;
}

WorkingCopy::Touch& WorkingCopy::Note(Owner owner, DWORD id, const Record* before) {
    Touches& touches = owner == Owner::kUser ? own_ : common_;
    const auto [at, isNew] = touches.try_emplace(id);
    if (isNew && before) at->second.before = *before;
    return at->second;
}

bool WorkingCopy::Add(const void* record, DWORD scope) {
    const DWORD id = RecordId(format_, record);
    const bool known = scope == kScopeCommon || scope == kScopeCommonAndOwn;
    if (!known || id < format_.firstUserId || FindEntry(id) || !TextsEnd(format_, record)) {
        return false;
    }
    const Owner owner = scope == kScopeCommon ? Owner::kEverybody : Owner::kUser;
    Entry entry{owner, Record(static_cast<const char*>(record), format_.recordSize)};
    if (!MayChange(entry)) return false;
    const auto end = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& other) {
        return static_cast<int>(other.owner) > static_cast<int>(owner);
    });
    entries_.insert(end, std::move(entry));
    Note(owner, id, nullptr);
    return true;
}

bool WorkingCopy::Update(const void* record, DWORD id) {
    Entry* entry = FindEntry(id);
    if (!entry || !TextsEnd(format_, record)) return false;
    Record fresh(static_cast<const char*>(record), format_.recordSize);
    std::memcpy(fresh.data() + format_.idOffset, &id, sizeof id);
    if (fresh == entry->record) return true;
    if (MayChange(*entry)) {
        Note(entry->owner, id, &entry->record);
    } else if (!DiffersInDerivedFieldOnly(fresh, entry->record)) {
        return false;
    }
    entry->record = std::move(fresh);
    return true;
}

bool WorkingCopy::Remove(DWORD id) {
    Entry* entry = FindEntry(id);
    if (!entry || !MayChange(*entry)) return false;
    Note(entry->owner, id, &entry->record).wasRemoved = true;
    entries_.erase(entries_.begin() + (entry - entries_.data()));
    return true;
}

// What stays of a stored entry that the copy has, too. What readers work out anew is no reason to
// undo what others did.
Record WorkingCopy::Merged(const Record& mine, const Touch& touch, Record stored) const {
    if (!IsUntouched(mine, touch)) return mine;
    const Field& derived = format_.derived;
    return stored.replace(derived.offset, derived.size, mine, derived.offset, derived.size);
}

bool WorkingCopy::IsUntouched(const Record& mine, const Touch& touch) const {
    return touch.before && DiffersInDerivedFieldOnly(mine, *touch.before);
}

// An entry that somebody else deleted comes back when it was changed here, because it is of use to
// somebody.
void WorkingCopy::Merge(Owner owner, const Touches& touches, Records& stored) const {
    std::unordered_map<DWORD, const Record*> mine;  // of those that something was done to
    for (const Entry& entry : entries_) {
        const DWORD id = RecordId(format_, entry.record.data());
        if (entry.owner == owner && touches.contains(id)) mine[id] = &entry.record;
    }
    Records merged;
    for (Record& record : stored) {
        const auto touch = touches.find(RecordId(format_, record.data()));
        if (touch == touches.end()) {
            merged.push_back(std::move(record));
            continue;
        }
        const auto found = mine.find(touch->first);
        if (found == mine.end() || touch->second.wasRemoved) continue;
        merged.push_back(Merged(*found->second, touch->second, std::move(record)));
        mine.erase(found);
    }
    for (const Entry& entry : entries_) {
        const DWORD id = RecordId(format_, entry.record.data());
        if (entry.owner != owner || !mine.contains(id)) continue;
        const Touch& touch = touches.at(id);
        const bool isLeft =
            IsUntouched(entry.record, touch) && !touch.wasRemoved && !touch.isMended;
        if (!isLeft) merged.push_back(entry.record);
    }
    stored = std::move(merged);
}

WriteResult WorkingCopy::Write(const PrinterBlock& printer) const {
    const std::string name = PrinterName(printer);
    const DWORD error =
        ChangeLists(format_, name, {!common_.empty(), !own_.empty()},
                    InitialRecords(format_, printer), [this](Records& common, Records& own) {
                        Merge(Owner::kEverybody, common_, common);
                        Merge(Owner::kUser, own_, own);
                        return DWORD{ERROR_SUCCESS};
                    });
    SetLastError(error);
    return error == ERROR_SUCCESS ? WriteResult::kWritten : WriteResult::kRefused;
}

ListHandle OpenCopy(ListKind kind, DWORD number, PrinterBlock* printer) {
    const ListFormat* format = FindListFormat(kind, number);
    if (!format || !printer) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto copy = WorkingCopy::Read(*format, *printer);
    if (!copy) return nullptr;
    return reinterpret_cast<ListHandle>(Copies().Add(std::move(copy)));
}

std::shared_ptr<WorkingCopy> FindCopy(ListHandle handle, ListKind kind) {
    auto copy = Copies().Find(reinterpret_cast<std::uintptr_t>(handle));
    if (copy && copy->Format().kind == kind) return copy;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

int WriteAndClose(ListHandle handle, PrinterBlock* printer, ListKind kind) {
    const auto copy = FindCopy(handle, kind);
    if (!copy || !printer) return 0;
    const WriteResult result = copy->Write(*printer);
    Copies().Remove(reinterpret_cast<std::uintptr_t>(handle));
    return result == WriteResult::kWritten;
}

int CancelAndClose(ListHandle handle, ListKind kind) {
    if (!FindCopy(handle, kind)) return 0;
    return Copies().Remove(reinterpret_cast<std::uintptr_t>(handle)) != nullptr;
}

}  // namespace kvlist
