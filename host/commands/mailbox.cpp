// kvprefs mailbox: which bins of the sorter are mailboxes, and their names, by their dialog.
#include <host/commands/change.h>
#include <host/commands/commands.h>
#include <host/controls/mailbox_driver.h>
#include <module/resources/resource.h>

#include <cstdio>
#include <nlohmann/json.hpp>

namespace kvhost {

ExitStatus RunMailbox(const Options& options) {
    Session session;
    if (!session.Open(options) || session.OpenHeadlessSheet() == nullptr) return kBadInput;
    ControlDriver driver(session, ConflictPolicy::kCancel);
    std::string assigned;
    std::vector<Mailbox> mailboxes;
    const SetOutcome outcome = MailboxDriver(driver).Read(assigned, mailboxes);
    if (outcome.status != kDone) {
        PrintError(outcome.error);
        return outcome.status;
    }
    if (!options.json) {
        std::printf("Assigned: %s\n", assigned.c_str());
        for (const Mailbox& mailbox : mailboxes) {
            std::printf("%-3d %s\n", mailbox.bin, mailbox.name.c_str());
        }
        return kDone;
    }
    nlohmann::ordered_json rows = nlohmann::ordered_json::array();
    for (const Mailbox& mailbox : mailboxes) {
        rows.push_back({{"bin", mailbox.bin}, {"name", mailbox.name}});
    }
    const nlohmann::ordered_json result = {{"assigned", assigned}, {"mailboxes", rows}};
    std::printf("%s\n",
                result.dump(2, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
    return kDone;
}

ExitStatus RunMailboxAssign(const Options& options, const std::string& entry) {
    const std::string control = FindControl(IDC_COMBO_MAILBOX_ASSIGN)->name;
    return RunSet(options, {control + "=" + entry}, ConflictPolicy::kCancel);
}

ExitStatus RunMailboxName(const Options& options, const std::string& mailbox,
                          const std::string& name) {
    return Change(
        options, ConflictPolicy::kCancel, [&](Session&, ControlDriver& driver, Changes& changes) {
            return TakeOver(MailboxDriver(driver).Rename(mailbox, name), mailbox, changes);
        });
}

}  // namespace kvhost
