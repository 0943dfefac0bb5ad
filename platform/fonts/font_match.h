// Finding fonts with fontconfig. Used by the faces and the library's table.
#pragma once

#include <platform/fonts/font_library.h>

namespace kv {

// A file with a face, as found for a description.
struct FaceFile {
    std::string path;
    int index = 0;
    bool isBold = false;
    bool isItalic = false;
};
// Empty path: no font is installed.
FaceFile MatchFace(const LOGFONTA& description);

std::vector<ListedFont> ListFonts(const char* family);

}  // namespace kv
