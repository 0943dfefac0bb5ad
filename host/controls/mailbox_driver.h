// The mailboxes of the sorter, in their dialog behind the Device Options page of a headless sheet.
#pragma once

#include <host/controls/control_driver.h>

#include <string>
#include <vector>

namespace kvhost {

struct Mailbox {
    int bin;  // of the sorter, as it is written on it
    std::string name;
};

class MailboxDriver {
 public:
    explicit MailboxDriver(ControlDriver& driver) : driver_(driver) {}

    // Which bins are given over, as the dialog says it, and their names. Changes nothing.
    SetOutcome Read(std::string& assigned, std::vector<Mailbox>& mailboxes);
    // By number or present name.
    SetOutcome Rename(const std::string& mailbox, const std::string& name);

 private:
    SetOutcome InDialog(const ControlDriver::DialogWork& work);

    ControlDriver& driver_;
};

}  // namespace kvhost
