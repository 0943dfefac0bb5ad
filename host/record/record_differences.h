// What is at stake when a record is to be stored and somebody else stored another one meanwhile: the
// settings that differ, in the words of the window.
#pragma once

#include <host/record/record_store.h>
#include <host/index/setting_names.h>

#include <string>
#include <vector>

namespace kvhost {

struct SettingDifference {
    std::string caption;
    std::string was;     // when the window opened, or stored last
    std::string stored;  // by somebody else
    std::string mine;
};

// Settings that differ between what is stored and what is to be stored. Those that were changed by
// somebody else come first.
std::vector<SettingDifference> DifferencesOf(const SettingNames& names, const Record& was,
                                             const Record& stored, const Record& mine);

// "Copies: was 1, now stored 3, yours 2", one a line; after the eighth only how many more there are.
std::string DifferenceLines(const std::vector<SettingDifference>& differences);

}  // namespace kvhost
