// One disc per kind of message, with a sign in it.
#include <host/picture/message_icon.h>
#include <platform/dialog/message_box.h>

#include <algorithm>

namespace kvhost {
namespace {

constexpr double kStrokeWidth = 2.6;

void DrawCross(Canvas& canvas, const Box& disc) {
    canvas.Stroke(disc, {{0.34, 0.34}, {0.66, 0.66}}, kStrokeWidth, theme::kAccentText);
    canvas.Stroke(disc, {{0.66, 0.34}, {0.34, 0.66}}, kStrokeWidth, theme::kAccentText);
}

void DrawQuestion(Canvas& canvas, const Box& disc) {
    canvas.Stroke(disc,
                  {{0.37, 0.38}, {0.40, 0.29}, {0.50, 0.25}, {0.60, 0.29}, {0.63, 0.38},
                   {0.58, 0.46}, {0.50, 0.52}, {0.50, 0.58}},
                  kStrokeWidth, theme::kAccentText);
    canvas.Stroke(disc, {{0.5, 0.73}, {0.5, 0.74}}, kStrokeWidth, theme::kAccentText);
}

void DrawExclamation(Canvas& canvas, const Box& disc) {
    canvas.Stroke(disc, {{0.5, 0.25}, {0.5, 0.56}}, kStrokeWidth, theme::kAccentText);
    canvas.Stroke(disc, {{0.5, 0.72}, {0.5, 0.73}}, kStrokeWidth, theme::kAccentText);
}

void DrawLetter(Canvas& canvas, const Box& disc) {
    canvas.Stroke(disc, {{0.5, 0.27}, {0.5, 0.28}}, kStrokeWidth, theme::kAccentText);
    canvas.Stroke(disc, {{0.5, 0.44}, {0.5, 0.74}}, kStrokeWidth, theme::kAccentText);
}

struct MessageIcon {
    UINT type;
    Color color;
    void (*sign)(Canvas& canvas, const Box& disc);
};
// flag of MessageBox, colour of the disc, sign
constexpr MessageIcon kIcons[] = {
    {MB_ICONHAND,        theme::kErrorSign,   DrawCross},
    {MB_ICONQUESTION,    theme::kAccent,      DrawQuestion},
    {MB_ICONEXCLAMATION, theme::kWarningSign, DrawExclamation},
    {MB_ICONASTERISK,    theme::kAccent,      DrawLetter},
};

}  // namespace

void DrawMessageIcon(Painter& painter, const ControlView& control) {
    UINT type = 0;
    if (!kv::GetMessageBoxType(GetParent(control.window), &type)) return;
    const auto* icon = std::find_if(
        std::begin(kIcons), std::end(kIcons),
        [type](const MessageIcon& row) { return row.type == (type & MB_ICONMASK); });
    if (icon == std::end(kIcons)) return;
    const Box disc = control.box.Inset(1);
    painter.canvas.FillRound(disc, disc.Width() / 2, icon->color);
    icon->sign(painter.canvas, disc);
}

}  // namespace kvhost
