// kvprefs shot: a picture of every page and of the dialogs that open from them.
#include <host/commands/commands.h>
#include <host/index/sheet_pages.h>
#include <host/picture/picture_fonts.h>
#include <host/picture/png_writer.h>
#include <host/picture/window_picture.h>
#include <module/resources/resource.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>
#include <platform/window/window.h>
#include <prsht.h>
#include <strings.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>

namespace kvhost {
namespace {

bool Equal(const std::string& left, const std::string& right) {
    return strcasecmp(left.c_str(), right.c_str()) == 0;
}

// The dialogs that something opens.
std::vector<const Dialog*> DialogsThatOpen() {
    std::vector<const Dialog*> dialogs;
    for (const Dialog& dialog : kDialogs) {
        if (dialog.opening != Opening::kNone) dialogs.push_back(&dialog);
    }
    return dialogs;
}

const Dialog* DialogOfName(const std::string& name) {
    for (const Dialog* dialog : DialogsThatOpen()) {
        if (Equal(name, dialog->name)) return dialog;
    }
    return nullptr;
}

// "Job Management" becomes "job-management".
std::string FileStem(const std::string& caption) {
    std::string stem;
    for (const char c : caption) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 && std::isalnum(byte)) {
            stem.push_back(static_cast<char>(std::tolower(byte)));
        } else if (!stem.empty() && stem.back() != '-') {
            stem.push_back('-');
        }
    }
    while (!stem.empty() && stem.back() == '-') stem.pop_back();
    return stem.empty() ? "dialog" : stem;
}

std::string TabCaption(HWND sheet, int page) {
    const auto tab = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
    char text[128] = "";
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    SendMessageA(tab, TCM_GETITEMA, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&item));
    return text;
}

// A control of the page, or of a strip that the pages share.
HWND FindOnSheet(HWND sheet, HWND page, DWORD wantedId) {
    const int id = static_cast<int>(wantedId);
    if (const HWND control = GetDlgItem(page, id)) return control;
    struct Search {
        int id;
        HWND found;
    } search{id, nullptr};
    EnumChildWindows(
        sheet,
        [](HWND child, LPARAM param) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(param);
            if (GetDlgCtrlID(child) != wanted.id || !IsWindowVisible(child)) return TRUE;
            wanted.found = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool ChooseValue(HWND combo, DWORD value) {
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const LRESULT data = SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(i), 0);
        if (static_cast<DWORD>(data) == value) {
            return kv::input::Choose(combo, static_cast<int>(i));
        }
    }
    return false;
}

bool BeginsWith(const std::string& text, const std::string& start) {
    return strncasecmp(text.c_str(), start.c_str(), start.size()) == 0;
}

// The preview's button names the view that is not shown. Presses it until the wanted view shows; false
// when the page offers no such view, and then it shows what it showed before.
bool ShowView(HWND sheet, HWND page, const std::string& view) {
    const HWND button = FindOnSheet(sheet, page, IDC_BTN_CHANGE_VIEW);
    if (button == nullptr) return false;
    const HWND focus = GetFocus();
    bool shown = false;
    for (int press = 0; press < 2 && !shown; ++press) {
        shown = BeginsWith(WindowText(button), view);
        kv::input::Click(button);
    }
    if (focus != nullptr) kv::input::Focus(focus);
    return shown;
}

bool IsCheckBox(HWND control) {
    const DWORD type = static_cast<DWORD>(GetWindowLongA(control, GWL_STYLE)) & BS_TYPEMASK;
    return kv::KindOf(control) == "button" && (type == BS_AUTOCHECKBOX || type == BS_CHECKBOX);
}

// Chooses an entry, or checks (1) or clears (0) a check box.
void Prepare(HWND control, DWORD value) {
    if (!IsCheckBox(control)) {
        ChooseValue(control, value);
    } else if (SendMessageA(control, BM_GETCHECK, 0, 0) != static_cast<LRESULT>(value)) {
        kv::input::Click(control);
    }
}

class Photographer {
   public:
    Photographer(Session& session, std::string folder, PictureOptions options, std::string view,
                 bool json)
        : session_(session),
          sheet_(session.sheet()),
          folder_(std::move(folder)),
          options_(options),
          view_(std::move(view)),
          json_(json) {
        kv::Headless().SetPolicy([this](HWND dialog) { Answer(dialog); });
    }
    ~Photographer() { kv::Headless().SetPolicy(nullptr); }
    Photographer(const Photographer&) = delete;
    Photographer& operator=(const Photographer&) = delete;

    enum class View { kWhereOffered, kRequired };

    // False after an error was printed.
    bool TakePage(int index, View view) {
        const HWND page = Open(index);
        if (page == nullptr) return false;
        if (!view_.empty() && !ShowView(sheet_, page, view_) && view == View::kRequired) {
            PrintError("the page " + TabCaption(sheet_, index) + " has no " + view_ + " view");
            return false;
        }
        char number[16];
        std::snprintf(number, sizeof number, "%02d-", index + 1);
        return Take(sheet_, number + FileStem(TabCaption(sheet_, index)));
    }

    // What is stored is drawn: the control before is worked only where the dialog does not open
    // otherwise, or to meet a rule. A dialog that does not open now (its control is disabled or
    // missing) has no picture.
    bool TakeDialog(const Dialog& row) {
        const HWND page = Open(row.page);
        if (page == nullptr) return false;
        const bool opens = row.opening == Opening::kClick &&
                           kv::input::CanReach(FindOnSheet(sheet_, page, row.control));
        if (row.controlBefore != 0 && !opens) {
            Prepare(FindOnSheet(sheet_, page, row.controlBefore), row.valueBefore);
        }
        next_ = row.name;
        OpenDialog(row, page);
        next_.clear();
        return !failed_;
    }

    bool Has(const std::string& stem) const { return stems_.count(stem) != 0; }
    void Report() const;

   private:
    HWND Open(int index) {
        kv::input::SelectPage(sheet_, index);
        kv::PumpPendingMessages();
        const auto page = reinterpret_cast<HWND>(
            SendMessageA(sheet_, PSM_INDEXTOHWND, static_cast<WPARAM>(index), 0));
        if (page == nullptr || !IsWindowVisible(page)) {
            PrintError(std::string("the page ") + PageTemplate(index) + " does not open");
            failed_ = true;
            return nullptr;
        }
        return page;
    }

    void OpenDialog(const Dialog& row, HWND page) {
        if (row.opening == Opening::kExport) {
            session_.module().RunDialog(page, row.templateName, row.procedure);
            return;
        }
        if (row.opening == Opening::kRightClick) {
            kv::input::RightClickAt(page, kBesideControls, kv::input::kShift);
            return;
        }
        const HWND control = FindOnSheet(sheet_, page, row.control);
        if (row.opening == Opening::kChoose) {
            ChooseValue(control, row.value);
            return;
        }
        // A check box opens its dialog when it is turned on.
        if (IsCheckBox(control)) Prepare(control, BST_UNCHECKED);
        if (row.opening == Opening::kInDialog) inner_ = static_cast<int>(row.value);
        kv::input::Click(control);
        inner_ = 0;
    }

    void Answer(HWND dialog) {
        if (const int button = std::exchange(inner_, 0)) {
            kv::input::Click(GetDlgItem(dialog, button));
        } else {
            TakeAnswered(dialog);
        }
        for (const int id : {IDCANCEL, IDNO, IDCLOSE, IDOK}) {
            if (kv::input::Click(GetDlgItem(dialog, id))) return;
        }
        kv::input::Close(dialog);
    }

    void TakeAnswered(HWND dialog) {
        std::string stem = next_.empty() ? FileStem(WindowText(dialog)) : next_;
        next_.clear();
        // A dialog that comes up by itself while another one is sought.
        if (Has(stem)) stem += "-" + std::to_string(stems_.size());
        Take(dialog, stem);
    }

    bool Take(HWND window, const std::string& stem) {
        const Picture picture = DrawWindow(window, options_);
        const std::string path = (std::filesystem::path(folder_) / (stem + ".png")).string();
        std::string error = "not enough memory for the picture of " + stem;
        if (!picture || !WritePng(path, picture, error)) {
            PrintError(error);
            failed_ = true;
            return false;
        }
        stems_.insert(stem);
        files_.push_back(path);
        if (!json_) std::printf("%s\n", path.c_str());
        for (const ClippedText& text : picture.clipped) {
            // The controls around the pages are in every picture.
            const std::string key = text.dialog + '\n' + std::to_string(text.id) + '\n' + text.text;
            if (seen_.insert(key).second) clipped_.push_back(text);
        }
        return true;
    }

    Session& session_;
    HWND sheet_;
    std::string folder_;
    PictureOptions options_;
    std::string view_;  // of the preview; empty for the page's own
    bool json_;
    bool failed_ = false;
    int inner_ = 0;     // button of the dialog that opens next, which opens the wanted one
    std::string next_;  // name of the dialog that is about to open
    std::set<std::string> stems_;
    std::set<std::string> seen_;
    std::vector<std::string> files_;
    std::vector<ClippedText> clipped_;
};

void Photographer::Report() const {
    if (json_) {
        nlohmann::ordered_json report = {{"files", files_}};
        report["clipped"] = nlohmann::ordered_json::array();
        for (const ClippedText& text : clipped_) {
            report["clipped"].push_back({{"id", text.id},
                                         {"dialog", text.dialog},
                                         {"text", text.text},
                                         {"needed", text.needed},
                                         {"available", text.available}});
        }
        std::printf("%s\n",
                    report.dump(2, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
        return;
    }
    std::printf(clipped_.size() == 1 ? "%zu text wider than its control\n"
                                     : "%zu texts wider than their controls\n",
                clipped_.size());
    for (const ClippedText& text : clipped_) {
        std::printf("  %s %u: %d of %d pixels: %s\n", text.dialog.c_str(), text.id, text.available,
                    text.needed, text.text.c_str());
    }
}

bool MakeFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!error && !std::filesystem::is_directory(folder, error)) {
        error = std::make_error_code(std::errc::not_a_directory);
    }
    if (error) PrintError(folder + ": " + error.message());
    return !error;
}

ExitStatus TakeAll(Photographer& photographer) {
    for (int i = 0; i < std::ssize(kPages); ++i) {
        if (!photographer.TakePage(i, Photographer::View::kWhereOffered)) return kRefused;
    }
    for (const Dialog* dialog : DialogsThatOpen()) {
        if (!photographer.TakeDialog(*dialog)) return kRefused;
    }
    return kDone;
}

ExitStatus TakeOne(Photographer& photographer, int page, const Dialog* dialog) {
    if (page >= 0) {
        return photographer.TakePage(page, Photographer::View::kRequired) ? kDone : kRefused;
    }
    if (!photographer.TakeDialog(*dialog)) return kRefused;
    if (photographer.Has(dialog->name)) return kDone;
    PrintError(std::string(dialog->name) + " does not open with these settings");
    return kRefused;
}

}  // namespace

std::vector<std::string> PictureDialogNames() {
    std::vector<std::string> names;
    for (const Dialog* dialog : DialogsThatOpen()) names.push_back(dialog->name);
    return names;
}

ExitStatus RunShot(const Options& options, const std::string& folder, const std::string& page,
                   const std::string& view, double scale, bool rightToLeft) {
    const int index = page.empty() ? -1 : PageIndexOfName(page);
    const Dialog* dialog = DialogOfName(page);
    if (!page.empty() && index < 0 && dialog == nullptr) {
        PrintUnknownPage(page, PictureDialogNames());
        return kBadInput;
    }
    if (!MakeFolder(folder)) return kBadInput;
    std::string error;
    if (!UsePictureFonts(error)) {
        PrintError(error);
        return kRefused;
    }
    Session session;
    if (!session.Open(options) || session.OpenHeadlessSheet() == nullptr) return kBadInput;
    ExitStatus status = kDone;
    {
        const PictureOptions look = {
            scale, rightToLeft ? Reading::kRightToLeft : Reading::kLeftToRight};
        Photographer photographer(session, folder, look, view, options.json);
        status = page.empty() ? TakeAll(photographer) : TakeOne(photographer, index, dialog);
        if (status == kDone) photographer.Report();
    }
    session.CloseHeadlessSheet();
    return status;
}

}  // namespace kvhost
