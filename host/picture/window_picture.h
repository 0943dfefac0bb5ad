// Pictures of windows: a property sheet or a dialog with everything in it, drawn from the state
// that the controls tell by messages. Used by `kvprefs shot` and by tests.
#pragma once

#include <host/picture/canvas.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kvhost {

struct PictureOptions {
    double scale = 1;
    Reading reading = Reading::kLeftToRight;
};

// A text for which its control has too little room.
struct ClippedText {
    UINT id = 0;
    std::string dialog;  // template of the dialog that the control stands in
    std::string text;
    int needed = 0;  // pixels at scale 1
    int available = 0;
};

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;  // 0x00RRGGBB, rows from the top
    std::vector<ClippedText> clipped;

    explicit operator bool() const { return !pixels.empty(); }
    std::uint32_t At(int x, int y) const {
        return pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
    }
};

// Draws a top-level window with a title bar. Empty when the window is gone or memory is short.
Picture DrawWindow(HWND window, const PictureOptions& options);

// Where a control of a top-level window lies in its picture.
RECT PlaceInPicture(HWND window, HWND control, const PictureOptions& options);

}  // namespace kvhost
