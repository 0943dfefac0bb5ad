// What a choice changed beside itself, in one line: "Booklet also set: 2-Sided Printing, Binding".
#pragma once

#include <host/index/setting_names.h>

#include <functional>
#include <string>
#include <vector>

namespace kvhost {

struct ActedOn {
    // What the person set, the last one first; these are told as the cause, never as an effect.
    std::vector<const NamedSetting*> used;
    std::string button;  // caption of a button that sets several things at once
    // A setting that the window does not show is nothing to tell of.
    std::function<bool(const NamedSetting&)> isShown;
};

// Empty when nothing else changed.
std::string SummaryOfChange(const SettingNames& names, const BYTE* before, const BYTE* after,
                            const ActedOn& acted);

}  // namespace kvhost
