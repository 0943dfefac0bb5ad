// What the files of the window core share and nobody else needs: the tables of windows and classes,
// the creation call that dialogs use, and the state of focus, activation and modal loops.
#pragma once

#include <platform/window/window.h>

#include <windows.h>

#include <new>
#include <stdexcept>
#include <utility>

namespace kv {

constexpr DWORD kErrorInvalidIndex = 1413;
constexpr DWORD kErrorChildWithoutParent = 1406;
constexpr DWORD kErrorClassAlreadyExists = 1410;
constexpr DWORD kErrorDialogParameter = 1441;

// The record behind a handle, leaving the last error alone.
Window* FindWindowRecord(HWND handle);

// Adds a fresh record to the table and gives it its handle.
Window& AddWindowRecord();
// Makes the handle stale at once. The record itself is freed when no message is under way any more,
// because a procedure further up the stack may still be looking at it.
void RemoveWindowRecord(Window& window);
// Brackets every call of a window procedure, see RemoveWindowRecord.
class CallScope {
 public:
    CallScope();
    ~CallScope();
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;
};

const WindowClass* FindClass(LPCSTR nameOrAtom);

// CreateWindowExA plus what only a dialog has; the display hears of the window when it is complete.
struct WindowCreation {
    CREATESTRUCTA parameters{};
    std::unique_ptr<DialogState> dialog;
    HFONT font{};
};
HWND CreateWindowFrom(WindowCreation& creation);

// Tree upkeep. A null parent means the list of top-level windows.
enum class Place { kFirst, kLast };
void Link(Window& window, HWND parent, Place place);
void Unlink(Window& window);
void SetWindowId(Window& window, UINT id);
std::vector<HWND>& TopLevelList();
// True when `ancestor` is `window` or one of its parents.
bool Contains(HWND ancestor, HWND window);
POINT ClientOrigin(HWND window);
// The window that GetDesktopWindow made; nobody has its handle before that.
void SetDesktop(HWND window);
bool IsDesktop(HWND window);
// The window that a dialog or message box is modal for: owners are always top-level.
HWND OwnerRootOf(HWND window);

// Focus and activation.
HWND ActiveWindow();
void Activate(HWND root);
// What hiding, disabling or destroying a window does to focus and activation.
void LeaveHiddenWindow(HWND window);
void ForgetWindow(HWND window);

// Asks for help on a control, as F1 does: WM_HELP to the control, which passes it up.
void SendHelpFor(HWND control);

// Tells the display what changed in the style word.
void TellStyleChange(Window& window, DWORD before);

// Messages and timers of a window that goes away.
void DropMessagesOf(HWND window);
bool QuitWasPosted();

// True when a modal loop runs and `root` is neither its window nor owned by it.
bool IsBehindModal(HWND root);

// Runs what may allocate; running out of memory becomes the platform's error instead of an
// exception that crosses the C boundary.
template <typename Result, typename Body>
Result Guarded(Result failure, Body&& body) {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    } catch (const std::length_error&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    }
    return failure;
}

}  // namespace kv
