// A sheet whose views are painted into memory: a printer of the served model on a scratch state with its
// lists open, and the pixels of what a painter draws.
#pragma once

#include <test_paths.h>
#include <kvcore.h>

#include <cstdio>
#include <cstdlib>

#include "preview/view_hook.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/support/canvas.h"

namespace kvui {

using kvtest::Pixels;

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
        const kvtest::Canvas canvas(size.cx, size.cy);
        LOGFONTA description{};
        description.lfHeight = -11;
        std::snprintf(description.lfFaceName, sizeof description.lfFaceName, "MS Sans Serif");
        const HFONT font = CreateFontIndirectA(&description);
        const HGDIOBJ before = SelectObject(canvas.dc, font);
        painter(context, canvas.dc, size);
        SelectObject(canvas.dc, before);
        DeleteObject(font);
        return canvas.Read();
    }
};

}  // namespace kvui
