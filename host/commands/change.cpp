// Opening, working and storing, see change.h.
#include <host/commands/change.h>
#include <host/commands/commands.h>

#include <cstdio>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

std::string AsText(const nlohmann::ordered_json& object) {
    return object.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
}

void PrintResult(const Options& options, const std::vector<std::string>& changed,
                 const Changes& changes) {
    if (!options.json) {
        for (const std::string& line : changes.results) std::printf("%s\n", line.c_str());
        for (const std::string& line : changed) std::printf("%s\n", line.c_str());
        for (const std::string& note : changes.notes) std::fprintf(stderr, "%s\n", note.c_str());
        return;
    }
    nlohmann::ordered_json fields = nlohmann::ordered_json::object();
    for (const std::string& line : changed) {
        const size_t at = line.find('=');
        fields[line.substr(0, at)] = std::stol(line.substr(at + 1));
    }
    nlohmann::ordered_json result = {{"changed", fields}, {"notes", changes.notes}};
    if (!changes.results.empty()) result["results"] = changes.results;
    std::printf("%s\n", AsText(result).c_str());
}

}  // namespace

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

ExitStatus TakeOver(const SetOutcome& outcome, const std::string& control, Changes& changes) {
    changes.notes.insert(changes.notes.end(), outcome.notes.begin(), outcome.notes.end());
    if (outcome.status == kDone) return kDone;
    changes.error = outcome.error;
    changes.control = control;
    changes.expected = outcome.expected;
    return outcome.status;
}

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
        PrintResult(options, ChangedFields(before, session.stored()), changes);
        return kDone;
    }
}

}  // namespace kvhost
