// Whether the caller may administer the printer. Decides who may change installed options, which
// scope of the lists is shown and who may edit common list entries.
#pragma once

namespace kvui {

// Whether the caller belongs to the built-in Administrators group; always true on a system without
// security. Any failure on the way answers false.
bool IsAdministrator();

}  // namespace kvui
