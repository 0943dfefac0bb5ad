// The table of control kinds, and what all drawing functions share.
#include <host/picture/control_view.h>
#include <platform/window/window.h>

#include <algorithm>

namespace kvhost {
namespace {

constexpr DWORD kAny = 0;

// kind, style bits that matter, their value, layer, function
constexpr ControlKind kKinds[] = {
    {"button",   BS_TYPEMASK, BS_PUSHBUTTON,      Layer::kControl,    DrawPushButton},
    {"button",   BS_TYPEMASK, BS_DEFPUSHBUTTON,   Layer::kControl,    DrawPushButton},
    {"button",   BS_TYPEMASK, BS_CHECKBOX,        Layer::kControl,    DrawCheckBox},
    {"button",   BS_TYPEMASK, BS_AUTOCHECKBOX,    Layer::kControl,    DrawCheckBox},
    {"button",   BS_TYPEMASK, BS_RADIOBUTTON,     Layer::kControl,    DrawRadioButton},
    {"button",   BS_TYPEMASK, BS_AUTORADIOBUTTON, Layer::kControl,    DrawRadioButton},
    {"button",   BS_TYPEMASK, BS_GROUPBOX,        Layer::kBackground, DrawGroupBox},
    {"static",   SS_TYPEMASK, SS_ICON,            Layer::kControl,    DrawIconStatic},
    {"static",   SS_TYPEMASK, SS_BITMAP,          Layer::kControl,    DrawBitmapStatic},
    {"static",   SS_TYPEMASK, SS_BLACKFRAME,      Layer::kBackground, DrawFrameStatic},
    {"static",   SS_TYPEMASK, SS_ETCHEDFRAME,     Layer::kBackground, DrawFrameStatic},
    {"static",   SS_TYPEMASK, SS_ETCHEDHORZ,      Layer::kBackground, DrawRuleStatic},
    {"static",   kAny,        kAny,               Layer::kControl,    DrawTextStatic},
    {"edit",     kAny,        kAny,               Layer::kControl,    DrawEdit},
    {"combo",    kAny,        kAny,               Layer::kControl,    DrawComboBox},
    {"list",     kAny,        kAny,               Layer::kControl,    DrawListBox},
    {"trackbar", kAny,        kAny,               Layer::kControl,    DrawTrackBar},
    {"updown",   kAny,        kAny,               Layer::kAttachment, DrawUpDown},
    {"tab",      kAny,        kAny,               Layer::kBackground, DrawTabControl},
};

// The template of the innermost dialog around a control.
std::string DialogAround(HWND control) {
    for (HWND at = GetParent(control); at != nullptr; at = GetParent(at)) {
        const kv::Window* window = kv::WindowFromHandle(at);
        if (window == nullptr) break;
        if (window->dialog == nullptr) continue;
        return window->dialog->templateName.empty() ? window->text : window->dialog->templateName;
    }
    return {};
}

}  // namespace

const ControlKind* KindOfControl(const ControlView& control) {
    const std::string_view kind = kv::KindOf(control.window);
    for (const ControlKind& row : kKinds) {
        if (row.kind == kind && (control.style & row.typeMask) == row.type) return &row;
    }
    return nullptr;
}

void Painter::Note(const ControlView& control, const Label& label, const Fit& fit) {
    if (fit.whole || label.text.empty()) return;
    clipped.push_back({control.id, DialogAround(control.window), std::string(label.text),
                       fit.needed, fit.available});
}

void Painter::Text(const ControlView& control, const Box& box, const Label& label) {
    Note(control, label, DrawLabel(canvas, box, label));
}

void Painter::Check(const ControlView& control, const Box& box, const Label& label) {
    Note(control, label, MeasureLabel(canvas, box, label));
}

void Painter::Field(const ControlView& control, Color face) {
    if (!control.enabled) face = theme::kFaintFace;
    if (control.colors.face) face = ControlView::ColorFrom(*control.colors.face);
    canvas.FillRound(control.box, theme::kFieldRadius, face);
    canvas.FrameRound(control.box, theme::kFieldRadius, 1,
                      control.enabled ? theme::kFieldEdge : theme::kFaintEdge);
    if (control.focused) FocusRing(control.box, theme::kFieldRadius);
}

void Painter::Ground(const ControlView& control) {
    if (!control.colors.face) return;
    canvas.Fill(control.box, ControlView::ColorFrom(*control.colors.face));
}

void Painter::FocusRing(const Box& box, double radius, Color color) {
    canvas.FrameRound(box, radius, 2, color);
}

WindowSurface::WindowSurface(int width, int height) {
    dc_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateBitmap(std::max(width, 1), std::max(height, 1), 1, 32, nullptr);
    if (dc_ == nullptr || bitmap_ == nullptr) return;
    first_ = SelectObject(dc_, bitmap_);
    view_ = kv::ViewOf(bitmap_);
}

WindowSurface::~WindowSurface() {
    if (first_ != nullptr) SelectObject(dc_, first_);
    if (bitmap_ != nullptr) DeleteObject(bitmap_);
    if (dc_ != nullptr) DeleteDC(dc_);
}

}  // namespace kvhost
