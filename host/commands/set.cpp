// kvprefs set and kvprefs defaults: all or nothing, through a headless sheet.
#include <host/commands/change.h>
#include <host/commands/commands.h>
#include <host/controls/service_driver.h>
#include <platform/window/input.h>
#include <prsht.h>

namespace kvhost {
namespace {

constexpr int kDefaultsButton = 12;

struct Assignment {
    const Control* control;  // null: of the service technician's dialogs
    std::string name;
    std::string value;
};

// Which of several controls of one name is meant is the first; pages come before dialogs.
bool ParsePairs(const std::vector<std::string>& pairs, bool service,
                std::vector<Assignment>& assignments, Changes& changes) {
    for (const std::string& pair : pairs) {
        const size_t at = pair.find('=');
        const std::string name = pair.substr(0, at);
        const Control* control = FindControl(name);
        changes.control = name;
        if (at == std::string::npos || at == 0) {
            changes.expected = "CONTROL=VALUE";
            changes.error = "\"" + pair + "\": expected " + changes.expected;
            return false;
        }
        if (control == nullptr && !service) {
            changes.expected = "a name that `kvprefs list` shows";
            changes.error = "unknown control \"" + name + "\"; expected " + changes.expected;
            return false;
        }
        assignments.push_back({control, name, pair.substr(at + 1)});
    }
    return true;
}

}  // namespace

ExitStatus RunSet(const Options& options, const std::vector<std::string>& pairs,
                  ConflictPolicy policy, bool service) {
    std::vector<Assignment> assignments;
    Changes wrong;
    if (!ParsePairs(pairs, service, assignments, wrong))
        return PrintRefusal(options, wrong, kBadInput);
    return Change(options, policy, [&](Session&, ControlDriver& driver, Changes& changes) {
        for (const auto& [control, name, value] : assignments) {
            const SetOutcome outcome = control != nullptr ? driver.Set(*control, value)
                                                          : ServiceDriver(driver).Set(name, value);
            const ExitStatus status = TakeOver(outcome, name, changes);
            if (status != kDone) return status;
        }
        return kDone;
    });
}

ExitStatus RunDefaults(const Options& options, const std::string& page) {
    const int only = page.empty() ? -1 : PageIndexOfName(page);
    if (!page.empty() && only < 0) {
        PrintUnknownPage(page);
        return kBadInput;
    }
    const auto pressAll = [&](Session& session, ControlDriver& driver, Changes& changes) {
        for (int i = 0; i < std::ssize(kPages); ++i) {
            if (only >= 0 && i != only) continue;
            kv::input::SelectPage(session.sheet(), i);
            const HWND window =
                reinterpret_cast<HWND>(SendMessageA(session.sheet(), PSM_INDEXTOHWND, i, 0));
            const HWND button = GetDlgItem(window, kDefaultsButton);
            if (button != nullptr) {
                kv::input::Click(button);
            } else if (only >= 0) {
                changes.error = "page \"" + page + "\" has no Defaults button";
                return kRefused;
            }
        }
        changes.notes = driver.notes();
        return kDone;
    };
    return Change(options, ConflictPolicy::kResolve, pressAll);
}

}  // namespace kvhost
