// Window classes: the registration calls and the lookup by name or atom. The standard controls and
// the dialog class register themselves at the first lookup.
#include <platform/controls/controls.h>
#include <platform/dialog/dialog.h>
#include <platform/window/core.h>

#include <cstdio>
#include <unordered_map>

namespace kv {
namespace {

constexpr ATOM kFirstAtom = 0xC001;

struct ClassTable {
    // Keyed by the folded name; the records never move, windows point at them.
    std::unordered_map<std::string, std::unique_ptr<WindowClass>> byName;
    std::vector<const WindowClass*> byAtom;
    bool systemClassesKnown = false;
};

ClassTable& TheClasses() {
    static ClassTable* classes = new ClassTable;
    return *classes;
}

// Class names compare without case.
std::string Folded(LPCSTR name) {
    std::string folded(name);
    for (char& letter : folded) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter + 0x20);
    }
    return folded;
}

ATOM AddClass(std::unique_ptr<WindowClass> made) {
    ClassTable& classes = TheClasses();
    std::unique_ptr<WindowClass>& place = classes.byName[Folded(made->name.c_str())];
    if (place) {
        SetLastError(kErrorClassAlreadyExists);
        return 0;
    }
    classes.byAtom.push_back(made.get());
    place = std::move(made);
    return static_cast<ATOM>(kFirstAtom + classes.byAtom.size() - 1);
}

void KnowSystemClasses() {
    ClassTable& classes = TheClasses();
    if (classes.systemClassesKnown) return;
    classes.systemClassesKnown = true;
    RegisterControlClasses();
    RegisterDialogClass();
}

const WindowClass* ClassOfAtom(std::uintptr_t atom) {
    const ClassTable& classes = TheClasses();
    const std::uintptr_t index = atom - kFirstAtom;
    return index < classes.byAtom.size() ? classes.byAtom[index] : nullptr;
}

}  // namespace

void RegisterSystemClass(const char* name, std::string_view kind, WNDPROC procedure) {
    auto made = std::make_unique<WindowClass>();
    made->name = name;
    made->procedure = procedure;
    made->kind = kind;
    AddClass(std::move(made));
}

const WindowClass* FindClass(LPCSTR nameOrAtom) {
    KnowSystemClasses();
    const WindowClass* found = nullptr;
    if (IS_INTRESOURCE(nameOrAtom)) {
        found = ClassOfAtom(reinterpret_cast<std::uintptr_t>(nameOrAtom));
    } else {
        const auto& byName = TheClasses().byName;
        const auto entry = byName.find(Folded(nameOrAtom));
        if (entry != byName.end()) found = entry->second.get();
    }
    if (!found) SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
    return found;
}

}  // namespace kv

using namespace kv;

ATOM WINAPI RegisterClassA(const WNDCLASSA* windowClass) {
    if (!windowClass || !windowClass->lpfnWndProc || IS_INTRESOURCE(windowClass->lpszClassName) ||
        windowClass->cbWndExtra < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return Guarded(ATOM{0}, [&]() -> ATOM {
        KnowSystemClasses();
        auto made = std::make_unique<WindowClass>();
        made->name = windowClass->lpszClassName;
        made->procedure = windowClass->lpfnWndProc;
        made->instance = windowClass->hInstance;
        made->background = windowClass->hbrBackground;
        made->cursor = windowClass->hCursor;
        made->extraBytes = windowClass->cbWndExtra;
        return AddClass(std::move(made));
    });
}

int WINAPI GetClassNameA(HWND handle, LPSTR buffer, int size) {
    const Window* window = WindowFromHandle(handle);
    if (!window || !buffer || size <= 0) return 0;
    // To programs a property sheet is a dialog.
    const WindowClass& windowClass = *window->windowClass;
    const char* name = windowClass.kind == "sheet" ? kDialogClass : windowClass.name.c_str();
    const int length = std::snprintf(buffer, static_cast<size_t>(size), "%s", name);
    return length < size ? length : size - 1;
}
