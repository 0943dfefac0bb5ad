// Looking up tools at the mouse position, see tool_tips.h.
#include <host/qt/core_text.h>
#include <host/qt/names.h>
#include <host/qt/tool_tips.h>
#include <platform/display/disabled_reason.h>
#include <platform/window/window.h>

#include <commctrl.h>

#include <vector>

namespace kvqt {
namespace {

constexpr size_t kLongestTip = 1024;

// Labels let the mouse through, so a place in a page may lie in a child that has a tool.
struct Spot {
    HWND window{};
    POINT place{};
};

std::vector<Spot> SpotsAt(HWND window, POINT place) {
    std::vector<Spot> spots{{window, place}};
    const kv::Window* record = kv::WindowFromHandle(window);
    for (HWND child : record ? record->children : std::vector<HWND>{}) {
        const kv::Window* inner = kv::WindowFromHandle(child);
        if (!inner || !inner->IsVisibleStyle() || !PtInRect(&inner->rect, place)) continue;
        spots.push_back({child, {place.x - inner->rect.left, place.y - inner->rect.top}});
    }
    return spots;
}

bool Covers(const TOOLINFOA& tool, const Spot& spot) {
    if ((tool.uFlags & TTF_IDISHWND) != 0) return reinterpret_cast<HWND>(tool.uId) == spot.window;
    return tool.hwnd == spot.window && PtInRect(&tool.rect, spot.place);
}

QString TextOfTool(HWND tips, TOOLINFOA tool) {
    std::string text(kLongestTip, '\0');
    tool.lpszText = text.data();
    SendMessageA(tips, TTM_GETTEXTA, text.size(), reinterpret_cast<LPARAM>(&tool));
    text.resize(text.find('\0'));
    return FromAnsi(text);
}

QString TipFrom(HWND tips, const std::vector<Spot>& spots) {
    const auto count = static_cast<WPARAM>(SendMessageA(tips, TTM_GETTOOLCOUNT, 0, 0));
    for (WPARAM i = 0; i < count; ++i) {
        TOOLINFOA tool{};
        tool.cbSize = sizeof tool;
        if (!SendMessageA(tips, TTM_ENUMTOOLSA, i, reinterpret_cast<LPARAM>(&tool))) continue;
        for (const Spot& spot : spots) {
            if (Covers(tool, spot)) return TextOfTool(tips, tool);
        }
    }
    return {};
}

void Collect(HWND window, std::vector<HWND>& tips) {
    if (kv::KindOf(window) == "tooltip") tips.push_back(window);
    if (const kv::Window* record = kv::WindowFromHandle(window)) {
        for (HWND child : record->children) Collect(child, tips);
    }
}

}  // namespace

QString TipAt(HWND window, POINT place) {
    const QString reason = FromAnsi(kv::ReasonDisabled(SpotsAt(window, place).back().window));
    if (!reason.isEmpty()) return reason;
    QString tip = ToolTipAt(window, place);
    if (!tip.isEmpty()) return tip;
    const std::vector<Spot> spots = SpotsAt(window, place);
    for (auto spot = spots.rbegin(); spot != spots.rend() && tip.isEmpty(); ++spot) {
        tip = TipOfPicture(spot->window);
    }
    return tip;
}

QString ToolTipAt(HWND window, POINT place) {
    std::vector<HWND> tips;
    for (HWND top : kv::TopLevelWindows()) Collect(top, tips);
    const std::vector<Spot> spots = SpotsAt(window, place);
    for (HWND control : tips) {
        const QString tip = TipFrom(control, spots);
        if (!tip.isEmpty()) return tip;
    }
    return {};
}

}  // namespace kvqt
