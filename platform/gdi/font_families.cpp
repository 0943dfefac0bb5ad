// EnumFontFamiliesExA: the families that are installed, and the fonts of one.
#include <platform/gdi/objects.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <platform/fonts/font_library.h>

namespace kv {
namespace {

std::vector<ListedFont> InstalledFonts(const char* family) {
    const FontLibrary* library = LoadedFontLibrary();
    return library ? library->List(family) : std::vector<ListedFont>();
}

// One font per family, the most ordinary one.
std::vector<ListedFont> OnePerFamily(const std::vector<ListedFont>& fonts) {
    const auto oddity = [](const ListedFont& font) {
        return std::abs(font.weight - FW_NORMAL) + (font.italic ? 1000 : 0);
    };
    std::vector<ListedFont> families;
    for (const ListedFont& font : fonts) {
        if (families.empty() || families.back().family != font.family) {
            families.push_back(font);
        } else if (oddity(font) < oddity(families.back())) {
            families.back() = font;
        }
    }
    return families;
}

}  // namespace
}  // namespace kv

using namespace kv;

extern "C" int WINAPI EnumFontFamiliesExA(HDC dc, LOGFONTA* wanted, FONTENUMPROCA callback,
                                          LPARAM param, DWORD) {
    if (ObjectOf<Dc>(dc) == nullptr || wanted == nullptr || callback == nullptr) {
        if (wanted == nullptr || callback == nullptr) SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    char family[LF_FACESIZE] = {};
    std::copy_n(wanted->lfFaceName, LF_FACESIZE - 1, family);
    const std::vector<ListedFont> all = InstalledFonts(family);
    // Without a name every family comes once; with one, every font of that family.
    const std::vector<ListedFont> fonts =
        family[0] == 0 ? OnePerFamily(all) : all;
    int answer = 1;
    for (const ListedFont& font : fonts) {
        constexpr LONG kEm = 16, kAscent = 14, kDescent = 4;  // of the example size described
        LOGFONTA description{};
        description.lfHeight = kAscent + kDescent;
        description.lfWeight = font.weight;
        description.lfItalic = font.italic ? 1 : 0;
        description.lfCharSet = ANSI_CHARSET;
        std::copy_n(font.family.c_str(), font.family.size(), description.lfFaceName);
        TEXTMETRICA metrics{};
        metrics.tmHeight = kAscent + kDescent;
        metrics.tmAscent = kAscent;
        metrics.tmDescent = kDescent;
        metrics.tmInternalLeading = kAscent + kDescent - kEm;
        metrics.tmAveCharWidth = kEm / 2;
        metrics.tmMaxCharWidth = kEm * 2;
        metrics.tmWeight = font.weight;
        metrics.tmItalic = description.lfItalic;
        answer = callback(&description, &metrics,
                          static_cast<DWORD>(font.scalable ? TRUETYPE_FONTTYPE : RASTER_FONTTYPE),
                          param);
        if (answer == 0) break;
    }
    return answer;
}
