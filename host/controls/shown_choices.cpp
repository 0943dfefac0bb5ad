// See shown_choices.h.
#include <host/controls/host_text.h>
#include <host/controls/set_outcome.h>
#include <host/controls/shown_choices.h>
#include <host/controls/typed_numbers.h>
#include <commctrl.h>
#include <platform/window/window.h>

#include <algorithm>
#include <cctype>
#include <optional>

namespace kvhost {
namespace {

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string WithoutMnemonic(std::string text) {
    const size_t at = text.find('&');
    if (at != std::string::npos) text.erase(at, 1);
    return text;
}

std::string ListText(HWND window, UINT lengthMessage, UINT textMessage, int index) {
    const LRESULT length = SendMessageA(window, lengthMessage, index, 0);
    if (length < 0) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    SendMessageA(window, textMessage, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return ToUtf8(text);
}

bool IsListBox(HWND window) {
    return kv::KindOf(window) == "list";
}

}  // namespace

std::string WindowText(HWND window) {
    std::string text(static_cast<size_t>(std::max(GetWindowTextLengthA(window), 0)) + 1, '\0');
    const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(std::max(length, 0)));
    return ToUtf8(text);
}

std::vector<ChoiceText> EntriesOf(HWND window) {
    std::vector<ChoiceText> entries;
    const bool list = IsListBox(window);
    const LRESULT count = SendMessageA(window, list ? LB_GETCOUNT : CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const int index = static_cast<int>(i);
        entries.push_back({static_cast<DWORD>(SendMessageA(
                               window, list ? LB_GETITEMDATA : CB_GETITEMDATA, index, 0)),
                           list ? ListText(window, LB_GETTEXTLEN, LB_GETTEXT, index)
                                : ListText(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, index)});
    }
    return entries;
}

std::vector<ChoiceText> ChoicesOf(const Control& control, HWND window) {
    const std::string_view kind = control.kind;
    if (kind == "combo" || kind == "list") return EntriesOf(window);
    std::vector<ChoiceText> choices;
    for (unsigned i = 0; i < control.choiceCount; ++i) {
        const Choice& choice = control.choices[i];
        const HWND button = choice.buttonId != 0
                                ? GetDlgItem(GetParent(window), static_cast<int>(choice.buttonId))
                                : nullptr;
        if (choice.buttonId != 0 && button == nullptr) continue;
        choices.push_back(
            {choice.value, button != nullptr ? WithoutMnemonic(WindowText(button)) : choice.name});
    }
    return choices;
}

std::string ShownText(const Control& control, HWND window) {
    const std::string_view kind = control.kind;
    if (kind == "combo" || kind == "list") {
        const bool list = IsListBox(window);
        const LRESULT index = SendMessageA(window, list ? LB_GETCURSEL : CB_GETCURSEL, 0, 0);
        if (index < 0) return {};
        return list ? ListText(window, LB_GETTEXTLEN, LB_GETTEXT, static_cast<int>(index))
                    : ListText(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, static_cast<int>(index));
    }
    if (kind == "radio") {
        for (unsigned i = 0; i < control.choiceCount; ++i) {
            const HWND button =
                GetDlgItem(GetParent(window), static_cast<int>(control.choices[i].buttonId));
            if (SendMessageA(button, BM_GETCHECK, 0, 0) == BST_CHECKED) {
                return WithoutMnemonic(WindowText(button));
            }
        }
        return {};
    }
    if (kind == "check") {
        return SendMessageA(window, BM_GETCHECK, 0, 0) == BST_CHECKED ? "on" : "off";
    }
    if (kind == "slider") return std::to_string(SendMessageA(window, TBM_GETPOS, 0, 0));
    return WithoutMnemonic(WindowText(window));
}

bool CaptionMatches(const std::string& caption, const std::string& wanted) {
    const std::string plain = Lower(WithoutMnemonic(caption));
    const std::string text = Lower(wanted);
    return plain == text || plain.substr(0, plain.find(" (")) == text;
}

int FindChoice(const Control& control, const std::vector<ChoiceText>& offered,
               const std::string& value) {
    for (size_t i = 0; i < offered.size(); ++i) {
        if (CaptionMatches(offered[i].text, value)) return static_cast<int>(i);
    }
    std::optional<DWORD> number;
    for (unsigned i = 0; i < control.choiceCount; ++i) {
        if (control.choices[i].name[0] != '\0' && value == control.choices[i].name) {
            number = control.choices[i].value;
        }
    }
    if (!number) {
        if (const auto typed = NumberOf(value)) number = static_cast<DWORD>(*typed);
    }
    for (size_t i = 0; number && i < offered.size(); ++i) {
        if (offered[i].value == *number) return static_cast<int>(i);
    }
    return -1;
}

std::string OfferText(const std::vector<ChoiceText>& offered) {
    std::string text;
    for (const ChoiceText& choice : offered) {
        text += (text.empty() ? "" : ", ") + std::to_string(static_cast<LONG>(choice.value)) + " " +
                Quoted(WithoutMnemonic(choice.text));
    }
    return text.empty() ? "nothing" : text;
}

}  // namespace kvhost
