// Pictures as PNG files.
#pragma once

#include <host/picture/window_picture.h>

#include <string>

namespace kvhost {

// Writes the whole file or none; false after saying why in `error`.
bool WritePng(const std::string& path, const Picture& picture, std::string& error);

}  // namespace kvhost
