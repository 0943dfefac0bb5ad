// kvprefs device: the printer's options, by the Device Options page.
#include <host/commands/change.h>
#include <host/commands/commands.h>
#include <host/controls/option_driver.h>
#include <host/window/administrator_reason.h>

#include <bit>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace kvhost {

ExitStatus RunDevice(const Options& options) {
    Session session;
    if (!session.Open(options) || session.OpenHeadlessSheet() == nullptr) return kBadInput;
    ControlDriver driver(session, ConflictPolicy::kCancel);
    const OptionDriver page(session, driver);
    nlohmann::ordered_json rows = nlohmann::ordered_json::array();
    for (const DeviceOption& option : page.All()) {
        const int bit = std::countr_zero(option.bit);
        if (options.json) {
            rows.push_back({{"bit", bit},
                            {"name", option.name},
                            {"label", option.label},
                            {"installed", option.installed},
                            {"offered", option.offered}});
        } else if (option.offered || option.installed) {
            std::printf("%-3d %-16s %-24s %s\n", bit, option.name, option.label.c_str(),
                        option.installed ? "installed" : "-");
        }
    }
    if (options.json) {
        const nlohmann::ordered_json result = {{"options", rows}};
        std::printf("%s\n",
                    result.dump(2, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
    }
    return kDone;
}

ExitStatus RunDevicePut(const Options& options, const std::vector<std::string>& names,
                        bool installed, ConflictPolicy policy) {
    return Change(options, policy, [&](Session& session, ControlDriver& driver, Changes& changes) {
        const AdministratorReason reason(session.printer());
        OptionDriver page(session, driver);
        for (const std::string& name : names) {
            DeviceOption option{};
            SetOutcome outcome = page.Find(name, option);
            if (outcome.status == kDone) outcome = page.Put(option, installed);
            if (TakeOver(outcome, name, changes) != kDone) return outcome.status;
        }
        changes.notes = driver.notes();
        return kDone;
    });
}

}  // namespace kvhost
