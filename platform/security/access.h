// Who counts as an administrator: of what the machine's users share root and the members of group
// "lpadmin", of a person's own state its owner, unless the command line or a test decides
// otherwise. Asked by the tokens, the registry and the spooler access layer.
#pragma once

#include <optional>
#include <string>

#include <platform/shell/state_directory.h>

namespace kv {

extern const char* const kAdministratorGroup;  // "lpadmin"

// What the operating system says of this process.
bool IsSystemAdministrator();
bool IsAdministratorGroup(gid_t group);

// "root or a member of group lpadmin"; of a person's own state, its owner.
std::string Administrators(StatePlace place);
// "; an administrator can: root or a member of group lpadmin": what to add to a refusal.
std::string WhoAdministers();

// What the driver is told. An override changes group membership in tokens and access to the model's
// data; files stay under the operating system's own rights.
bool ActsAsAdministrator(StatePlace place = PlaceInForce());
void SetActingAsAdministrator(std::optional<bool> administrator);

}  // namespace kv
