// Smooth shapes on the surface, and texts and pictures through the platform's graphics calls.
#include <host/picture/canvas.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace kvhost {
namespace {

int Nearest(double value) { return static_cast<int>(std::lround(value)); }

COLORREF ColorRef(Color color) {
    return RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF);
}

// Distance from a point to the edge of a rounded rectangle, negative inside.
double RoundDistance(double x, double y, const RECT& rect, double radius) {
    const double centreX = (rect.left + rect.right) / 2.0;
    const double centreY = (rect.top + rect.bottom) / 2.0;
    const double reachX = std::fabs(x - centreX) - ((rect.right - rect.left) / 2.0 - radius);
    const double reachY = std::fabs(y - centreY) - ((rect.bottom - rect.top) / 2.0 - radius);
    const double outside = std::hypot(std::max(reachX, 0.0), std::max(reachY, 0.0));
    return outside + std::min(std::max(reachX, reachY), 0.0) - radius;
}

double LineDistance(double x, double y, GlyphPoint from, GlyphPoint to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = dx * dx + dy * dy;
    const double along =
        length > 0 ? std::clamp(((x - from.x) * dx + (y - from.y) * dy) / length, 0.0, 1.0) : 0.0;
    return std::hypot(x - from.x - along * dx, y - from.y - along * dy);
}

// The coverage of a pixel whose centre lies this far outside of a shape.
double Coverage(double distance) { return std::clamp(0.5 - distance, 0.0, 1.0); }

RECT Common(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

// The value of a picture between its pixels; beyond the edge the edge counts.
std::uint32_t Between(const kv::SurfaceView& picture, double x, double y) {
    const double fx = std::clamp(x - 0.5, 0.0, picture.width - 1.0);
    const double fy = std::clamp(y - 0.5, 0.0, picture.height - 1.0);
    const int left = static_cast<int>(fx);
    const int top = static_cast<int>(fy);
    const int right = std::min(left + 1, picture.width - 1);
    const std::uint32_t* rows[2] = {picture.Row(top),
                                    picture.Row(std::min(top + 1, picture.height - 1))};
    std::uint32_t result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        double values[2];
        for (int i = 0; i < 2; ++i) {
            const double a = rows[i][left] >> shift & 0xFF;
            const double b = rows[i][right] >> shift & 0xFF;
            values[i] = a + (b - a) * (fx - left);
        }
        const double value = values[0] + (values[1] - values[0]) * (fy - top);
        result |= static_cast<std::uint32_t>(Nearest(value)) << shift;
    }
    return result;
}

}  // namespace

Canvas::Canvas(int width, int height, double scale, Reading reading)
    : width_(width), scale_(scale), reading_(reading) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = std::max(Nearest(width * scale), 1);
    info.bmiHeader.biHeight = -std::max(Nearest(height * scale), 1);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    LPVOID bits = nullptr;
    dc_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (dc_ == nullptr || bitmap_ == nullptr) return;
    firstBitmap_ = SelectObject(dc_, bitmap_);
    firstFont_ = SelectObject(dc_, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc_, TRANSPARENT);
    SetStretchBltMode(dc_, HALFTONE);
    view_ = kv::ViewOf(bitmap_);
    SetClip({0, 0, view_.width, view_.height});
}

Canvas::~Canvas() {
    if (firstFont_ != nullptr) SelectObject(dc_, firstFont_);
    if (firstBitmap_ != nullptr) SelectObject(dc_, firstBitmap_);
    for (const auto& [font, device] : fonts_) DeleteObject(device.font);
    if (bitmap_ != nullptr) DeleteObject(bitmap_);
    if (dc_ != nullptr) DeleteDC(dc_);
}

RECT Canvas::Place(const Box& box) const {
    const double left = isMirrored() ? width_ - box.right : box.left;
    const double right = isMirrored() ? width_ - box.left : box.right;
    return {Nearest(left * scale_), Nearest(box.top * scale_), Nearest(right * scale_),
            Nearest(box.bottom * scale_)};
}

int Canvas::Thickness(double length) const { return std::max(Nearest(length * scale_), 1); }

void Canvas::Blend(int x, int y, double coverage, Color color) {
    std::uint32_t& pixel = view_.Row(y)[x];
    if (coverage >= 1) {
        pixel = color;
        return;
    }
    const auto weight = static_cast<std::uint32_t>(Nearest(coverage * 255));
    std::uint32_t result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t below = pixel >> shift & 0xFF;
        const std::uint32_t above = color >> shift & 0xFF;
        result |= (below * (255 - weight) + above * weight + 127) / 255 << shift;
    }
    pixel = result;
}

void Canvas::Fill(const Box& box, Color color) {
    const RECT area = Common(Place(box), clip_);
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) view_.Row(y)[x] = color;
    }
}

void Canvas::FillRound(const Box& box, double radius, Color color) {
    const RECT shape = Place(box);
    const RECT area = Common(shape, clip_);
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const double distance = RoundDistance(x + 0.5, y + 0.5, shape, radius * scale_);
            if (distance < 0.5) Blend(x, y, Coverage(distance), color);
        }
    }
}

void Canvas::FrameRound(const Box& box, double radius, double width, Color color) {
    const RECT shape = Place(box);
    const RECT area = Common(shape, clip_);
    const double thickness = Thickness(width);
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const double outer = RoundDistance(x + 0.5, y + 0.5, shape, radius * scale_);
            const double distance = std::max(outer, -(outer + thickness));
            if (distance < 0.5) Blend(x, y, Coverage(distance), color);
        }
    }
}

void Canvas::Stroke(const Box& frame, std::initializer_list<GlyphPoint> points, double width,
                    Color color) {
    const RECT place = Place(frame);
    std::vector<GlyphPoint> line;
    for (const GlyphPoint& point : points) {
        line.push_back({place.left + point.x * (place.right - place.left),
                        place.top + point.y * (place.bottom - place.top)});
    }
    const double reach = width * scale_ / 2;
    const int margin = static_cast<int>(std::ceil(reach)) + 1;
    const RECT area = Common({place.left - margin, place.top - margin, place.right + margin,
                              place.bottom + margin}, clip_);
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            double nearest = 1e9;
            for (size_t i = 1; i < line.size(); ++i) {
                nearest = std::min(nearest, LineDistance(x + 0.5, y + 0.5, line[i - 1], line[i]));
            }
            if (nearest - reach < 0.5) Blend(x, y, Coverage(nearest - reach), color);
        }
    }
}

const Canvas::DeviceFont& Canvas::FontFor(HFONT font) {
    DeviceFont& device = fonts_[font];
    if (device.font == nullptr) {
        LOGFONTA description{};
        const HGDIOBJ source = font != nullptr ? font : GetStockObject(DEFAULT_GUI_FONT);
        if (GetObjectA(source, sizeof description, &description) == 0) {
            GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof description, &description);
        }
        description.lfHeight = Nearest(description.lfHeight * scale_);
        description.lfWidth = Nearest(description.lfWidth * scale_);
        device.font = CreateFontIndirectA(&description);
        SelectObject(dc_, device.font);
        GetTextMetricsA(dc_, &device.metrics);
    }
    SelectObject(dc_, device.font);
    return device;
}

int Canvas::TextWidth(HFONT font, std::string_view text) {
    FontFor(font);
    SIZE size{};
    GetTextExtentPoint32A(dc_, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int Canvas::LineHeight(HFONT font) { return FontFor(font).metrics.tmHeight; }

void Canvas::DrawRun(HFONT font, int x, int y, std::string_view text, Color color) {
    FontFor(font);
    SetTextColor(dc_, ColorRef(color));
    TextOutA(dc_, x, y, text.data(), static_cast<int>(text.size()));
}

void Canvas::Underline(HFONT font, int left, int right, int y, Color color) {
    const int top = y + FontFor(font).metrics.tmAscent + Thickness(1);
    const RECT line = Common({left, top, right, top + Thickness(1)}, clip_);
    for (int row = line.top; row < line.bottom; ++row) {
        for (int x = line.left; x < line.right; ++x) view_.Row(row)[x] = color;
    }
}

void Canvas::DrawIcon(const Box& box, HICON icon) {
    const RECT place = Place(box);
    DrawIconEx(dc_, place.left, place.top, icon, place.right - place.left,
               place.bottom - place.top, 0, nullptr, DI_NORMAL);
}

void Canvas::DrawBitmap(const Box& box, HBITMAP bitmap) {
    const kv::SurfaceView picture = kv::ViewOf(bitmap);
    if (picture) DrawPicture(box, picture);
}

void Canvas::CopyUnder(const Box& box, const kv::SurfaceView& picture) const {
    const RECT place = Place(box);
    for (int y = 0; y < picture.height; ++y) {
        const int from = std::clamp(place.top + Nearest((y + 0.5) * scale_ - 0.5), 0,
                                    view_.height - 1);
        for (int x = 0; x < picture.width; ++x) {
            const int column = std::clamp(place.left + Nearest((x + 0.5) * scale_ - 0.5), 0,
                                          view_.width - 1);
            picture.Row(y)[x] = view_.Row(from)[column] & 0xFFFFFF;
        }
    }
}

void Canvas::DrawPicture(const Box& box, const kv::SurfaceView& picture) {
    const RECT place = Place(box);
    const RECT area = Common(place, clip_);
    const double stepX = picture.width / std::max<double>(place.right - place.left, 1);
    const double stepY = picture.height / std::max<double>(place.bottom - place.top, 1);
    const bool whole = stepX == 1 && stepY == 1;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const int column = x - place.left;
            const int row = y - place.top;
            view_.Row(y)[x] = whole ? picture.Row(row)[column] & 0xFFFFFF
                                    : Between(picture, (column + 0.5) * stepX, (row + 0.5) * stepY);
        }
    }
}

RECT Canvas::Clip(const Box& box) {
    const RECT before = clip_;
    SetClip(Common(Place(box), clip_));
    return before;
}

void Canvas::SetClip(const RECT& clip) {
    clip_ = {clip.left, clip.top, std::max(clip.left, clip.right), std::max(clip.top, clip.bottom)};
    const HRGN region = CreateRectRgn(clip_.left, clip_.top, clip_.right, clip_.bottom);
    SelectClipRgn(dc_, region);
    DeleteObject(region);
}

}  // namespace kvhost
