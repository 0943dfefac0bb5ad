// Track bars, lying or upright.
#include <host/picture/control_view.h>
#include <platform/controls/control_input.h>

#include <commctrl.h>

#include <algorithm>

namespace kvhost {
namespace {

constexpr double kSmallestTickGap = 3;

// A track bar as if it lay: along from its start, across from its upper (or left) edge.
struct Track {
    const ControlView& control;
    bool upright;

    double Length() const { return upright ? control.box.Height() : control.box.Width(); }
    double Breadth() const { return upright ? control.box.Width() : control.box.Height(); }
    Box At(double from, double to, double above, double below) const {
        const Box& box = control.box;
        if (upright) return {box.left + above, box.top + from, box.left + below, box.top + to};
        return {box.left + from, box.top + above, box.left + to, box.top + below};
    }
};

struct Scale {
    double low;
    double range;
    double length;

    double Along(double position) const {
        return theme::kChannelMargin + (position - low) * length / range;
    }
};

void DrawTicks(Painter& painter, const Track& track, const Scale& scale, double above) {
    const ControlView& control = track.control;
    const double frequency = static_cast<double>(control.Ask(kv::KVM_GETTICKFREQ));
    const bool automatic = (control.style & TBS_AUTOTICKS) != 0 && frequency > 0;
    double step = automatic ? frequency : scale.range;
    while (step < scale.range && step * scale.length / scale.range < kSmallestTickGap) step *= 2;
    const Color color = control.enabled ? theme::kGlyph : theme::kFaintEdge;
    for (double at = 0; at <= scale.range; at += step) {
        const double along = scale.Along(scale.low + at);
        painter.canvas.Fill(track.At(along - 0.5, along + 0.5, above, above + 3), color);
    }
}

}  // namespace

void DrawTrackBar(Painter& painter, const ControlView& control) {
    const Track track = {control, (control.style & TBS_VERT) != 0};
    const double low = static_cast<double>(control.Ask(TBM_GETRANGEMIN));
    const double high = static_cast<double>(control.Ask(TBM_GETRANGEMAX));
    const Scale scale = {low, std::max(high - low, 1.0),
                         std::max(track.Length() - 2 * theme::kChannelMargin, 1.0)};
    const bool ticks = (control.style & TBS_NOTICKS) == 0;
    const double room = track.Breadth() - (ticks ? 5 : 0);
    const double middle = std::max(room, theme::kThumb) / 2;
    painter.canvas.FillRound(track.At(theme::kChannelMargin, track.Length() - theme::kChannelMargin,
                                      middle - 1.5, middle + 1.5),
                             1.5, control.enabled ? theme::kChannel : theme::kFaintEdge);
    if (ticks) DrawTicks(painter, track, scale, middle + theme::kThumb / 2 + 1);
    const double along = scale.Along(static_cast<double>(control.Ask(TBM_GETPOS)));
    const Box thumb = track.At(along - theme::kThumb / 2, along + theme::kThumb / 2,
                               middle - theme::kThumb / 2, middle + theme::kThumb / 2);
    painter.canvas.FillRound(thumb, theme::kThumb / 2,
                             control.enabled ? theme::kAccent : theme::kFaintAccent);
    const Box core = thumb.Inset(4);
    painter.canvas.FillRound(core, core.Width() / 2, theme::kAccentText);
    if (control.focused) painter.canvas.FrameRound(control.box, 2, 1, theme::kAccent);
}

}  // namespace kvhost
