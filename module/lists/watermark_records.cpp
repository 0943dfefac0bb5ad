// See watermark_records.h.
#include "lists/watermark_records.h"

#include <cstdio>
#include <cstring>

#include "lists/watermark_list.h"
#include "resources/string_ids.h"
#include "sheet/fixed_text.h"
#include "sheet/rules_numbers.h"

namespace kvui {
namespace {

constexpr DWORD kLastId = 0x7FFFFFFF;

std::string DefaultName(const SheetContext& context, int number) {
    char base[18] = "", name[48] = "";
    LoadStringA(context.strings, IDS_WATERMARK_NAME, base, sizeof base);
    std::snprintf(name, sizeof name, "%s -%d-", base, number);
    return name;
}

bool Add(SheetContext& context, WatermarkRecord record, bool isCommon) {
    return QDMMLTAddWatermark(WatermarksOf(context), context.printer, &record,
                              isCommon ? kScopeCommon : kScopeCommonAndOwn) != 0;
}

}  // namespace

WatermarkRecord MakeDefaultWatermark(const SheetContext& context, int number) {
    enum { kSize, kBold, kItalic, kRed, kGreen, kBlue, kMode, kAngle, kPosition, kX, kY, kCount };
    std::vector<LONG> row = RulesNumbers(kWatermarkSection, "WatermarkDefaults", kCount);
    if (row.empty()) row = {72, 0, 0, 204, 204, 204, kAngleDiagonal, 45, 0, 0, 0};
    WatermarkRecord record{};
    record.size = static_cast<DWORD>(row[kSize]);
    record.bold = static_cast<BYTE>(row[kBold]);
    record.italic = static_cast<BYTE>(row[kItalic]);
    record.red = static_cast<BYTE>(row[kRed]);
    record.green = static_cast<BYTE>(row[kGreen]);
    record.blue = static_cast<BYTE>(row[kBlue]);
    record.angleMode = static_cast<BYTE>(row[kMode]);
    record.angle = row[kAngle];
    record.positionMode = static_cast<DWORD>(row[kPosition]);
    record.offsetX = row[kX];
    record.offsetY = row[kY];
    CopyText(record.name, DefaultName(context, number).c_str());
    LoadStringA(context.strings, IDS_WATERMARK_STRING, record.text, sizeof record.text);
    LoadStringA(context.strings, IDS_WATERMARK_TYPEFACE, record.typeface, sizeof record.typeface);
    return record;
}

// The first entry stands for no watermark and has a name of its own: it is looked at once.
int DefaultWatermarkNumber(const SheetContext& context, const std::vector<std::string>& names) {
    int number = 1;
    for (size_t i = 0; i < names.size();) {
        if (names[i] == DefaultName(context, number)) {
            ++number;
            i = 1;
        } else {
            ++i;
        }
    }
    return number;
}

bool FindWatermarkNamed(const SheetContext& context, const std::string& name, DWORD exceptId,
                        WatermarkRecord& found) {
    for (const WatermarkRecord& record : VisibleWatermarks(context)) {
        if (record.id == exceptId || name != BoundedText(record.name)) continue;
        found = record;
        return true;
    }
    return false;
}

bool AddWatermark(SheetContext& context, WatermarkRecord& record, bool isCommon) {
    const ListHandle list = WatermarksOf(context);
    if (list == nullptr) return false;
    record.id = QDMMLTGetWatermarkID(list, kFirstUserWatermark, kLastId);
    return Add(context, record, isCommon);
}

bool UpdateWatermark(SheetContext& context, const WatermarkRecord& record) {
    const ListHandle list = WatermarksOf(context);
    return list != nullptr && QDMMLTUpdateWatermark(list, context.printer, &record) != 0;
}

bool UpdateWatermarkIn(SheetContext& context, const WatermarkRecord& record, bool isCommon) {
    const bool wasCommon = IsCommonWatermark(context, record.id);
    if (wasCommon == isCommon) return UpdateWatermark(context, record);
    const ListHandle list = WatermarksOf(context);
    WatermarkRecord before{};
    if (list == nullptr || !QDMMLTGetWatermarkWithID(list, context.printer, &before, record.id) ||
        !QDMMLTDeleteWatermark(list, context.printer, record.id)) {
        return false;
    }
    if (Add(context, record, isCommon)) return true;
    Add(context, before, wasCommon);
    return false;
}

}  // namespace kvui
