// The program's stores of printers, printer data and registry: one file, store.sqlite, in the
// person's state directory and one in the machine's. The registry functions and the driver's
// spooler access layer are built on them.
//
// Every call answers a platform error code. A write that answers ERROR_SUCCESS is on the disk.
// Names of printers, values and keys are found without regard to case and keep the case they were
// given. Whether the caller may do what it asks is the caller's matter.
#pragma once

#include <windef.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <platform/shell/state_directory.h>

namespace kv {

struct PrinterRecord {
    std::string name;
    std::string share;
    std::string port;
    std::string driver;
    std::string comment;
    std::string location;
    std::string separatorFile;
    std::string printProcessor;
    std::string dataType;
    std::string parameters;
    std::string deviceMode;  // bytes of the printer's own default settings, empty for none
    DWORD attributes = 0;
    DWORD priority = 1;
    DWORD defaultPriority = 0;
    DWORD startTime = 0;
    DWORD untilTime = 0;
};

struct StoredValue {
    std::string name;
    DWORD type = 0;
    std::string data;  // bytes
};

using KeyId = std::int64_t;
constexpr KeyId kClassesRoot = 1;
constexpr KeyId kMachineRoot = 2;
constexpr KeyId kUsersRoot = 3;

class StateStore {
 public:
    // The process's store of a place; opened at the first use, and anew when the directory changes.
    static StateStore& Of(StatePlace place);
    // That of the place in force.
    static StateStore& Get() { return Of(PlaceInForce()); }

    ~StateStore();
    StateStore(const StateStore&) = delete;
    StateStore& operator=(const StateStore&) = delete;

    // Printers, in the order of their names. An unknown name is ERROR_INVALID_PRINTER_NAME.
    DWORD ListPrinters(std::vector<PrinterRecord>& printers);
    DWORD GetPrinter(const std::string& name, PrinterRecord& printer);
    // ERROR_PRINTER_ALREADY_EXISTS (1802) when the name is taken, ERROR_INVALID_PRINTER_NAME when
    // it is empty or holds a comma, a backslash or a control character.
    DWORD AddPrinter(const PrinterRecord& printer);
    // Replaces the record; a new name in it renames the printer, its data stay with it.
    DWORD SetPrinter(const std::string& name, const PrinterRecord& printer);
    DWORD RemovePrinter(const std::string& name);

    // Printer data. A missing value is ERROR_FILE_NOT_FOUND.
    DWORD GetPrinterData(const std::string& printer, const std::string& name, StoredValue& value);
    DWORD SetPrinterData(const std::string& printer, const std::string& name, DWORD type,
                         const void* data, std::size_t size);
    DWORD DeletePrinterData(const std::string& printer, const std::string& name);
    DWORD ListPrinterData(const std::string& printer, std::vector<StoredValue>& values);

    // Registry. Paths are key names joined by backslashes, relative to an open key; an empty path
    // is that key. A missing key or value is ERROR_FILE_NOT_FOUND, a key deleted meanwhile
    // ERROR_KEY_DELETED (1018), the end of an enumeration ERROR_NO_MORE_ITEMS.
    DWORD FindKey(KeyId parent, const std::string& path, KeyId& key);
    DWORD CreateKey(KeyId parent, const std::string& path, KeyId& key, bool& created);
    // ERROR_ACCESS_DENIED while the key has sub-keys.
    DWORD DeleteKey(KeyId parent, const std::string& path);
    DWORD EnumKey(KeyId key, DWORD index, std::string& name);
    DWORD GetValue(KeyId key, const std::string& name, StoredValue& value);
    DWORD SetValue(KeyId key, const std::string& name, DWORD type, const void* data,
                   std::size_t size);
    DWORD DeleteValue(KeyId key, const std::string& name);
    DWORD EnumValue(KeyId key, DWORD index, StoredValue& value);

    // One line for people about the call that failed last.
    std::string LastMessage();

    void Close();

 private:
    friend class StoreTransaction;
    explicit StateStore(StatePlace place);
    // Runs a change that is one statement, as a transaction of its own or within the open one.
    template <typename Statement>
    DWORD Change(Statement statement);
    struct Inside;
    std::unique_ptr<Inside> inside_;
};

// Several writes as one: all of them are stored by Commit, or none. Transactions may nest; the
// outermost one decides.
class StoreTransaction {
 public:
    explicit StoreTransaction(StateStore& store);
    ~StoreTransaction();
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;

    DWORD Error() const { return error_; }  // why it could not begin
    bool IsInner() const;
    DWORD Commit();

 private:
    StateStore& store_;
    DWORD error_;
    bool open_;
};

// Closes the stores that are open; the next use opens them again.
void CloseStateStore();
// Closes the stores and lets the program use another person's state directory than the environment
// names; an empty path returns to that.
void SetStateDirectory(const std::string& path);

}  // namespace kv
