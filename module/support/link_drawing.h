// How the Troubleshooting page's buttons look: as links.
#pragma once
#include <windows.h>

namespace kvui {

// Draws a button's caption as a link; false for anything but a button.
bool DrawLink(const DRAWITEMSTRUCT& draw);

}  // namespace kvui
