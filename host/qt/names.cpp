// Names and descriptions of controls, see names.h.
#include <host/qt/core_text.h>
#include <host/qt/names.h>
#include <host/qt/picture.h>
#include <host/qt/tool_tips.h>
#include <platform/dialog/message_box.h>
#include <platform/display/disabled_reason.h>
#include <platform/window/window.h>

#include <commctrl.h>

#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace kvqt {
namespace {

using Windows = std::vector<HWND>;

const kv::Window* VisibleWindow(HWND window) {
    const kv::Window* record = kv::WindowFromHandle(window);
    return record && record->IsVisibleStyle() ? record : nullptr;
}

const Windows& SiblingsOf(HWND window) {
    static const Windows none;
    const kv::Window* record = kv::WindowFromHandle(window);
    const kv::Window* parent = record ? kv::WindowFromHandle(record->parent) : nullptr;
    return parent ? parent->children : none;
}

bool IsButton(HWND window, std::initializer_list<DWORD> types) {
    if (kv::KindOf(window) != "button") return false;
    return std::find(types.begin(), types.end(), TypeOf(window, BS_TYPEMASK)) != types.end();
}

bool IsFrame(HWND window) {
    return IsButton(window, {BS_GROUPBOX});
}

bool IsRadio(HWND window) {
    return IsButton(window, {BS_RADIOBUTTON, BS_AUTORADIOBUTTON});
}

// A static that holds a text, as against a picture or a line.
bool IsText(HWND window) {
    if (kv::KindOf(window) != "static") return false;
    const DWORD type = TypeOf(window, SS_TYPEMASK);
    return type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT || type == SS_LEFTNOWORDWRAP;
}

// An edit with its arrows, or a slider with its edit, share one label.
bool SharesLabel(HWND window) {
    const auto kind = kv::KindOf(window);
    return kind == "edit" || kind == "trackbar" || kind == "updown";
}

QString CaptionOf(HWND window) {
    const QString caption = WithoutMnemonic(WindowTextOf(window));
    return caption.endsWith(u':') ? caption.chopped(1) : caption;
}

// The smallest visible frame around a control.
QString FrameAround(HWND control) {
    const kv::Window* inner = kv::WindowFromHandle(control);
    const kv::Window* best = nullptr;
    for (HWND sibling : SiblingsOf(control)) {
        const kv::Window* frame = IsFrame(sibling) ? VisibleWindow(sibling) : nullptr;
        if (!frame || frame == inner ||
            !PtInRect(&frame->rect, {inner->rect.left, inner->rect.top}))
            continue;
        const bool smaller =
            !best || frame->rect.right - frame->rect.left < best->rect.right - best->rect.left;
        if (smaller) best = frame;
    }
    return best ? CaptionOf(best->handle) : QString();
}

QString TipOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return ToolTipAt(window, {client.right / 2, client.bottom / 2}).trimmed();
}

bool IsReadOnly(HWND window) {
    return kv::KindOf(window) == "edit" && (StyleOf(window) & ES_READONLY) != 0;
}

bool IsField(HWND window) {
    const auto kind = kv::KindOf(window);
    return kind == "edit" || kind == "combo" || kind == "list" || kind == "trackbar";
}

// A dialog that asks for one thing only says in its title what for.
QString TitleAround(HWND field) {
    const Windows& siblings = SiblingsOf(field);
    const auto fields = std::count_if(siblings.begin(), siblings.end(), [](HWND sibling) {
        return VisibleWindow(sibling) && IsField(sibling);
    });
    return fields == 1 ? WindowTextOf(GetParent(field)) : QString();
}

QString NameOfField(HWND control) {
    if (const HWND label = LabelOf(control)) return CaptionOf(label);
    // A text to read that happens to stand in an edit.
    if (IsReadOnly(control)) return WindowTextOf(control);
    const QString frame = FrameAround(control);
    return frame.isEmpty() ? TitleAround(control) : frame;
}

// The icon of a message box, in the order of MB_ICONMASK's values.
QString NameOfMessageIcon(HWND icon) {
    constexpr const char* kNames[] = {"", QT_TRANSLATE_NOOP("MessageIcon", "Error"),
                                      QT_TRANSLATE_NOOP("MessageIcon", "Question"),
                                      QT_TRANSLATE_NOOP("MessageIcon", "Warning"),
                                      QT_TRANSLATE_NOOP("MessageIcon", "Information")};
    UINT type = 0;
    if (!kv::GetMessageBoxType(GetParent(icon), &type)) return {};
    const size_t index = (type & MB_ICONMASK) / MB_ICONHAND;
    return index < std::size(kNames) ? QCoreApplication::translate("MessageIcon", kNames[index])
                                     : QString();
}

// Empty space between two rectangles. What is on one row belongs together.
LONG Distance(const RECT& a, const RECT& b) {
    const LONG across = std::max({a.left - b.right, b.left - a.right, LONG{0}});
    const LONG down = std::max({a.top - b.bottom, b.top - a.bottom, LONG{0}});
    return across + 2 * down;
}

// A picture beside a control shows that control's value once more.
const kv::Window* IllustratedBy(HWND picture) {
    const RECT place = kv::WindowFromHandle(picture)->rect;
    const kv::Window* nearest = nullptr;
    for (HWND sibling : SiblingsOf(picture)) {
        const kv::Window* other = VisibleWindow(sibling);
        if (!other || IsFrame(sibling) || kv::KindOf(sibling) == "static") continue;
        if (!nearest || Distance(other->rect, place) < Distance(nearest->rect, place)) {
            nearest = other;
        }
    }
    return nearest;
}

bool IsPicture(HWND window) {
    if (kv::KindOf(window) != "static") return false;
    const DWORD type = TypeOf(window, SS_TYPEMASK);
    if (type == SS_ICON || type == SS_BITMAP) return true;
    return IsText(window) && DrawsItself(window);
}

// One picture stands for a whole group of radio buttons; of several, each has a button of its own.
bool HasPictureOfItsOwn(HWND radio) {
    const Windows& siblings = SiblingsOf(radio);
    const QString frame = FrameAround(radio);
    return std::count_if(siblings.begin(), siblings.end(), [&frame](HWND sibling) {
               return VisibleWindow(sibling) && FrameAround(sibling) == frame && IsPicture(sibling);
           }) > 1;
}

QString NameOfIllustrated(HWND picture) {
    const kv::Window* control = IllustratedBy(picture);
    if (!control) return {};
    const bool group = IsRadio(control->handle) && !HasPictureOfItsOwn(control->handle);
    return group ? FrameAround(control->handle) : NameOf(control->handle);
}

// The chosen button of the group that a picture stands for, or the text in a field.
QString ValueOfIllustrated(HWND picture) {
    const kv::Window* control = IllustratedBy(picture);
    if (!control || kv::KindOf(control->handle) == "combo") {
        return control ? WindowTextOf(control->handle) : QString();
    }
    if (!IsRadio(control->handle) || HasPictureOfItsOwn(control->handle)) return {};
    const QString frame = FrameAround(control->handle);
    for (HWND sibling : SiblingsOf(picture)) {
        if (IsRadio(sibling) && VisibleWindow(sibling) && FrameAround(sibling) == frame &&
            SendMessageA(sibling, BM_GETCHECK, 0, 0) == BST_CHECKED) {
            return CaptionOf(sibling);
        }
    }
    return {};
}

bool OnOneRow(const RECT& first, const RECT& second) {
    return first.top < second.bottom && second.top < first.bottom;
}

// Statics behind the field on its row: "%", "[1 - 999]". A label belongs to the next control.
QString TextsBehind(HWND field) {
    const Windows& siblings = SiblingsOf(field);
    const kv::Window* record = kv::WindowFromHandle(field);
    QStringList texts;
    auto at = std::find(siblings.begin(), siblings.end(), field);
    while (at != siblings.end() && ++at != siblings.end()) {
        const kv::Window* next = VisibleWindow(*at);
        if (!next || kv::KindOf(*at) == "updown") continue;
        if (!IsText(*at) || !OnOneRow(record->rect, next->rect)) break;
        const auto follower = std::find_if(at + 1, siblings.end(), VisibleWindow);
        if (follower != siblings.end() && LabelOf(*follower) == *at) break;
        texts += CaptionOf(*at);
    }
    return texts.join(u' ');
}

}  // namespace

QString WithoutMnemonic(const QString& text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    return plain.trimmed();
}

HWND LabelOf(HWND control) {
    const auto kind = kv::KindOf(control);
    if (!SharesLabel(control) && kind != "combo" && kind != "list") return nullptr;
    const Windows& siblings = SiblingsOf(control);
    auto at = std::find(siblings.begin(), siblings.end(), control);
    if (at == siblings.end()) return nullptr;
    while (at != siblings.begin()) {
        if (!VisibleWindow(*--at)) continue;
        if (IsText(*at)) return CaptionOf(*at).isEmpty() ? nullptr : *at;
        if (!SharesLabel(*at)) break;
    }
    return nullptr;
}

QString NameOf(HWND window) {
    const auto kind = kv::KindOf(window);
    QString name;
    if (SharesLabel(window) || kind == "combo" || kind == "list") {
        name = NameOfField(window);
    } else {
        name = WithoutMnemonic(WindowTextOf(window));
    }
    if (name.isEmpty()) name = TipOf(window);
    if (name.isEmpty() && kind == "static") name = NameOfMessageIcon(window);
    if (name.isEmpty() && kind == "static") name = NameOfIllustrated(window);
    return name;
}

QString DescriptionOf(HWND window) {
    const QString reason = FromAnsi(kv::ReasonDisabled(window));
    if (!reason.isEmpty()) return reason;
    if (kv::KindOf(window) == "edit") return TextsBehind(window);
    if (IsRadio(window)) return FrameAround(window);
    if (IsPicture(window) && WindowTextOf(window).isEmpty()) return ValueOfIllustrated(window);
    const QString tip = TipOf(window);
    return tip == NameOf(window) ? QString() : tip;
}

QString TipOfPicture(HWND window) {
    if (!IsPicture(window)) return {};
    const QString value = DescriptionOf(window);
    return value.isEmpty() ? NameOf(window) : NameOf(window) + QStringLiteral(": ") + value;
}

}  // namespace kvqt
