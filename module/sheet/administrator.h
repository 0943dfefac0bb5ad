// Whether the caller may administer the printer. Decides who may change installed options, which
// scope of the lists is shown and who may edit common list entries.
#pragma once

#include <windows.h>

#include "resources/resource.h"

namespace kvui {

// What anybody else may look at but not use.
constexpr DWORD kAdministratorControls[] = {
    IDC_ST_INSTALLABLE,
    IDC_ST_INSTALLED,
    IDC_LIST_OPTIONS,
    IDC_COMBO_INSTALLED_STATE,
};

// Whether the caller belongs to the built-in Administrators group; always true on a system without
// security. Any failure on the way answers false.
bool IsAdministrator();

}  // namespace kvui
