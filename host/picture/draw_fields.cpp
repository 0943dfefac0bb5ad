// Edits, combo boxes and the arrows of up-down controls.
#include <host/picture/control_view.h>
#include <platform/window/paint.h>

#include <commctrl.h>

#include <algorithm>

namespace kvhost {
namespace {

constexpr char kBullet = '\x95';  // of the driver's code page

// The entry of a combo box as a text; owner-drawn boxes without texts have none.
std::string EntryText(const ControlView& control, int index) {
    const LRESULT length = control.Ask(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length <= 0) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    control.Ask(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

// An opened list is as wide as its box, so every entry must fit, not only the chosen one.
void CheckEntries(Painter& painter, const ControlView& control, const Box& room) {
    const LRESULT count = control.Ask(CB_GETCOUNT);
    const LRESULT chosen = control.Ask(CB_GETCURSEL);
    for (LRESULT i = 0; i < count; ++i) {
        if (i == chosen) continue;
        const std::string text = EntryText(control, static_cast<int>(i));
        painter.Check(control, room,
                      {.text = text, .font = control.font, .mnemonics = Mnemonics::kLiteral});
    }
}

bool DrawOwnerField(Painter& painter, const ControlView& control, const Box& room) {
    const WindowSurface surface(static_cast<int>(room.Width()), static_cast<int>(room.Height()));
    if (!surface.view()) return false;
    painter.canvas.CopyUnder(room, surface.view());
    const UINT state = control.enabled ? 0 : ODS_DISABLED;
    const RECT all = {0, 0, surface.view().width, surface.view().height};
    if (painter.canvas.isMirrored()) SetTextAlign(surface.dc(), TA_RTLREADING);
    if (!kv::PaintItem(control.window, -1, surface.dc(), all, state)) return false;
    painter.canvas.DrawPicture(room, surface.view());
    return true;
}

void DrawArrow(Painter& painter, const ControlView& control, double centreX, double centreY,
               bool up) {
    const Box frame = {centreX - 3.5, centreY - 2, centreX + 3.5, centreY + 2};
    const Color color = control.enabled ? theme::kGlyph : theme::kFaintText;
    if (up) {
        painter.canvas.Stroke(frame, {{0, 1}, {0.5, 0.1}, {1, 1}}, 1.3, color);
    } else {
        painter.canvas.Stroke(frame, {{0, 0}, {0.5, 0.9}, {1, 0}}, 1.3, color);
    }
}

}  // namespace

void DrawEdit(Painter& painter, const ControlView& control) {
    const bool multiLine = (control.style & ES_MULTILINE) != 0;
    const bool readOnly = (control.style & ES_READONLY) != 0;
    const bool bordered = (control.style & WS_BORDER) != 0;
    if (bordered) painter.Field(control, readOnly ? theme::kFaintFace : theme::kFieldFace);
    if (!bordered) painter.Ground(control);
    Box room = control.box;
    if (bordered) {
        room.left += theme::kFieldPadding;
        room.right -= theme::kFieldPadding;
        if (multiLine) room = {room.left, room.top + 3, room.right, room.bottom - 3};
    }
    std::string text = control.text;
    if ((control.style & ES_PASSWORD) != 0) text.assign(text.size(), kBullet);
    Label label = {.text = text,
                   .font = control.font,
                   .color = control.TextColor(),
                   .mnemonics = Mnemonics::kLiteral};
    if (multiLine) {
        label.wrapping = Wrapping::kWords;
        label.upright = Upright::kTop;
    }
    if ((control.style & ES_CENTER) != 0) label.align = Align::kCenter;
    if ((control.style & ES_RIGHT) != 0) label.align = Align::kEnd;
    // What a person types may be longer than its edit, which then scrolls.
    const bool scrolls = (control.style & (WS_VSCROLL | WS_HSCROLL)) != 0;
    if (readOnly && !scrolls) {
        painter.Text(control, room, label);
    } else {
        DrawLabel(painter.canvas, room, label);
    }
}

void DrawComboBox(Painter& painter, const ControlView& control) {
    const bool typed = (control.style & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
    // An entry that the page draws has the colour of windows behind it.
    const bool owned = (control.style & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
    painter.Field(control, typed || owned ? theme::kFieldFace : theme::kButtonFace);
    const Box& box = control.box;
    const double arrow = box.right - theme::kComboArrow;
    DrawArrow(painter, control, arrow + theme::kComboArrow / 2 - 1, (box.top + box.bottom) / 2,
              false);
    const Box room = {box.left + theme::kFieldPadding, box.top + 2, arrow, box.bottom - 2};
    if (DrawOwnerField(painter, control, {box.left + 3, box.top + 3, arrow, box.bottom - 3})) {
        return;
    }
    const Label label = {.text = control.text,
                         .font = control.font,
                         .color = control.TextColor(),
                         .mnemonics = Mnemonics::kLiteral};
    if (typed) {
        DrawLabel(painter.canvas, room, label);
    } else {
        painter.Text(control, room, label);
    }
    CheckEntries(painter, control, room);
}

void DrawUpDown(Painter& painter, const ControlView& control) {
    painter.Field(control, theme::kButtonFace);
    const Box& box = control.box;
    const double middleX = (box.left + box.right) / 2;
    const double middleY = (box.top + box.bottom) / 2;
    const double quarter = box.Height() / 4;
    DrawArrow(painter, control, middleX, middleY - quarter, true);
    DrawArrow(painter, control, middleX, middleY + quarter, false);
}

}  // namespace kvhost
