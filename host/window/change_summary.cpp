// Naming the cause and the effects.
#include <host/window/change_summary.h>

#include <algorithm>
#include <cstring>

namespace kvhost {
namespace {

bool Contains(const std::vector<const NamedSetting*>& settings, const NamedSetting* setting) {
    return std::find(settings.begin(), settings.end(), setting) != settings.end();
}

// Of an entry that was chosen its own name says more than that of the list.
std::string CauseText(const SettingNames& names, const NamedSetting& setting, const BYTE* record) {
    const char* kind = setting.controls.front()->kind;
    if (std::strcmp(kind, "combo") != 0 && std::strcmp(kind, "radio") != 0) return setting.caption;
    constexpr size_t kLongestOfNoMeaning = 3;  // "Off", "16"
    const std::string text = names.ValueText(setting, setting.ValueIn(record));
    return text.size() > kLongestOfNoMeaning ? text : setting.caption + " " + text;
}

}  // namespace

std::string SummaryOfChange(const SettingNames& names, const BYTE* before, const BYTE* after,
                            const ActedOn& acted) {
    const std::vector<const NamedSetting*> changed = names.Changed(before, after);
    std::vector<std::string> effects;
    for (const NamedSetting* setting : changed) {
        if (Contains(acted.used, setting) || (acted.isShown && !acted.isShown(*setting))) continue;
        const bool told = std::find(effects.begin(), effects.end(), setting->caption) != effects.end();
        if (!told) effects.push_back(setting->caption);
    }
    if (effects.empty()) return {};
    std::string text = acted.button.empty() ? "Also set: " : acted.button + " set: ";
    const auto cause = std::find_if(acted.used.begin(), acted.used.end(), [&](const auto* setting) {
        return Contains(changed, setting);
    });
    if (cause != acted.used.end()) text = CauseText(names, **cause, after) + " also set: ";
    for (size_t i = 0; i < effects.size(); ++i) text += (i == 0 ? "" : ", ") + effects[i];
    return text;
}

}  // namespace kvhost
