// See list_store.h. A stored list is a 16-byte head (mark, record size, count, zero) and the
// records.
#include "list_store.h"

#include <framework/spool/printer_places.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <winbase.h>
#include <winreg.h>
#include <winspool.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace kvlist {
namespace {

constexpr char kMark[4] = {'K', 'V', 'L', '1'};
constexpr DWORD kMaxRecords = 4096;
constexpr DWORD kMaxStoredSize = 1 << 20;
constexpr DWORD kDataIsInvalid = 13;     // the platform's codes for a damaged list
constexpr DWORD kNotEnoughQuota = 1816;  // and for one that is too long
constexpr const char* kDataPrefix = "KVList.";
constexpr const char* kOwnKey = "Software\\Varnell\\Tessora\\Lists\\";
constexpr const char* kOwnOfSharedKey = "Software\\Varnell\\Tessora\\SharedLists\\";

struct Head {
    char mark[4];
    DWORD recordSize;
    DWORD count;
    DWORD zero;
};
static_assert(sizeof(Head) == 16);

std::string Pack(const ListFormat& format, const Records& records) {
    Head head{};
    std::memcpy(head.mark, kMark, sizeof kMark);
    head.recordSize = static_cast<DWORD>(format.recordSize);
    head.count = static_cast<DWORD>(records.size());
    std::string bytes(reinterpret_cast<const char*>(&head), sizeof head);
    bytes.reserve(sizeof head + records.size() * format.recordSize);
    for (const Record& record : records) bytes += record;
    return bytes;
}

bool IsUsable(const ListFormat& format, const Record& record) {
    return TextsEnd(format, record.data()) && RecordId(format, record.data()) >= format.firstUserId;
}

bool HasRepeatedIds(const ListFormat& format, const Records& records) {
    std::vector<DWORD> ids;
    for (const Record& record : records) ids.push_back(RecordId(format, record.data()));
    std::sort(ids.begin(), ids.end());
    return std::adjacent_find(ids.begin(), ids.end()) != ids.end();
}

StoredList Unreadable(DWORD error) {
    SetLastError(error);
    return StoredList::kUnreadable;
}

StoredList Unpack(const ListFormat& format, const std::string& bytes, Records& records) {
    records.clear();
    Head head{};
    if (bytes.size() < sizeof head) return Unreadable(kDataIsInvalid);
    std::memcpy(&head, bytes.data(), sizeof head);
    if (std::memcmp(head.mark, kMark, sizeof kMark) != 0 || head.recordSize != format.recordSize ||
        head.count > kMaxRecords || bytes.size() != sizeof head + head.count * format.recordSize) {
        return Unreadable(kDataIsInvalid);
    }
    records.reserve(head.count);
    for (DWORD i = 0; i < head.count; ++i) {
        Record record = bytes.substr(sizeof head + i * format.recordSize, format.recordSize);
        if (!IsUsable(format, record)) return Unreadable(kDataIsInvalid);
        records.push_back(std::move(record));
    }
    return HasRepeatedIds(format, records) ? Unreadable(kDataIsInvalid) : StoredList::kFound;
}

bool HasRoom(const ListFormat& format, const Records& records) {
    return records.size() <= kMaxRecords &&
           sizeof(Head) + records.size() * format.recordSize <= kMaxStoredSize;
}

struct Stored {
    DWORD type = 0;
    std::string bytes;
};

// `query` is given room and answers the size that is stored. It is asked again when that is more,
// also when somebody has stored a longer list meanwhile.
template <typename Query>
DWORD ReadStored(Stored& stored, Query query) {
    constexpr DWORD kFirstRoom = 4096;
    DWORD size = kFirstRoom;
    DWORD error = ERROR_MORE_DATA;
    while (error == ERROR_MORE_DATA && size <= kMaxStoredSize) {
        stored.bytes.resize(size);
        error = query(reinterpret_cast<BYTE*>(stored.bytes.data()), size);
    }
    if (error == ERROR_SUCCESS) stored.bytes.resize(size);
    return error;
}

// What came of reading a list.
StoredList ListOf(const ListFormat& format, DWORD error, const Stored& stored, Records& records) {
    if (error == ERROR_FILE_NOT_FOUND) return StoredList::kMissing;
    if (error != ERROR_SUCCESS) return Unreadable(error);
    if (stored.type != REG_BINARY) return Unreadable(kDataIsInvalid);
    return Unpack(format, stored.bytes, records);
}

std::string DataName(const ListFormat& format) {
    return kDataPrefix + std::string(format.name);
}

DWORD WriteCommonValue(const std::string& printer, std::string name, Stored stored) {
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
    HANDLE handle = nullptr;
    if (!OpenPrinterA(const_cast<LPSTR>(printer.c_str()), &handle, &access)) return GetLastError();
    const DWORD error = SetPrinterDataA(handle, name.data(), stored.type,
                                        reinterpret_cast<BYTE*>(stored.bytes.data()),
                                        static_cast<DWORD>(stored.bytes.size()));
    ClosePrinter(handle);
    return error;
}

DWORD WriteCommon(const ListFormat& format, const std::string& printer, const Records& records) {
    return WriteCommonValue(printer, DataName(format), {REG_BINARY, Pack(format, records)});
}

// A printer of one's own may have the name of one of the machine's.
std::string OwnKeyOf(kv::StatePlace place, const std::string& printer) {
    return (place == kv::StatePlace::kMachine ? kOwnOfSharedKey : kOwnKey) + printer;
}

std::string OwnKey(const std::string& printer) {
    kvspool::PlacedPrinter found;
    const bool known = kvspool::FindPrinter(printer, found) == ERROR_SUCCESS;
    return OwnKeyOf(known ? found.place : kv::StatePlace::kPerson, printer);
}

struct OwnedKey {
    OwnedKey() = default;
    ~OwnedKey() {
        if (key != nullptr) RegCloseKey(key);
    }
    OwnedKey(const OwnedKey&) = delete;
    OwnedKey& operator=(const OwnedKey&) = delete;

    DWORD Open(const std::string& path) {
        return static_cast<DWORD>(
            RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key));
    }
    DWORD Create(const std::string& path) {
        return static_cast<DWORD>(RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0,
                                                  KEY_WRITE, nullptr, &key, nullptr));
    }
    HKEY key = nullptr;
};

DWORD ReadOwnValue(HKEY key, const char* name, Stored& stored) {
    return ReadStored(stored, [&](BYTE* data, DWORD& size) {
        return static_cast<DWORD>(RegQueryValueExA(key, name, nullptr, &stored.type, data, &size));
    });
}

DWORD WriteOwnValue(HKEY key, const char* name, const Stored& stored) {
    return static_cast<DWORD>(RegSetValueExA(key, name, 0, stored.type,
                                             reinterpret_cast<const BYTE*>(stored.bytes.data()),
                                             static_cast<DWORD>(stored.bytes.size())));
}

DWORD WriteOwn(const ListFormat& format, const std::string& printer, const Records& records) {
    OwnedKey own;
    const DWORD error = own.Create(OwnKey(printer));
    if (error != ERROR_SUCCESS) return error;
    const Stored stored{REG_BINARY, Pack(format, records)};
    return WriteOwnValue(own.key, std::string(format.name).c_str(), stored);
}

}  // namespace

StoredList ReadCommonList(const ListFormat& format, const std::string& printer, Records& records) {
    records.clear();
    HANDLE handle = nullptr;
    if (!OpenPrinterA(const_cast<LPSTR>(printer.c_str()), &handle, nullptr)) {
        const DWORD error = GetLastError();
        return error == ERROR_INVALID_PRINTER_NAME ? StoredList::kMissing : Unreadable(error);
    }
    std::string name = DataName(format);
    Stored stored;
    const DWORD error = ReadStored(stored, [&](BYTE* data, DWORD& size) {
        return GetPrinterDataA(handle, name.data(), &stored.type, data, size, &size);
    });
    ClosePrinter(handle);
    return ListOf(format, error, stored, records);
}

StoredList ReadOwnList(const ListFormat& format, const std::string& printer, Records& records) {
    records.clear();
    OwnedKey own;
    Stored stored;
    DWORD error = own.Open(OwnKey(printer));
    if (error == ERROR_SUCCESS) {
        error = ReadOwnValue(own.key, std::string(format.name).c_str(), stored);
    }
    return ListOf(format, error, stored, records);
}

namespace {

DWORD ReadForChange(const ListFormat& format, const std::string& printer, ListParts parts,
                    const Records& initial, Records& common, Records& own) {
    if (parts.common) {
        const StoredList stored = ReadCommonList(format, printer, common);
        if (stored == StoredList::kUnreadable) return GetLastError();
        if (stored == StoredList::kMissing) common = initial;
    }
    if (parts.own && ReadOwnList(format, printer, own) == StoredList::kUnreadable) {
        return GetLastError();
    }
    return ERROR_SUCCESS;
}

// The store of the common part, and that of the user's, as far as they are needed. Where both are
// one, the inner transaction ends with the outer one.
class Change {
 public:
    Change(kv::StatePlace common, ListParts parts) {
        if (parts.common) outer_.emplace(kv::StateStore::Of(common));
        if (parts.own) own_.emplace(kv::StateStore::Of(kv::StatePlace::kPerson));
    }
    DWORD Error() const {
        if (outer_ && outer_->Error() != ERROR_SUCCESS) return outer_->Error();
        return own_ ? own_->Error() : DWORD{ERROR_SUCCESS};
    }
    DWORD Commit() {
        DWORD error = own_ ? own_->Commit() : DWORD{ERROR_SUCCESS};
        if (error == ERROR_SUCCESS && outer_) error = outer_->Commit();
        return error;
    }

 private:
    // Ended in the reverse order.
    std::optional<kv::StoreTransaction> outer_, own_;
};

kv::StatePlace PlaceOf(const std::string& printer) {
    kvspool::PlacedPrinter found;
    kvspool::FindPrinter(printer, found);
    return found.place;
}

constexpr const char* kNext = ".Next";

DWORD ReadNextId(const ListFormat& format, const std::string& printer, bool common) {
    const auto type = REG_DWORD;
    DWORD next = 0, found = 0, size = sizeof next;
    std::string name = DataName(format) + kNext;
    DWORD error = ERROR_FILE_NOT_FOUND;
    if (common) {
        HANDLE handle = nullptr;
        if (!OpenPrinterA(const_cast<LPSTR>(printer.c_str()), &handle, nullptr)) return 0;
        error = GetPrinterDataA(handle, name.data(), &found, reinterpret_cast<BYTE*>(&next),
                                sizeof next, &size);
        ClosePrinter(handle);
    } else {
        OwnedKey own;
        if (own.Open(OwnKey(printer)) != ERROR_SUCCESS) return 0;
        name = std::string(format.name) + kNext;
        error = static_cast<DWORD>(RegQueryValueExA(own.key, name.c_str(), nullptr, &found,
                                                    reinterpret_cast<BYTE*>(&next), &size));
    }
    return error == ERROR_SUCCESS && found == type && size == sizeof next ? next : 0;
}

DWORD WriteNextId(const ListFormat& format, const std::string& printer, bool common, DWORD next) {
    std::string bytes(reinterpret_cast<const char*>(&next), sizeof next);
    if (common) return WriteCommonValue(printer, DataName(format) + kNext, {REG_DWORD, bytes});
    OwnedKey own;
    const DWORD error = own.Create(OwnKey(printer));
    const std::string name = std::string(format.name) + kNext;
    return error == ERROR_SUCCESS ? WriteOwnValue(own.key, name.c_str(), {REG_DWORD, bytes})
                                  : error;
}

ListWatcher watching;

Records Joined(const Records& common, const Records& own) {
    Records both = common;
    both.insert(both.end(), own.begin(), own.end());
    return both;
}

}  // namespace

void WatchLists(ListWatcher watcher) {
    watching = std::move(watcher);
}

DWORD ChangeLists(const ListFormat& format, const std::string& printer, ListParts parts,
                  const Records& initial, const ListChange& change) {
    if (!parts.common && !parts.own) return ERROR_SUCCESS;
    Change transaction(PlaceOf(printer), parts);
    Records common, own;
    DWORD error = transaction.Error();
    if (error == ERROR_SUCCESS) {
        error = ReadForChange(format, printer, parts, initial, common, own);
    }
    const Records before = watching ? Joined(common, own) : Records();
    if (error == ERROR_SUCCESS) error = change(common, own);
    if (error != ERROR_SUCCESS) return error;
    if (!HasRoom(format, common) || !HasRoom(format, own)) return kNotEnoughQuota;
    if (parts.common) error = WriteCommon(format, printer, common);
    if (error == ERROR_SUCCESS && parts.own) error = WriteOwn(format, printer, own);
    if (error == ERROR_SUCCESS) error = transaction.Commit();
    if (error == ERROR_SUCCESS && watching) watching(format, printer, before, Joined(common, own));
    return error;
}

DWORD ReserveId(const ListFormat& format, const std::string& printer, IdRange wanted,
                const IdPick& pick, DWORD& id) {
    id = 0;
    const kv::StatePlace place = PlaceOf(printer);
    const bool common = kv::ActsAsAdministrator(place);
    const DWORD first = common ? format.firstUserId : format.firstPrivateId;
    const DWORD last = common ? format.firstPrivateId - 1 : format.lastId;
    const IdRange range{std::max(wanted.lowest, first), std::min(wanted.highest, last)};
    kv::StoreTransaction transaction(kv::StateStore::Of(common ? place : kv::StatePlace::kPerson));
    DWORD error = transaction.Error();
    if (error != ERROR_SUCCESS) return error;
    const DWORD next = std::max(ReadNextId(format, printer, common), range.lowest);
    Records records, own;
    error = ReadForChange(format, printer, {common, true}, {}, records, own);
    if (error != ERROR_SUCCESS) return error;
    std::unordered_set<DWORD> taken;
    for (const Records* part : {&records, &own}) {
        for (const Record& record : *part) taken.insert(RecordId(format, record.data()));
    }
    const DWORD picked = pick(range, next, std::move(taken));
    if (picked == 0) return kNotEnoughQuota;
    error = WriteNextId(format, printer, common, picked + 1);
    if (error == ERROR_SUCCESS) error = transaction.Commit();
    if (error == ERROR_SUCCESS) id = picked;
    return error;
}

// Byte for byte, so that a list that cannot be read is not lost either.
DWORD CopyOwnLists(kv::StatePlace fromPlace, const std::string& from, kv::StatePlace toPlace,
                   const std::string& to) {
    OwnedKey source, target;
    DWORD error = source.Open(OwnKeyOf(fromPlace, from));
    if (error == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
    if (error == ERROR_SUCCESS) error = target.Create(OwnKeyOf(toPlace, to));
    for (DWORD index = 0; error == ERROR_SUCCESS; ++index) {
        char name[256];
        DWORD size = sizeof name;
        Stored stored;
        error = static_cast<DWORD>(
            RegEnumValueA(source.key, index, name, &size, nullptr, &stored.type, nullptr, nullptr));
        if (error == ERROR_NO_MORE_ITEMS) return ERROR_SUCCESS;
        if (error == ERROR_SUCCESS) error = ReadOwnValue(source.key, name, stored);
        if (error == ERROR_SUCCESS) error = WriteOwnValue(target.key, name, stored);
    }
    return error;
}

DWORD DropOwnLists(kv::StatePlace place, const std::string& printer) {
    const LSTATUS status = RegDeleteKeyA(HKEY_CURRENT_USER, OwnKeyOf(place, printer).c_str());
    const auto error = static_cast<DWORD>(status);
    return error == ERROR_FILE_NOT_FOUND ? DWORD{ERROR_SUCCESS} : error;
}

}  // namespace kvlist
