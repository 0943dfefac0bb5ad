// Realized fonts: metrics and glyphs from FreeType. Advances come from the face's own units and are
// rounded here, so that text has the same size wherever the same font file is installed.
#include <platform/gdi/font.h>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <cstring>
#include <list>
#include <map>
#include <numbers>

namespace kv {
namespace {

FT_Library Library() {
    static const FT_Library library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr;
    }();
    return library;
}

// Faces stay open: there are few files and every size of a font shares one.
FT_Face OpenFace(const FaceFile& file) {
    static std::map<std::pair<std::string, int>, FT_Face> faces;
    const auto key = std::make_pair(file.path, file.index);
    if (const auto found = faces.find(key); found != faces.end()) return found->second;
    FT_Face face = nullptr;
    if (file.path.empty() || Library() == nullptr ||
        FT_New_Face(Library(), file.path.c_str(), file.index, &face) != 0) {
        face = nullptr;
    } else if (FT_IS_SCALABLE(face) == 0 || face->units_per_EM == 0) {
        FT_Done_Face(face);
        face = nullptr;
    }
    faces.emplace(key, face);
    return face;
}

constexpr LONG kDefaultHeight = 16;
constexpr std::size_t kMaxGlyphBytes = 1u << 20;
constexpr std::size_t kKeptFonts = 24;

LONG WantedHeight(const LOGFONTA& description) {
    const LONG height = description.lfHeight != 0 ? description.lfHeight : kDefaultHeight;
    return std::clamp<LONG>(height, -kMaxEmPixels, kMaxEmPixels);
}

bool WantsBold(const LOGFONTA& description) {
    return description.lfWeight >= 600;
}

}  // namespace

struct RealizedFont::Face {
    FT_Face face = nullptr;
    double em = 0;      // pixels
    double scaleX = 1;  // of widths, from lfWidth
    bool embolden = false;
    bool slant = false;

    double Pixels(double units) const { return units * em / face->units_per_EM; }
};

RealizedFont::~RealizedFont() = default;

RealizedFont::RealizedFont(const LOGFONTA& description) : description_(description) {
    const double angle = (description.lfEscapement % 3600) * std::numbers::pi / 1800;
    if (description.lfEscapement % 3600 != 0) {
        directionX_ = std::cos(angle);
        directionY_ = -std::sin(angle);
    }
    const FaceFile file = MatchFace(description);
    if (const FT_Face opened = OpenFace(file)) {
        face_ = std::make_unique<Face>();
        face_->face = opened;
        face_->embolden = WantsBold(description) && !file.isBold;
        face_->slant = description.lfItalic != 0 && !file.isItalic;
        MeasureFace();
    } else {
        MeasureWithoutFace();
    }
    metrics_.tmWeight = description.lfWeight > 0 ? description.lfWeight : FW_NORMAL;
    metrics_.tmItalic = description.lfItalic;
    metrics_.tmUnderlined = description.lfUnderline;
    metrics_.tmPitchAndFamily = description.lfPitchAndFamily;
    metrics_.tmCharSet = description.lfCharSet;
}

void RealizedFont::MeasureFace() {
    const FT_Face face = face_->face;
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    const bool hasCell = os2 != nullptr && os2->usWinAscent + os2->usWinDescent > 0;
    const double ascent = hasCell ? os2->usWinAscent : std::max<int>(face->ascender, 1);
    const double descent = hasCell ? os2->usWinDescent : std::max(-face->descender, 0);
    const LONG wanted = WantedHeight(description_);
    if (wanted < 0) {
        face_->em = -wanted;
        // Rounded up, so that the cell holds the ink.
        metrics_.tmAscent = static_cast<LONG>(std::ceil(face_->Pixels(ascent)));
        metrics_.tmDescent = static_cast<LONG>(std::ceil(face_->Pixels(descent)));
    } else {
        face_->em = std::max(1.0, wanted * face->units_per_EM / (ascent + descent));
        metrics_.tmAscent = static_cast<LONG>(std::lround(wanted * ascent / (ascent + descent)));
        metrics_.tmDescent = wanted - metrics_.tmAscent;
    }
    metrics_.tmHeight = metrics_.tmAscent + metrics_.tmDescent;
    metrics_.tmInternalLeading =
        std::max<LONG>(0, metrics_.tmHeight - static_cast<LONG>(std::lround(face_->em)));
    const double lineGap = face->height - ascent - descent;
    metrics_.tmExternalLeading =
        std::max<LONG>(0, static_cast<LONG>(std::lround(face_->Pixels(lineGap))));

    const double average =
        os2 != nullptr && os2->xAvgCharWidth > 0 ? os2->xAvgCharWidth : face->units_per_EM / 2.0;
    if (description_.lfWidth != 0) {
        const double width = std::min(std::abs(static_cast<double>(description_.lfWidth)),
                                      static_cast<double>(kMaxEmPixels));
        face_->scaleX = std::clamp(width / std::max(0.1, face_->Pixels(average)), 0.05, 8.0);
    }
    const auto width = [&](double units) {
        return static_cast<int>(std::lround(face_->Pixels(units) * face_->scaleX));
    };
    metrics_.tmAveCharWidth = std::max(1, width(average));
    metrics_.tmMaxCharWidth = std::max(1, width(face->max_advance_width));
    for (unsigned c = 0; c < 256; ++c) {
        FT_Fixed units = 0;
        const FT_UInt glyph = FT_Get_Char_Index(face, UnicodeOf(static_cast<unsigned char>(c)));
        // Characters such as a line feed have no picture and no width.
        const bool isControl = c < 0x20 && glyph == 0;
        if (!isControl && FT_Get_Advance(face, glyph, FT_LOAD_NO_SCALE, &units) == 0) {
            advances_[c] = width(static_cast<double>(units));
        }
    }
    underlineTop_ = std::max(1, static_cast<int>(std::lround(face_->Pixels(
                                    -face->underline_position - face->underline_thickness / 2.0))));
    underlineThickness_ =
        std::max(1, static_cast<int>(std::lround(face_->Pixels(face->underline_thickness))));
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
    kept.push_front(std::shared_ptr<RealizedFont>(new RealizedFont(key)));
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

Glyph RealizedFont::Render(unsigned char character, unsigned quarterX, unsigned quarterY) const {
    Glyph result;
    if (!face_) return result;
    const FT_Face face = face_->face;
    const FT_UInt index = FT_Get_Char_Index(face, UnicodeOf(character));
    if (character < 0x20 && index == 0) return result;
    FT_Set_Char_Size(face, 0, static_cast<FT_F26Dot6>(std::lround(face_->em * 64)), 72, 72);
    // Upright text is fitted to the rows of pixels only, which changes no width; turned text is
    // left as designed.
    const FT_Int32 flags =
        FT_LOAD_NO_BITMAP | (isRotated() ? FT_LOAD_NO_HINTING : FT_LOAD_TARGET_LIGHT);
    if (FT_Load_Glyph(face, index, flags) != 0 || face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
        return result;
    }
    FT_Outline& outline = face->glyph->outline;
    if (face_->embolden) {
        FT_Outline_Embolden(&outline, static_cast<FT_Pos>(std::lround(face_->em * 64 / 24)));
    }
    // Columns: where one unit along the baseline and one unit up end up (FreeType's y points up).
    const double slant = face_->slant ? 0.21 : 0.0;
    const double c = directionX_, s = -directionY_;
    const auto fixed = [](double value) {
        return static_cast<FT_Fixed>(std::lround(value * 65536));
    };
    FT_Matrix matrix{fixed(face_->scaleX * c), fixed(slant * c - s), fixed(face_->scaleX * s),
                     fixed(slant * s + c)};
    FT_Outline_Transform(&outline, &matrix);
    FT_Outline_Translate(&outline, static_cast<FT_Pos>(quarterX * 16),
                         -static_cast<FT_Pos>(quarterY * 16));
    if (FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) != 0) return result;
    const FT_Bitmap& bitmap = face->glyph->bitmap;
    result.left = face->glyph->bitmap_left;
    result.top = -face->glyph->bitmap_top;
    result.width = static_cast<int>(bitmap.width);
    result.height = static_cast<int>(bitmap.rows);
    result.coverage.resize(static_cast<std::size_t>(bitmap.width) * bitmap.rows);
    for (unsigned y = 0; y < bitmap.rows; ++y) {
        std::copy_n(bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch, bitmap.width,
                    result.coverage.data() + static_cast<std::size_t>(y) * bitmap.width);
    }
    return result;
}

RealizedFont* FontOf(const Dc& dc) {
    Font* font = ObjectOf<Font>(dc.state.font);
    if (font == nullptr) return nullptr;
    if (!font->realized) font->realized = RealizedFont::For(font->description);
    return font->realized.get();
}

}  // namespace kv
