// Faces of installed fonts: metrics and glyphs from FreeType. Advances come from the face's own units
// and are rounded here, so that text has the same size wherever the same font file is installed.
#include <platform/fonts/font_match.h>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <map>

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

bool WantsBold(const LOGFONTA& description) {
    return description.lfWeight >= 600;
}

class FaceFont : public RealizedFont {
 public:
    FaceFont(const LOGFONTA& description, FT_Face face, const FaceFile& file)
        : RealizedFont(description),
          face_(face),
          embolden_(WantsBold(description) && !file.isBold),
          slant_(description.lfItalic != 0 && !file.isItalic) {
        Measure();
    }

 private:
    Glyph Render(unsigned char character, unsigned quarterX, unsigned quarterY) const override;
    void Measure();
    double Pixels(double units) const { return units * em_ / face_->units_per_EM; }

    FT_Face face_;
    double em_ = 0;      // pixels
    double scaleX_ = 1;  // of widths, from lfWidth
    bool embolden_;
    bool slant_;
};

void FaceFont::Measure() {
    advances_ = {};
    const FT_Face face = face_;
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    const bool hasCell = os2 != nullptr && os2->usWinAscent + os2->usWinDescent > 0;
    const double ascent = hasCell ? os2->usWinAscent : std::max<int>(face->ascender, 1);
    const double descent = hasCell ? os2->usWinDescent : std::max(-face->descender, 0);
    const LONG wanted = WantedHeight(description_);
    if (wanted < 0) {
        em_ = -wanted;
        // Rounded up, so that the cell holds the ink.
        metrics_.tmAscent = static_cast<LONG>(std::ceil(Pixels(ascent)));
        metrics_.tmDescent = static_cast<LONG>(std::ceil(Pixels(descent)));
    } else {
        em_ = std::max(1.0, wanted * face->units_per_EM / (ascent + descent));
        metrics_.tmAscent = static_cast<LONG>(std::lround(wanted * ascent / (ascent + descent)));
        metrics_.tmDescent = wanted - metrics_.tmAscent;
    }
    metrics_.tmHeight = metrics_.tmAscent + metrics_.tmDescent;
    metrics_.tmInternalLeading =
        std::max<LONG>(0, metrics_.tmHeight - static_cast<LONG>(std::lround(em_)));
    const double lineGap = face->height - ascent - descent;
    metrics_.tmExternalLeading =
        std::max<LONG>(0, static_cast<LONG>(std::lround(Pixels(lineGap))));

    const double average =
        os2 != nullptr && os2->xAvgCharWidth > 0 ? os2->xAvgCharWidth : face->units_per_EM / 2.0;
    if (description_.lfWidth != 0) {
        const double width = std::min(std::abs(static_cast<double>(description_.lfWidth)),
                                      static_cast<double>(kMaxEmPixels));
        scaleX_ = std::clamp(width / std::max(0.1, Pixels(average)), 0.05, 8.0);
    }
    const auto width = [&](double units) {
        return static_cast<int>(std::lround(Pixels(units) * scaleX_));
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
    underlineTop_ = std::max(1, static_cast<int>(std::lround(Pixels(
                                    -face->underline_position - face->underline_thickness / 2.0))));
    underlineThickness_ =
        std::max(1, static_cast<int>(std::lround(Pixels(face->underline_thickness))));
}

Glyph FaceFont::Render(unsigned char character, unsigned quarterX, unsigned quarterY) const {
    Glyph result;
    const FT_Face face = face_;
    const FT_UInt index = FT_Get_Char_Index(face, UnicodeOf(character));
    if (character < 0x20 && index == 0) return result;
    FT_Set_Char_Size(face, 0, static_cast<FT_F26Dot6>(std::lround(em_ * 64)), 72, 72);
    // Upright text is fitted to the rows of pixels only, which changes no width; turned text is
    // left as designed.
    const FT_Int32 flags =
        FT_LOAD_NO_BITMAP | (isRotated() ? FT_LOAD_NO_HINTING : FT_LOAD_TARGET_LIGHT);
    if (FT_Load_Glyph(face, index, flags) != 0 || face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
        return result;
    }
    FT_Outline& outline = face->glyph->outline;
    if (embolden_) {
        FT_Outline_Embolden(&outline, static_cast<FT_Pos>(std::lround(em_ * 64 / 24)));
    }
    // Columns: where one unit along the baseline and one unit up end up (FreeType's y points up).
    const double slant = slant_ ? 0.21 : 0.0;
    const double c = directionX_, s = -directionY_;
    const auto fixed = [](double value) {
        return static_cast<FT_Fixed>(std::lround(value * 65536));
    };
    FT_Matrix matrix{fixed(scaleX_ * c), fixed(slant * c - s), fixed(scaleX_ * s),
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

std::shared_ptr<RealizedFont> Realize(const LOGFONTA& description) {
    const FaceFile file = MatchFace(description);
    const FT_Face face = OpenFace(file);
    return face ? std::make_shared<FaceFont>(description, face, file) : nullptr;
}

}  // namespace
}  // namespace kv

extern "C" const kv::FontLibrary* KvFontLibrary() {
    static constexpr kv::FontLibrary kLibrary = {kv::Realize, kv::ListFonts};
    return &kLibrary;
}
