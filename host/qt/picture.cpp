// Fetching the core's pictures through one scratch surface, and scaling them; see picture.h.
#include <host/qt/core_text.h>
#include <host/qt/enlarge.h>
#include <host/qt/picture.h>
#include <platform/gdi/surface.h>
#include <platform/window/paint.h>
#include <platform/window/window.h>

#include <QFontInfo>
#include <QPaintDevice>

#include <algorithm>

namespace kvqt {
namespace {

// The core leaves the top byte of a bitmap's pixels to chance; only that of icons means something.
QImage Copy(const kv::SurfaceView& view, QImage::Format format) {
    if (!view) return {};
    QImage image(view.width, view.height, format);
    const std::uint32_t opaque = format == QImage::Format_RGB32 ? 0xFF000000 : 0;
    for (int y = 0; y < view.height; ++y) {
        const std::uint32_t* from = view.Row(y);
        std::transform(from, from + view.width, reinterpret_cast<std::uint32_t*>(image.scanLine(y)),
                       [opaque](std::uint32_t pixel) { return pixel | opaque; });
    }
    return image;
}

// The surface that windows paint into; it only grows. It lives as long as the process, like the
// graphics objects in it.
class Canvas {
 public:
    static Canvas& Instance() {
        static Canvas* canvas = new Canvas;
        return *canvas;
    }

    // A DC of at least the size, whose upper left part has the colour of the ground. Null when
    // there is no memory.
    HDC Prepare(SIZE size, const QColor& ground) {
        if (!Grow(size)) return nullptr;
        const std::uint32_t color = ground.rgb();
        for (int y = 0; y < size.cy; ++y) std::fill_n(view_.Row(y), size.cx, color);
        const RECT area{0, 0, size.cx, size.cy};
        kv::SetDcArea(dc_, &area);
        return dc_;
    }

    QImage Take(SIZE size) const {
        kv::SurfaceView part = view_;
        part.width = size.cx;
        part.height = size.cy;
        return Copy(part, QImage::Format_RGB32);
    }

 private:
    bool Grow(SIZE size) {
        if (size.cx <= 0 || size.cy <= 0) return false;
        if (size.cx <= view_.width && size.cy <= view_.height) return true;
        if (!dc_) dc_ = CreateCompatibleDC(nullptr);
        const HBITMAP bitmap = CreateBitmap(std::max<LONG>(size.cx, view_.width),
                                            std::max<LONG>(size.cy, view_.height), 1, 32, nullptr);
        if (!bitmap) return false;
        kv::SetDcArea(dc_, nullptr);
        SelectObject(dc_, bitmap);
        if (bitmap_) DeleteObject(bitmap_);
        bitmap_ = bitmap;
        view_ = kv::ViewOf(bitmap);
        return static_cast<bool>(view_);
    }

    HDC dc_{};
    HBITMAP bitmap_{};
    kv::SurfaceView view_;
};

QImage WithoutGround(const QImage& picture, const QColor& ground) {
    QImage result = picture.convertToFormat(QImage::Format_ARGB32);
    const std::uint32_t unpainted = ground.rgb();
    for (int y = 0; y < result.height(); ++y) {
        auto* row = reinterpret_cast<std::uint32_t*>(result.scanLine(y));
        std::replace(row, row + result.width(), unpainted, std::uint32_t{0});
    }
    return result;
}

// Gives a control the desktop's font, and a size, in device pixels while its owner draws it, as a
// control on a screen of that resolution would have. Set without messages: nothing changes for the
// control.
class ResolutionScope {
 public:
    ResolutionScope(HWND control, const QFont& font, double ratio, SIZE size)
        : window_(kv::WindowFromHandle(control)) {
        if (!window_) return;
        before_ = window_->font;
        place_ = window_->rect;
        window_->rect.right = place_.left + size.cx;
        window_->rect.bottom = place_.top + size.cy;
        const QFontInfo info(font);
        LOGFONTA wanted{};
        wanted.lfHeight = -qRound(info.pixelSize() * ratio);
        wanted.lfWeight = info.bold() ? FW_BOLD : FW_NORMAL;
        wanted.lfItalic = info.italic() ? TRUE : FALSE;
        ToAnsi(info.family()).copy(wanted.lfFaceName, LF_FACESIZE - 1);
        font_ = CreateFontIndirectA(&wanted);
        if (font_) window_->font = font_;
    }
    ~ResolutionScope() {
        if (!window_) return;
        window_->rect = place_;
        window_->font = before_;
        if (font_) DeleteObject(font_);
    }
    ResolutionScope(const ResolutionScope&) = delete;
    ResolutionScope& operator=(const ResolutionScope&) = delete;

 private:
    kv::Window* window_;
    RECT place_{};
    HFONT before_{};
    HFONT font_{};
};

QImage InSize(const QImage& picture, const QSize& size) {
    const bool larger = size.width() >= picture.width() && size.height() >= picture.height();
    return larger ? Enlarge(picture, size)
                  : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

QImage PictureOfWindow(HWND window, const QColor& ground) {
    RECT client{};
    if (!GetClientRect(window, &client)) return {};
    const SIZE size{client.right, client.bottom};
    Canvas& canvas = Canvas::Instance();
    const HDC dc = canvas.Prepare(size, ground);
    const kv::Painting painting = dc ? kv::PaintWindow(window, dc) : kv::Painting::kPlain;
    if (painting == kv::Painting::kPlain) return {};
    const QImage picture = canvas.Take(size);
    // What a page draws on its own ground lies on whatever the style puts under the page.
    return painting == kv::Painting::kByParent ? WithoutGround(picture, ground) : picture;
}

bool DrawsItself(HWND window) {
    return !PictureOfWindow(window, Qt::white).isNull();
}

bool DrawItem(QPainter& painter, const QRect& target, HWND control, int item,
              const ItemLook& look) {
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = (QSizeF(target.size()) * ratio).toSize();
    const SIZE size{pixels.width(), pixels.height()};
    Canvas& canvas = Canvas::Instance();
    const HDC dc = canvas.Prepare(size, look.ground);
    if (!dc) return false;
    const RECT rect{0, 0, size.cx, size.cy};
    const ResolutionScope resolution(control, look.font, ratio, size);
    SetTextAlign(dc, look.reading == Qt::RightToLeft ? TA_RTLREADING : TA_LEFT);
    const bool painted = kv::PaintItem(control, item, dc, rect, look.state);
    SetTextAlign(dc, TA_LEFT);
    if (painted) DrawPicture(painter, target, canvas.Take(size));
    return painted;
}

void DrawButton(QPainter& painter, const QRect& target, HWND button, const ItemLook& look) {
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = (QSizeF(target.size()) * ratio).toSize();
    const SIZE size{pixels.width(), pixels.height()};
    Canvas& canvas = Canvas::Instance();
    const HDC dc = canvas.Prepare(size, look.ground);
    if (!dc) return;
    const ResolutionScope resolution(button, look.font, ratio, size);
    kv::PaintWindow(button, dc);
    // What is not drawn on shows what the style puts under the page.
    DrawPicture(painter, target, WithoutGround(canvas.Take(size), look.ground));
}

QImage PictureOf(HBITMAP bitmap) {
    return Copy(kv::ViewOf(bitmap), QImage::Format_RGB32);
}

QImage PictureOf(HICON icon, const QSize& size) {
    const HICON sized = kv::IconInSize(icon, size.width(), size.height());
    const QImage image = Copy(kv::ViewOf(sized ? sized : icon), QImage::Format_ARGB32);
    if (sized) DestroyIcon(sized);
    return image;
}

QSize SizeOf(HICON icon) {
    const kv::SurfaceView view = kv::ViewOf(icon);
    return {view.width, view.height};
}

void DrawPicture(QPainter& painter, const QRect& target, const QImage& picture) {
    if (picture.isNull() || target.isEmpty()) return;
    const double ratio = painter.device()->devicePixelRatioF();
    QImage scaled = InSize(picture, (QSizeF(target.size()) * ratio).toSize());
    scaled.setDevicePixelRatio(ratio);
    painter.drawImage(target.topLeft(), scaled);
}

}  // namespace kvqt
