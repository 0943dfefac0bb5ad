// The interface of libkvfonts.so, the library of installed fonts: FreeType and fontconfig lie behind
// it. The graphics load it when the first text is drawn; nothing links it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <platform/gdi/font.h>

namespace kv {

struct ListedFont {
    std::string family;  // in the driver's code page
    int weight = FW_NORMAL;
    bool italic = false;
    bool scalable = true;
};

struct FontLibrary {
    // Null when no font is installed.
    std::shared_ptr<RealizedFont> (*Realize)(const LOGFONTA& description);
    // Every installed font, or those of one family, by family, slope and weight.
    std::vector<ListedFont> (*List)(const char* family);
};

inline constexpr char kFontLibraryName[] = "KvFontLibrary";
using FontLibraryFunction = const FontLibrary* (*)();

// Null where the library is missing; looked for once.
const FontLibrary* LoadedFontLibrary();

}  // namespace kv

extern "C" const kv::FontLibrary* KvFontLibrary();
