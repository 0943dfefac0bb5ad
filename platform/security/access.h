// Who counts as an administrator: root or a member of group "lpadmin", unless the command line or a
// test decides otherwise. Asked by the tokens, the registry and the spooler access layer.
#pragma once

#include <optional>

namespace kv {

// What the operating system says of this process.
bool IsSystemAdministrator();

// What the driver is told. An override changes group membership in tokens and access to the model's
// data; files stay under the operating system's own rights.
bool ActsAsAdministrator();
void SetActingAsAdministrator(std::optional<bool> administrator);

}  // namespace kv
