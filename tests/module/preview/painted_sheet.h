// A sheet whose views are painted into memory: a printer of the served model on a scratch state with its
// lists open, and the pixels of what a painter draws.
#pragma once

#include <test_paths.h>
#include <kvcore.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "preview/view_hook.h"
#include "tests/module/support/sheet_fixture.h"

namespace kvui {

struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<DWORD> values;  // 0x00RRGGBB from the top down

    DWORD At(int x, int y) const { return values[static_cast<size_t>(y) * width + x]; }
    bool operator==(const Pixels&) const = default;
};

class PaintedSheet : public ScratchSheet {
   public:
    PaintedSheet() {
        setenv("FONTCONFIG_FILE", KV_SOURCE_DIR "/tests/support/fonts.conf", 1);
        InstallPrinter();
        QDMGetStdDefaults(&printer, context.settings, nullptr);
        shared.lists.handles[kListPaper] = QDMMLTReadPaper(&printer);
        shared.lists.handles[kListWatermark] = QDMMLTReadWatermark(&printer);
    }
    ~PaintedSheet() {
        QDMMLTCancelPaper(shared.lists.handles[kListPaper], &printer);
        QDMMLTCancelWatermark(shared.lists.handles[kListWatermark], &printer);
    }

    // On white, in the font of the module's dialogs.
    Pixels Paint(ViewPainter painter, SIZE size = {kGroundWidth, kGroundHeight}) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        LPVOID bits = nullptr;
        const HDC dc = CreateCompatibleDC(nullptr);
        const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        LOGFONTA description{};
        description.lfHeight = -11;
        std::snprintf(description.lfFaceName, sizeof description.lfFaceName, "MS Sans Serif");
        const HFONT font = CreateFontIndirectA(&description);
        const HGDIOBJ bitmapBefore = SelectObject(dc, bitmap);
        const HGDIOBJ fontBefore = SelectObject(dc, font);
        PatBlt(dc, 0, 0, size.cx, size.cy, WHITENESS);
        painter(context, dc, size);
        Pixels pixels{static_cast<int>(size.cx), static_cast<int>(size.cy), {}};
        const auto* from = static_cast<const DWORD*>(bits);
        pixels.values.assign(from, from + static_cast<size_t>(size.cx) * size.cy);
        for (DWORD& pixel : pixels.values) pixel &= 0xFFFFFF;
        SelectObject(dc, bitmapBefore);
        SelectObject(dc, fontBefore);
        DeleteObject(font);
        DeleteObject(bitmap);
        DeleteDC(dc);
        return pixels;
    }
};

}  // namespace kvui
