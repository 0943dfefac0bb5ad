// The user's action under way: who watches it, and the modifier keys that are held.
#include <platform/window/input.h>
#include <platform/window/input_scope.h>

namespace kv::input {
namespace {

unsigned currentModifiers = kNoModifier;
Watcher* watcher = nullptr;

}  // namespace

ActionScope::ActionScope(unsigned modifiers, HWND window)
    : previous_(currentModifiers), watched_(watcher && window) {
    currentModifiers = modifiers;
    if (watched_) watcher->Begun(window);
}

ActionScope::~ActionScope() {
    currentModifiers = previous_;
    if (watched_ && watcher) watcher->Ended();
}

void Watch(Watcher* next) {
    watcher = next;
}

unsigned CurrentModifiers() {
    return currentModifiers;
}

}  // namespace kv::input

using namespace kv;

SHORT WINAPI GetKeyState(int virtualKey) {
    const unsigned modifiers = input::CurrentModifiers();
    const bool down = (virtualKey == VK_SHIFT && (modifiers & input::kShift) != 0) ||
                      (virtualKey == VK_CONTROL && (modifiers & input::kControl) != 0) ||
                      (virtualKey == VK_MENU && (modifiers & input::kAlt) != 0);
    return down ? static_cast<SHORT>(-0x8000) : SHORT{0};
}
