// Tab controls: a row of captions of which one is selected.
#include <platform/controls/classes.h>
#include <platform/controls/control_input.h>
#include <platform/controls/control_support.h>
#include <platform/display/tell.h>

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace kv {
namespace {

struct Tab {
    std::string text;
    LPARAM data = 0;
};

struct TabState : ControlState {
    std::vector<Tab> tabs;
    int selection = -1;
};

TabState& StateFor(Window& window) {
    return StateOf<TabState>(window);
}

bool Has(const TabState& state, LONG_PTR index) {
    return index >= 0 && index < static_cast<LONG_PTR>(state.tabs.size());
}

bool TakeItem(Tab& tab, const TCITEMA& item) {
    bool changed = false;
    if ((item.mask & TCIF_TEXT) != 0) {
        const char* text = item.pszText ? item.pszText : "";
        changed = tab.text != text;
        if (changed) tab.text = text;
    }
    if ((item.mask & TCIF_PARAM) != 0) tab.data = item.lParam;
    return changed;
}

LRESULT Insert(Window& window, WPARAM wParam, const TCITEMA* item) {
    if (!item) return -1;
    TabState& state = StateFor(window);
    const size_t place = std::min<size_t>(wParam, state.tabs.size());
    TakeItem(*state.tabs.emplace(state.tabs.begin() + static_cast<ptrdiff_t>(place)), *item);
    if (state.selection < 0) {
        state.selection = 0;
    } else if (static_cast<int>(place) <= state.selection) {
        ++state.selection;
    }
    TellChanged(window.handle, kChangedItems | kChangedSelection);
    return static_cast<LRESULT>(place);
}

LRESULT SetItem(Window& window, int index, const TCITEMA* item) {
    TabState& state = StateFor(window);
    if (!item || !Has(state, index)) return FALSE;
    if (TakeItem(state.tabs[static_cast<size_t>(index)], *item)) {
        TellChanged(window.handle, kChangedItems);
    }
    return TRUE;
}

LRESULT GetItem(Window& window, int index, TCITEMA* item) {
    const TabState& state = StateFor(window);
    if (!item || !Has(state, index)) return FALSE;
    const Tab& tab = state.tabs[static_cast<size_t>(index)];
    if ((item->mask & TCIF_TEXT) != 0 && item->pszText && item->cchTextMax > 0) {
        const size_t length = std::min(tab.text.size(), static_cast<size_t>(item->cchTextMax) - 1);
        std::memcpy(item->pszText, tab.text.data(), length);
        item->pszText[length] = '\0';
    }
    if ((item->mask & TCIF_PARAM) != 0) item->lParam = tab.data;
    return TRUE;
}

LRESULT Delete(Window& window, int index) {
    TabState& state = StateFor(window);
    if (!Has(state, index)) return FALSE;
    state.tabs.erase(state.tabs.begin() + index);
    if (state.selection == index) {
        state.selection = -1;
    } else if (state.selection > index) {
        --state.selection;
    }
    TellChanged(window.handle, kChangedItems | kChangedSelection);
    return TRUE;
}

LRESULT SetCurrent(Window& window, int index) {
    TabState& state = StateFor(window);
    if (!Has(state, index)) return -1;
    const int previous = std::exchange(state.selection, index);
    if (previous != index) TellChanged(window.handle, kChangedSelection);
    return previous;
}

// By the user: the parent may refuse to leave the tab, and hears of the change.
LRESULT Choose(HWND handle, int index) {
    Window* window = WindowFromHandle(handle);
    if (!Has(StateFor(*window), index)) return 0;
    if (StateFor(*window).selection == index) return 1;
    NMHDR header{};
    if (NotifyWith(handle, header, TCN_SELCHANGING) != 0) {
        // A native tab bar has moved already and must be put back.
        TellChanged(handle, kChangedSelection);
        return 0;
    }
    window = WindowFromHandle(handle);
    if (!window || !Has(StateFor(*window), index)) return 0;
    const int before = StateFor(*window).selection;
    SetCurrent(*window, index);
    NotifyWith(handle, header, TCN_SELCHANGE);
    // What the change brought about may have turned back.
    window = WindowFromHandle(handle);
    return !window || StateFor(*window).selection != before;
}

LRESULT OnKeyDown(Window& window, int virtualKey) {
    const TabState& state = StateFor(window);
    const int count = static_cast<int>(state.tabs.size());
    switch (virtualKey) {
        case VK_LEFT:
            Choose(window.handle, std::max(state.selection - 1, 0));
            break;
        case VK_RIGHT:
            Choose(window.handle, std::min(state.selection + 1, count - 1));
            break;
        case VK_HOME:
            Choose(window.handle, 0);
            break;
        case VK_END:
            Choose(window.handle, count - 1);
            break;
        default:
            break;
    }
    return 0;
}

}  // namespace

LRESULT TabControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    if (AsksForHelp(message, wParam)) return DefWindowProcA(handle, message, wParam, lParam);
    const int index = static_cast<int>(wParam);
    auto* item = reinterpret_cast<TCITEMA*>(lParam);
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case TCM_GETITEMCOUNT:
            return static_cast<LRESULT>(StateFor(*window).tabs.size());
        case TCM_GETITEMA:
            return GetItem(*window, index, item);
        case TCM_SETITEMA:
            return SetItem(*window, index, item);
        case TCM_INSERTITEMA:
            return Insert(*window, wParam, item);
        case TCM_DELETEITEM:
            return Delete(*window, index);
        case TCM_GETCURSEL:
            return StateFor(*window).selection;
        case TCM_SETCURSEL:
            return SetCurrent(*window, index);
        case KVM_CHOOSE:
            return Choose(handle, index);
        case WM_KEYDOWN:
            return OnKeyDown(*window, index);
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace kv
