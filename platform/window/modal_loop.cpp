// Loops that run messages and wait for the display: those of modal dialogs and sheets, and
// GetMessageA.
#include <platform/display/display.h>
#include <platform/window/core.h>

namespace kv {
namespace {

std::vector<HWND>& ModalStack() {
    static std::vector<HWND>* stack = new std::vector<HWND>;
    return *stack;
}

// Tells the display of both ends, also when a display or a script leaves by an exception.
class ModalScope {
 public:
    explicit ModalScope(HWND root) : root_(root) {
        ModalStack().push_back(root);
        CurrentDisplay().ModalBegun(root);
    }
    ~ModalScope() {
        ModalStack().pop_back();
        CurrentDisplay().ModalEnded(root_);
    }
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

 private:
    HWND root_;
};

}  // namespace

HWND CurrentModalWindow() {
    return ModalStack().empty() ? nullptr : ModalStack().back();
}

bool IsBehindModal(HWND root) {
    const HWND modal = CurrentModalWindow();
    // A loop whose window is already going away stands before nobody.
    if (!modal || !FindWindowRecord(modal)) return false;
    for (HWND walk = root; walk;) {
        if (walk == modal) return false;
        const Window* window = FindWindowRecord(walk);
        walk = window ? window->owner : nullptr;
    }
    return true;
}

bool RunModalLoop(HWND root, const std::function<bool()>& done) {
    if (done()) return true;
    const ModalScope scope(root);
    while (!done()) {
        if (PumpPendingMessages() > 0) continue;
        if (QuitWasPosted() || !FindWindowRecord(root)) return done();
        if (!CurrentDisplay().WaitForInput(root)) return done();
    }
    return true;
}

}  // namespace kv

using namespace kv;

BOOL WINAPI GetMessageA(MSG* message, HWND handle, UINT first, UINT last) {
    if (!message) return -1;
    while (!PeekMessageA(message, handle, first, last, PM_REMOVE)) {
        if (CurrentDisplay().WaitForInput(nullptr)) continue;
        // Nothing will ever come: end the caller's loop the way it knows.
        *message = {};
        message->message = WM_QUIT;
        return FALSE;
    }
    return message->message != WM_QUIT;
}
