// The value lists of the catalogue's combo boxes and list boxes. Which entries a user sees is decided
// when a list is filled, by the installed options and the rules file.
#include "settings/catalogue_tables.h"

namespace kvui {
namespace {

consteval SelectItem Entry(DWORD stringId, DWORD value, DWORD iconId, const char* name) {
    SelectItem entry{stringId, value, iconId, "", "", ""};
    SetName(entry.name, name);
    return entry;
}
constexpr SelectItem kNoMoreEntries{};

}  // namespace

constexpr SelectItem kRunTimeEntries[] = {kNoMoreEntries};

// Columns: caption string, value, icon, entry name.
// clang-format off
constexpr SelectItem kMediaEntries[] = {
    Entry(1151, 1,    0,    "MediaPlain"),
    Entry(1152, 264,  0,    "MediaRecycled"),
    Entry(1153, 256,  0,    "MediaThickstock1"),
    Entry(1154, 3,    0,    "MediaGlossy"),
    Entry(1155, 2,    0,    "MediaTransparency"),
    Entry(1156, 257,  0,    "MediaEnvelope"),
    Entry(1157, 259,  0,    "MediaLetterhead"),
    Entry(1158, 262,  0,    "MediaPostcard"),
    Entry(1159, 263,  0,    "MediaLabels"),
    kNoMoreEntries,
};
constexpr SelectItem kInstalledStateEntries[] = {
    Entry(1143, 1,    0,    "Installed"),
    Entry(1144, 264,  0,    "Not Installed"),
    kNoMoreEntries,
};
constexpr SelectItem kFirstPageMediaEntries[] = {
    Entry(1151, 1,    0,    "MediaPlain"),
    Entry(1152, 264,  0,    "MediaRecycled"),
    Entry(1153, 256,  0,    "MediaThickstock1"),
    Entry(1154, 3,    0,    "MediaGlossy"),
    Entry(1155, 2,    0,    "MediaTransparency"),
    Entry(1156, 257,  0,    "MediaEnvelope"),
    Entry(1157, 259,  0,    "MediaLetterhead"),
    Entry(1158, 262,  0,    "MediaPostcard"),
    Entry(1159, 263,  0,    "MediaLabels"),
    kNoMoreEntries,
};
constexpr SelectItem kOutBinEntries[] = {
    Entry(1801, 65,  0,    "OutBinTopOutput"),
    Entry(1804, 75,  0,    "OutBinTopOffset"),
    Entry(1805, 76,  0,    "OutBinElevator"),
    Entry(1811, 1,   0,    "OutBinMailbin1"),
    Entry(1807, 69,  0,    "OutBinMailbin"),
    kNoMoreEntries,
};
constexpr SelectItem kNupEntries[] = {
    Entry(1411, 0,    1411, "ComboNupOff"),
    Entry(1412, 2,    1412, "ComboNup2"),
    Entry(1413, 4,    1413, "ComboNup4"),
    Entry(1414, 6,    1414, "ComboNup6"),
    Entry(1415, 9,    1415, "ComboNup9"),
    Entry(1416, 16,   1416, "ComboNup16"),
    Entry(1417, 20,   1417, "ComboNupBooklet"),
    Entry(1424, 102,  1424, "2x2"),
    Entry(1425, 103,  1425, "3x3"),
    Entry(1426, 104,  1426, "4x4"),
    Entry(1427, 105,  1427, "5x5"),
    kNoMoreEntries,
};
constexpr SelectItem kDuplexEntries[] = {
    Entry(1501, 1,  1501, "ComboDuplexBookletOff"),
    Entry(1502, 3,  1502, "ComboDuplexBookletShortBind"),
    Entry(1503, 2,  1503, "ComboDuplexBookletLongBind"),
    kNoMoreEntries,
};
constexpr SelectItem kSortingEntries[] = {
    Entry(2041, 0,  1695, "SortOff"),
    Entry(2042, 1,  1696, "SortOn"),
    kNoMoreEntries,
};
constexpr SelectItem kOverlayPagesEntries[] = {
    Entry(1861, 0,  0,    "All Pages"),
    Entry(1862, 1,  0,    "First Page"),
    kNoMoreEntries,
};
constexpr SelectItem kPhotoIntentEntries[] = {
    Entry(3251, 0x100, 0,    "RenderPhotoPerceptual"),
    Entry(3252, 0x200, 0,    "RenderPhotoColorMetric"),
    Entry(3253, 0x300, 0,    "RenderPhotoSaturation"),
    kNoMoreEntries,
};
constexpr SelectItem kGraphicsIntentEntries[] = {
    Entry(3251, 1,  0,    "RenderGraphicsPerceptual"),
    Entry(3252, 2,  0,    "RenderGraphicsColorMetric"),
    Entry(3253, 3,  0,    "RenderGraphicsSaturation"),
    kNoMoreEntries,
};
constexpr SelectItem kTextIntentEntries[] = {
    Entry(3251, 0x10000,  0,    "RenderTextPerceptual"),
    Entry(3252, 0x20000,  0,    "RenderTextColorMetric"),
    Entry(3253, 0x30000,  0,    "RenderTextSaturation"),
    kNoMoreEntries,
};
constexpr SelectItem kCompressEntries[] = {
    Entry(3261, 0,    0,    "CompressPackBitHigh"),
    Entry(3262, 512,  0,    "CompressPackBitLow"),
    kNoMoreEntries,
};
constexpr SelectItem kResolutionEntries[] = {
    Entry(3051, 600,   1630, "Resolution600"),
    Entry(3052, 1200,  1631, "Resolution1200"),
    Entry(3053, 2400,  1632, "Resolution2400"),
    kNoMoreEntries,
};
constexpr SelectItem kInstallableEntries[] = {
    Entry(4130, 4,         0,    "UnInstTray2"),
    Entry(4131, 8,         0,    "UnInstTray3"),
    Entry(4112, 0x10,      0,    "UnInstTray4"),
    Entry(4114, 0x4000,    0,    "UnInstLCC"),
    Entry(4115, 0x800000,  0,    "UnInst2Cabinet"),
    Entry(4117, 0x80,      0,    "UnInstDuplex"),
    Entry(4121, 0x80000,   0,    "UnInstMSFinisher"),
    Entry(4122, 0x100000,  0,    "UnInstSSFinisher"),
    Entry(4129, 0x400,     0,    "UnInstMailbin10"),
    kNoMoreEntries,
};
constexpr SelectItem kInstalledEntries[] = {
    Entry(4130, 4,         0,    "InstTray2"),
    Entry(4131, 8,         0,    "InstTray3"),
    Entry(4112, 0x10,      0,    "InstTray4"),
    Entry(4114, 0x4000,    0,    "InstLCC"),
    Entry(4115, 0x800000,  0,    "Inst2Cabinet"),
    Entry(4117, 0x80,      0,    "InstDuplex"),
    Entry(4121, 0x80000,   0,    "InstMSFinisher"),
    Entry(4122, 0x100000,  0,    "InstSSFinisher"),
    Entry(4129, 0x400,     0,    "InstMailbin10"),
    kNoMoreEntries,
};
constexpr SelectItem kDensityEntries[] = {
    Entry(5021, 0x10000000,  0,    "DensDark"),
    Entry(5022, 0x8000000,   0,    "DensMiddle"),
    Entry(5023, 0x4000000,   0,    "DensLighter"),
    kNoMoreEntries,
};
constexpr SelectItem kCornerOrderEntries[] = {
    Entry(1431, 0,  1431, "Sideways from Upper-Left"),
    Entry(1432, 2,  1432, "Downward from Upper-Left"),
    Entry(1433, 1,  1433, "Sideways from Upper-Right"),
    Entry(1434, 3,  1434, "Downward from Upper-Right"),
    kNoMoreEntries,
};
constexpr SelectItem kAcrossOrderEntries[] = {
    Entry(1435, 0,  1435, "Left-to-Right"),
    Entry(1436, 1,  1436, "Right-to-Left"),
    kNoMoreEntries,
};
constexpr SelectItem kDownOrderEntries[] = {
    Entry(1437, 2,  1437, "Top-to-Bottom"),
    kNoMoreEntries,
};
constexpr SelectItem kBookletBindingEntries[] = {
    Entry(1504, 4,  1504, "Left Binding"),
    Entry(1505, 5,  1505, "Right Binding"),
    kNoMoreEntries,
};
constexpr SelectItem kStapleEntries[] = {
    Entry(1321, 0,  1650, "StapleOff"),
    Entry(1322, 2,  1651, "StapleCorner"),
    Entry(1323, 4,  1652, "StapleLongEdge"),
    Entry(1324, 3,  1653, "StapleShortEdge"),
    kNoMoreEntries,
};
constexpr SelectItem kPunchEntries[] = {
    Entry(1331, 0,  1660, "PunchOff"),
    Entry(1332, 3,  1661, "PunchLongEdge"),
    Entry(1333, 2,  1664, "PunchShortEdge"),
    kNoMoreEntries,
};
constexpr SelectItem kPunchNumEntries[] = {
    Entry(1341, 2,  0,    "PunchNum2"),
    Entry(1342, 3,  0,    "PunchNum3"),
    Entry(1343, 4,  0,    "PunchNum4"),
    kNoMoreEntries,
};
constexpr SelectItem kFoldingEntries[] = {
    Entry(1351, 0,  1670, "FoldOff"),
    Entry(1352, 3,  1671, "FoldZ"),
    Entry(1353, 4,  1672, "FoldZA4"),
    Entry(1354, 5,  1673, "FoldZB5"),
    Entry(1355, 2,  1674, "FoldHalf"),
    Entry(1356, 1,  1675, "FoldCrease"),
    kNoMoreEntries,
};
constexpr SelectItem kMailBoxAssignEntries[] = {
    Entry(4212, 0x7FC, 0,    "MBAssign2"),
    Entry(4213, 0x7F8, 0,    "MBAssign3"),
    Entry(4214, 0x7F0, 0,    "MBAssign4"),
    Entry(4215, 0x7E0, 0,    "MBAssign5"),
    Entry(4216, 0x7C0, 0,    "MBAssign6"),
    Entry(4217, 0x780, 0,    "MBAssign7"),
    Entry(4218, 0x700, 0,    "MBAssign8"),
    Entry(4219, 0x600, 0,    "MBAssign9"),
    Entry(4220, 0x400, 0,    "MBAssign10"),
    Entry(4210, 0,     0,    "MBAssignNone"),
    kNoMoreEntries,
};
// clang-format on

}  // namespace kvui
