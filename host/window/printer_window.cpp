// Running the sheet, and what OK and Apply do.
#include <host/window/administrator_reason.h>
#include <host/window/printer_window.h>
#include <host/record/record_differences.h>
#include <host/index/sheet_pages.h>
#include <host/window/status_line.h>
#include <host/window/stored_entries.h>

#include <commctrl.h>
#include <platform/controls/property_sheet.h>
#include <platform/dialog/message_box.h>
#include <platform/display/display.h>
#include <platform/window/window.h>
#include <prsht.h>

#include <algorithm>

namespace kvhost {
namespace {

// The pages tell the sheet of every change, which enables this button.
bool WasChanged(HWND sheet) {
    return IsWindowEnabled(GetDlgItem(sheet, kv::kSheetApplyButton)) != 0;
}

HWND ActivePageOf(HWND sheet) {
    return reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
}

// One sentence of several, and how many more there are.
std::string FirstOf(const std::vector<std::string>& sentences) {
    const std::string more =
        sentences.size() > 1 ? " (and " + std::to_string(sentences.size() - 1) + " more)" : "";
    return sentences.front() + more;
}

// Notes at each action where the window stands, the last one closes it, tells on a page that comes
// up who can use what is disabled there, and after each action which entries of lists that were
// stored here somebody else has changed.
class PlaceWatcher : public StatusLine {
 public:
    PlaceWatcher(const SettingNames& names, const Record& record, WindowPlace& place,
                 const AdministratorReason& reason, StoredEntriesWatch& entries)
        : StatusLine(names, record), place_(place), reason_(reason), entries_(entries) {}

    void Begun(HWND window) override {
        ++depth_;
        StatusLine::Begun(window);
        const HWND sheet = kv::RootOf(window);
        if (kv::KindOf(sheet) != "sheet") return;
        const auto tabs = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
        const LRESULT index = SendMessageA(tabs, TCM_GETCURSEL, 0, 0);
        if (index >= 0 && index < std::ssize(kPages)) {
            place_.page = PageDialog(static_cast<int>(index));
        }
        POINT corner{};
        if (kv::CurrentDisplay().CornerOf(sheet, &corner)) place_.corner = corner;
        if (page_ == nullptr) page_ = ActivePageOf(sheet);
    }

    void Ended() override {
        StatusLine::Ended();
        --depth_;
        if (page_ == nullptr || !IsWindow(page_)) return;
        const HWND sheet = GetParent(page_);
        TellOfPage(sheet);
        // Behind a dialog nobody reads it.
        const std::vector<std::string> overruled =
            depth_ == 0 ? entries_.Overruled() : std::vector<std::string>();
        if (!overruled.empty()) kv::CurrentDisplay().ShowStatus(sheet, FirstOf(overruled).c_str());
    }

 private:
    void TellOfPage(HWND sheet) {
        const HWND page = ActivePageOf(sheet);
        if (page == page_) return;
        const std::string reason = reason_.OfPage(page);
        if (!reason.empty() || !reason_.OfPage(page_).empty()) {
            kv::CurrentDisplay().ShowStatus(sheet, reason.c_str());
        }
        page_ = page;
    }

    WindowPlace& place_;
    const AdministratorReason& reason_;
    StoredEntriesWatch& entries_;
    int depth_ = 0;
    HWND page_{};  // that was active after the last action
};

}  // namespace

PrinterWindow::PrinterWindow(Session& session)
    : session_(session), names_(session.module().handle(), session.printer()) {}

ExitStatus PrinterWindow::Run() {
    INT_PTR result = 0;
    place_ = ReadWindowPlace(session_.store());
    StoredEntriesWatch entries(session_.printer().printerName, kv::PlaceInForce());
    do {
        openAgain_ = false;
        SheetRequest request;
        request.printer = &session_.printer();
        request.record = session_.record().data();
        request.caption = session_.printer().printerName;
        request.startPage = static_cast<UINT>(std::max(0, PageIndexOfDialog(place_.page)));
        if (place_.corner) kv::CurrentDisplay().OpenNextSheetAt(*place_.corner);
        request.applied = [this](HWND sheet, bool closing) { return Apply(sheet, closing); };
        request.ending = [this] { session_.DropUnstored(); };
        TellPutBack();
        const AdministratorReason reason(session_.printer());
        request.shown = [&](HWND sheet) {
            const std::string text = reason.OfPage(ActivePageOf(sheet));
            if (!text.empty()) kv::CurrentDisplay().ShowStatus(sheet, text.c_str());
            TellFaults(sheet);
        };
        const PlaceWatcher watcher(names_, session_.record(), place_, reason, entries);
        result = session_.module().RunSheet(request);
        if (openAgain_) session_.StartFromStored();
    } while (openAgain_ && result >= 0);
    KeepWindowPlace(session_.store(), place_);
    return result >= 0 && stored_ ? kDone : kRefused;
}

// Who opens a window does not see what is printed.
void PrinterWindow::TellPutBack() const {
    if (session_.putBack().empty()) return;
    std::string text = "Not all stored settings of this printer are allowed any more:\n";
    for (const std::string& line : session_.putBack()) text += "\n" + line;
    MessageBoxA(nullptr, text.c_str(), session_.printer().printerName, MB_ICONEXCLAMATION);
}

// Standard error has them all; nobody at a desktop sees that.
void PrinterWindow::TellFaults(HWND sheet) const {
    const std::vector<std::string>& faults = session_.faults();
    if (faults.empty()) return;
    kv::CurrentDisplay().ShowStatus(sheet, FirstOf(faults).c_str());
}

Applied PrinterWindow::Apply(HWND sheet, bool closing) {
    for (;;) {
        Record found{};
        const RecordStore::Outcome outcome = session_.StoreUnlessChanged(found);
        stored_ = outcome != RecordStore::Outcome::kFailed;
        if (outcome == RecordStore::Outcome::kStored) return Applied::kStored;
        if (outcome == RecordStore::Outcome::kFailed) {
            const std::string text = "The settings could not be stored.\n\n" + session_.problem();
            MessageBoxA(sheet, text.c_str(), session_.printer().printerName, MB_ICONHAND);
            return Applied::kNotStored;
        }
        const Choice choice = WasChanged(sheet) ? Ask(sheet, found) : Choice::kKeepTheirs;
        if (choice == Choice::kStay) return Applied::kNotStored;
        if (choice == Choice::kKeepTheirs) return KeepTheirs(sheet, found, closing);
        // Another one may have come meanwhile; it would be asked about as well.
        session_.AcceptStored(found);
    }
}

PrinterWindow::Choice PrinterWindow::Ask(HWND sheet, const Record& theirs) const {
    const std::string text =
        "Somebody else has stored settings of this printer while this window was open:\n\n" +
        DifferenceLines(DifferencesOf(names_, session_.stored(), theirs, session_.record())) +
        "\nStore yours in their place, or keep theirs and drop your changes?";
    const int answer = kv::AskWithButtons(sheet, text.c_str(), session_.printer().printerName,
                                          MB_YESNOCANCEL | MB_ICONEXCLAMATION | MB_DEFBUTTON3,
                                          {{IDYES, "&Store mine"}, {IDNO, "&Keep theirs"}});
    if (answer == IDYES) return Choice::kStoreMine;
    return answer == IDNO ? Choice::kKeepTheirs : Choice::kStay;
}

// The window goes with OK; otherwise it comes up anew on the same page, with what is stored.
Applied PrinterWindow::KeepTheirs(HWND sheet, const Record& theirs, bool closing) {
    session_.AcceptStored(theirs);
    if (!closing) {
        openAgain_ = true;
        PostMessageA(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    }
    return Applied::kStored;
}

}  // namespace kvhost
