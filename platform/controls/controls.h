// The standard controls. The window core calls RegisterControlClasses at its first use, so that
// every class name of this folder is known before anybody creates a window.
#pragma once

namespace kv {

// Registers BUTTON, STATIC, EDIT, COMBOBOX, LISTBOX, track bar, up-down, tooltip, tab control and
// property sheet through RegisterSystemClass.
void RegisterControlClasses();

}  // namespace kv
