// DrawTextA: lines, word wrap, alignment in a rectangle and mnemonic underlines.
#include <platform/gdi/text.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kv {
namespace {

constexpr std::size_t kNoMnemonic = std::string::npos;

// Text ready to be drawn: mnemonic marks taken out, their position kept.
struct PlainText {
    std::string text;
    std::size_t mnemonic = kNoMnemonic;
};

PlainText WithoutPrefixes(std::string_view text, UINT format) {
    PlainText plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((format & DT_NOPREFIX) == 0 && text[i] == '&') {
            if (++i == text.size()) break;
            // The last mark wins; a doubled one is the character itself.
            if (text[i] != '&') plain.mnemonic = plain.text.size();
        }
        plain.text.push_back(text[i]);
    }
    return plain;
}

struct Line {
    std::size_t start, length;
};

// Breaks one paragraph at blanks so that lines fit `width`; a word that is too long stands alone.
void WrapParagraph(const RealizedFont& font, std::string_view text, std::size_t start, int width,
                   std::vector<Line>& lines) {
    std::size_t lineStart = 0, breakAt = 0;
    std::int64_t used = 0;
    const auto advance = [&](std::size_t i) {
        return font.Advance(static_cast<unsigned char>(text[i]));
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ' ') breakAt = i;
        used += advance(i);
        if (used <= width || text[i] == ' ' || breakAt <= lineStart) continue;
        lines.push_back({start + lineStart, breakAt - lineStart});
        lineStart = breakAt + 1;
        used = 0;
        for (std::size_t k = lineStart; k <= i; ++k) used += advance(k);
    }
    lines.push_back({start + lineStart, text.size() - lineStart});
}

std::vector<Line> BreakLines(const RealizedFont& font, std::string_view text, UINT format,
                             int width) {
    if ((format & DT_SINGLELINE) != 0) return {{0, text.size()}};
    std::vector<Line> lines;
    for (std::size_t start = 0; start <= text.size();) {
        std::size_t end = text.find_first_of("\r\n", start);
        if (end == std::string_view::npos) end = text.size();
        const std::string_view paragraph = text.substr(start, end - start);
        if ((format & DT_WORDBREAK) != 0) {
            WrapParagraph(font, paragraph, start, width, lines);
        } else {
            lines.push_back({start, paragraph.size()});
        }
        if (end == text.size()) break;
        start = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    // A break at the very end starts no line.
    if (lines.size() > 1 && lines.back().length == 0) lines.pop_back();
    return lines;
}

struct Layout {
    const RealizedFont& font;
    const PlainText& plain;
    std::vector<Line> lines;
    int lineHeight;

    std::string_view Text(const Line& line) const {
        return std::string_view(plain.text).substr(line.start, line.length);
    }
    int Width() const {
        int width = 0;
        for (const Line& line : lines) width = std::max(width, font.TextWidth(Text(line)));
        return width;
    }
    int Height() const {
        const std::int64_t height = static_cast<std::int64_t>(lines.size()) * lineHeight;
        return static_cast<int>(std::min<std::int64_t>(height, 0x3FFFFFFF));
    }
};

void DrawLine(const Canvas& canvas, RealizedFont& font, const Layout& layout, const Line& line,
              std::int64_t left, std::int64_t baseline) {
    const std::string_view text = layout.Text(line);
    const DcState& state = canvas.dc().state;
    const double x = static_cast<double>(left), y = static_cast<double>(baseline);
    const int width = font.TextWidth(text);
    if (state.backMode == OPAQUE) {
        FillAlongBaseline(canvas, font, x, y, 0, -font.metrics().tmAscent, width,
                          font.metrics().tmDescent, state.backColor);
    }
    DrawRun(canvas, font, x, y, text);
    const std::size_t mnemonic = layout.plain.mnemonic;
    if (mnemonic == kNoMnemonic || mnemonic < line.start || mnemonic >= line.start + line.length) {
        return;
    }
    const int from = font.TextWidth(text.substr(0, mnemonic - line.start));
    const int to = font.TextWidth(text.substr(0, mnemonic - line.start + 1));
    FillAlongBaseline(canvas, font, x, y, from, font.underlineTop(), to,
                      font.underlineTop() + font.underlineThickness(), state.textColor);
}

void DrawLines(Canvas& canvas, RealizedFont& font, const Layout& layout, const RECT& rect,
               std::int64_t firstTop, UINT format) {
    const std::int64_t left = canvas.X(rect.left), right = canvas.X(rect.right);
    if ((format & DT_NOCLIP) == 0 &&
        !canvas.Narrow(left, canvas.Y(rect.top), right, canvas.Y(rect.bottom))) {
        return;
    }
    std::int64_t top = firstTop + canvas.origin().y;
    for (const Line& line : layout.lines) {
        const int width = font.TextWidth(layout.Text(line));
        std::int64_t x = left;
        if ((format & DT_CENTER) != 0) {
            x = left + (right - left - width) / 2;
        } else if ((format & DT_RIGHT) != 0) {
            x = right - width;
        }
        if (top < canvas.clip().bottom && top + layout.lineHeight > canvas.clip().top) {
            DrawLine(canvas, font, layout, line, x, top + font.metrics().tmAscent);
        }
        top += layout.lineHeight;
    }
}

int ToInt(std::int64_t value) {
    return static_cast<int>(std::clamp(value, -kFar, kFar));
}

}  // namespace
}  // namespace kv

using namespace kv;

extern "C" int WINAPI DrawTextA(HDC handle, LPCSTR text, int length, RECT* rect, UINT format) {
    Canvas canvas(handle);
    if (!canvas) return 0;
    if (text == nullptr || rect == nullptr || length < -1) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    RealizedFont* font = FontOf(canvas.dc());
    if (font == nullptr) return 0;
    const PlainText plain = WithoutPrefixes(TextOfCall(text, length), format);
    const std::int64_t room = std::int64_t{rect->right} - rect->left;
    const Layout layout{*font, plain, BreakLines(*font, plain.text, format, ToInt(room)),
                        font->metrics().tmHeight};
    const int height = layout.Height();
    std::int64_t top = rect->top;
    // Vertical placement exists for single lines only.
    if ((format & DT_SINGLELINE) != 0) {
        const std::int64_t spare = std::int64_t{rect->bottom} - rect->top - height;
        if ((format & DT_BOTTOM) != 0) {
            top += spare;
        } else if ((format & DT_VCENTER) != 0) {
            top += spare / 2;
        }
    }
    if ((format & DT_CALCRECT) != 0) {
        const std::int64_t width = layout.Width();
        // Wrapped text keeps the width it was given, unless one word is wider.
        const bool wrapped = (format & DT_WORDBREAK) != 0 && layout.lines.size() > 1;
        rect->right = ToInt(rect->left + (wrapped ? std::max(width, room) : width));
        rect->bottom = ToInt(std::int64_t{rect->top} + height);
        return height;
    }
    DrawLines(canvas, *font, layout, *rect, top, format);
    return ToInt(top + height - rect->top);
}
