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

StoredList Unpack(const ListFormat& format, const std::string& bytes, Records& records) {
    records.clear();
    Head head{};
    if (bytes.size() < sizeof head) return StoredList::kMissing;
    std::memcpy(&head, bytes.data(), sizeof head);
    if (std::memcmp(head.mark, kMark, sizeof kMark) != 0 || head.recordSize != format.recordSize ||
        head.count > kMaxRecords || bytes.size() != sizeof head + head.count * format.recordSize) {
        return StoredList::kMissing;
    }
    std::set<DWORD> ids;
    for (DWORD i = 0; i < head.count; ++i) {
        Record record = bytes.substr(sizeof head + i * format.recordSize, format.recordSize);
        if (IsUsable(format, record, ids)) records.push_back(std::move(record));
    }
    return StoredList::kFound;
}

std::string DataName(const ListFormat& format) {
    return kDataPrefix + std::string(format.name);
}

DWORD WriteCommon(const ListFormat& format, const std::string& printer, const Records& records) {
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
    HANDLE handle = nullptr;
    if (!OpenPrinterA(printer.c_str(), &handle, &access)) return GetLastError();
    std::string bytes = Pack(format, records);
    const DWORD error =
        SetPrinterDataA(handle, DataName(format).c_str(), REG_BINARY,
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
    if (!OpenPrinterA(printer.c_str(), &handle, nullptr)) return StoredList::kMissing;
    const std::string name = DataName(format);
    std::string bytes;
    DWORD type = 0;
    DWORD needed = 0;
    DWORD error = GetPrinterDataA(handle, name.c_str(), &type, nullptr, 0, &needed);
    if (error == ERROR_MORE_DATA && needed <= kMaxStoredSize) {
        bytes.resize(needed);
        error = GetPrinterDataA(handle, name.c_str(), &type, reinterpret_cast<BYTE*>(bytes.data()),
                                needed, &needed);
    }
    ClosePrinter(handle);
    if (error != ERROR_SUCCESS || type != REG_BINARY) return StoredList::kMissing;
    return Unpack(format, bytes, records);
}

StoredList ReadOwnList(const ListFormat& format, const std::string& printer, Records& records) {
    records.clear();
    HKEY key = nullptr;
    const LSTATUS opened =
        RegOpenKeyExA(HKEY_CURRENT_USER, (kOwnKey + printer).c_str(), 0, KEY_READ, &key);
    if (opened != static_cast<LSTATUS>(ERROR_SUCCESS)) return StoredList::kMissing;
    const std::string name(format.name);
    std::string bytes;
    DWORD type = 0;
    DWORD size = 0;
    LSTATUS error = RegQueryValueExA(key, name.c_str(), nullptr, &type, nullptr, &size);
    if (error == static_cast<LSTATUS>(ERROR_SUCCESS) && size <= kMaxStoredSize) {
        bytes.resize(size);
        error = RegQueryValueExA(key, name.c_str(), nullptr, &type,
                                 reinterpret_cast<BYTE*>(bytes.data()), &size);
        bytes.resize(size <= bytes.size() ? size : 0);
    }
    RegCloseKey(key);
    if (error != static_cast<LSTATUS>(ERROR_SUCCESS) || type != REG_BINARY) {
        return StoredList::kMissing;
    }
    return Unpack(format, bytes, records);
}

DWORD WriteLists(const ListFormat& format, const std::string& printer, const Records* common,
                 const Records* own) {
    if (!common && !own) return ERROR_SUCCESS;
    kv::StoreTransaction transaction(kv::StateStore::Get());
    DWORD error = transaction.Error();
    if (error == ERROR_SUCCESS && common) error = WriteCommon(format, printer, *common);
    if (error == ERROR_SUCCESS && own) error = WriteOwn(format, printer, *own);
    return error == ERROR_SUCCESS ? transaction.Commit() : error;
}

}  // namespace kvlist
