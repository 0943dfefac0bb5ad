// kvprefs set and kvprefs defaults: all or nothing, through a headless sheet.
#include <host/commands/commands.h>
#include <platform/window/input.h>
#include <prsht.h>

#include <cstdio>
#include <functional>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

constexpr int kDefaultsButton = 12;

struct Changes {
    std::vector<std::string> notes;
    std::string error;     // why nothing was stored
    std::string control;   // what was refused
    std::string expected;  // what would have done
};

std::string AsText(const nlohmann::ordered_json& object) {
    return object.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
}

void PrintResult(const Options& options, const std::vector<std::string>& changed,
                 const std::vector<std::string>& notes) {
    if (!options.json) {
        for (const std::string& line : changed) std::printf("%s\n", line.c_str());
        for (const std::string& note : notes) std::fprintf(stderr, "%s\n", note.c_str());
        return;
    }
    nlohmann::ordered_json fields = nlohmann::ordered_json::object();
    for (const std::string& line : changed) {
        const size_t at = line.find('=');
        fields[line.substr(0, at)] = std::stol(line.substr(at + 1));
    }
    std::printf("%s\n", AsText({{"changed", fields}, {"notes", notes}}).c_str());
}

ExitStatus PrintRefusal(const Options& options, const Changes& changes, ExitStatus status) {
    const std::string error = changes.error + "; nothing was stored";
    if (options.json) {
        const nlohmann::ordered_json result = {{"error", error},
                                               {"control", changes.control},
                                               {"expected", changes.expected},
                                               {"notes", changes.notes}};
        std::printf("%s\n", AsText(result).c_str());
    } else {
        for (const std::string& note : changes.notes) std::fprintf(stderr, "%s\n", note.c_str());
    }
    PrintError(error);
    return status;
}

struct Assignment {
    const Control* control;
    std::string value;
};

// Which of several controls of one name is meant is the first; pages come before dialogs.
bool ParsePairs(const std::vector<std::string>& pairs, std::vector<Assignment>& assignments,
                Changes& changes) {
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
        if (control == nullptr) {
            changes.expected = "a name that `kvprefs list` shows";
            changes.error = "unknown control \"" + name + "\"; expected " + changes.expected;
            return false;
        }
        assignments.push_back({control, pair.substr(at + 1)});
    }
    return true;
}

// What is done to the open sheet.
using Work = std::function<ExitStatus(Session&, ControlDriver&, Changes&)>;

ExitStatus TakeOver(const SetOutcome& outcome, const std::string& control, Changes& changes) {
    changes.notes.insert(changes.notes.end(), outcome.notes.begin(), outcome.notes.end());
    if (outcome.status == kDone) return kDone;
    changes.error = outcome.error;
    changes.control = control;
    changes.expected = outcome.expected;
    return outcome.status;
}

// Opens the sheet, works it and stores what came of it. When somebody else stores meanwhile, all of
// it is done anew on top of that, so that neither's change is lost.
ExitStatus Change(const Options& options, ConflictPolicy policy, const Work& work) {
    for (;;) {
        Session session;
        if (!session.Open(options) || session.OpenHeadlessSheet() == nullptr) return kBadInput;
        // What opening the sheet changes is stored too, and told of like any other change.
        const Record before = session.stored();
        ControlDriver driver(session, policy);
        Changes changes;
        ExitStatus status = work(session, driver, changes);
        if (status == kDone) status = TakeOver(driver.Accept(), "", changes);
        if (status != kDone) {
            session.CloseHeadlessSheet();
            return PrintRefusal(options, changes, status);
        }
        if (session.record() != before) {
            Record found{};
            const RecordStore::Outcome outcome = session.StoreUnlessChanged(found);
            if (outcome != RecordStore::Outcome::kStored) session.CloseHeadlessSheet();
            if (outcome == RecordStore::Outcome::kChangedMeanwhile) continue;
            if (outcome == RecordStore::Outcome::kFailed) return kRefused;
        }
        session.CloseHeadlessSheet();
        PrintResult(options, ChangedFields(before, session.stored()), changes.notes);
        return kDone;
    }
}

}  // namespace

ExitStatus RunSet(const Options& options, const std::vector<std::string>& pairs,
                  ConflictPolicy policy) {
    std::vector<Assignment> assignments;
    Changes wrong;
    if (!ParsePairs(pairs, assignments, wrong)) return PrintRefusal(options, wrong, kBadInput);
    return Change(options, policy, [&](Session&, ControlDriver& driver, Changes& changes) {
        for (const Assignment& assignment : assignments) {
            const SetOutcome outcome = driver.Set(*assignment.control, assignment.value);
            const ExitStatus status = TakeOver(outcome, assignment.control->name, changes);
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
