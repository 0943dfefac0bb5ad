// Which display is in use, and the report of changes to it.
#include <platform/display/display.h>
#include <platform/display/headless.h>
#include <platform/display/tell.h>
#include <platform/window/core.h>

namespace kv {
namespace {

Display* current = nullptr;

// These concern the window's place in the tree, not its picture, so switched off redrawing does not
// hold them back.
constexpr unsigned kNeverDeferred =
    kChangedVisible | kChangedEnabled | kChangedGeometry | kChangedParent | kChangedOrder;

}  // namespace

Display& CurrentDisplay() {
    if (current) return *current;
    return Headless();
}

void UseDisplay(Display* display) {
    current = display;
}

void TellChanged(HWND handle, unsigned changes) {
    Window* window = FindWindowRecord(handle);
    if (!window || !window->announced || window->destroying) return;
    if (!window->redraw) {
        window->deferredChanges |= changes & ~kNeverDeferred;
        changes &= kNeverDeferred;
    }
    if (changes) CurrentDisplay().Changed(handle, changes);
}

}  // namespace kv
