// List boxes and tab controls.
#include <host/picture/control_view.h>
#include <platform/controls/control_input.h>
#include <platform/window/paint.h>

#include <commctrl.h>

#include <algorithm>

namespace kvhost {
namespace {

// Tab stops are in dialog units of the list's font; a dialog's base unit is six pixels wide.
constexpr double kPixelsPerUnit = 6.0 / 4.0;
constexpr int kDefaultStop = 32;
constexpr int kMostStops = 16;

std::string EntryText(const ControlView& control, int index) {
    const LRESULT length = control.Ask(LB_GETTEXTLEN, static_cast<WPARAM>(index));
    if (length <= 0) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    control.Ask(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

std::vector<double> TabStops(const ControlView& control) {
    int units[kMostStops] = {};
    const LRESULT count =
        control.Ask(kv::KVM_GETTABSTOPS, kMostStops, reinterpret_cast<LPARAM>(units));
    std::vector<double> stops;
    for (LRESULT i = 0; i < std::min<LRESULT>(count, kMostStops); ++i) {
        stops.push_back(units[i] * kPixelsPerUnit);
    }
    return stops;
}

// The stop behind a position; behind the last given one (or a single one) they repeat.
double NextStop(const std::vector<double>& stops, double at) {
    if (stops.size() > 1) {
        for (const double stop : stops) {
            if (stop > at) return stop;
        }
    }
    const bool given = stops.size() == 1 && stops[0] > 0;
    const double step = given ? stops[0] : kDefaultStop * kPixelsPerUnit;
    return (static_cast<int>(at / step) + 1) * step;
}

// An entry's columns; each has the room up to the next one.
void DrawColumns(Painter& painter, const ControlView& control, const Box& room,
                 const std::string& text, Color color) {
    const std::vector<double> stops = TabStops(control);
    const bool tabs = (control.style & LBS_USETABSTOPS) != 0;
    double at = 0;
    for (size_t start = 0; start <= text.size();) {
        const size_t tab = tabs ? text.find('\t', start) : std::string::npos;
        const size_t end = tab == std::string::npos ? text.size() : tab;
        const std::string column = text.substr(start, end - start);
        const double width = LabelWidth(painter.canvas, control.font, column);
        const double next = NextStop(stops, at + width);
        const Box box = {room.left + at, room.top,
                         tab == std::string::npos ? room.right : room.left + next, room.bottom};
        painter.Text(control, box, {.text = column,
                                    .font = control.font,
                                    .color = color,
                                    .mnemonics = Mnemonics::kLiteral});
        at = next;
        start = end + 1;
    }
}

void DrawEntry(Painter& painter, const ControlView& control, const Box& row, int index) {
    const bool selected = control.Ask(LB_GETSEL, static_cast<WPARAM>(index)) > 0;
    if (selected) {
        painter.canvas.Fill(row, control.enabled ? theme::kSelection : theme::kFaintSelection);
    }
    const WindowSurface surface(static_cast<int>(row.Width()), static_cast<int>(row.Height()));
    if (surface.view()) {
        painter.canvas.CopyUnder(row, surface.view());
        const RECT all = {0, 0, surface.view().width, surface.view().height};
        const UINT state = (selected ? ODS_SELECTED : 0) | (control.enabled ? 0 : ODS_DISABLED);
        if (painter.canvas.isMirrored()) SetTextAlign(surface.dc(), TA_RTLREADING);
        if (kv::PaintItem(control.window, index, surface.dc(), all, state)) {
            painter.canvas.DrawPicture(row, surface.view());
            return;
        }
    }
    const Box room = {row.left + theme::kFieldPadding - 1, row.top, row.right - 2, row.bottom};
    DrawColumns(painter, control, room, EntryText(control, index), control.TextColor());
}

void DrawScrollBar(Painter& painter, const Box& inside, double shown, double first) {
    const Box bar = {inside.right - theme::kScrollBar, inside.top, inside.right, inside.bottom};
    painter.canvas.Fill(bar, theme::kFaintFace);
    const double length = std::max(bar.Height() * shown, 16.0);
    const double start = bar.top + std::min(bar.Height() * first, bar.Height() - length);
    painter.canvas.FillRound({bar.left + 3, start + 2, bar.right - 3, start + length - 2}, 2,
                             theme::kChannel);
}

std::string TabText(const ControlView& control, int index) {
    char text[256] = "";
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    control.Ask(TCM_GETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return text;
}

void DrawTab(Painter& painter, const ControlView& control, Box box, const std::string& text,
             bool active) {
    if (!active) box.top += 2;
    const Box whole = {box.left, box.top, box.right, box.bottom + theme::kButtonRadius};
    {
        // Only the upper corners are round.
        const ClipScope clip(painter.canvas, {box.left, box.top, box.right, box.bottom + 1});
        painter.canvas.FillRound(whole, theme::kButtonRadius,
                                 active ? theme::kFace : theme::kTabFace);
        painter.canvas.FrameRound(whole, theme::kButtonRadius, 1, theme::kPaneEdge);
    }
    if (active) {
        painter.canvas.Fill({box.left + 1, box.bottom - 1, box.right - 1, box.bottom + 1},
                            theme::kFace);
        painter.canvas.FillRound({box.left + 6, box.top + 1, box.right - 6, box.top + 3}, 1,
                                 theme::kAccent);
        if (control.focused) {
            painter.canvas.FrameRound({box.left + 4, box.top + 5, box.right - 4, box.bottom - 1}, 2,
                                      1, theme::kAccent);
        }
    } else {
        painter.canvas.Fill({box.left, box.bottom, box.right, box.bottom + 1}, theme::kPaneEdge);
    }
    painter.Text(control, {box.left + 3, box.top + 1, box.right - 3, box.bottom},
                 {.text = text,
                  .font = control.font,
                  .color = control.TextColor(),
                  .align = Align::kCenter});
}

}  // namespace

void DrawListBox(Painter& painter, const ControlView& control) {
    painter.Field(control, theme::kFieldFace);
    const Box inside = control.box.Inset(2);
    const ClipScope clip(painter.canvas, inside);
    const auto count = static_cast<int>(control.Ask(LB_GETCOUNT));
    const auto first = static_cast<int>(std::max<LRESULT>(control.Ask(LB_GETTOPINDEX), 0));
    const double height = std::max<double>(static_cast<double>(control.Ask(LB_GETITEMHEIGHT)), 1);
    const double rows = inside.Height() / height;
    const bool scrolls = (control.style & WS_VSCROLL) != 0 && count > rows;
    const double right = inside.right - (scrolls ? theme::kScrollBar : 0);
    double top = inside.top;
    for (int i = first; i < count && top < inside.bottom; ++i, top += height) {
        DrawEntry(painter, control, {inside.left, top, right, top + height}, i);
    }
    if (scrolls) DrawScrollBar(painter, inside, rows / count, static_cast<double>(first) / count);
}

// The pane begins below the captions; a page stands on it as a window of its own.
void DrawTabControl(Painter& painter, const ControlView& control) {
    const Box& box = control.box;
    const double strip = box.top + theme::kTabHeight;
    painter.canvas.FrameRound({box.left, strip, box.right, box.bottom}, 0, 1, theme::kPaneEdge);
    const auto count = static_cast<int>(control.Ask(TCM_GETITEMCOUNT));
    const auto active = static_cast<int>(control.Ask(TCM_GETCURSEL));
    std::vector<std::string> texts;
    double all = 0;
    for (int i = 0; i < count; ++i) {
        texts.push_back(TabText(control, i));
        all += LabelWidth(painter.canvas, control.font, texts.back());
    }
    // Many captions share the room: they stand closer, and beyond that each loses as much.
    const double room = count > 0 ? (box.Width() - 4 - all) / count : 0;
    const double padding = std::min(room / 2, theme::kTabPadding);
    double left = box.left + 2;
    for (int i = 0; i < count; ++i) {
        const double width = LabelWidth(painter.canvas, control.font, texts[i]) + 2 * padding;
        const double right = static_cast<int>(left + width + 0.5);
        DrawTab(painter, control, {left, box.top, right, strip}, texts[static_cast<size_t>(i)],
                i == active);
        left = right;
    }
}

}  // namespace kvhost
