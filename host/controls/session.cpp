// Opening a printer: first run, block, record, module, sheet.
#include <host/controls/session.h>

#include <framework/core/description.h>
#include <framework/core/driver_files.h>
#include <framework/core/install_printer.h>
#include <framework/spool/printer_places.h>
#include <host/host_paths.h>
#include <host/record/record_check.h>
#include <host/record/rules_faults.h>
#include <platform/display/headless.h>
#include <platform/shell/paths.h>
#include <platform/shell/state_directory.h>
#include <platform/window/input.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <set>

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

void PrintNote(const std::string& text) {
    std::fprintf(stderr, "kvprefs: %s\n", text.c_str());
}

// Each fault once in a program's life, however often a printer is opened.
void Session::SayFaults(const std::vector<std::string>& faults) {
    static std::set<std::string> said;
    constexpr size_t kMostSaid = 8;
    size_t more = 0;
    for (const std::string& fault : faults) {
        faults_.push_back(fault);
        if (!said.insert(fault).second) continue;
        if (said.size() <= kMostSaid) {
            PrintWarning(fault);
        } else {
            ++more;
        }
    }
    if (more != 0) PrintWarning("and " + std::to_string(more) + " more faults like these");
}

bool Session::LookAfterDriverFiles() {
    const kvcore::DriverFiles files = kvcore::RestoreDriverFiles(DataPath("models"));
    for (const std::string& line : files.done) PrintWarning(line);
    if (!files.error.empty()) PrintError(files.error);
    if (!files.error.empty()) return false;
    SayFaults(kvcore::DescriptionOf(printer_)->problems);
    return true;
}

// A place that cannot be read takes nothing from the printers of the other one.
bool Session::FindOrMakePrinter(const std::string& named, std::string& error) {
    std::vector<kvspool::PlacedPrinter> printers;
    std::string problem;
    const bool listed = kvspool::ListPrinters(printers, problem) == ERROR_SUCCESS;
    if (!listed && printers.empty()) error = problem;
    if (!listed && printers.empty()) return false;
    if (!listed) PrintWarning(problem);
    std::string name = named;
    if (printers.empty() && name.empty()) {
        if (!kvcore::InstallFirstPrinter(DataPath("models"), error)) return false;
        name = kvcore::kDriverName;
    }
    if (name.empty()) name = printers.front().record.name;
    for (const kvspool::PlacedPrinter& printer : printers) {
        if (!printer.isHidden || !kv::EqualsIgnoringCase(printer.record.name, name)) continue;
        PrintNote("your own printer \"" + name +
                  "\" is used; it hides the shared one of that name");
    }
    return kvcore::ChoosePrinter(name, error) && kvcore::MakePrinterBlock(name, printer_, error);
}

bool Session::Open(const Options& options) {
    if (kv::StateDirectory().empty()) {
        PrintError(kv::NoStateDirectoryMessage());
        return false;
    }
    if (const std::string foreign = kv::ForeignHomeMessage(); !foreign.empty()) {
        PrintError(foreign);
        return false;
    }
    std::string error;
    if (!FindOrMakePrinter(options.printer, error)) {
        PrintError(error);
        return false;
    }
    if (!LookAfterDriverFiles()) return false;
    store_ = std::make_unique<RecordStore>(printer_.printerName, kv::PlaceInForce());
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
    std::vector<kvspool::PlacedPrinter> printers;
    std::string error;
    kvspool::ListPrinters(printers, error);
    if (kv::StateDirectory().empty() || printers.empty()) return false;
    const std::string name =
        options.printer.empty() ? printers.front().record.name : options.printer;
    if (!kvcore::ChoosePrinter(name, error) || !kvcore::MakePrinterBlock(name, printer_, error)) {
        return false;
    }
    store_ = std::make_unique<RecordStore>(printer_.printerName, kv::PlaceInForce());
    if (store_->Read(record_, error) != RecordStore::Found::kGood) {
        return store_->ReadDefaults(printer_, record_, error);
    }
    PutBackOutOfBounds(printer_, record_);
    return true;
}

bool Session::LoadModule() {
    std::string error = kvcore::RulesFileProblem();
    if (!error.empty()) {
        PrintError(error + "; without its rules settings could become inconsistent");
        return false;
    }
    SayFaults(FaultsOfRules(kvcore::RulesFilePath()));
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
    ForgetPostponed();
    kv::Headless().SetPolicy(nullptr);
    if (sheet_ == nullptr) PrintError("the property sheet could not be opened");
    return sheet_;
}

// What pages put off until they have been seen, such as asking the printer: a script gets it when
// it says so, and waits for no printer otherwise.
void Session::ForgetPostponed() {
    MSG message{};
    while (PeekMessageA(&message, nullptr, kFirstPrivateMessage, kBehindPrivateMessages - 1,
                        PM_REMOVE)) {
    }
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
