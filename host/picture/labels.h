// Texts inside boxes: alignment, wrapping, mnemonics and the ellipsis of a text that has no room.
#pragma once

#include <host/picture/canvas.h>

#include <string>
#include <string_view>
#include <vector>

namespace kvhost {

enum class Align { kStart, kCenter, kEnd };
enum class Upright { kTop, kMiddle };
enum class Wrapping { kNone, kWords };
enum class Mnemonics { kMarked, kLiteral };

struct Label {
    std::string_view text;
    HFONT font{};
    Color color = theme::kText;
    Align align = Align::kStart;
    Upright upright = Upright::kMiddle;
    Wrapping wrapping = Wrapping::kNone;
    Mnemonics mnemonics = Mnemonics::kMarked;
};

// How much room a text needed and had, in pixels at scale 1.
struct Fit {
    bool whole = true;
    int needed = 0;
    int available = 0;
};

Fit DrawLabel(Canvas& canvas, const Box& box, const Label& label);
// Only measures.
Fit MeasureLabel(Canvas& canvas, const Box& box, const Label& label);
// Width at scale 1, mnemonic marks taken out.
double LabelWidth(Canvas& canvas, HFONT font, std::string_view text);

}  // namespace kvhost
