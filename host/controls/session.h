// One printer under the hands of the command line or the window: its block, its record, the loaded
// module and, when needed, a headless sheet.
#pragma once

#include <host/record/record_store.h>
#include <preferences_sheet.h>

#include <memory>
#include <string>
#include <vector>

namespace kvhost {

// Exit statuses of the program; of several the greatest counts.
enum ExitStatus : int { kDone = 0, kRefused = 1, kBadInput = 2 };

struct Options {
    std::string printer;  // empty: the only or first one
    bool json = false;
};

// What windows post to themselves.
constexpr UINT kFirstPrivateMessage = WM_USER + 0;
constexpr UINT kBehindPrivateMessages = WM_APP + 0;

class Session {
 public:
    Session() = default;
    // No sheet outlives the record that it works on.
    ~Session() { CloseHeadlessSheet(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    // Makes the first printer when there is none yet. False after printing why.
    bool Open(const Options& options);
    // Reads what is stored and no more: makes no printer, moves no damaged record aside, says
    // nothing.
    bool Look(const Options& options);
    // Loads the module; only commands that need pages do. Refuses when the rules file cannot be
    // read: nothing would keep the settings consistent.
    bool LoadModule();
    // The module stays loaded from one window to the next.
    void ShareModule(const Session& other) { module_ = other.module_; }
    // Opens the sheet without a screen. Job Management is there too.
    HWND OpenHeadlessSheet();
    // The same on other settings than the printer's, of which nothing outlives the sheet.
    HWND OpenHeadlessSheetOn(const Record& other);
    // The record is then what is stored, as it is for the pages that write printer data as they go.
    void CloseHeadlessSheet();
    // Stores the record whatever is stored now.
    bool StoreRecord();
    // Stores the record unless somebody else has stored another one since it was read or stored
    // here; `found` is then that one. Says why when it fails.
    RecordStore::Outcome StoreUnlessChanged(Record& found);
    // What is wrong inside the driver's files: "file:line: expected ...". Said already.
    const std::vector<std::string>& faults() const { return faults_; }
    // Why storing failed last.
    const std::string& problem() const { return problem_; }
    // The record as it was read, out-of-bounds values and all, or as it was last stored here.
    const Record& stored() const { return stored_; }
    // Begins anew with what is stored; says which values the rules in force do not allow any more,
    // and puts them back. They are stored with the next change.
    void StartFromStored();
    // A line for each of those values.
    const std::vector<std::string>& putBack() const { return putBack_; }
    // What pages changed in the record and nobody stored is gone.
    void DropUnstored();
    // What somebody else stored is known and may be overwritten.
    void AcceptStored(const Record& found) { stored_ = found; }

    PrinterBlock& printer() { return printer_; }
    Record& record() { return record_; }
    RecordStore& store() { return *store_; }
    DriverModule& module() { return *module_; }
    HWND sheet() const { return sheet_; }
    SheetRequest& request() { return request_; }

 private:
    bool FindOrMakePrinter(const std::string& named, std::string& error);
    bool LookAfterDriverFiles();
    void SayFaults(const std::vector<std::string>& faults);
    bool IsInBounds();
    void ForgetPostponed();

    PrinterBlock printer_{};
    Record record_{};
    Record stored_{};
    std::string problem_;
    std::vector<std::string> putBack_;
    std::vector<std::string> faults_;
    std::unique_ptr<RecordStore> store_;
    std::shared_ptr<DriverModule> module_;
    SheetRequest request_;
    HWND sheet_{};
};

// One line on standard error, "kvprefs: ..." before it.
void PrintError(const std::string& text);
void PrintWarning(const std::string& text);
void PrintNote(const std::string& text);
}  // namespace kvhost
