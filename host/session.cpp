// Opening a printer: first run, block, record, module, sheet.
#include <host/session.h>

#include <framework/core/install_printer.h>
#include <host/host_paths.h>
#include <host/record_check.h>
#include <platform/display/headless.h>
#include <platform/registry/state_directory.h>
#include <platform/registry/state_store.h>
#include <platform/window/input.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace kvhost {
namespace {
constexpr int kMessageText = 0xFFFF;  // the text of a message box
}

void PrintError(const std::string& text) {
    std::fprintf(stderr, "kvprefs: %s\n", text.c_str());
}
void PrintWarning(const std::string& text) {
    std::fprintf(stderr, "kvprefs: warning: %s\n", text.c_str());
}

bool Session::Open(const Options& options) {
    if (kv::StateDirectory().empty()) {
        PrintError(kv::NoStateDirectoryMessage());
        return false;
    }
    std::string name = options.printer;
    std::vector<kv::PrinterRecord> printers;
    const DWORD listed = kv::StateStore::Get().ListPrinters(printers);
    if (listed != ERROR_SUCCESS && listed != ERROR_FILE_NOT_FOUND) {
        PrintError(kv::StateStore::Get().LastMessage());
        return false;
    }
    std::string error;
    if (printers.empty() && name.empty()) {
        if (!kvcore::InstallFirstPrinter(DataPath("models"), error)) {
            PrintError(error);
            return false;
        }
        name = kvcore::kDriverName;
    }
    if (name.empty()) name = printers.front().name;
    if (!kvcore::MakePrinterBlock(name, printer_, error)) {
        PrintError(error);
        return false;
    }
    store_ = std::make_unique<RecordStore>(printer_.printerName);
    std::string warning;
    const bool loaded = store_->Load(printer_, record_, warning, error);
    if (!warning.empty()) PrintWarning(warning);
    if (!loaded) {
        PrintError(error);
        return false;
    }
    AcceptStored(record_);
    StartFromStored();
    return true;
}

void Session::StartFromStored() {
    record_ = stored_;
    putBack_ = PutBackOutOfBounds(printer_, record_);
    for (const std::string& line : putBack_) PrintWarning("stored settings: " + line);
}

bool Session::Look(const Options& options) {
    std::vector<kv::PrinterRecord> printers;
    std::string error;
    if (kv::StateDirectory().empty() ||
        kv::StateStore::Get().ListPrinters(printers) != ERROR_SUCCESS || printers.empty()) {
        return false;
    }
    const std::string name = options.printer.empty() ? printers.front().name : options.printer;
    if (!kvcore::MakePrinterBlock(name, printer_, error)) return false;
    store_ = std::make_unique<RecordStore>(printer_.printerName);
    if (store_->Read(record_, error) != RecordStore::Found::kGood) {
        return store_->ReadDefaults(printer_, record_, error);
    }
    PutBackOutOfBounds(printer_, record_);
    return true;
}

bool Session::LoadModule() {
    std::string error;
    if (module_ == nullptr) module_ = DriverModule::Load(DefaultModulePath(), error);
    if (module_ == nullptr) PrintError(error);
    return module_ != nullptr;
}

HWND Session::OpenHeadlessSheet() {
    if (!LoadModule()) return nullptr;
    request_ = {};
    request_.printer = &printer_;
    request_.record = record_.data();
    request_.caption = printer_.printerName;
    request_.extraPages = {{"TAB4", "DDMTAB4"}};
    request_.ending = [this] { DropUnstored(); };
    // What the pages have to say while they open (lists that cannot be read) is said here; there is
    // nothing to choose.
    kv::Headless().SetPolicy([](HWND dialog) {
        char text[1024] = "";
        GetDlgItemTextA(dialog, kMessageText, text, sizeof text);
        std::replace(std::begin(text), std::end(text), '\n', ' ');
        PrintWarning(text);
        if (!kv::input::Click(GetDlgItem(dialog, IDOK))) kv::input::Close(dialog);
    });
    sheet_ = module_->CreateSheet(request_);
    kv::Headless().SetPolicy(nullptr);
    if (sheet_ == nullptr) PrintError("the property sheet could not be opened");
    return sheet_;
}

HWND Session::OpenHeadlessSheetOn(const Record& other) {
    record_ = other;
    return OpenHeadlessSheet();
}

void Session::DropUnstored() {
    record_ = stored_;
}

void Session::CloseHeadlessSheet() {
    if (sheet_ != nullptr && IsWindow(sheet_)) DestroyWindow(sheet_);
    sheet_ = nullptr;
}

// What would be put back at the next start is not stored either.
bool Session::IsInBounds() {
    const auto problems = ValuesOutOfBounds(record_, BoundsInForce(printer_));
    problem_.clear();
    for (const std::string& line : problems) problem_ += (problem_.empty() ? "" : "; ") + line;
    if (!problems.empty()) PrintError("settings not stored: " + problem_);
    return problems.empty();
}

bool Session::StoreRecord() {
    std::string error;
    if (!IsInBounds()) return false;
    if (store_->Store(record_, error)) {
        stored_ = record_;
        return true;
    }
    PrintError("settings not stored: " + error);
    return false;
}

RecordStore::Outcome Session::StoreUnlessChanged(Record& found) {
    if (!IsInBounds()) return RecordStore::Outcome::kFailed;
    const auto outcome = store_->StoreUnlessChanged(stored_, record_, found, problem_);
    if (outcome == RecordStore::Outcome::kStored) stored_ = record_;
    if (outcome == RecordStore::Outcome::kFailed) PrintError("settings not stored: " + problem_);
    return outcome;
}

}  // namespace kvhost
