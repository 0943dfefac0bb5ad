// Which bytes of the record are settings that a page can take back, and which of them count as a
// change.
#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "sheet/snapshot.h"
#include "tests/module/support/sheet_fixture.h"

namespace kvui {
namespace {

enum Part { kPublic, kPrivate };
enum Keeping { kNothing, kTakenBack, kComparedToo };

TEST(Snapshot, HoldsTheFieldsThatPagesChangeAndNoOthers) {
    // part, first byte, size, what is kept of it
    const struct {
        Part part;
        size_t offset, size;
        Keeping keeping;
    } rows[] = {
        {kPublic, 44, 2, kComparedToo},       // dmOrientation
        {kPublic, 46, 2, kComparedToo},       // dmPaperSize
        {kPublic, 52, 2, kComparedToo},       // dmScale
        {kPublic, 54, 2, kComparedToo},       // dmCopies
        {kPublic, 56, 2, kComparedToo},       // dmDefaultSource
        {kPublic, 58, 2, kComparedToo},       // dmPrintQuality
        {kPublic, 60, 2, kComparedToo},       // dmColor
        {kPublic, 62, 2, kComparedToo},       // dmDuplex
        {kPublic, 64, 2, kComparedToo},       // dmYResolution
        {kPublic, 66, 2, kComparedToo},       // dmTTOption
        {kPrivate, 0x48, 8, kComparedToo},    // Dither, MediaType
        {kPrivate, 0xA4, 4, kComparedToo},    // CellSize
        {kPrivate, 0xB8, 12, kComparedToo},   // nGrayBits, UnsharpMask, ColorMatching
        {kPrivate, 0xE8, 12, kComparedToo},   // Lightness, Contrast, Saturation
        {kPrivate, 0x114, 4, kComparedToo},   // ColorsToPatterns
        {kPrivate, 0x130, 4, kComparedToo},   // EnhanceContrast
        {kPrivate, 0x140, 16, kComparedToo},  // nUp, nUpMode, dmDriverPaper, Scale
        {kPrivate, 0x154, 4, kTakenBack},     // booklet and poster bits
        {kPrivate, 0x15C, 4, kComparedToo},   // RenderingIntent
        {kPrivate, 0x160, 2, kTakenBack},     // tiles of a poster
        {kPrivate, 0x184, 0x26C - 0x184, kComparedToo},
        {kPrivate, 0x18C, 4, kNothing},
        {kPrivate, 0x194, 4, kNothing},
        {kPrivate, 0x19C, 4, kNothing},  // mdmCans
        {kPrivate, 0x208, 8, kNothing},
        {kPrivate, 0x270, 344, kTakenBack},  // the watermark
        {kPrivate, offsetof(PrivateDevmode, userName), 8, kComparedToo},
    };
    std::array<Keeping, kRecordSize> expected{};
    for (const auto& row : rows) {
        const size_t start = row.offset + (row.part == kPrivate ? sizeof(DEVMODEA) : 0);
        std::fill_n(expected.begin() + start, row.size, row.keeping);
    }
    ScratchSheet sheet;
    SettingsSnapshot snapshot;
    sheet.context.snapshot = &snapshot;
    BYTE* record = reinterpret_cast<BYTE*>(sheet.context.settings);
    std::memset(record, 0x41, kRecordSize);
    sheet.context.privateSettings->userName[8] = '\0';
    for (size_t i = 0; i < kRecordSize; ++i) {
        if (i == sizeof(DEVMODEA) + offsetof(PrivateDevmode, userName) + 8) continue;  // its end
        TakeSnapshot(sheet.context);
        ASSERT_FALSE(ChangedSinceSnapshot(sheet.context));
        record[i] = 0x42;
        const bool compared = ChangedSinceSnapshot(sheet.context);
        RestoreSnapshot(sheet.context);
        const bool takenBack = record[i] == 0x41;
        record[i] = 0x41;
        EXPECT_EQ(compared    ? kComparedToo
                  : takenBack ? kTakenBack
                              : kNothing,
                  expected[i])
            << "byte " << i << ", private " << static_cast<long>(i) - long{sizeof(DEVMODEA)};
        EXPECT_TRUE(takenBack || !compared) << i;
    }
}

}  // namespace
}  // namespace kvui
