// What the Watermark page does with its list.
#include "lists/watermark_list.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "lists/watermark_angle.h"
#include "sheet/administrator.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr char kSection[] = "Watermark";
constexpr DWORD kFirstUserWatermark = 128;  // lower ids belong to the printer's description

int Count(const SheetContext& context, DWORD scope) {
    const ListHandle list = context.shared->lists.handles[kListWatermark];
    return list != nullptr ? QDMMLTGetWatermarkNum(list, context.printer, scope) : 0;
}

std::vector<WatermarkRecord> RecordsOf(const SheetContext& context, DWORD scope) {
    std::vector<WatermarkRecord> records(std::max(Count(context, scope), 0), WatermarkRecord{});
    const ListHandle list = context.shared->lists.handles[kListWatermark];
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

bool IsWatermarkListFull(const SheetContext& context) {
    const bool nt = context.platformId == VER_PLATFORM_WIN32_NT;
    const int common = Count(context, kScopeCommon);
    const bool commonFull = common >= static_cast<int>(GetPrivateProfileIntA(
                                          kSection, nt ? "NTNum" : "9XNum", 0, RulesFilePath()));
    if (!nt) return commonFull;
    const int own = Count(context, kScopeCommonAndOwn) - common;
    const int ownLimit =
        static_cast<int>(GetPrivateProfileIntA(kSection, "CurrentUser", 0, RulesFilePath()));
    return (!IsAdministrator() || commonFull) && own >= ownLimit;
}

bool CanChangeWatermark(const SheetContext& context, DWORD watermarkId) {
    if (watermarkId < kFirstUserWatermark) return false;
    const std::vector<WatermarkRecord> all = RecordsOf(context, kScopeCommonAndOwn);
    if (Find(all, watermarkId) == all.end()) return false;
    if (IsAdministrator()) return true;
    const std::vector<WatermarkRecord> common = RecordsOf(context, kScopeCommon);
    return Find(common, watermarkId) == common.end();
}

void DeleteWatermark(SheetContext& context, DWORD watermarkId) {
    const DWORD scope = IsAdministrator() ? kScopeAdministrator : kScopeUser;
    const std::vector<WatermarkRecord> shown = RecordsOf(context, scope);
    const auto found = Find(shown, watermarkId);
    if (found == shown.end() ||
        !QDMMLTDeleteWatermark(context.shared->lists.handles[kListWatermark], context.printer,
                               watermarkId)) {
        return;
    }
    context.privateSettings->mdmWatermark = found == shown.begin() ? 0 : std::prev(found)->id;
    CopyChosenWatermark(context);
}

void CommitWatermarks(SheetContext& context) {
    ListHandle& list = context.shared->lists.handles[kListWatermark];
    if (list == nullptr) return;
    QDMMLTWriteWatermark(list, context.printer);
    list = QDMMLTReadWatermark(context.printer);
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
