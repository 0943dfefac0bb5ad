// kvprefs device: the printer's options, by the Device Options page, and asking the printer for
// them.
#include <framework/core/record_fields.h>
#include <host/commands/change.h>
#include <host/commands/commands.h>
#include <host/controls/option_driver.h>
#include <host/controls/printer_road.h>
#include <host/record/record_file.h>
#include <host/window/administrator_reason.h>
#include <module/resources/resource.h>
#include <platform/security/access.h>

#include <bit>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

// Everything there is to tell about the printer itself.
struct DeviceFacts {
    std::vector<DeviceOption> options;
    bool isAutomatic;
    PrinterRoad road;
    DWORD modelCode;
};

void PrintFacts(const DeviceFacts& facts) {
    for (const DeviceOption& option : facts.options) {
        if (!option.offered && !option.installed) continue;
        std::printf("%-3d %-16s %-24s %s\n", std::countr_zero(option.bit), option.name,
                    option.label.c_str(), option.installed ? "installed" : "-");
    }
    std::printf("Auto Configure: %s\nPort: %s\n%s: %s\nModel code: %u\n",
                facts.isAutomatic ? "on" : "off", facts.road.port.c_str(),
                facts.road.queryable ? "The printer can be asked" : "The printer cannot be asked",
                facts.road.reason.c_str(), facts.modelCode);
}

void PrintFactsAsJson(const DeviceFacts& facts) {
    nlohmann::ordered_json rows = nlohmann::ordered_json::array();
    for (const DeviceOption& option : facts.options) {
        rows.push_back({{"bit", std::countr_zero(option.bit)},
                        {"name", option.name},
                        {"label", option.label},
                        {"installed", option.installed},
                        {"offered", option.offered}});
    }
    const nlohmann::ordered_json result = {{"options", rows},
                                           {"autoConfigure", facts.isAutomatic},
                                           {"port", facts.road.port},
                                           {"kind", facts.road.kind},
                                           {"address", facts.road.address},
                                           {"queryable", facts.road.queryable},
                                           {"reason", facts.road.reason},
                                           {"modelCode", facts.modelCode}};
    std::printf("%s\n",
                result.dump(2, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
}

SetOutcome QueryByPage(OptionDriver& page, Changes& changes) {
    const auto before = page.All();
    const SetOutcome outcome = page.AskPrinter();
    if (outcome.status != kDone) return outcome;
    const auto after = page.All();
    for (size_t i = 0; i < after.size(); ++i) {
        if (before[i].installed == after[i].installed) continue;
        changes.results.push_back(after[i].label +
                                  (after[i].installed ? ": installed" : ": removed"));
    }
    if (changes.results.empty()) {
        changes.notes.push_back("the printer reports what is known already");
    }
    return outcome;
}

// Whether the printer can be asked by this user, and then what it answers.
SetOutcome AskFirst(const PrinterRoad& road) {
    if (!road.queryable) return Refuse(kRefused, "the printer cannot be asked: " + road.reason);
    std::string problem;
    AskForOptions(road, problem);
    return problem.empty() ? SetOutcome() : Refuse(kRefused, problem);
}

}  // namespace

ExitStatus RunDevice(const Options& options) {
    Session session;
    if (!session.Open(options) || session.OpenHeadlessSheet() == nullptr) return kBadInput;
    ControlDriver driver(session, ConflictPolicy::kCancel);
    const OptionDriver page(session, driver);
    const BYTE* const record = session.record().data();
    const DeviceFacts facts = {
        page.All(), ReadControlValue(record, *FindControl(IDC_CHK_AUTO_CONFIG)) != 0,
        RoadTo(session.printer()),
        kvcore::ReadRecordField(record, *kvcore::FindRecordField("printerModelCode"))};
    (options.json ? PrintFactsAsJson : PrintFacts)(facts);
    return kDone;
}

ExitStatus RunDeviceQuery(const Options& options, ConflictPolicy removal) {
    return Change(options, removal, [&](Session& session, ControlDriver& driver, Changes& changes) {
        const AdministratorReason reason(session.printer());
        OptionDriver page(session, driver);
        SetOutcome outcome;
        if (kv::ActsAsAdministrator()) {
            outcome = AskFirst(RoadTo(session.printer()));
        } else {
            outcome = Refuse(kRefused, page.WhyLocked());
        }
        if (outcome.status == kDone) outcome = QueryByPage(page, changes);
        return TakeOver(outcome, "", changes);
    });
}

ExitStatus RunDeviceRecord(const Options& options, const std::string& file) {
    Session session;
    if (!session.Open(options)) return kBadInput;
    const PrinterRoad road = RoadTo(session.printer());
    if (!road.queryable) {
        PrintError("the printer cannot be asked: " + road.reason);
        return kRefused;
    }
    std::string problem, error;
    const std::string reply = AskForOptions(road, problem);
    if (reply.empty()) {
        PrintError(problem);
        return kRefused;
    }
    if (!WriteBytesTo(file, reply.data(), reply.size(), error)) {
        PrintError(error);
        return kBadInput;
    }
    if (!problem.empty()) PrintWarning(problem);
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
