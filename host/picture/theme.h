// Colours and measures of the pictures: one calm, light theme. Read by everything that draws.
#pragma once

#include <cstdint>

namespace kvhost {

// 0xRRGGBB
using Color = std::uint32_t;

namespace theme {

// Windows. The face is the system's button face, so that what the pages paint themselves fits in.
inline constexpr Color kFace          = 0xF0F0F0;
inline constexpr Color kTitleFace     = 0xFBFBFB;
inline constexpr Color kWindowEdge    = 0xA8A8A8;
inline constexpr Color kPaneEdge      = 0xCFCFCF;
inline constexpr Color kTabFace       = 0xE4E4E4;
// Texts.
inline constexpr Color kText          = 0x1B1B1B;
inline constexpr Color kFaintText     = 0x9A9A9A;
inline constexpr Color kAccentText    = 0xFFFFFF;
// Controls.
inline constexpr Color kAccent        = 0x0067C0;
inline constexpr Color kFaintAccent   = 0xB9B9B9;
inline constexpr Color kButtonFace    = 0xFDFDFD;
inline constexpr Color kButtonEdge    = 0xBDBDBD;
inline constexpr Color kFieldFace     = 0xFFFFFF;
inline constexpr Color kFieldEdge     = 0x949494;
inline constexpr Color kFaintFace     = 0xF4F4F4;
inline constexpr Color kFaintEdge     = 0xD5D5D5;
inline constexpr Color kGlyph         = 0x4A4A4A;
inline constexpr Color kGroupEdge     = 0xD2D2D2;
inline constexpr Color kSelection     = 0xCCE4F7;
inline constexpr Color kFaintSelection = 0xE2E2E2;
inline constexpr Color kChannel       = 0xC2C2C2;
// Signs of message boxes.
inline constexpr Color kErrorSign     = 0xC42B1C;
inline constexpr Color kWarningSign   = 0xC77700;

// Pixels at scale 1.
inline constexpr double kTitleHeight   = 30;
inline constexpr double kTitleMargin   = 10;
inline constexpr double kCloseGlyph    = 9;
inline constexpr double kButtonRadius  = 4;
inline constexpr double kFieldRadius   = 3;
inline constexpr double kButtonPadding = 4;
inline constexpr double kCheckSize     = 13;
inline constexpr double kCheckGap      = 4;   // between the box and its text
inline constexpr double kFieldPadding  = 5;
inline constexpr double kComboArrow    = 18;
inline constexpr double kGroupIndent   = 8;
inline constexpr double kGroupGap      = 3;   // on both sides of the caption
inline constexpr double kTabHeight     = 22;  // the height that property sheets leave above a page
inline constexpr double kTabPadding    = 9;
inline constexpr double kThumb         = 12;
inline constexpr double kChannelMargin = 10;  // the thumb's centre at both ends of its track
inline constexpr double kScrollBar     = 10;

}  // namespace theme
}  // namespace kvhost
