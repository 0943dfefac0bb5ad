// Realized fonts: the ones kept, their glyphs, and what is drawn when there is no face. Used by the
// text functions.
#include <platform/gdi/font.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <list>
#include <numbers>

#include <platform/fonts/font_library.h>

namespace kv {
namespace {

constexpr LONG kDefaultHeight = 16;
constexpr std::size_t kMaxGlyphBytes = 1u << 20;
constexpr std::size_t kKeptFonts = 24;

// 0x80..0x9F; the rest of the code page equals Unicode. 0: not assigned.
constexpr char16_t kHighCharacters[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

// A font without a face can be made here, and only here.
class FacelessFont : public RealizedFont {
 public:
    explicit FacelessFont(const LOGFONTA& description) : RealizedFont(description) {}
};

}  // namespace

LONG WantedHeight(const LOGFONTA& description) {
    const LONG height = description.lfHeight != 0 ? description.lfHeight : kDefaultHeight;
    return std::clamp<LONG>(height, -kMaxEmPixels, kMaxEmPixels);
}

char32_t UnicodeOf(unsigned char character) {
    if (character < 0x80 || character > 0x9F) return character;
    const char16_t code = kHighCharacters[character - 0x80];
    return code != 0 ? code : character;
}

RealizedFont::~RealizedFont() = default;

RealizedFont::RealizedFont(const LOGFONTA& description) : description_(description) {
    const double angle = (description.lfEscapement % 3600) * std::numbers::pi / 1800;
    if (description.lfEscapement % 3600 != 0) {
        directionX_ = std::cos(angle);
        directionY_ = -std::sin(angle);
    }
    MeasureWithoutFace();
    metrics_.tmWeight = description.lfWeight > 0 ? description.lfWeight : FW_NORMAL;
    metrics_.tmItalic = description.lfItalic;
    metrics_.tmUnderlined = description.lfUnderline;
    metrics_.tmPitchAndFamily = description.lfPitchAndFamily;
    metrics_.tmCharSet = description.lfCharSet;
}

void RealizedFont::MeasureWithoutFace() {
    const LONG wanted = WantedHeight(description_);
    // Proportions of an ordinary sans serif face.
    const double em = wanted < 0 ? -wanted : std::max(1.0, wanted / 1.15);
    metrics_.tmAscent = static_cast<LONG>(std::lround(em * 0.93));
    metrics_.tmDescent =
        wanted > 0 ? wanted - metrics_.tmAscent : static_cast<LONG>(std::lround(em * 0.22));
    metrics_.tmHeight = metrics_.tmAscent + metrics_.tmDescent;
    metrics_.tmInternalLeading =
        std::max<LONG>(0, metrics_.tmHeight - static_cast<LONG>(std::lround(em)));
    metrics_.tmAveCharWidth = std::max<LONG>(1, static_cast<LONG>(std::lround(em * 0.5)));
    metrics_.tmMaxCharWidth = std::max<LONG>(1, static_cast<LONG>(std::lround(em)));
    for (int c = 0x20; c < 256; ++c)
        advances_[static_cast<std::size_t>(c)] = metrics_.tmAveCharWidth;
}

std::shared_ptr<RealizedFont> RealizedFont::For(const LOGFONTA& description) {
    // Callers make and delete fonts for each painting; the realized ones outlive that.
    static std::list<std::shared_ptr<RealizedFont>> kept;  // most recently used first
    LOGFONTA key = description;
    const std::size_t length = strnlen(key.lfFaceName, LF_FACESIZE - 1);
    std::fill(key.lfFaceName + length, key.lfFaceName + LF_FACESIZE, '\0');
    for (auto at = kept.begin(); at != kept.end(); ++at) {
        if (std::memcmp(&(*at)->description_, &key, sizeof key) != 0) continue;
        kept.splice(kept.begin(), kept, at);
        return kept.front();
    }
    const FontLibrary* library = LoadedFontLibrary();
    std::shared_ptr<RealizedFont> font = library ? library->Realize(key) : nullptr;
    kept.push_front(font ? std::move(font) : std::make_shared<FacelessFont>(key));
    if (kept.size() > kKeptFonts) kept.pop_back();
    return kept.front();
}

int RealizedFont::TextWidth(std::string_view text) const {
    std::int64_t width = 0;
    for (const char c : text) width += Advance(static_cast<unsigned char>(c));
    return static_cast<int>(std::min<std::int64_t>(width, 0x3FFFFFFF));
}

const Glyph& RealizedFont::GlyphAt(unsigned char character, unsigned quarterX, unsigned quarterY) {
    const unsigned key = character | quarterX << 8 | quarterY << 10;
    if (const auto found = glyphs_.find(key); found != glyphs_.end()) return found->second;
    if (glyphBytes_ > kMaxGlyphBytes) {
        glyphs_.clear();
        glyphBytes_ = 0;
    }
    Glyph glyph = Render(character, quarterX, quarterY);
    glyphBytes_ += glyph.coverage.size();
    return glyphs_.emplace(key, std::move(glyph)).first->second;
}

Glyph RealizedFont::Render(unsigned char, unsigned, unsigned) const {
    return {};
}

RealizedFont* FontOf(const Dc& dc) {
    Font* font = ObjectOf<Font>(dc.state.font);
    if (font == nullptr) return nullptr;
    if (!font->realized) font->realized = RealizedFont::For(font->description);
    return font->realized.get();
}

}  // namespace kv
