// Keys on their way to the core, see keys.h.
#include <host/qt/keys.h>
#include <host/qt/mirror.h>
#include <platform/window/input.h>

#include <commctrl.h>

#include <QApplication>

#include <optional>
#include <string_view>

namespace kvqt {
namespace {

// What the core is to be given: a virtual key, or a typed character.
struct CoreKey {
    int virtualKey = 0;
    unsigned modifiers = 0;
    char character = 0;
};

struct KeyName {
    int qt;
    int core;
};

// Keys that belong to the dialog manager wherever the focus is.
constexpr KeyName kDialogKeys[] = {
    {Qt::Key_Tab, VK_TAB},      {Qt::Key_Backtab, VK_TAB},   {Qt::Key_Return, VK_RETURN},
    {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_F1, VK_F1},
};
constexpr KeyName kMovingKeys[] = {
    {Qt::Key_Left, VK_LEFT},    {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Up, VK_UP},
    {Qt::Key_Down, VK_DOWN},    {Qt::Key_Home, VK_HOME},     {Qt::Key_End, VK_END},
    {Qt::Key_PageUp, VK_PRIOR}, {Qt::Key_PageDown, VK_NEXT},
};

template <size_t Count>
int Find(const KeyName (&table)[Count], int qt) {
    for (const KeyName& name : table) {
        if (name.qt == qt) return name.core;
    }
    return 0;
}

// Left and right change sides with the layout; the core's dialogs are always left to right.
int Turned(int virtualKey, const QWidget& widget) {
    if (widget.layoutDirection() != Qt::RightToLeft) return virtualKey;
    if (virtualKey == VK_LEFT) return VK_RIGHT;
    if (virtualKey == VK_RIGHT) return VK_LEFT;
    return virtualKey;
}

std::optional<char> TypedCharacter(const QKeyEvent& event) {
    if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0) return std::nullopt;
    const std::string text = ToAnsi(event.text());
    if (text.size() != 1 || static_cast<unsigned char>(text[0]) <= ' ') return std::nullopt;
    return text[0];
}

bool TakesReturn(HWND window) {
    const DWORD style = StyleOf(window);
    return kv::KindOf(window) == "edit" && (style & ES_MULTILINE) != 0 &&
           (style & ES_WANTRETURN) != 0 && (style & ES_READONLY) == 0;
}

std::optional<CoreKey> DialogKey(HWND window, const QKeyEvent& event) {
    unsigned modifiers = ModifiersOf(event.modifiers());
    const int key = event.key();
    if (const int core = Find(kDialogKeys, key)) {
        if (core == VK_RETURN && TakesReturn(window)) return std::nullopt;
        if (key == Qt::Key_Backtab) modifiers |= kv::input::kShift;
        return CoreKey{core, modifiers};
    }
    if (modifiers == kv::input::kControl && (key == Qt::Key_PageUp || key == Qt::Key_PageDown)) {
        return CoreKey{Find(kMovingKeys, key), modifiers};
    }
    const bool letter =
        (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
    if (letter && (modifiers & ~unsigned{kv::input::kShift}) == kv::input::kAlt) {
        return CoreKey{key, modifiers};
    }
    return std::nullopt;
}

std::optional<CoreKey> ComboKey(const QWidget& widget, const QKeyEvent& event) {
    const int key = event.key();
    const bool alt = (event.modifiers() & Qt::AltModifier) != 0;
    if (key == Qt::Key_F4 && !alt) return CoreKey{VK_F4};
    if (alt && (key == Qt::Key_Down || key == Qt::Key_Up)) return CoreKey{VK_F4};
    const int moving = Find(kMovingKeys, key);
    if (moving && !alt) return CoreKey{Turned(moving, widget)};
    return std::nullopt;
}

// The keys of the control that has the focus.
std::optional<CoreKey> ControlKey(HWND window, const QWidget& widget, const QKeyEvent& event) {
    const std::string_view kind = kv::KindOf(window);
    if (kind == "edit") {
        const bool step = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
        if (step && HasArrows(window)) return CoreKey{Find(kMovingKeys, event.key())};
        return std::nullopt;
    }
    if (kind == "combo") return ComboKey(widget, event);
    const unsigned modifiers = ModifiersOf(event.modifiers());
    if (const int moving = Find(kMovingKeys, event.key())) {
        return CoreKey{Turned(moving, widget), modifiers};
    }
    if (kind == "list" && event.key() == Qt::Key_Space) return CoreKey{VK_SPACE, modifiers};
    if (const auto character = TypedCharacter(event)) return CoreKey{0, 0, *character};
    return std::nullopt;
}

}  // namespace

bool HasArrows(HWND edit) {
    const kv::Window* record = kv::WindowFromHandle(edit);
    const kv::Window* parent = record ? kv::WindowFromHandle(record->parent) : nullptr;
    if (!parent) return false;
    for (HWND sibling : parent->children) {
        if (kv::KindOf(sibling) != "updown" || (StyleOf(sibling) & UDS_ARROWKEYS) == 0) continue;
        if (reinterpret_cast<HWND>(SendMessageA(sibling, UDM_GETBUDDY, 0, 0)) == edit) return true;
    }
    return false;
}

bool HandleKey(QtDisplay& display, QWidget& widget, QKeyEvent& event) {
    if (QApplication::activePopupWidget()) return false;
    const HWND window = display.WindowOf(&widget);
    if (!window) return false;
    std::optional<CoreKey> key = DialogKey(window, event);
    if (!key) key = ControlKey(window, widget, event);
    if (!key) return false;
    event.accept();
    if (event.type() == QEvent::ShortcutOverride) return true;
    // Focus frames show once the keyboard is used.
    widget.window()->setAttribute(Qt::WA_KeyboardFocusChange);
    display.Act(window, [&key] {
        if (key->character) {
            kv::input::Type(std::string_view(&key->character, 1));
        } else {
            kv::input::Key(key->virtualKey, key->modifiers);
        }
    });
    return true;
}

}  // namespace kvqt
