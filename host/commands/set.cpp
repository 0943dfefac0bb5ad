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

void PrintResult(const Options& options, const std::vector<std::string>& changed,
                 const std::vector<std::string>& notes) {
    if (!options.json) {
        for (const std::string& line : changed) std::printf("%s\n", line.c_str());
        for (const std::string& note : notes) std::printf("%s\n", note.c_str());
        return;
    }
    nlohmann::ordered_json fields = nlohmann::ordered_json::object();
    for (const std::string& line : changed) {
        const size_t at = line.find('=');
        fields[line.substr(0, at)] = std::stol(line.substr(at + 1));
    }
    const nlohmann::ordered_json result = {{"changed", fields}, {"notes", notes}};
    std::printf("%s\n",
                result.dump(2, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
}

struct Assignment {
    const Control* control;
    std::string value;
};

// Which of several controls of one name is meant is the first; pages come before dialogs.
bool ParsePairs(const std::vector<std::string>& pairs, std::vector<Assignment>& assignments) {
    for (const std::string& pair : pairs) {
        const size_t at = pair.find('=');
        if (at == std::string::npos || at == 0) {
            PrintError("\"" + pair + "\": expected CONTROL=VALUE");
            return false;
        }
        const Control* control = FindControl(pair.substr(0, at));
        if (control == nullptr) {
            PrintError("unknown control \"" + pair.substr(0, at) +
                       "\"; `kvprefs list` names all of them");
            return false;
        }
        assignments.push_back({control, pair.substr(at + 1)});
    }
    return true;
}

struct Changes {
    std::vector<std::string> notes;
    std::string error;  // why nothing was stored
};
// What is done to the open sheet; not kDone with an error.
using Work = std::function<ExitStatus(Session&, ControlDriver&, Changes&)>;

// Opens the sheet, works it and stores what came of it. When somebody else stores meanwhile, all of
// it is done anew on top of that, so that neither's change is lost.
ExitStatus Change(const Options& options, ConflictPolicy policy, const Work& work) {
    for (;;) {
        Session session;
        if (!session.Open(options) || session.OpenHeadlessSheet() == nullptr) return kBadInput;
        const Record before = session.record();
        ControlDriver driver(session, policy);
        Changes changes;
        ExitStatus status = work(session, driver, changes);
        if (status == kDone && !driver.Accept()) {
            status = kRefused;
            changes.error = "the pages did not accept the settings; nothing was stored";
        }
        session.CloseHeadlessSheet();
        if (status != kDone) {
            PrintResult(options, {}, changes.notes);
            PrintError(changes.error);
            return status;
        }
        if (session.record() != before) {
            Record found{};
            const RecordStore::Outcome outcome = session.StoreUnlessChanged(found);
            if (outcome == RecordStore::Outcome::kChangedMeanwhile) continue;
            if (outcome == RecordStore::Outcome::kFailed) return kRefused;
        }
        PrintResult(options, ChangedFields(before, session.record()), changes.notes);
        return kDone;
    }
}

}  // namespace

ExitStatus RunSet(const Options& options, const std::vector<std::string>& pairs,
                  ConflictPolicy policy) {
    std::vector<Assignment> assignments;
    if (!ParsePairs(pairs, assignments)) return kBadInput;
    return Change(options, policy, [&](Session&, ControlDriver& driver, Changes& changes) {
        for (const Assignment& assignment : assignments) {
            const SetOutcome outcome = driver.Set(*assignment.control, assignment.value);
            changes.notes.insert(changes.notes.end(), outcome.notes.begin(), outcome.notes.end());
            if (outcome.status == kDone) continue;
            changes.error = outcome.error + "; nothing was stored";
            return outcome.status;
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
        for (int i = 0; i < kSheetPages; ++i) {
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
