// The tree of windows: parents, owners, siblings, what hides or disables, enumeration and names for
// people.
#include <platform/window/core.h>

#include <algorithm>
#include <cstdio>

namespace kv {
namespace {

HWND desktop{};  // once somebody asked for it

void RemoveFrom(std::vector<HWND>& list, HWND handle) {
    const auto found = std::find(list.begin(), list.end(), handle);
    if (found != list.end()) list.erase(found);
}

std::vector<HWND>& SiblingsOf(const Window& window) {
    Window* parent = FindWindowRecord(window.parent);
    return parent ? parent->children : TopLevelList();
}

// Enumerations nest (a callback may enumerate), so each takes its handles from the end of one list
// that keeps its memory.
class EnumerationList {
 public:
    EnumerationList() : begin_(Shared().size()) {}
    ~EnumerationList() { Shared().resize(begin_); }
    EnumerationList(const EnumerationList&) = delete;
    EnumerationList& operator=(const EnumerationList&) = delete;

    void CollectBelow(HWND parent) {
        const Window* window = FindWindowRecord(parent);
        if (!window) return;
        for (HWND child : window->children) {
            Shared().push_back(child);
            CollectBelow(child);
        }
    }
    void CollectTopLevel() {
        Shared().insert(Shared().end(), TopLevelList().begin(), TopLevelList().end());
    }
    // By index: a nested enumeration may move the list.
    size_t Count() const { return Shared().size() - begin_; }
    HWND At(size_t index) const { return Shared()[begin_ + index]; }

 private:
    static std::vector<HWND>& Shared() {
        static std::vector<HWND>* list = new std::vector<HWND>;
        return *list;
    }
    size_t begin_;
};

std::string NameOfDialog(const Window& window) {
    if (window.dialog && !window.dialog->templateName.empty()) return window.dialog->templateName;
    return window.text;
}

}  // namespace

std::vector<HWND>& TopLevelList() {
    static std::vector<HWND>* list = new std::vector<HWND>;
    return *list;
}

std::vector<HWND> TopLevelWindows() {
    return TopLevelList();
}

void Link(Window& window, HWND parentHandle, Place place) {
    window.parent = parentHandle;
    Window* parent = FindWindowRecord(parentHandle);
    std::vector<HWND>& list = parent ? parent->children : TopLevelList();
    list.insert(place == Place::kFirst ? list.begin() : list.end(), window.handle);
    if (!parent) return;
    std::vector<UINT>& ids = parent->childIds;
    ids.insert(place == Place::kFirst ? ids.begin() : ids.end(), window.id);
}

void Unlink(Window& window) {
    Window* parent = FindWindowRecord(window.parent);
    if (!parent) {
        RemoveFrom(TopLevelList(), window.handle);
        return;
    }
    const auto found = std::find(parent->children.begin(), parent->children.end(), window.handle);
    if (found == parent->children.end()) return;
    parent->childIds.erase(parent->childIds.begin() + (found - parent->children.begin()));
    parent->children.erase(found);
}

void SetWindowId(Window& window, UINT id) {
    window.id = id;
    Window* parent = FindWindowRecord(window.parent);
    if (!parent) return;
    for (size_t i = 0; i < parent->children.size(); ++i) {
        if (parent->children[i] == window.handle) parent->childIds[i] = id;
    }
}

HWND RootOf(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    if (!window) return nullptr;
    while (const Window* parent = FindWindowRecord(window->parent)) window = parent;
    return window->handle;
}

bool Contains(HWND ancestor, HWND handle) {
    while (handle && handle != ancestor) {
        const Window* window = FindWindowRecord(handle);
        handle = window ? window->parent : nullptr;
    }
    return handle != nullptr;
}

void SetDesktop(HWND handle) {
    desktop = handle;
}

bool IsDesktop(HWND handle) {
    return handle && handle == desktop;
}

HWND OwnerRootOf(HWND handle) {
    const HWND root = RootOf(handle);
    return IsDesktop(root) ? nullptr : root;
}

std::string_view KindOf(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    return window ? window->windowClass->kind : std::string_view{};
}

std::string DescribeWindow(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    if (!window) return "a window that is gone";
    const std::string kind = window->windowClass->kind.empty()
                                 ? window->windowClass->name
                                 : std::string(window->windowClass->kind);
    if (window->dialog || !window->parent) {
        const std::string name = NameOfDialog(*window);
        std::string description = kind + " \"" + name + "\"";
        if (name != window->text) description += " (\"" + window->text + "\")";
        return description;
    }
    std::string description = kind + " " + std::to_string(window->id);
    for (const Window* above = FindWindowRecord(window->parent); above;
         above = FindWindowRecord(above->parent)) {
        if (!above->dialog && above->parent) continue;
        return description + " of \"" + NameOfDialog(*above) + "\"";
    }
    return description;
}

}  // namespace kv

using namespace kv;

HWND WINAPI GetParent(HWND handle) {
    const Window* window = WindowFromHandle(handle);
    if (!window) return nullptr;
    if ((window->style & WS_CHILD) != 0) return window->parent;
    return (window->style & WS_POPUP) != 0 ? window->owner : window->parent;
}

HWND WINAPI GetWindow(HWND handle, UINT command) {
    const Window* window = WindowFromHandle(handle);
    if (!window) return nullptr;
    if (command == GW_OWNER) return window->owner;
    if (command == GW_CHILD) return window->children.empty() ? nullptr : window->children.front();
    const std::vector<HWND>& siblings = SiblingsOf(*window);
    const auto self = std::find(siblings.begin(), siblings.end(), handle);
    if (self == siblings.end()) return nullptr;
    constexpr UINT kLast = 1;  // GW_HWNDLAST
    switch (command) {
        case GW_HWNDFIRST:
            return siblings.front();
        case kLast:
            return siblings.back();
        case GW_HWNDNEXT:
            return self + 1 != siblings.end() ? self[1] : nullptr;
        case GW_HWNDPREV:
            return self != siblings.begin() ? self[-1] : nullptr;
        default:
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
    }
}

BOOL WINAPI IsChild(HWND parent, HWND handle) {
    const Window* window = WindowFromHandle(handle);
    return window && WindowFromHandle(parent) && window->parent && parent != handle &&
           Contains(parent, handle);
}

BOOL WINAPI IsWindowVisible(HWND handle) {
    const Window* window = WindowFromHandle(handle);
    if (!window) return FALSE;
    for (; window; window = FindWindowRecord(window->parent)) {
        if (!window->IsVisibleStyle()) return FALSE;
    }
    return TRUE;
}

BOOL WINAPI IsWindowEnabled(HWND handle) {
    const Window* window = WindowFromHandle(handle);
    return window && !window->IsDisabledStyle();
}

BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM param) {
    if (!callback) SetLastError(ERROR_INVALID_PARAMETER);
    return EnumChildWindows(nullptr, callback, param);
}

BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM param) {
    if (!callback || (parent && !WindowFromHandle(parent))) return FALSE;
    return Guarded(FALSE, [&]() -> BOOL {
        EnumerationList list;
        if (!parent || IsDesktop(parent)) {
            list.CollectTopLevel();
        } else {
            list.CollectBelow(parent);
        }
        // The callback may destroy windows; those that are gone are passed over.
        const size_t count = list.Count();
        for (size_t i = 0; i < count; ++i) {
            const HWND handle = list.At(i);
            if (FindWindowRecord(handle) && !callback(handle, param)) return FALSE;
        }
        return TRUE;
    });
}
