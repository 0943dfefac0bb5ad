// See list_room.h.
#include "lists/list_room.h"

#include "sheet/administrator.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

int Limit(const char* section, const char* key) {
    return static_cast<int>(GetPrivateProfileIntA(section, key, 0, RulesFilePath()));
}

}  // namespace

bool ListRoom::IsFull() const {
    if (everybodyAddsCommon) return !ForCommon();
    return (!IsAdministrator() || !ForCommon()) && !ForOwn();
}

ListRoom RoomOf(const SheetContext& context, const char* section, int described, int common,
                int all) {
    const bool nt = context.platformId == VER_PLATFORM_WIN32_NT;
    return {.common = common,
            .commonLimit = Limit(section, nt ? "NTNum" : "9XNum") + described,
            .own = all - common,
            .ownLimit = Limit(section, "CurrentUser"),
            .everybodyAddsCommon = !nt};
}

}  // namespace kvui
