// Push buttons, check boxes, radio buttons and group boxes.
#include <host/picture/control_view.h>

#include <algorithm>

namespace kvhost {
namespace {

constexpr LRESULT kStatePushed = 0x0004;  // of BM_GETSTATE

bool IsMultiLine(const ControlView& control) { return (control.style & BS_MULTILINE) != 0; }

Label CaptionOf(const ControlView& control) {
    return {.text = control.text,
            .font = control.font,
            .color = control.TextColor(),
            .wrapping = IsMultiLine(control) ? Wrapping::kWords : Wrapping::kNone};
}

// The square or disc at the start of a check box or radio button, and the box of its text.
struct CheckParts {
    Box mark;
    Box text;
};

CheckParts PartsOf(const ControlView& control) {
    const Box& box = control.box;
    const double top = box.top + static_cast<int>((box.Height() - theme::kCheckSize) / 2);
    return {{box.left, top, box.left + theme::kCheckSize, top + theme::kCheckSize},
            {box.left + theme::kCheckSize + theme::kCheckGap, box.top, box.right, box.bottom}};
}

void DrawCheckText(Painter& painter, const ControlView& control, const Box& room) {
    const Label label = CaptionOf(control);
    painter.Text(control, room, label);
    if (!control.focused || control.text.empty()) return;
    const double width = LabelWidth(painter.canvas, control.font, control.text);
    Box ring = {room.left - 2, room.top, room.left + width + 2, room.bottom};
    if (IsMultiLine(control) || ring.right > room.right) ring.right = room.right;
    painter.canvas.FrameRound(ring, 2, 1, theme::kAccent);
}

bool IsChecked(const ControlView& control) { return control.Ask(BM_GETCHECK) == BST_CHECKED; }

}  // namespace

void DrawPushButton(Painter& painter, const ControlView& control) {
    const bool isDefault = (control.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON && control.enabled;
    const bool pushed = (control.Ask(BM_GETSTATE) & kStatePushed) != 0;
    const Color face = isDefault ? theme::kAccent
                       : !control.enabled || pushed ? theme::kFaintFace
                                                    : theme::kButtonFace;
    const Color edge = isDefault ? theme::kAccent
                       : control.enabled ? theme::kButtonEdge
                                         : theme::kFaintEdge;
    painter.canvas.FillRound(control.box, theme::kButtonRadius, face);
    painter.canvas.FrameRound(control.box, theme::kButtonRadius, 1, edge);
    if (control.focused && isDefault) {
        painter.canvas.FrameRound(control.box.Inset(2), theme::kButtonRadius - 1, 1,
                                  theme::kAccentText);
    } else if (control.focused) {
        painter.FocusRing(control.box, theme::kButtonRadius);
    }
    Label label = CaptionOf(control);
    label.align = Align::kCenter;
    if (isDefault) label.color = theme::kAccentText;
    Box room = control.box;
    room.left += theme::kButtonPadding;
    room.right -= theme::kButtonPadding;
    painter.Text(control, room, label);
}

void DrawCheckBox(Painter& painter, const ControlView& control) {
    painter.Ground(control);
    const CheckParts parts = PartsOf(control);
    const bool checked = IsChecked(control);
    if (checked) {
        painter.canvas.FillRound(parts.mark, 3,
                                 control.enabled ? theme::kAccent : theme::kFaintAccent);
        painter.canvas.Stroke(parts.mark, {{0.23, 0.52}, {0.42, 0.71}, {0.77, 0.31}}, 1.6,
                              theme::kAccentText);
    } else {
        painter.canvas.FillRound(parts.mark, 3,
                                 control.enabled ? theme::kFieldFace : theme::kFaintFace);
        painter.canvas.FrameRound(parts.mark, 3, 1,
                                  control.enabled ? theme::kFieldEdge : theme::kFaintEdge);
    }
    DrawCheckText(painter, control, parts.text);
}

void DrawRadioButton(Painter& painter, const ControlView& control) {
    painter.Ground(control);
    const CheckParts parts = PartsOf(control);
    const double radius = theme::kCheckSize / 2;
    if (IsChecked(control)) {
        painter.canvas.FillRound(parts.mark, radius,
                                 control.enabled ? theme::kAccent : theme::kFaintAccent);
        const Box dot = parts.mark.Inset(4);
        painter.canvas.FillRound(dot, dot.Width() / 2, theme::kAccentText);
    } else {
        painter.canvas.FillRound(parts.mark, radius,
                                 control.enabled ? theme::kFieldFace : theme::kFaintFace);
        painter.canvas.FrameRound(parts.mark, radius, 1,
                                  control.enabled ? theme::kFieldEdge : theme::kFaintEdge);
    }
    DrawCheckText(painter, control, parts.text);
}

// The frame starts at half the height of the caption, which interrupts it.
void DrawGroupBox(Painter& painter, const ControlView& control) {
    Canvas& canvas = painter.canvas;
    const double lineHeight = canvas.LineHeight(control.font) / canvas.scale();
    Box frame = control.box;
    frame.top += static_cast<int>(lineHeight / 2);
    canvas.FrameRound(frame, theme::kButtonRadius, 1, theme::kGroupEdge);
    if (control.text.empty()) return;
    const Box room = {control.box.left + theme::kGroupIndent + theme::kGroupGap, control.box.top,
                      control.box.right - theme::kGroupIndent - theme::kGroupGap,
                      control.box.top + lineHeight};
    const double width = LabelWidth(canvas, control.font, control.text);
    canvas.Fill({room.left - theme::kGroupGap, room.top,
                 std::min(room.left + width, room.right) + theme::kGroupGap, room.bottom},
                theme::kFace);
    painter.Text(control, room, {.text = control.text,
                                 .font = control.font,
                                 .color = control.TextColor(),
                                 .upright = Upright::kTop});
}

}  // namespace kvhost
