// See list_store.h. A stored list is a 16-byte head (mark, record size, count, zero) and the
// records.
#include "list_store.h"

#include <platform/registry/state_store.h>
#include <winbase.h>
#include <winreg.h>
#include <winspool.h>

#include <cstring>
#include <set>

namespace kvlist {
namespace {

constexpr char kMark[4] = {'K', 'V', 'L', '1'};
constexpr DWORD kMaxRecords = 4096;
constexpr DWORD kMaxStoredSize = 1 << 20;
constexpr DWORD kDataIsInvalid = 13;     // the platform's codes for a damaged list
constexpr DWORD kNotEnoughQuota = 1816;  // and for one that is too long
constexpr const char* kDataPrefix = "KVList.";
constexpr const char* kOwnKey = "Software\\Varnell\\Tessora\\Lists\\";

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
    for (const Record& record : records) bytes += record;
    return bytes;
}

bool IsUsable(const ListFormat& format, const Record& record, std::set<DWORD>& ids) {
    const DWORD id = RecordId(format, record.data());
    return TextsEnd(format, record.data()) && id >= format.firstUserId && ids.insert(id).second;
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
    std::set<DWORD> ids;
    for (DWORD i = 0; i < head.count; ++i) {
        Record record = bytes.substr(sizeof head + i * format.recordSize, format.recordSize);
        if (!IsUsable(format, record, ids)) return Unreadable(kDataIsInvalid);
        records.push_back(std::move(record));
    }
    return StoredList::kFound;
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

DWORD WriteCommon(const ListFormat& format, const std::string& printer, const Records& records) {
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
    HANDLE handle = nullptr;
    if (!OpenPrinterA(const_cast<LPSTR>(printer.c_str()), &handle, &access)) return GetLastError();
    std::string bytes = Pack(format, records);
    const DWORD error =
        SetPrinterDataA(handle, DataName(format).data(), REG_BINARY,
                        reinterpret_cast<BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
    ClosePrinter(handle);
    return error;
}

DWORD WriteOwn(const ListFormat& format, const std::string& printer, const Records& records) {
    HKEY key = nullptr;
    LSTATUS error = RegCreateKeyExA(HKEY_CURRENT_USER, (kOwnKey + printer).c_str(), 0, nullptr, 0,
                                    KEY_WRITE, nullptr, &key, nullptr);
    if (error != static_cast<LSTATUS>(ERROR_SUCCESS)) return static_cast<DWORD>(error);
    const std::string bytes = Pack(format, records);
    error = RegSetValueExA(key, std::string(format.name).c_str(), 0, REG_BINARY,
                           reinterpret_cast<const BYTE*>(bytes.data()),
                           static_cast<DWORD>(bytes.size()));
    RegCloseKey(key);
    return static_cast<DWORD>(error);
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
    HKEY key = nullptr;
    const LSTATUS opened =
        RegOpenKeyExA(HKEY_CURRENT_USER, (kOwnKey + printer).c_str(), 0, KEY_READ, &key);
    Stored stored;
    if (opened != static_cast<LSTATUS>(ERROR_SUCCESS)) {
        return ListOf(format, static_cast<DWORD>(opened), stored, records);
    }
    const std::string name(format.name);
    const DWORD error = ReadStored(stored, [&](BYTE* data, DWORD& size) {
        return static_cast<DWORD>(
            RegQueryValueExA(key, name.c_str(), nullptr, &stored.type, data, &size));
    });
    RegCloseKey(key);
    return ListOf(format, error, stored, records);
}

DWORD WriteLists(const ListFormat& format, const std::string& printer, const Records* common,
                 const Records* own) {
    if (!common && !own) return ERROR_SUCCESS;
    for (const Records* records : {common, own}) {
        if (records && !HasRoom(format, *records)) return kNotEnoughQuota;
    }
    kv::StoreTransaction transaction(kv::StateStore::Get());
    DWORD error = transaction.Error();
    if (error == ERROR_SUCCESS && common) error = WriteCommon(format, printer, *common);
    if (error == ERROR_SUCCESS && own) error = WriteOwn(format, printer, *own);
    return error == ERROR_SUCCESS ? transaction.Commit() : error;
}

}  // namespace kvlist
