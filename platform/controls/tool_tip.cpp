// Tooltips: the list of tools and their texts. When a tip appears is the display's affair.
#include <platform/controls/classes.h>
#include <platform/controls/control_support.h>
#include <platform/display/tell.h>

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace kv {
namespace {

constexpr size_t kCustomaryTextSize = 80;  // of a buffer whose size the caller does not say

struct Tool {
    TOOLINFOA info{};
    std::string text;
};

struct ToolTipState : ControlState {
    std::vector<Tool> tools;
    bool active = true;
};

ToolTipState& StateFor(Window& window) {
    return StateOf<ToolTipState>(window);
}

Tool* FindTool(Window& window, const TOOLINFOA* wanted) {
    if (!wanted) return nullptr;
    for (Tool& tool : StateFor(window).tools) {
        if (tool.info.hwnd == wanted->hwnd && tool.info.uId == wanted->uId) return &tool;
    }
    return nullptr;
}

// A tool's text may be given as a string resource.
std::string TextFor(const TOOLINFOA& info) {
    if (!info.lpszText) return {};
    if (!IS_INTRESOURCE(info.lpszText)) return info.lpszText;
    char buffer[256] = "";
    LoadStringA(info.hinst, static_cast<UINT>(reinterpret_cast<ULONG_PTR>(info.lpszText)), buffer,
                sizeof buffer);
    return buffer;
}

LRESULT AddTool(Window& window, const TOOLINFOA* info) {
    if (!info) return FALSE;
    StateFor(window).tools.push_back({*info, TextFor(*info)});
    TellChanged(window.handle, kChangedItems);
    return TRUE;
}

LRESULT DeleteTool(Window& window, const TOOLINFOA* info) {
    const Tool* tool = FindTool(window, info);
    if (!tool) return 0;
    std::vector<Tool>& tools = StateFor(window).tools;
    tools.erase(tools.begin() + (tool - tools.data()));
    TellChanged(window.handle, kChangedItems);
    return 0;
}

LRESULT UpdateText(Window& window, const TOOLINFOA* info) {
    Tool* tool = FindTool(window, info);
    if (!tool) return 0;
    std::string text = TextFor(*info);
    if (tool->text == text) return 0;
    tool->text = std::move(text);
    TellChanged(window.handle, kChangedItems);
    return 0;
}

void CopyText(const Tool& tool, char* buffer, size_t size) {
    const size_t length = std::min(tool.text.size(), size - 1);
    std::memcpy(buffer, tool.text.data(), length);
    buffer[length] = '\0';
}

LRESULT GetText(Window& window, WPARAM size, TOOLINFOA* info) {
    const Tool* tool = FindTool(window, info);
    if (!tool || !info->lpszText) return 0;
    CopyText(*tool, info->lpszText, size > 0 ? size : kCustomaryTextSize);
    return 0;
}

// The text is copied only into a buffer that the caller brings along.
LRESULT EnumerateTool(Window& window, WPARAM index, TOOLINFOA* info) {
    const std::vector<Tool>& tools = StateFor(window).tools;
    if (!info || index >= tools.size()) return FALSE;
    char* const buffer = info->lpszText;
    *info = tools[index].info;
    info->lpszText = buffer;
    if (buffer) CopyText(tools[index], buffer, kCustomaryTextSize);
    return TRUE;
}

LRESULT Activate(Window& window, bool active) {
    ToolTipState& state = StateFor(window);
    if (state.active == active) return 0;
    state.active = active;
    TellChanged(window.handle, kChangedItems);
    return 0;
}

}  // namespace

LRESULT ToolTipProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    auto* info = reinterpret_cast<TOOLINFOA*>(lParam);
    switch (message) {
        case TTM_ACTIVATE:
            return Activate(*window, wParam != 0);
        case TTM_ADDTOOLA:
            return AddTool(*window, info);
        case TTM_DELTOOLA:
            return DeleteTool(*window, info);
        case TTM_UPDATETIPTEXTA:
            return UpdateText(*window, info);
        case TTM_GETTEXTA:
            return GetText(*window, wParam, info);
        case TTM_GETTOOLCOUNT:
            return static_cast<LRESULT>(StateFor(*window).tools.size());
        case TTM_ENUMTOOLSA:
            return EnumerateTool(*window, wParam, info);
        case TTM_RELAYEVENT:
            return 0;  // the display watches the mouse itself
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace kv
