// See paper_driver.h.
#include <host/controls/paper_driver.h>
#include <host/controls/stored_lists.h>

#include <module/resources/resource.h>
#include <module/resources/string_ids.h>
#include <platform/security/access.h>
#include <platform/window/input.h>

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace kvhost {
namespace {

constexpr int kPaperNew = IDC_BTN_PAPER_NEW, kPaperEdit = IDC_BTN_PAPER_EDIT,
              kPaperDelete = IDC_BTN_PAPER_DELETE;
constexpr size_t kMostDigits = 6;

// The list's lines are a name, a tab and a size. A name that was pasted may have tabs of its own.
std::vector<ChoiceText> PapersIn(HWND dialog) {
    std::vector<ChoiceText> papers = EntriesOf(GetDlgItem(dialog, IDC_LIST_PAPERS));
    for (ChoiceText& paper : papers)
        paper.text.resize(std::min(paper.text.rfind('\t'), paper.text.size()));
    return papers;
}

bool IsDigits(const std::string& text) {
    return !text.empty() && text.size() <= kMostDigits &&
           text.find_first_not_of("0123456789") == std::string::npos;
}

struct LengthFields {
    const char* what;
    int edit, edit16, range, range16;
};
constexpr LengthFields kWidth = {"--width", IDC_EDIT_PAPER_WIDTH, IDC_EDIT_PAPER_WIDTH_16,
                                 IDC_ST_PAPER_WIDTH_MM_RANGE, IDC_ST_PAPER_WIDTH_INCH_RANGE};
constexpr LengthFields kHeight = {"--height", IDC_EDIT_PAPER_HEIGHT, IDC_EDIT_PAPER_HEIGHT_16,
                                  IDC_ST_PAPER_HEIGHT_MM_RANGE, IDC_ST_PAPER_HEIGHT_INCH_RANGE};

std::string ShownLength(HWND dialog, const LengthFields& fields, bool inches) {
    const std::string whole = WindowText(GetDlgItem(dialog, fields.edit));
    return inches ? whole + " " + WindowText(GetDlgItem(dialog, fields.edit16)) + "/16" : whole;
}

// More digits than the field has room for are beyond every limit.
std::string Typable(unsigned number, HWND edit) {
    const auto digits = static_cast<size_t>(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0));
    const std::string text = std::to_string(number);
    return text.size() <= digits ? text : std::string(digits, '9');
}

SetOutcome TypeLength(HWND dialog, const LengthFields& fields, const std::string& length,
                      bool inches, std::vector<std::string>& notes) {
    unsigned whole = 0, sixteenths = 0;
    const bool isRead = inches ? ParseInches(length, whole, sixteenths) : IsDigits(length);
    if (!isRead) {
        return Refuse(
            kBadInput, std::string(fields.what) + ": " + Quoted(length) + " is no length",
            inches ? "inches and sixteenths, as 8 8/16 or 8.5" : "whole millimetres, as 120");
    }
    if (!inches) whole = static_cast<unsigned>(std::strtoul(length.c_str(), nullptr, 10));
    const HWND edit = GetDlgItem(dialog, fields.edit);
    const std::string wanted =
        inches ? std::to_string(whole) + " " + std::to_string(sixteenths) + "/16"
               : std::to_string(whole);
    SetOutcome typed = TypeField(dialog, fields.edit, fields.what, Typable(whole, edit));
    if (typed.status == kDone && inches) {
        typed = TypeField(dialog, fields.edit16, fields.what, std::to_string(sixteenths));
    }
    if (typed.status != kDone) return typed;
    LeaveFields(dialog);
    const std::string shown = ShownLength(dialog, fields, inches);
    if (shown != wanted) {
        const int range = inches ? fields.range16 : fields.range;
        notes.push_back(std::string(fields.what) + "=" + length + ": stored as " + shown +
                        (inches ? " inch" : " mm") + ", the printer takes " +
                        WindowText(GetDlgItem(dialog, range)));
    }
    return {};
}

SetOutcome FillEditor(HWND dialog, const PaperWish& paper, bool isNew,
                      std::vector<std::string>& notes) {
    if (isNew || paper.newName) {
        const SetOutcome named = TypeField(dialog, IDC_EDIT_PAPER_NAME, isNew ? "NAME" : "--name",
                                           paper.newName.value_or(paper.name));
        if (named.status != kDone) return named;
    }
    if (paper.inches) {
        const HWND unit =
            GetDlgItem(dialog, *paper.inches ? IDC_RADIO_PAPER_INCH : IDC_RADIO_PAPER_MM);
        if (!kv::input::Click(unit)) {
            return Refuse(kRefused, "--unit: this printer's papers have no such unit");
        }
    }
    const bool inches =
        SendDlgItemMessageA(dialog, IDC_RADIO_PAPER_INCH, BM_GETCHECK, 0, 0) == BST_CHECKED;
    for (const auto& [fields, length] :
         {std::pair(&kWidth, &paper.width), std::pair(&kHeight, &paper.height)}) {
        if (!*length) continue;
        const SetOutcome typed = TypeLength(dialog, *fields, **length, inches, notes);
        if (typed.status != kDone) return typed;
    }
    return {};
}

}  // namespace

bool ParseInches(const std::string& text, unsigned& whole, unsigned& sixteenths) {
    const size_t blank = text.find(' ');
    if (blank != std::string::npos) {
        const std::string part = text.substr(blank + 1);
        if (part.size() < 4 || part.substr(part.size() - 3) != "/16") return false;
        const std::string count = part.substr(0, part.size() - 3);
        if (!IsDigits(text.substr(0, blank)) || !IsDigits(count)) return false;
        whole = static_cast<unsigned>(std::strtoul(text.c_str(), nullptr, 10));
        sixteenths = static_cast<unsigned>(std::strtoul(count.c_str(), nullptr, 10));
        return sixteenths < 16;
    }
    const size_t point = text.find('.');
    if (!IsDigits(text.substr(0, point))) return false;
    if (point != std::string::npos && !IsDigits(text.substr(point + 1))) return false;
    const double inches = std::strtod(text.c_str(), nullptr);
    const double parts = inches * 16;
    if (parts != std::floor(parts)) return false;
    whole = static_cast<unsigned>(inches);
    sixteenths = static_cast<unsigned>(parts) % 16;
    return true;
}

SetOutcome PaperDriver::InList(const ControlDriver::DialogWork& work) {
    return InOwnersDialog(driver_, IDC_BTN_CUSTOM_PAPER, "custom papers", [&](HWND dialog) {
        const SetOutcome outcome = work(dialog);
        // Its OK uses the selected paper for the next job, which nobody asked for here.
        SendDlgItemMessageA(dialog, IDC_LIST_PAPERS, LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        return outcome;
    });
}

SetOutcome PaperDriver::InEditor(HWND list, int opener, const PaperWish& paper,
                                 std::vector<std::string>& notes) {
    return driver_.InDialog(
        [&] { kv::input::Click(GetDlgItem(list, opener)); }, paper.name,
        [&](HWND dialog) { return FillEditor(dialog, paper, opener == kPaperNew, notes); });
}

SetOutcome PaperDriver::AddOne(HWND list, const PaperWish& paper, std::vector<std::string>& notes) {
    if (!IsWindowEnabled(GetDlgItem(list, kPaperNew)))
        return Refuse(kRefused, FullListText(session_, kPaperCalls,
                                             ModuleText(session_, IDS_PAPER_LIST_FULL)));
    const bool common = paper.answers.isCommon.value_or(false);
    if (common && !kv::ActsAsAdministrator()) return Refuse(kRefused, kCommonTakesAdministrator);
    const ListReplies replies(session_, driver_, paper.answers);
    const SetOutcome added = InEditor(list, kPaperNew, paper, notes);
    if (added.status == kDone && common && !replies.WasAskedAboutCommon() &&
        !paper.answers.overwrite) {
        notes.push_back(Quoted(paper.name) + kCommonIsFull);
    }
    return added;
}

SetOutcome PaperDriver::Add(const std::vector<PaperWish>& papers) {
    std::vector<std::string> notes;
    SetOutcome outcome = InList([&](HWND list) {
        for (const PaperWish& paper : papers) {
            const SetOutcome added = AddOne(list, paper, notes);
            if (added.status != kDone) return added;
        }
        return SetOutcome();
    });
    outcome.notes.insert(outcome.notes.end(), notes.begin(), notes.end());
    return outcome;
}

SetOutcome PaperDriver::Edit(const PaperWish& paper) {
    std::vector<std::string> notes;
    SetOutcome outcome = InList([&](HWND list) {
        int row = -1;
        const SetOutcome found = FindEntry(PapersIn(list), "custom paper", paper.name, row);
        if (found.status != kDone) return found;
        kv::input::Choose(GetDlgItem(list, IDC_LIST_PAPERS), row);
        if (!IsWindowEnabled(GetDlgItem(list, kPaperEdit))) {
            return Refuse(kRefused, Quoted(paper.name) +
                                        " belongs to everybody: only an "
                                        "administrator changes it");
        }
        const ListReplies replies(session_, driver_, paper.answers);
        return InEditor(list, kPaperEdit, paper, notes);
    });
    outcome.notes.insert(outcome.notes.end(), notes.begin(), notes.end());
    return outcome;
}

SetOutcome PaperDriver::Delete(const std::string& name) {
    return InList([&](HWND list) {
        int row = -1;
        const SetOutcome found = FindEntry(PapersIn(list), "custom paper", name, row);
        if (found.status != kDone) return found;
        kv::input::Choose(GetDlgItem(list, IDC_LIST_PAPERS), row);
        driver_.ReplyBy([](std::string&) -> int { return IDOK; });
        const bool pressed = kv::input::Click(GetDlgItem(list, kPaperDelete));
        driver_.ReplyBy(nullptr);
        return pressed ? SetOutcome()
                       : Refuse(kRefused, Quoted(name) +
                                              " belongs to everybody: only an "
                                              "administrator deletes it");
    });
}

}  // namespace kvhost
