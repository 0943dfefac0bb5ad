// The store as a whole: its one instance, transactions, and printers with their data.
#include <platform/registry/store_internal.h>

#include <platform/shell/errors.h>
#include <platform/shell/file_changes.h>
#include <platform/shell/state_directory.h>

namespace kv {

namespace {

constexpr const char* kPrinterColumns =
    "SELECT name, share, port, driver, comment, location, separator_file, print_processor,"
    " data_type, parameters, device_mode, attributes, priority, default_priority, start_time,"
    " until_time FROM printer ORDER BY name";
constexpr const char* kOnePrinter =
    "SELECT name, share, port, driver, comment, location, separator_file, print_processor,"
    " data_type, parameters, device_mode, attributes, priority, default_priority, start_time,"
    " until_time FROM printer WHERE name = ?1";
constexpr const char* kInsertPrinter =
    "INSERT INTO printer (name, share, port, driver, comment, location, separator_file,"
    " print_processor, data_type, parameters, device_mode, attributes, priority, default_priority,"
    " start_time, until_time)"
    " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16)";
constexpr const char* kUpdatePrinter =
    "UPDATE printer SET name = ?1, share = ?2, port = ?3, driver = ?4, comment = ?5, location = ?6,"
    " separator_file = ?7, print_processor = ?8, data_type = ?9, parameters = ?10,"
    " device_mode = ?11, attributes = ?12, priority = ?13, default_priority = ?14,"
    " start_time = ?15, until_time = ?16 WHERE name = ?17";

void BindPrinter(Statement& statement, const PrinterRecord& printer) {
    statement.Text(1, printer.name)
        .Text(2, printer.share)
        .Text(3, printer.port)
        .Text(4, printer.driver)
        .Text(5, printer.comment)
        .Text(6, printer.location)
        .Text(7, printer.separatorFile)
        .Text(8, printer.printProcessor)
        .Text(9, printer.dataType)
        .Text(10, printer.parameters)
        .Blob(11, printer.deviceMode.data(), printer.deviceMode.size())
        .Number(12, printer.attributes)
        .Number(13, printer.priority)
        .Number(14, printer.defaultPriority)
        .Number(15, printer.startTime)
        .Number(16, printer.untilTime);
}

PrinterRecord PrinterOf(const Statement& row) {
    PrinterRecord printer;
    std::string* const texts[] = {
        &printer.name,     &printer.share,      &printer.port,          &printer.driver,
        &printer.comment,  &printer.location,   &printer.separatorFile, &printer.printProcessor,
        &printer.dataType, &printer.parameters, &printer.deviceMode};
    DWORD* const numbers[] = {&printer.attributes, &printer.priority, &printer.defaultPriority,
                              &printer.startTime, &printer.untilTime};
    int column = 0;
    for (std::string* text : texts) *text = row.TextAt(column++);
    for (DWORD* number : numbers) *number = row.NumberAt(column++);
    return printer;
}

bool IsPrinterName(const std::string& name) {
    if (name.empty()) return false;
    for (const char character : name) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || code == 0x7F || character == ',' || character == '\\') return false;
    }
    return true;
}

bool IsUniqueViolation(int result) {
    return (result & 0xFF) == SQLITE_CONSTRAINT;
}

}  // namespace

StateStore::StateStore(StatePlace place) : inside_(std::make_unique<Inside>(place)) {}

StateStore::~StateStore() = default;

StateStore& StateStore::Of(StatePlace place) {
    static StateStore person(StatePlace::kPerson);
    static StateStore machine(StatePlace::kMachine);
    return place == StatePlace::kMachine ? machine : person;
}

void StateStore::Close() {
    std::lock_guard guard(inside_->lock);
    inside_->printerTrust = 0;
    inside_->database.Close();
    inside_->depth = 0;
}

std::string StateStore::LastMessage() {
    std::lock_guard guard(inside_->lock);
    return inside_->database.Message();
}

void CloseStateStore() {
    StateStore::Of(StatePlace::kPerson).Close();
    StateStore::Of(StatePlace::kMachine).Close();
}

void SetStateDirectory(const std::string& path) {
    CloseStateStore();
    OverrideStateDirectory(path);
}

StoreTransaction::StoreTransaction(StateStore& store)
    : store_(store), error_(ERROR_SUCCESS), open_(false) {
    StateStore::Inside& inside = *store_.inside_;
    inside.lock.lock();
    NoteFileChange();
    if (inside.depth == 0) {
        inside.failed = false;
        error_ = inside.database.Prepare(StoreAccess::kWrite);
        if (error_ == ERROR_SUCCESS) error_ = inside.database.Begin();
    }
    open_ = error_ == ERROR_SUCCESS;
    if (open_) ++inside.depth;
}

StoreTransaction::~StoreTransaction() {
    StateStore::Inside& inside = *store_.inside_;
    if (open_ && inside.depth > 0) {
        inside.failed = true;
        inside.printerTrust = 0;
        if (--inside.depth == 0) inside.database.Rollback();
    }
    inside.lock.unlock();
}

bool StoreTransaction::IsInner() const {
    return store_.inside_->depth > 1;
}

DWORD StoreTransaction::Commit() {
    StateStore::Inside& inside = *store_.inside_;
    if (!open_ || inside.depth == 0) return error_ ? error_ : DWORD{ERROR_INVALID_HANDLE};
    open_ = false;
    if (--inside.depth > 0) return ERROR_SUCCESS;
    if (!inside.failed) return inside.database.Commit();
    inside.database.Rollback();
    return ERROR_INVALID_PARAMETER;
}

DWORD StateStore::ListPrinters(std::vector<PrinterRecord>& printers) {
    std::lock_guard guard(inside_->lock);
    printers.clear();
    const DWORD error = inside_->PrepareRead();
    if (error != ERROR_SUCCESS || !inside_->database.IsOpen()) return error;
    Statement query = inside_->database.Use(kPrinterColumns);
    while (query.NextRow()) printers.push_back(PrinterOf(query));
    return inside_->database.Fail(query.Result());
}

DWORD StateStore::GetPrinter(const std::string& name, PrinterRecord& printer) {
    std::lock_guard guard(inside_->lock);
    const unsigned long long trust = TrustNumber();
    if (trust != 0 && inside_->printerTrust == trust && inside_->printer.name == name) {
        printer = inside_->printer;
        return ERROR_SUCCESS;
    }
    const DWORD error = inside_->PrepareRead();
    if (error != ERROR_SUCCESS) return error;
    if (!inside_->database.IsOpen()) return ERROR_INVALID_PRINTER_NAME;
    Statement query = inside_->database.Use(kOnePrinter);
    query.Text(1, name);
    if (query.NextRow()) {
        printer = PrinterOf(query);
        inside_->printer = printer;
        inside_->printerTrust = trust;
        return ERROR_SUCCESS;
    }
    const DWORD failed = inside_->database.Fail(query.Result());
    return failed ? failed : DWORD{ERROR_INVALID_PRINTER_NAME};
}

DWORD StateStore::AddPrinter(const PrinterRecord& printer) {
    if (!IsPrinterName(printer.name)) return ERROR_INVALID_PRINTER_NAME;
    return Change([&]() -> DWORD {
        Statement insert = inside_->database.Use(kInsertPrinter);
        BindPrinter(insert, printer);
        insert.Run();
        if (IsUniqueViolation(insert.Result())) return kErrorPrinterAlreadyExists;
        return inside_->database.Fail(insert.Result());
    });
}

DWORD StateStore::SetPrinter(const std::string& name, const PrinterRecord& printer) {
    if (!IsPrinterName(printer.name)) return ERROR_INVALID_PRINTER_NAME;
    return Change([&]() -> DWORD {
        Statement update = inside_->database.Use(kUpdatePrinter);
        BindPrinter(update, printer);
        const int changed = update.Text(17, name).Run();
        if (IsUniqueViolation(update.Result())) return kErrorPrinterAlreadyExists;
        const DWORD failed = inside_->database.Fail(update.Result());
        return failed || changed ? failed : DWORD{ERROR_INVALID_PRINTER_NAME};
    });
}

DWORD StateStore::RemovePrinter(const std::string& name) {
    return Change([&]() -> DWORD {
        Statement remove = inside_->database.Use("DELETE FROM printer WHERE name = ?1");
        const int changed = remove.Text(1, name).Run();
        const DWORD failed = inside_->database.Fail(remove.Result());
        return failed || changed ? failed : DWORD{ERROR_INVALID_PRINTER_NAME};
    });
}

DWORD StateStore::GetPrinterData(const std::string& printer, const std::string& name,
                                 StoredValue& value) {
    std::lock_guard guard(inside_->lock);
    const DWORD error = inside_->PrepareRead();
    if (error != ERROR_SUCCESS) return error;
    if (!inside_->database.IsOpen()) return ERROR_INVALID_PRINTER_NAME;
    // One row for the printer, with nulls when it lacks the value: the two misses differ.
    Statement query = inside_->database.Use(
        "SELECT d.name, d.type, d.data, d.rowid FROM printer p"
        " LEFT JOIN printer_data d ON d.printer = p.id AND d.name = ?2 WHERE p.name = ?1");
    if (!query.Text(1, printer).Text(2, name).NextRow()) {
        const DWORD failed = inside_->database.Fail(query.Result());
        return failed ? failed : DWORD{ERROR_INVALID_PRINTER_NAME};
    }
    if (query.WideNumberAt(3) == 0) return ERROR_FILE_NOT_FOUND;
    value = {query.TextAt(0), query.NumberAt(1), query.TextAt(2)};
    return ERROR_SUCCESS;
}

DWORD StateStore::SetPrinterData(const std::string& printer, const std::string& name, DWORD type,
                                 const void* data, std::size_t size) {
    std::lock_guard guard(inside_->lock);
    if (size > kLargestValue || (size > 0 && !data)) return ERROR_INVALID_PARAMETER;
    if (const DWORD error = inside_->PrepareRead()) return error;
    if (inside_->database.IsOpen()) {
        // A value that stands there already needs no other program to let go of the store.
        Statement same = inside_->database.Use(
            "SELECT 1 FROM printer_data d JOIN printer p ON p.id = d.printer"
            " WHERE p.name = ?1 AND d.name = ?2 AND d.type = ?3 AND d.data = ?4");
        if (same.Text(1, printer).Text(2, name).Number(3, type).Blob(4, data, size).NextRow()) {
            return ERROR_SUCCESS;
        }
    }
    return Change([&]() -> DWORD {
        Statement upsert = inside_->database.Use(
            "INSERT INTO printer_data (printer, name, type, data)"
            " SELECT id, ?2, ?3, ?4 FROM printer WHERE name = ?1"
            " ON CONFLICT (printer, name)"
            " DO UPDATE SET type = excluded.type, data = excluded.data");
        const int changed =
            upsert.Text(1, printer).Text(2, name).Number(3, type).Blob(4, data, size).Run();
        const DWORD failed = inside_->database.Fail(upsert.Result());
        if (failed || changed) return failed;
        Statement query = inside_->database.Use("SELECT 1 FROM printer WHERE name = ?1");
        const bool exists = query.Text(1, printer).NextRow();
        const DWORD unknown = inside_->database.Fail(query.Result());
        return unknown || exists ? unknown : DWORD{ERROR_INVALID_PRINTER_NAME};
    });
}

DWORD StateStore::DeletePrinterData(const std::string& printer, const std::string& name) {
    return Change([&]() -> DWORD {
        Statement remove = inside_->database.Use(
            "DELETE FROM printer_data WHERE name = ?2"
            " AND printer = (SELECT id FROM printer WHERE name = ?1)");
        const int changed = remove.Text(1, printer).Text(2, name).Run();
        const DWORD failed = inside_->database.Fail(remove.Result());
        return failed || changed ? failed : DWORD{ERROR_FILE_NOT_FOUND};
    });
}

DWORD StateStore::ListPrinterData(const std::string& printer, std::vector<StoredValue>& values) {
    std::lock_guard guard(inside_->lock);
    values.clear();
    const DWORD error = inside_->PrepareRead();
    if (error != ERROR_SUCCESS) return error;
    if (!inside_->database.IsOpen()) return ERROR_INVALID_PRINTER_NAME;
    Statement query = inside_->database.Use(
        "SELECT d.name, d.type, d.data FROM printer_data d JOIN printer p ON p.id = d.printer"
        " WHERE p.name = ?1 ORDER BY d.name");
    query.Text(1, printer);
    while (query.NextRow()) {
        values.push_back({query.TextAt(0), query.NumberAt(1), query.TextAt(2)});
    }
    if (const DWORD failed = inside_->database.Fail(query.Result())) return failed;
    PrinterRecord record;
    return values.empty() ? GetPrinter(printer, record) : DWORD{ERROR_SUCCESS};
}

}  // namespace kv
