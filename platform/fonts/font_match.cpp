// Finding faces with fontconfig: the best file for a description, and the list of fonts.
#include <platform/fonts/font_match.h>

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

struct InOrder {
    bool operator()(const ListedFont& a, const ListedFont& b) const {
        return std::tie(a.family, a.italic, a.weight) < std::tie(b.family, b.italic, b.weight);
    }
};

}  // namespace

std::vector<ListedFont> ListFonts(const char* family) {
    std::set<ListedFont, InOrder> fonts;
    if (FcInit() != FcTrue) return {};
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
    return {fonts.begin(), fonts.end()};
}

}  // namespace kv
