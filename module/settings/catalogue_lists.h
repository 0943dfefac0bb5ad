// The value lists of the catalogue's combo boxes and list boxes. Which entries a user sees is decided
// when a list is filled, by the installed options and the rules file.
#pragma once
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/catalogue_names.h"

namespace kvui {

consteval SelectItem Entry(DWORD stringId, DWORD value, DWORD iconId, const char* name) {
    SelectItem entry{stringId, value, iconId, "", "", ""};
    SetName(entry.name, name);
    return entry;
}
constexpr SelectItem kNoMoreEntries{};

// Columns: caption string, value, icon, entry name.
// clang-format off
constexpr SelectItem kMediaEntries[] = {
    Entry(IDS_MEDIA_PLAIN,        1,   0, "MediaPlain"),
    Entry(IDS_MEDIA_RECYCLED,     264, 0, "MediaRecycled"),
    Entry(IDS_MEDIA_THICK,        256, 0, "MediaThickstock1"),
    Entry(IDS_MEDIA_GLOSSY,       3,   0, "MediaGlossy"),
    Entry(IDS_MEDIA_TRANSPARENCY, 2,   0, "MediaTransparency"),
    Entry(IDS_MEDIA_ENVELOPE,     257, 0, "MediaEnvelope"),
    Entry(IDS_MEDIA_LETTERHEAD,   259, 0, "MediaLetterhead"),
    Entry(IDS_MEDIA_POSTCARD,     262, 0, "MediaPostcard"),
    Entry(IDS_MEDIA_LABELS,       263, 0, "MediaLabels"),
    kNoMoreEntries,
};
constexpr SelectItem kInstalledStateEntries[] = {
    Entry(IDS_INSTALLED,     1,   0, "Installed"),
    Entry(IDS_NOT_INSTALLED, 264, 0, "Not Installed"),
    kNoMoreEntries,
};
constexpr SelectItem kFirstPageMediaEntries[] = {
    Entry(IDS_MEDIA_PLAIN,        1,   0, "MediaPlain"),
    Entry(IDS_MEDIA_RECYCLED,     264, 0, "MediaRecycled"),
    Entry(IDS_MEDIA_THICK,        256, 0, "MediaThickstock1"),
    Entry(IDS_MEDIA_GLOSSY,       3,   0, "MediaGlossy"),
    Entry(IDS_MEDIA_TRANSPARENCY, 2,   0, "MediaTransparency"),
    Entry(IDS_MEDIA_ENVELOPE,     257, 0, "MediaEnvelope"),
    Entry(IDS_MEDIA_LETTERHEAD,   259, 0, "MediaLetterhead"),
    Entry(IDS_MEDIA_POSTCARD,     262, 0, "MediaPostcard"),
    Entry(IDS_MEDIA_LABELS,       263, 0, "MediaLabels"),
    kNoMoreEntries,
};
constexpr SelectItem kOutBinEntries[] = {
    Entry(IDS_OUT_BIN_TOP,        65, 0, "OutBinTopOutput"),
    Entry(IDS_OUT_BIN_TOP_OFFSET, 75, 0, "OutBinTopOffset"),
    Entry(IDS_OUT_BIN_ELEVATOR,   76, 0, "OutBinElevator"),
    Entry(IDS_OUT_BIN_1,          1,  0, "OutBinMailbin1"),
    Entry(IDS_OUT_BIN_MAILBIN,    69, 0, "OutBinMailbin"),
    kNoMoreEntries,
};
constexpr SelectItem kNupEntries[] = {
    Entry(IDS_NUP_1,       0,   IDI_NUP_1,       "ComboNupOff"),
    Entry(IDS_NUP_2,       2,   IDI_NUP_2,       "ComboNup2"),
    Entry(IDS_NUP_4,       4,   IDI_NUP_4,       "ComboNup4"),
    Entry(IDS_NUP_6,       6,   IDI_NUP_6,       "ComboNup6"),
    Entry(IDS_NUP_9,       9,   IDI_NUP_9,       "ComboNup9"),
    Entry(IDS_NUP_16,      16,  IDI_NUP_16,      "ComboNup16"),
    Entry(IDS_NUP_BOOKLET, 20,  IDI_NUP_BOOKLET, "ComboNupBooklet"),
    Entry(IDS_POSTER_2X2,  102, IDI_POSTER_2X2,  "2x2"),
    Entry(IDS_POSTER_3X3,  103, IDI_POSTER_3X3,  "3x3"),
    Entry(IDS_POSTER_4X4,  104, IDI_POSTER_4X4,  "4x4"),
    Entry(IDS_POSTER_5X5,  105, IDI_POSTER_5X5,  "5x5"),
    kNoMoreEntries,
};
constexpr SelectItem kDuplexEntries[] = {
    Entry(IDS_DUPLEX_OFF,        1, IDI_DUPLEX_OFF,        "ComboDuplexBookletOff"),
    Entry(IDS_DUPLEX_SHORT_EDGE, 3, IDI_DUPLEX_SHORT_EDGE, "ComboDuplexBookletShortBind"),
    Entry(IDS_DUPLEX_LONG_EDGE,  2, IDI_DUPLEX_LONG_EDGE,  "ComboDuplexBookletLongBind"),
    kNoMoreEntries,
};
constexpr SelectItem kSortingEntries[] = {
    Entry(IDS_SORT_OFF, 0, IDI_SORT_OFF, "SortOff"),
    Entry(IDS_SORT_ON,  1, IDI_SORT_ON,  "SortOn"),
    kNoMoreEntries,
};
constexpr SelectItem kOverlayPagesEntries[] = {
    Entry(IDS_OVERLAY_ALL_PAGES,  0, 0, "All Pages"),
    Entry(IDS_OVERLAY_FIRST_PAGE, 1, 0, "First Page"),
    kNoMoreEntries,
};
constexpr SelectItem kPhotoIntentEntries[] = {
    Entry(IDS_INTENT_PERCEPTUAL,   0x100, 0, "RenderPhotoPerceptual"),
    Entry(IDS_INTENT_COLORIMETRIC, 0x200, 0, "RenderPhotoColorMetric"),
    Entry(IDS_INTENT_SATURATION,   0x300, 0, "RenderPhotoSaturation"),
    kNoMoreEntries,
};
constexpr SelectItem kGraphicsIntentEntries[] = {
    Entry(IDS_INTENT_PERCEPTUAL,   1, 0, "RenderGraphicsPerceptual"),
    Entry(IDS_INTENT_COLORIMETRIC, 2, 0, "RenderGraphicsColorMetric"),
    Entry(IDS_INTENT_SATURATION,   3, 0, "RenderGraphicsSaturation"),
    kNoMoreEntries,
};
constexpr SelectItem kTextIntentEntries[] = {
    Entry(IDS_INTENT_PERCEPTUAL,   0x10000, 0, "RenderTextPerceptual"),
    Entry(IDS_INTENT_COLORIMETRIC, 0x20000, 0, "RenderTextColorMetric"),
    Entry(IDS_INTENT_SATURATION,   0x30000, 0, "RenderTextSaturation"),
    kNoMoreEntries,
};
constexpr SelectItem kCompressEntries[] = {
    Entry(IDS_COMPRESS_HIGH, 0,   0, "CompressPackBitHigh"),
    Entry(IDS_COMPRESS_LOW,  512, 0, "CompressPackBitLow"),
    kNoMoreEntries,
};
constexpr SelectItem kResolutionEntries[] = {
    Entry(IDS_RESOLUTION_600,  600,  IDI_RESOLUTION_600,  "Resolution600"),
    Entry(IDS_RESOLUTION_1200, 1200, IDI_RESOLUTION_1200, "Resolution1200"),
    Entry(IDS_RESOLUTION_2400, 2400, IDI_RESOLUTION_2400, "Resolution2400"),
    kNoMoreEntries,
};
constexpr SelectItem kInstallableEntries[] = {
    Entry(IDS_OPTION_TRAY_2,        4,        0, "UnInstTray2"),
    Entry(IDS_OPTION_TRAY_3,        8,        0, "UnInstTray3"),
    Entry(IDS_OPTION_TRAY_4,        0x10,     0, "UnInstTray4"),
    Entry(IDS_OPTION_LCC,           0x4000,   0, "UnInstLCC"),
    Entry(IDS_OPTION_CABINET,       0x800000, 0, "UnInst2Cabinet"),
    Entry(IDS_OPTION_DUPLEX,        0x80,     0, "UnInstDuplex"),
    Entry(IDS_OPTION_MULTI_STAPLE,  0x80000,  0, "UnInstMSFinisher"),
    Entry(IDS_OPTION_SINGLE_STAPLE, 0x100000, 0, "UnInstSSFinisher"),
    Entry(IDS_OPTION_MAILBIN,       0x400,    0, "UnInstMailbin10"),
    kNoMoreEntries,
};
constexpr SelectItem kInstalledEntries[] = {
    Entry(IDS_OPTION_TRAY_2,        4,        0, "InstTray2"),
    Entry(IDS_OPTION_TRAY_3,        8,        0, "InstTray3"),
    Entry(IDS_OPTION_TRAY_4,        0x10,     0, "InstTray4"),
    Entry(IDS_OPTION_LCC,           0x4000,   0, "InstLCC"),
    Entry(IDS_OPTION_CABINET,       0x800000, 0, "Inst2Cabinet"),
    Entry(IDS_OPTION_DUPLEX,        0x80,     0, "InstDuplex"),
    Entry(IDS_OPTION_MULTI_STAPLE,  0x80000,  0, "InstMSFinisher"),
    Entry(IDS_OPTION_SINGLE_STAPLE, 0x100000, 0, "InstSSFinisher"),
    Entry(IDS_OPTION_MAILBIN,       0x400,    0, "InstMailbin10"),
    kNoMoreEntries,
};
constexpr SelectItem kDensityEntries[] = {
    Entry(IDS_DENSITY_DARKER,  0x10000000, 0, "DensDark"),
    Entry(IDS_DENSITY_MIDDLE,  0x8000000,  0, "DensMiddle"),
    Entry(IDS_DENSITY_LIGHTER, 0x4000000,  0, "DensLighter"),
    kNoMoreEntries,
};
constexpr SelectItem kCornerOrderEntries[] = {
    Entry(IDS_ORDER_ACROSS_LEFT,  0, IDI_ORDER_ACROSS_LEFT,  "Sideways from Upper-Left"),
    Entry(IDS_ORDER_DOWN_LEFT,    2, IDI_ORDER_DOWN_LEFT,    "Downward from Upper-Left"),
    Entry(IDS_ORDER_ACROSS_RIGHT, 1, IDI_ORDER_ACROSS_RIGHT, "Sideways from Upper-Right"),
    Entry(IDS_ORDER_DOWN_RIGHT,   3, IDI_ORDER_DOWN_RIGHT,   "Downward from Upper-Right"),
    kNoMoreEntries,
};
constexpr SelectItem kAcrossOrderEntries[] = {
    Entry(IDS_ORDER_LEFT_TO_RIGHT, 0, IDI_ORDER_LEFT_TO_RIGHT, "Left-to-Right"),
    Entry(IDS_ORDER_RIGHT_TO_LEFT, 1, IDI_ORDER_RIGHT_TO_LEFT, "Right-to-Left"),
    kNoMoreEntries,
};
constexpr SelectItem kDownOrderEntries[] = {
    Entry(IDS_ORDER_TOP_TO_BOTTOM, 2, IDI_ORDER_TOP_TO_BOTTOM, "Top-to-Bottom"),
    kNoMoreEntries,
};
constexpr SelectItem kBookletBindingEntries[] = {
    Entry(IDS_BOOKLET_LEFT,  4, IDI_BOOKLET_LEFT,  "Left Binding"),
    Entry(IDS_BOOKLET_RIGHT, 5, IDI_BOOKLET_RIGHT, "Right Binding"),
    kNoMoreEntries,
};
constexpr SelectItem kStapleEntries[] = {
    Entry(IDS_STAPLE_OFF,        0, IDI_STAPLE_OFF,        "StapleOff"),
    Entry(IDS_STAPLE_CORNER,     2, IDI_STAPLE_CORNER,     "StapleCorner"),
    Entry(IDS_STAPLE_LONG_EDGE,  4, IDI_STAPLE_LONG_EDGE,  "StapleLongEdge"),
    Entry(IDS_STAPLE_SHORT_EDGE, 3, IDI_STAPLE_SHORT_EDGE, "StapleShortEdge"),
    kNoMoreEntries,
};
constexpr SelectItem kPunchEntries[] = {
    Entry(IDS_PUNCH_OFF,        0, IDI_PUNCH_OFF,     "PunchOff"),
    Entry(IDS_PUNCH_LONG_EDGE,  3, IDI_PUNCH_LONG_2,  "PunchLongEdge"),
    Entry(IDS_PUNCH_SHORT_EDGE, 2, IDI_PUNCH_SHORT_2, "PunchShortEdge"),
    kNoMoreEntries,
};
constexpr SelectItem kPunchNumEntries[] = {
    Entry(IDS_PUNCH_2, 2, 0, "PunchNum2"),
    Entry(IDS_PUNCH_3, 3, 0, "PunchNum3"),
    Entry(IDS_PUNCH_4, 4, 0, "PunchNum4"),
    kNoMoreEntries,
};
constexpr SelectItem kFoldingEntries[] = {
    Entry(IDS_FOLD_OFF,    0, IDI_FOLD_OFF,    "FoldOff"),
    Entry(IDS_FOLD_Z,      3, IDI_FOLD_Z,      "FoldZ"),
    Entry(IDS_FOLD_Z_A4,   4, IDI_FOLD_Z_A4,   "FoldZA4"),
    Entry(IDS_FOLD_Z_B5,   5, IDI_FOLD_Z_B5,   "FoldZB5"),
    Entry(IDS_FOLD_HALF,   2, IDI_FOLD_HALF,   "FoldHalf"),
    Entry(IDS_FOLD_CREASE, 1, IDI_FOLD_CREASE, "FoldCrease"),
    kNoMoreEntries,
};
constexpr SelectItem kMailBoxAssignEntries[] = {
    Entry(IDS_MAILBOX_2_10,  0x7FC, 0, "MBAssign2"),
    Entry(IDS_MAILBOX_3_10,  0x7F8, 0, "MBAssign3"),
    Entry(IDS_MAILBOX_4_10,  0x7F0, 0, "MBAssign4"),
    Entry(IDS_MAILBOX_5_10,  0x7E0, 0, "MBAssign5"),
    Entry(IDS_MAILBOX_6_10,  0x7C0, 0, "MBAssign6"),
    Entry(IDS_MAILBOX_7_10,  0x780, 0, "MBAssign7"),
    Entry(IDS_MAILBOX_8_10,  0x700, 0, "MBAssign8"),
    Entry(IDS_MAILBOX_9_10,  0x600, 0, "MBAssign9"),
    Entry(IDS_MAILBOX_10_10, 0x400, 0, "MBAssign10"),
    Entry(IDS_MAILBOX_NONE,  0,     0, "MBAssignNone"),
    kNoMoreEntries,
};
// clang-format on

}  // namespace kvui
