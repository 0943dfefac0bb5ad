// Pictures of resources that were decoded lately: dialogs and previews load the same ones again and
// again. Used by images.cpp.
#pragma once

#include <platform/gdi/objects.h>

namespace kv {

// A bitmap with the picture of a resource that has a number for a name. Null with a last error when
// there is none, or its bytes are not a picture.
std::unique_ptr<Bitmap> DecodedPicture(HINSTANCE module, WORD id);

// The same without keeping it, for every kind of name.
std::unique_ptr<Bitmap> DecodePicture(HINSTANCE module, LPCSTR name);

}  // namespace kv
