// Finding faces with fontconfig: the best file for a description, and the list of families. Also
// the code page that names and texts are in.
#include <platform/gdi/font.h>

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <set>
#include <strings.h>
#include <tuple>

namespace kv {
namespace {

// Family asked for, free family with the same widths.
struct FamilyAlias {
    const char* wanted;
    const char* substitute;
};
constexpr FamilyAlias kAliases[] = {
    {"MS Sans Serif", "Liberation Sans"},
    {"MS Shell Dlg", "Liberation Sans"},
    {"MS Shell Dlg 2", "Liberation Sans"},
    {"System", "Liberation Sans"},
    {"Helv", "Liberation Sans"},
    {"Arial", "Liberation Sans"},
    {"Tahoma", "Liberation Sans"},
    {"MS Serif", "Liberation Serif"},
    {"Times New Roman", "Liberation Serif"},
    {"Courier New", "Liberation Mono"},
    {"Courier", "Liberation Mono"},
    {"Fixedsys", "Liberation Mono"},
};

// Bits 4..7 of lfPitchAndFamily; bits 0..1 are the pitch, 1 fixed.
const char* GenericFamily(BYTE pitchAndFamily) {
    constexpr int kRoman = 1, kModern = 3;
    const int family = pitchAndFamily >> 4;
    if (family == kModern || (pitchAndFamily & 3) == 1) return "monospace";
    return family == kRoman ? "serif" : "sans-serif";
}

// 0x80..0x9F; the rest of the code page equals Unicode. 0: not assigned.
constexpr char16_t kHighCharacters[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

// A family name in the code page; empty when it has other characters or is too long for a
// description.
std::string AnsiName(const char* utf8) {
    std::string name;
    const auto* at = reinterpret_cast<const FcChar8*>(utf8);
    for (int left = static_cast<int>(std::strlen(utf8)); left > 0;) {
        FcChar32 code = 0;
        const int used = FcUtf8ToUcs4(at, &code, left);
        if (used <= 0) return {};
        at += used;
        left -= used;
        int found = -1;
        for (int c = 1; c < 256 && found < 0; ++c) {
            if (UnicodeOf(static_cast<unsigned char>(c)) == code) found = c;
        }
        if (found < 0) return {};
        name.push_back(static_cast<char>(found));
    }
    return name.size() < LF_FACESIZE ? name : std::string();
}

std::string Utf8Name(const char* ansi) {
    std::string name;
    for (const char* c = ansi; *c != 0; ++c) {
        FcChar8 bytes[FC_UTF8_MAX_LEN];
        const int count = FcUcs4ToUtf8(UnicodeOf(static_cast<unsigned char>(*c)), bytes);
        name.append(reinterpret_cast<char*>(bytes), static_cast<std::size_t>(count));
    }
    return name;
}

void AddFamily(FcPattern* pattern, const char* name) {
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name));
}

int IntegerOf(FcPattern* pattern, const char* object, int otherwise) {
    int value = otherwise;
    return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : otherwise;
}

std::string StringOf(FcPattern* pattern, const char* object) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, object, 0, &text) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(text);
}

}  // namespace

char32_t UnicodeOf(unsigned char character) {
    if (character < 0x80 || character > 0x9F) return character;
    const char16_t code = kHighCharacters[character - 0x80];
    return code != 0 ? code : character;
}

FaceFile MatchFace(const LOGFONTA& description) {
    FaceFile file;
    FcPattern* pattern = FcInit() == FcTrue ? FcPatternCreate() : nullptr;
    if (pattern == nullptr) return file;
    if (description.lfFaceName[0] != 0) {
        AddFamily(pattern, Utf8Name(description.lfFaceName).c_str());
    }
    for (const FamilyAlias& alias : kAliases) {
        if (strcasecmp(alias.wanted, description.lfFaceName) == 0) {
            AddFamily(pattern, alias.substitute);
        }
    }
    AddFamily(pattern, GenericFamily(description.lfPitchAndFamily));
    AddFamily(pattern, "Liberation Sans");
    const int weight =
        description.lfWeight > 0 ? std::min<int>(description.lfWeight, 1000) : FW_NORMAL;
    FcPatternAddInteger(pattern, FC_WEIGHT, FcWeightFromOpenType(weight));
    FcPatternAddInteger(pattern, FC_SLANT,
                        description.lfItalic != 0 ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern, FC_OUTLINE, FcTrue);
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultMatch;
    if (FcPattern* match = FcFontMatch(nullptr, pattern, &result)) {
        file.path = StringOf(match, FC_FILE);
        file.index = IntegerOf(match, FC_INDEX, 0) & 0xFFFF;
        file.isBold = IntegerOf(match, FC_WEIGHT, FC_WEIGHT_REGULAR) >= FC_WEIGHT_DEMIBOLD;
        file.isItalic = IntegerOf(match, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
        FcPatternDestroy(match);
    }
    FcPatternDestroy(pattern);
    return file;
}

namespace {

struct ListedFont {
    std::string family;
    int weight = FW_NORMAL;
    bool italic = false;
    bool scalable = true;

    bool operator<(const ListedFont& other) const {
        return std::tie(family, italic, weight) <
               std::tie(other.family, other.italic, other.weight);
    }
};

// Every installed font, or those of one family.
std::set<ListedFont> ListFonts(const char* family) {
    std::set<ListedFont> fonts;
    if (FcInit() != FcTrue) return fonts;
    FcPattern* pattern = FcPatternCreate();
    if (family[0] != 0) AddFamily(pattern, Utf8Name(family).c_str());
    FcObjectSet* objects = FcObjectSetBuild(FC_FAMILY, FC_WEIGHT, FC_SLANT, FC_SCALABLE, nullptr);
    FcFontSet* list = FcFontList(nullptr, pattern, objects);
    for (int i = 0; list != nullptr && i < list->nfont; ++i) {
        FcPattern* font = list->fonts[i];
        ListedFont entry;
        entry.family = AnsiName(StringOf(font, FC_FAMILY).c_str());
        if (entry.family.empty()) continue;
        entry.weight = FcWeightToOpenType(IntegerOf(font, FC_WEIGHT, FC_WEIGHT_REGULAR));
        entry.italic = IntegerOf(font, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
        FcBool scalable = FcTrue;
        FcPatternGetBool(font, FC_SCALABLE, 0, &scalable);
        entry.scalable = scalable == FcTrue;
        fonts.insert(entry);
    }
    if (list != nullptr) FcFontSetDestroy(list);
    FcObjectSetDestroy(objects);
    FcPatternDestroy(pattern);
    return fonts;
}

// One font per family, the most ordinary one.
std::vector<ListedFont> OnePerFamily(const std::set<ListedFont>& fonts) {
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
    const std::set<ListedFont> all = ListFonts(family);
    // Without a name every family comes once; with one, every font of that family.
    const std::vector<ListedFont> fonts =
        family[0] == 0 ? OnePerFamily(all) : std::vector<ListedFont>(all.begin(), all.end());
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
