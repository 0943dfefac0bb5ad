// Edit binding. Numbers are shown divided by ten to the power of the item's decimals.
#include "binding/edit_binding.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <utility>

#include "binding/control_fill.h"
#include "resources/string_ids.h"
#include "rules/gray_out.h"
#include "rules/rules_file.h"
#include "sheet/fixed_text.h"
#include "sheet/message_box.h"

namespace kvui {
namespace {

double PowerOfTen(LONG exponent) {
    return std::pow(10.0, static_cast<double>(exponent));
}

void SetTextIfDifferent(HWND window, const char* text) {
    char current[256] = "";
    GetWindowTextA(window, current, sizeof current);
    if (std::strcmp(current, text) != 0) SetWindowTextA(window, text);
}

void ShowJobManagementPage(SheetContext& context) {
    char caption[64] = "";
    LoadStringA(context.strings, IDS_PAGE_JOB_MANAGEMENT, caption, sizeof caption);
    const HWND sheet = GetParent(context.page);
    const HWND tabs = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
    const int count = static_cast<int>(SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0));
    int index = 0;
    for (; index < count; ++index) {
        char text[64] = "";
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        SendMessageA(tabs, TCM_GETITEMA, index, reinterpret_cast<LPARAM>(&item));
        if (std::strcmp(text, caption) == 0) break;
    }
    SendMessageA(sheet, PSM_SETCURSEL, index, 0);
}

// The page whose empty job number is being talked about. The question, the page that comes back and
// the focus that is moved make other empty numbers lose the focus in between; they have
// WM_KILLFOCUS of their own, and would answer each other without end.
HWND pageInQuestion = nullptr;
class Question {
 public:
    explicit Question(HWND page) : before_(std::exchange(pageInQuestion, page)) {}
    ~Question() { pageInQuestion = before_; }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

 private:
    HWND before_;
};

// An empty job number whose check box is on: store "empty", tell the user and come back to it. What
// was erased is gone before the page can show it again. Nobody is there to answer when the edit
// goes with its window.
void RefuseEmptyJobEdit(SheetContext& context, HWND edit, const ControlItem& item) {
    const JobNumber& job = *item.edit->job;
    WriteItemValue(context.settings, item, job.emptyValue, nullptr);
    if (pageInQuestion == context.page || !IsWindowVisible(edit)) return;
    const Question question(context.page);
    ShowMessageString(context.page, context.strings, job.textId, job.titleId, MB_ICONEXCLAMATION);
    if (!IsWindow(edit)) return;  // the sheet was closed meanwhile
    ShowJobManagementPage(context);
    SetFocus(edit);
}

std::string NumberText(const ControlItem& item, DWORD value) {
    char text[64];
    if (const JobNumber* job = item.edit->job) {
        if (value == job->emptyValue) return "";
        std::snprintf(text, sizeof text, "%04ld", static_cast<long>(static_cast<LONG>(value)));
        return text;
    }
    const int decimals = std::clamp(static_cast<int>(item.edit->decimals), 0, 9);
    const double number = static_cast<LONG>(value) / PowerOfTen(decimals);
    return {
        text,
        std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, decimals).ptr};
}

}  // namespace

EditLimits LimitsOf(const ControlItem& item) {
    EditLimits limits{item.edit->maxCharacters, item.edit->minimum, item.edit->maximum};
    LONG characters = 0, minimum = 0, maximum = 0;
    if (ReadEditAttribute(item.controlName, &characters, &minimum, &maximum)) {
        limits = {characters, minimum, maximum};
    }
    if (limits.maximum < limits.minimum) limits.maximum = limits.minimum;
    return limits;
}

void FillEdit(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND edit = GetDlgItem(dialog, static_cast<int>(item.controlId));
    if (edit == nullptr || item.edit == nullptr) return;
    const EditLimits limits = LimitsOf(item);
    SendMessageA(edit, EM_LIMITTEXT, static_cast<WPARAM>(std::max<LONG>(limits.maxCharacters, 1)),
                 0);
    EnableWindow(edit, IsShownByOptions(context, item.optionKey));
    if (item.edit->kind == kEditText) return;
    const LONG scale = static_cast<LONG>(PowerOfTen(std::clamp<LONG>(item.edit->decimals, 0, 9)));
    if (const HWND spin = GetDlgItem(dialog, static_cast<int>(item.edit->spinId))) {
        SendMessageA(spin, UDM_SETRANGE32, static_cast<WPARAM>(limits.minimum / scale),
                     limits.maximum / scale);
    }
    if (const HWND range = GetDlgItem(dialog, static_cast<int>(item.edit->rangeTextId))) {
        char text[64];
        std::snprintf(text, sizeof text, "[%ld-%ld]", static_cast<long>(limits.minimum),
                      static_cast<long>(limits.maximum));
        SetTextIfDifferent(range, text);
    }
    SetTextIfDifferent(edit, NumberText(item, ItemValue(context, item)).c_str());
}

void FilterTyping(HWND edit, const ControlItem& item) {
    if (item.edit == nullptr) return;
    char text[512] = "";
    GetWindowTextA(edit, text, sizeof text);
    DWORD selectionStart = 0, selectionEnd = 0;
    SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&selectionStart),
                 reinterpret_cast<LPARAM>(&selectionEnd));
    const size_t limit = static_cast<size_t>(std::max<LONG>(LimitsOf(item).maxCharacters, 1));
    std::string kept;
    size_t caret = selectionEnd;
    bool pointSeen = false;
    for (size_t i = 0; text[i] != '\0'; ++i) {
        const bool inSet = std::strchr(item.edit->characters, text[i]) != nullptr;
        bool accepted = item.edit->kind == kEditNumeric ? inSet : !inSet;
        if (item.edit->kind == kEditNumeric && text[i] == '.') {
            accepted = !pointSeen;
            pointSeen = true;
        }
        if (accepted) {
            kept.push_back(text[i]);
        } else {
            MessageBeep(0xFFFFFFFFu);
            if (i < selectionEnd) --caret;
        }
    }
    if (kept.size() > limit) {
        MessageBeep(0xFFFFFFFFu);
        kept.resize(limit);
    }
    if (kept == text) return;
    SetWindowTextA(edit, kept.c_str());
    caret = std::min(caret, kept.size());
    SendMessageA(edit, EM_SETSEL, caret, static_cast<LPARAM>(caret));
}

double NumberOfText(const char* text) {
    text += std::strspn(text, " ");
    const bool plus = *text == '+';
    if (plus) ++text;
    // Otherwise "inf" and "nan" would be read as well; a person types decimal numbers only.
    const size_t plain = std::strspn(text, plus ? ".0123456789" : "-.0123456789");
    double number = 0;
    std::from_chars(text, text + plain, number, std::chars_format::fixed);
    return number;
}

EditReading ReadEdit(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND edit = GetDlgItem(dialog, static_cast<int>(item.controlId));
    if (edit == nullptr || item.edit == nullptr) return {false, 0};
    char text[256] = "";
    GetWindowTextA(edit, text, sizeof text);
    if (item.edit->job != nullptr && text[0] == '\0') {
        if (context.privateSettings->mdmSecurity & item.edit->job->securityBit) {
            RefuseEmptyJobEdit(context, edit, item);
        }
        return {false, 0};
    }
    const EditLimits limits = LimitsOf(item);
    const double number =
        NumberOfText(text) * PowerOfTen(std::clamp<LONG>(item.edit->decimals, 0, 9));
    const double clamped = std::clamp(std::trunc(number), static_cast<double>(limits.minimum),
                                      static_cast<double>(limits.maximum));
    return {true, static_cast<DWORD>(static_cast<LONG>(clamped))};
}

bool ReadUserName(SheetContext& context, HWND edit) {
    char text[kUserNameSize] = "";
    GetWindowTextA(edit, text, sizeof text);
    char* stored = context.privateSettings->userName;
    if (std::strncmp(stored, text, kUserNameSize) == 0) return false;
    CopyText(stored, kUserNameSize, text);
    return true;
}

}  // namespace kvui
