// What the Watermark page does with its list.
#include "lists/watermark_list.h"

#include <algorithm>
#include <cstring>

#include "lists/watermark_angle.h"
#include "sheet/administrator.h"

namespace kvui {
namespace {

int Count(const SheetContext& context, DWORD scope) {
    const ListHandle list = WatermarksOf(context);
    return list != nullptr ? QDMMLTGetWatermarkNum(list, context.printer, scope) : 0;
}

std::vector<WatermarkRecord> RecordsOf(const SheetContext& context, DWORD scope) {
    std::vector<WatermarkRecord> records(std::max(Count(context, scope), 0), WatermarkRecord{});
    const ListHandle list = WatermarksOf(context);
    if (!records.empty() &&
        !QDMMLTGetWatermarkArray(list, context.printer, records.data(), scope)) {
        records.clear();
    }
    return records;
}

auto Find(const std::vector<WatermarkRecord>& records, DWORD watermarkId) {
    return std::find_if(records.begin(), records.end(),
                        [&](const WatermarkRecord& record) { return record.id == watermarkId; });
}

}  // namespace

ListRoom RoomForWatermarks(const SheetContext& context) {
    return RoomOf(context, kWatermarkSection, 0, Count(context, kScopeCommon),
                  Count(context, kScopeCommonAndOwn));
}

std::vector<WatermarkRecord> VisibleWatermarks(const SheetContext& context) {
    return RecordsOf(context, IsAdministrator() ? kScopeAdministrator : kScopeUser);
}

bool IsCommonWatermark(const SheetContext& context, DWORD watermarkId) {
    const std::vector<WatermarkRecord> common = RecordsOf(context, kScopeCommon);
    return Find(common, watermarkId) != common.end();
}

bool CanChangeWatermark(const SheetContext& context, DWORD watermarkId) {
    if (watermarkId < kFirstUserWatermark) return false;
    const std::vector<WatermarkRecord> all = RecordsOf(context, kScopeCommonAndOwn);
    if (Find(all, watermarkId) == all.end()) return false;
    return IsAdministrator() || !IsCommonWatermark(context, watermarkId);
}

void DeleteWatermark(SheetContext& context, DWORD watermarkId) {
    const std::vector<WatermarkRecord> shown = VisibleWatermarks(context);
    const auto found = Find(shown, watermarkId);
    if (found == shown.end() ||
        !QDMMLTDeleteWatermark(context.shared->lists.handles[kListWatermark], context.printer,
                               watermarkId)) {
        return;
    }
    context.privateSettings->mdmWatermark = found == shown.begin() ? 0 : std::prev(found)->id;
    CopyChosenWatermark(context);
}

bool CommitWatermarks(SheetContext& context) {
    ListHandle& list = context.shared->lists.handles[kListWatermark];
    if (list == nullptr) return true;
    const bool stored = QDMMLTWriteWatermark(list, context.printer) != 0;
    list = QDMMLTReadWatermark(context.printer);
    return stored;
}

void CopyChosenWatermark(SheetContext& context) {
    PrivateDevmode& settings = *context.privateSettings;
    WatermarkRecord record{};
    static_assert(sizeof settings.watermarkRecord == sizeof record);
    if (FetchWatermark(context, settings.mdmWatermark, record) || settings.mdmWatermark == 0) {
        std::memcpy(settings.watermarkRecord, &record, sizeof record);
    }
}

}  // namespace kvui
