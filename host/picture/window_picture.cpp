// Walking a window's tree: background controls first, then the others from the last to the first,
// then what is attached to others; each in its place, inside its parent.
#include <host/picture/control_view.h>
#include <host/picture/window_picture.h>
#include <platform/window/paint.h>
#include <platform/window/window.h>

#include <algorithm>
#include <cmath>

namespace kvhost {
namespace {

std::string TextOf(HWND window) {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(std::max(length, 0)));
    return text;
}

ControlView ViewOf(HWND handle, const kv::Window& window, double left, double top) {
    ControlView view;
    view.window = handle;
    view.id = window.id;
    view.style = window.style;
    view.box = {left + window.rect.left, top + window.rect.top, left + window.rect.right,
                top + window.rect.bottom};
    view.text = TextOf(handle);
    view.font = reinterpret_cast<HFONT>(SendMessageA(handle, WM_GETFONT, 0, 0));
    view.enabled = IsWindowEnabled(handle) != FALSE;
    view.focused = GetFocus() == handle;
    view.colors = kv::ColorsOf(handle);
    return view;
}

// True when the window, or its parent for it, painted its own picture.
bool DrawOwnPicture(Painter& painter, const ControlView& control) {
    const WindowSurface surface(static_cast<int>(control.box.Width()),
                                static_cast<int>(control.box.Height()));
    if (!surface.view()) return false;
    painter.canvas.CopyUnder(control.box, surface.view());
    if (kv::PaintWindow(control.window, surface.dc()) == kv::Painting::kPlain) return false;
    painter.canvas.DrawPicture(control.box, surface.view());
    return true;
}

void DrawChildren(Painter& painter, HWND parent, const Box& box);

void DrawControl(Painter& painter, HWND handle, const ControlView& control) {
    const ClipScope clip(painter.canvas, control.box);
    const bool own = DrawOwnPicture(painter, control);
    const ControlKind* kind = KindOfControl(control);
    if (!own && kind != nullptr) kind->draw(painter, control);
    DrawChildren(painter, handle, control.box);
}

void DrawChildren(Painter& painter, HWND parent, const Box& box) {
    const kv::Window* window = kv::WindowFromHandle(parent);
    if (window == nullptr) return;
    // By value: painting sends messages, and a handler may change the tree.
    const std::vector<HWND> children = window->children;
    for (const Layer layer : {Layer::kBackground, Layer::kControl, Layer::kAttachment}) {
        for (auto at = children.rbegin(); at != children.rend(); ++at) {
            const kv::Window* child = kv::WindowFromHandle(*at);
            if (child == nullptr || !child->IsVisibleStyle()) continue;
            const ControlView view = ViewOf(*at, *child, box.left, box.top);
            const ControlKind* kind = KindOfControl(view);
            if ((kind != nullptr ? kind->layer : Layer::kControl) != layer) continue;
            DrawControl(painter, *at, view);
        }
    }
}

void DrawTitle(Painter& painter, HWND window, double width) {
    const Box bar = {0, 0, width, theme::kTitleHeight};
    painter.canvas.Fill(bar, theme::kTitleFace);
    const double middle = theme::kTitleHeight / 2;
    const double half = theme::kCloseGlyph / 2;
    const double centre = width - theme::kTitleMargin - half;
    const Box close = {centre - half, middle - half, centre + half, middle + half};
    painter.canvas.Stroke(close, {{0, 0}, {1, 1}}, 1.1, theme::kGlyph);
    painter.canvas.Stroke(close, {{1, 0}, {0, 1}}, 1.1, theme::kGlyph);
    ControlView title;
    title.window = window;
    title.text = TextOf(window);
    painter.Text(title, {theme::kTitleMargin, 0, close.left - theme::kTitleMargin, bar.bottom},
                 {.text = title.text, .mnemonics = Mnemonics::kLiteral});
}

// The picture has a title bar above the window's client area and a thin edge around both.
constexpr double kEdge = 1;

SIZE FramedSize(const RECT& client) {
    return {client.right + static_cast<LONG>(2 * kEdge),
            client.bottom + static_cast<LONG>(2 * kEdge + theme::kTitleHeight)};
}

}  // namespace

Picture DrawWindow(HWND window, const PictureOptions& options) {
    Picture picture;
    RECT client{};
    if (!GetClientRect(window, &client)) return picture;
    const SIZE size = FramedSize(client);
    Canvas canvas(size.cx, size.cy, options.scale, options.reading);
    if (!canvas) return picture;
    Painter painter{canvas, picture.clipped};
    canvas.Fill({0, 0, static_cast<double>(size.cx), static_cast<double>(size.cy)}, theme::kFace);
    DrawTitle(painter, window, size.cx);
    const Box inside = {kEdge, kEdge + theme::kTitleHeight, size.cx - kEdge, size.cy - kEdge};
    DrawChildren(painter, window, inside);
    canvas.FrameRound({0, 0, static_cast<double>(size.cx), static_cast<double>(size.cy)}, 0, kEdge,
                      theme::kWindowEdge);
    picture.width = canvas.view().width;
    picture.height = canvas.view().height;
    for (int y = 0; y < picture.height; ++y) {
        const std::uint32_t* row = canvas.view().Row(y);
        std::transform(row, row + picture.width, std::back_inserter(picture.pixels),
                       [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
    }
    return picture;
}

RECT PlaceInPicture(HWND window, HWND control, const PictureOptions& options) {
    RECT client{};
    RECT place{};
    GetClientRect(window, &client);
    GetClientRect(control, &place);
    POINT origin{};
    MapWindowPoints(control, window, &origin, 1);
    OffsetRect(&place, origin.x + static_cast<int>(kEdge),
               origin.y + static_cast<int>(kEdge + theme::kTitleHeight));
    const LONG width = FramedSize(client).cx;
    if (options.reading == Reading::kRightToLeft) {
        place = {width - place.right, place.top, width - place.left, place.bottom};
    }
    const auto scaled = [&](LONG at) {
        return static_cast<LONG>(std::lround(static_cast<double>(at) * options.scale));
    };
    return {scaled(place.left), scaled(place.top), scaled(place.right), scaled(place.bottom)};
}

}  // namespace kvhost
