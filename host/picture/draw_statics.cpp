// Texts, pictures, frames and lines of static controls.
#include <host/picture/control_view.h>
#include <host/picture/icon_sizes.h>
#include <host/picture/message_icon.h>

#include <algorithm>

namespace kvhost {
namespace {

struct TextKind {
    DWORD type;
    Align align;
    Wrapping wrapping;
};
constexpr TextKind kTextKinds[] = {
    {SS_LEFT,           Align::kStart,  Wrapping::kWords},
    {SS_CENTER,         Align::kCenter, Wrapping::kWords},
    {SS_RIGHT,          Align::kEnd,    Wrapping::kWords},
    {SS_LEFTNOWORDWRAP, Align::kStart,  Wrapping::kNone},
};

// A picture stands in the top left corner of its control, or in the middle.
Box PictureBox(const ControlView& control, double width, double height) {
    Box box = {control.box.left, control.box.top, control.box.left + width,
               control.box.top + height};
    if ((control.style & SS_CENTERIMAGE) != 0) {
        const double dx = static_cast<int>((control.box.Width() - width) / 2);
        const double dy = static_cast<int>((control.box.Height() - height) / 2);
        box = {box.left + dx, box.top + dy, box.right + dx, box.bottom + dy};
    }
    return box;
}

void DrawSunken(Painter& painter, const ControlView& control) {
    if ((control.style & (SS_SUNKEN | WS_BORDER)) == 0) return;
    painter.canvas.FrameRound(control.box, 0, 1, theme::kPaneEdge);
}

}  // namespace

void DrawTextStatic(Painter& painter, const ControlView& control) {
    painter.Ground(control);
    DrawSunken(painter, control);
    const auto* kind = std::find_if(
        std::begin(kTextKinds), std::end(kTextKinds),
        [&](const TextKind& row) { return row.type == (control.style & SS_TYPEMASK); });
    if (kind == std::end(kTextKinds) || control.text.empty()) return;
    Label label = {.text = control.text,
                   .font = control.font,
                   .color = control.TextColor(),
                   .align = kind->align,
                   .upright = Upright::kTop,
                   .wrapping = kind->wrapping};
    if ((control.style & SS_CENTERIMAGE) != 0) {
        label.upright = Upright::kMiddle;
        label.wrapping = Wrapping::kNone;
    }
    if ((control.style & SS_NOPREFIX) != 0) label.mnemonics = Mnemonics::kLiteral;
    painter.Text(control, control.box, label);
}

void DrawIconStatic(Painter& painter, const ControlView& control) {
    const auto icon = reinterpret_cast<HICON>(control.Ask(STM_GETICON));
    const kv::SurfaceView view = icon != nullptr ? kv::ViewOf(icon) : kv::SurfaceView{};
    if (!view) {
        DrawMessageIcon(painter, control);
        return;
    }
    const Box box = PictureBox(control, view.width, view.height);
    const SizedIcon sized(icon, painter.canvas.scale());
    painter.canvas.DrawIcon(box, sized.icon());
    DrawSunken(painter, control);
}

void DrawBitmapStatic(Painter& painter, const ControlView& control) {
    const auto bitmap = reinterpret_cast<HBITMAP>(control.Ask(STM_GETIMAGE, IMAGE_BITMAP));
    BITMAP size{};
    if (bitmap != nullptr && GetObjectA(bitmap, sizeof size, &size) != 0) {
        painter.canvas.DrawBitmap(PictureBox(control, size.bmWidth, size.bmHeight), bitmap);
    }
    DrawSunken(painter, control);
}

void DrawFrameStatic(Painter& painter, const ControlView& control) {
    painter.canvas.FrameRound(control.box, 0, 1, theme::kGroupEdge);
}

void DrawRuleStatic(Painter& painter, const ControlView& control) {
    const Box& box = control.box;
    painter.canvas.Fill({box.left, box.top, box.right, box.top + 1}, theme::kGroupEdge);
}

}  // namespace kvhost
