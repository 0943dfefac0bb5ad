// See mailbox_driver.h.
#include <host/controls/mailbox_driver.h>

#include <host/controls/control_hands.h>
#include <module/resources/resource.h>
#include <platform/window/input.h>
#include <strings.h>

#include <bit>

namespace kvhost {
namespace {

std::vector<Mailbox> MailboxesIn(HWND dialog) {
    std::vector<Mailbox> mailboxes;
    for (const ChoiceText& entry : EntriesOf(GetDlgItem(dialog, IDC_LIST_MAILBOX))) {
        mailboxes.push_back({std::countr_zero(entry.value), entry.text});
    }
    return mailboxes;
}

std::string OfferOf(const std::vector<Mailbox>& mailboxes) {
    std::string text;
    for (const Mailbox& mailbox : mailboxes) {
        text +=
            (text.empty() ? "" : ", ") + std::to_string(mailbox.bin) + " " + Quoted(mailbox.name);
    }
    return text.empty() ? "a bin, once `kvprefs mailbox assign` has given one over"
                        : "one of " + text;
}

SetOutcome RenameIn(HWND dialog, const std::string& mailbox, const std::string& name) {
    const std::vector<Mailbox> mailboxes = MailboxesIn(dialog);
    int row = -1;
    for (size_t i = 0; i < mailboxes.size(); ++i) {
        if (strcasecmp(mailboxes[i].name.c_str(), mailbox.c_str()) == 0 ||
            std::to_string(mailboxes[i].bin) == mailbox) {
            row = static_cast<int>(i);
            break;
        }
    }
    if (row < 0) {
        return Refuse(kBadInput, Quoted(mailbox) + " is no mailbox", OfferOf(mailboxes));
    }
    const HWND edit = GetDlgItem(dialog, IDC_EDIT_MAILBOX_NAME);
    if (!IsWindowEnabled(edit)) return Refuse(kRefused, "only administrators name mailboxes");
    kv::input::Choose(GetDlgItem(dialog, IDC_LIST_MAILBOX), row);
    if (name.empty() || !TypeWhole(edit, name)) {
        return Refuse(
            kBadInput, Quoted(name) + " is no name for a mailbox",
            "1 to " + std::to_string(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0)) + " characters");
    }
    kv::input::Click(GetDlgItem(dialog, IDC_BTN_MAILBOX_APPLY));
    if (MailboxesIn(dialog)[static_cast<size_t>(row)].name == name) return {};
    return Refuse(kRefused, "the dialog did not take the name");
}

}  // namespace

SetOutcome MailboxDriver::InDialog(const ControlDriver::DialogWork& work) {
    const Control& opener = *FindControl(IDC_BTN_MAILBOX);
    const HWND button = driver_.WindowOf(opener);
    if (button != nullptr && !IsWindowEnabled(button)) {
        return Refuse(
            kRefused,
            "no mail-bin sorter is installed; an administrator tells that there is one by "
            "`kvprefs device install Mailbin10`");
    }
    return driver_.InDialog(opener, "mailboxes", work);
}

SetOutcome MailboxDriver::Read(std::string& assigned, std::vector<Mailbox>& mailboxes) {
    bool isRead = false;
    const SetOutcome outcome = InDialog([&](HWND dialog) {
        const Control& combo = *FindControl(IDC_COMBO_MAILBOX_ASSIGN);
        assigned = ShownText(combo, GetDlgItem(dialog, IDC_COMBO_MAILBOX_ASSIGN));
        mailboxes = MailboxesIn(dialog);
        isRead = true;
        return Refuse(kRefused, "");  // which leaves the dialog by Cancel
    });
    return isRead ? SetOutcome() : outcome;
}

SetOutcome MailboxDriver::Rename(const std::string& mailbox, const std::string& name) {
    return InDialog([&](HWND dialog) { return RenameIn(dialog, mailbox, name); });
}

}  // namespace kvhost
