// Three records side by side.
#include <host/record/record_differences.h>

#include <algorithm>

namespace kvhost {
namespace {

constexpr size_t kMostLines = 8;

}  // namespace

std::vector<SettingDifference> DifferencesOf(const SettingNames& names, const Record& was,
                                             const Record& stored, const Record& mine) {
    std::vector<const NamedSetting*> differing = names.Changed(stored.data(), mine.data());
    std::stable_partition(differing.begin(), differing.end(), [&](const NamedSetting* setting) {
        return setting->ValueIn(stored.data()) != setting->ValueIn(was.data());
    });
    std::vector<SettingDifference> differences;
    for (const NamedSetting* setting : differing) {
        const auto textIn = [&](const Record& record) {
            return names.ValueText(*setting, setting->ValueIn(record.data()));
        };
        differences.push_back({setting->caption, textIn(was), textIn(stored), textIn(mine)});
    }
    return differences;
}

std::string DifferenceLines(const std::vector<SettingDifference>& differences) {
    std::string lines;
    const size_t shown = std::min(differences.size(), kMostLines);
    for (size_t i = 0; i < shown; ++i) {
        const SettingDifference& one = differences[i];
        lines += one.caption + ": was " + one.was + ", now stored " + one.stored + ", yours " +
                 one.mine + "\n";
    }
    if (shown < differences.size()) {
        lines += "and " + std::to_string(differences.size() - shown) + " more\n";
    }
    // What no control shows: a watermark's looks, a name.
    if (differences.empty()) lines = "Details that no single setting shows.\n";
    return lines;
}

}  // namespace kvhost
