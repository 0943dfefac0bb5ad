// The fonts of the pictures: the same on every machine, not those that a desktop has configured.
#pragma once

#include <string>

namespace kvhost {

// Names the private font configuration to fontconfig, unless the user named another one. To be
// called before the first text is measured or drawn. False, with the reason, when no font is found.
bool UsePictureFonts(std::string& error);

}  // namespace kvhost
