// Laying out texts in surface pixels.
#include <host/picture/labels.h>

#include <algorithm>
#include <cmath>

namespace kvhost {
namespace {

constexpr char kEllipsis[] = "\x85";  // one character of the driver's code page

struct Plain {
    std::string text;
    size_t mnemonic = std::string::npos;
};

// A mark before a character underlines it; two marks are the character itself.
Plain WithoutMarks(std::string_view text, Mnemonics mnemonics) {
    Plain plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && mnemonics == Mnemonics::kMarked) {
            if (++i == text.size()) break;
            if (text[i] != '&') plain.mnemonic = plain.text.size();
        }
        plain.text.push_back(text[i]);
    }
    return plain;
}

struct Line {
    size_t start;
    size_t length;
};

void WrapParagraph(Canvas& canvas, const Label& label, std::string_view text, Line paragraph,
                   int width, std::vector<Line>& lines) {
    const size_t end = paragraph.start + paragraph.length;
    size_t start = paragraph.start;
    size_t kept = std::string::npos;  // end of what is known to fit
    for (size_t at = start; at <= end; ++at) {
        if (at < end && text[at] != ' ') continue;
        if (kept != std::string::npos &&
            canvas.TextWidth(label.font, text.substr(start, at - start)) > width) {
            lines.push_back({start, kept - start});
            start = kept + 1;
        }
        kept = at;
    }
    lines.push_back({start, end - start});
}

std::vector<Line> BreakLines(Canvas& canvas, const Label& label, std::string_view text,
                             int width) {
    std::vector<Line> lines;
    for (size_t start = 0; start <= text.size();) {
        const size_t found = text.find('\n', start);
        size_t end = found == std::string_view::npos ? text.size() : found;
        const size_t next = end + 1;
        if (end > start && text[end - 1] == '\r') --end;
        const Line paragraph = {start, end - start};
        if (label.wrapping == Wrapping::kWords) {
            WrapParagraph(canvas, label, text, paragraph, width, lines);
        } else {
            lines.push_back(paragraph);
        }
        start = next;
    }
    while (lines.size() > 1 && lines.back().length == 0) lines.pop_back();
    return lines;
}

struct Layout {
    Plain plain;
    std::vector<Line> lines;
    RECT place{};
    int lineHeight = 1;
    size_t shown = 1;  // lines for which there is room
    Fit fit;

    std::string_view Text(size_t line) const {
        return std::string_view(plain.text).substr(lines[line].start, lines[line].length);
    }
};

Layout LayOut(Canvas& canvas, const Box& box, const Label& label) {
    Layout layout;
    layout.plain = WithoutMarks(label.text, label.mnemonics);
    layout.place = canvas.Place(box);
    layout.lineHeight = std::max(canvas.LineHeight(label.font), 1);
    const int width = layout.place.right - layout.place.left;
    const int height = layout.place.bottom - layout.place.top;
    layout.lines = BreakLines(canvas, label, layout.plain.text, width);
    // A line may hang over by the space below its letters.
    const int slack = layout.lineHeight / 4;
    const auto room = static_cast<size_t>(std::max((height + slack) / layout.lineHeight, 1));
    layout.shown = std::min(layout.lines.size(), room);
    int widest = 0;
    for (size_t i = 0; i < layout.lines.size(); ++i) {
        widest = std::max(widest, canvas.TextWidth(label.font, layout.Text(i)));
    }
    layout.fit.whole = layout.shown == layout.lines.size() && widest <= width;
    const auto atScaleOne = [&](int length) {
        return static_cast<int>(std::ceil(length / canvas.scale()));
    };
    if (widest <= width) {
        // What lacks is height; tell it in widths all the same, so that it can be compared.
        layout.fit.needed = atScaleOne(width) * static_cast<int>(layout.lines.size());
        layout.fit.available = atScaleOne(width) * static_cast<int>(layout.shown);
    }
    if (widest > width || layout.fit.whole) {
        layout.fit.needed = atScaleOne(widest);
        layout.fit.available = atScaleOne(width);
    }
    return layout;
}

std::string Shorten(Canvas& canvas, HFONT font, std::string_view text, int width) {
    std::string shortened(text);
    while (!shortened.empty() && canvas.TextWidth(font, shortened + kEllipsis) > width) {
        shortened.pop_back();
    }
    return shortened + kEllipsis;
}

int LineStart(const Canvas& canvas, const RECT& place, int width, Align align) {
    if (align == Align::kCenter) return place.left + (place.right - place.left - width) / 2;
    const bool atRight = (align == Align::kEnd) != canvas.isMirrored();
    return atRight ? place.right - width : place.left;
}

}  // namespace

Fit DrawLabel(Canvas& canvas, const Box& box, const Label& label) {
    const Layout layout = LayOut(canvas, box, label);
    const int width = layout.place.right - layout.place.left;
    int y = layout.place.top;
    if (label.upright == Upright::kMiddle) {
        const int all = static_cast<int>(layout.shown) * layout.lineHeight;
        // Letters look centred when what lies below the baseline counts less.
        y += (layout.place.bottom - layout.place.top - all) / 2;
    }
    for (size_t i = 0; i < layout.shown; ++i, y += layout.lineHeight) {
        std::string text(layout.Text(i));
        const bool cut = i + 1 == layout.shown && layout.shown < layout.lines.size();
        int textWidth = canvas.TextWidth(label.font, text);
        if (cut || textWidth > width) {
            text = Shorten(canvas, label.font, text, width);
            textWidth = canvas.TextWidth(label.font, text);
        }
        const int x = LineStart(canvas, layout.place, textWidth, label.align);
        canvas.DrawRun(label.font, x, y, text, label.color);
        const Line& line = layout.lines[i];
        const size_t mark = layout.plain.mnemonic - line.start;
        if (layout.plain.mnemonic == std::string::npos || layout.plain.mnemonic < line.start ||
            mark >= text.size()) {
            continue;
        }
        const std::string_view drawn = text;
        canvas.Underline(label.font, x + canvas.TextWidth(label.font, drawn.substr(0, mark)),
                         x + canvas.TextWidth(label.font, drawn.substr(0, mark + 1)), y,
                         label.color);
    }
    return layout.fit;
}

Fit MeasureLabel(Canvas& canvas, const Box& box, const Label& label) {
    return LayOut(canvas, box, label).fit;
}

double LabelWidth(Canvas& canvas, HFONT font, std::string_view text) {
    return canvas.TextWidth(font, WithoutMarks(text, Mnemonics::kMarked).text) / canvas.scale();
}

}  // namespace kvhost
