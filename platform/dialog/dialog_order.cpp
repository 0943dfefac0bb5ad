// Tab order, groups and mnemonic letters of dialogs.
#include <platform/dialog/dialog_order.h>
#include <platform/window/core.h>

#include <algorithm>

namespace kv {
namespace {

bool IsUsable(const Window& window) {
    return window.IsVisibleStyle() && !window.IsDisabledStyle();
}

bool IsTabStop(const Window& window) {
    return (window.style & WS_TABSTOP) != 0 && IsUsable(window);
}

// Visits every control in order; nested pages are walked through unless hidden or disabled.
template <typename Visit>
void WalkControls(const Window& parent, Visit& visit) {
    for (HWND handle : parent.children) {
        const Window* child = FindWindowRecord(handle);
        if (!child) continue;
        if ((child->exStyle & WS_EX_CONTROLPARENT) == 0) {
            visit(*child);
        } else if (IsUsable(*child)) {
            WalkControls(*child, visit);
        }
    }
}

// One pass is enough to know the neighbours in both directions.
struct TabSearch {
    HWND from{};
    bool passed = false;
    HWND first{};
    HWND last{};
    HWND before{};
    HWND after{};

    void operator()(const Window& window) {
        // The focus may be in a part of a control, as in a combo box's edit field.
        const bool here = from && Contains(window.handle, from);
        if (here) passed = true;
        if (!IsTabStop(window)) return;
        if (!first) first = window.handle;
        last = window.handle;
        if (here) return;
        if (!passed) before = window.handle;
        if (passed && !after) after = window.handle;
    }
};

bool StartsGroup(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    return window && (window->style & WS_GROUP) != 0;
}

LRESULT DialogCode(HWND control) {
    return SendMessageA(control, WM_GETDLGCODE, 0, 0);
}

char Upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - ('a' - 'A')) : letter;
}

char MnemonicOf(const Window& window) {
    const std::string_view kind = window.windowClass->kind;
    const bool label = kind == "static" && (window.style & SS_NOPREFIX) == 0;
    if (kind != "button" && !label) return 0;
    const std::string& text = window.text;
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '&') continue;
        if (text[i + 1] != '&') return Upper(text[i + 1]);
        ++i;  // a doubled sign is a plain one
    }
    return 0;
}

// A label leads to the visible control behind it; of a radio group to the button that Tab stops at.
HWND ControlBehind(const std::vector<HWND>& order, size_t label) {
    for (size_t i = label + 1; i < order.size(); ++i) {
        const Window* window = FindWindowRecord(order[i]);
        if (!window || !window->IsVisibleStyle()) continue;
        const LRESULT code = DialogCode(order[i]);
        if ((code & DLGC_STATIC) != 0) continue;
        if ((code & DLGC_RADIOBUTTON) == 0) return IsTabStop(*window) ? order[i] : nullptr;
        for (size_t j = i; j < order.size() && (j == i || !StartsGroup(order[j])); ++j) {
            const Window* member = FindWindowRecord(order[j]);
            if (member && IsTabStop(*member)) return order[j];
        }
        return IsUsable(*window) ? order[i] : nullptr;
    }
    return nullptr;
}

HWND TargetOf(const std::vector<HWND>& order, size_t index, char letter) {
    const Window* window = FindWindowRecord(order[index]);
    if (!window || !window->IsVisibleStyle() || MnemonicOf(*window) != letter) return nullptr;
    if ((DialogCode(order[index]) & DLGC_STATIC) != 0) return ControlBehind(order, index);
    return window->IsDisabledStyle() ? nullptr : order[index];
}

}  // namespace

std::vector<HWND> ControlsInOrder(HWND dialog) {
    std::vector<HWND> order;
    const Window* window = FindWindowRecord(dialog);
    auto visit = [&order](const Window& control) { order.push_back(control.handle); };
    if (window) WalkControls(*window, visit);
    return order;
}

HWND NextInGroup(HWND dialog, HWND control, BOOL previous) {
    HWND next = control;
    do {
        next = GetNextDlgGroupItem(dialog, next, previous);
    } while (next && next != control && (DialogCode(next) & DLGC_STATIC) != 0);
    return next;
}

MnemonicTarget FindMnemonic(HWND dialog, HWND focus, char letter) {
    MnemonicTarget found;
    const std::vector<HWND> order = ControlsInOrder(dialog);
    size_t start = 0;
    for (size_t i = 0; i < order.size(); ++i) {
        if (focus && Contains(order[i], focus)) start = i + 1;
    }
    for (size_t i = 0; i < order.size(); ++i) {
        const HWND source = order[(start + i) % order.size()];
        const HWND target = TargetOf(order, (start + i) % order.size(), Upper(letter));
        if (!target || target == found.control) continue;
        if (found.control) {
            found.unique = false;
            break;
        }
        found = {target, true, target == source};
    }
    return found;
}

}  // namespace kv

using namespace kv;

HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    const Window* window = WindowFromHandle(dialog);
    if (!window) return nullptr;
    if (control && !WindowFromHandle(control)) return nullptr;
    TabSearch search;
    search.from = control == dialog ? nullptr : control;
    WalkControls(*window, search);
    if (previous) return search.passed && search.before ? search.before : search.last;
    return search.after ? search.after : search.first;
}

HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    const Window* parent = WindowFromHandle(dialog);
    if (!parent) return nullptr;
    if (control && control != dialog) {
        const Window* window = WindowFromHandle(control);
        if (!window || !Contains(dialog, control)) return nullptr;
        parent = FindWindowRecord(window->parent);
    }
    const std::vector<HWND>& siblings = parent->children;
    if (siblings.empty()) return control;
    const auto found = std::find(siblings.begin(), siblings.end(), control);
    const size_t self = found == siblings.end() ? 0 : static_cast<size_t>(found - siblings.begin());
    size_t begin = self;
    while (begin > 0 && !StartsGroup(siblings[begin])) --begin;
    size_t end = self + 1;
    while (end < siblings.size() && !StartsGroup(siblings[end])) ++end;
    const size_t count = end - begin;
    for (size_t step = 1; step <= count; ++step) {
        const size_t shift = previous ? count - step : step;
        const HWND candidate = siblings[begin + (self - begin + shift) % count];
        const Window* window = FindWindowRecord(candidate);
        if (window && IsUsable(*window)) return candidate;
    }
    return control;
}
