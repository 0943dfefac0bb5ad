// Fonts as drawn: a description with metrics, advances and rendered glyphs. The faces come from the
// font library (platform/fonts), which is loaded when the first font is realized. When there is none
// or no font is installed, metrics are plausible and glyphs are empty.
#pragma once

#include <platform/gdi/objects.h>

#include <string>
#include <string_view>
#include <unordered_map>

namespace kv {

// Coverage of one glyph; `left` and `top` lead from the pen position to the upper left pixel (y
// down).
struct Glyph {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> coverage;  // width * height
};

// Sizes beyond this are drawn at this size.
constexpr int kMaxEmPixels = 2048;

class RealizedFont {
 public:
    // The font for a description; kept for the next ones alike.
    static std::shared_ptr<RealizedFont> For(const LOGFONTA& description);

    virtual ~RealizedFont();
    RealizedFont(const RealizedFont&) = delete;
    RealizedFont& operator=(const RealizedFont&) = delete;

    const TEXTMETRICA& metrics() const { return metrics_; }
    // Width of a character along the baseline, whole pixels.
    int Advance(unsigned char character) const { return advances_[character]; }
    int TextWidth(std::string_view text) const;
    // Unit vector of the baseline on the surface (y down).
    double directionX() const { return directionX_; }
    double directionY() const { return directionY_; }
    bool isRotated() const { return directionX_ != 1.0; }
    bool isUnderlined() const { return description_.lfUnderline != 0; }
    int underlineTop() const { return underlineTop_; }  // below the baseline
    int underlineThickness() const { return underlineThickness_; }
    bool isStruckOut() const { return description_.lfStrikeOut != 0; }

    // The glyph at a position in quarters of a pixel (0..3 each way); valid until the next call.
    const Glyph& GlyphAt(unsigned char character, unsigned quarterX, unsigned quarterY);

 protected:
    explicit RealizedFont(const LOGFONTA& description);
    virtual Glyph Render(unsigned char character, unsigned quarterX, unsigned quarterY) const;

    LOGFONTA description_;
    TEXTMETRICA metrics_{};
    std::array<int, 256> advances_{};
    double directionX_ = 1.0;
    double directionY_ = 0.0;
    int underlineTop_ = 1;
    int underlineThickness_ = 1;

 private:
    void MeasureWithoutFace();

    std::unordered_map<unsigned, Glyph> glyphs_;
    std::size_t glyphBytes_ = 0;
};

// Pixels that a description asks for: positive for the cell, negative for the em.
LONG WantedHeight(const LOGFONTA& description);

// The font selected into a DC, realized. Null for an invalid DC.
RealizedFont* FontOf(const Dc& dc);

// Unicode of a character of the driver's code page (Windows-1252).
char32_t UnicodeOf(unsigned char character);

}  // namespace kv
