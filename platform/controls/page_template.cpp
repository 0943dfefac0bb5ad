// Reading and changing dialog templates. The layout is that of the compiled resource: a header in
// one of two forms, then menu, class and caption as 16-bit strings, the font, and the items.
#include <platform/controls/page_template.h>

#include <cstring>

namespace kv {
namespace {

// Offsets in the two forms of the header.
struct HeaderLayout {
    size_t style;
    size_t exStyle;
    size_t width;      // height follows
    size_t menu;       // the first string
    size_t fontFixed;  // bytes of the font in front of its name
};
constexpr HeaderLayout kClassic = {0, 4, 14, 18, 2};
constexpr HeaderLayout kExtended = {12, 8, 22, 26, 6};

constexpr WORD kOrdinalMark = 0xFFFF;
constexpr WORD kExtendedVersion = 1;
constexpr size_t kSmallest = 24;

// What a page must not have: the sheet gives it its frame, place and visibility.
constexpr DWORD kForbidden = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_VISIBLE |
                             WS_DISABLED | WS_MINIMIZE | DS_MODALFRAME | DS_CENTER;

template <typename Value>
Value ReadAt(std::span<const std::byte> bytes, size_t offset) {
    Value value{};
    if (offset + sizeof value <= bytes.size()) {
        std::memcpy(&value, bytes.data() + offset, sizeof value);
    }
    return value;
}

template <typename Value>
void WriteAt(std::vector<std::byte>& bytes, size_t offset, Value value) {
    std::memcpy(bytes.data() + offset, &value, sizeof value);
}

// The offset behind a zero-terminated 16-bit string; 0 when it runs out of the template.
size_t BehindText(std::span<const std::byte> bytes, size_t offset) {
    for (; offset + 2 <= bytes.size(); offset += 2) {
        if (ReadAt<WORD>(bytes, offset) == 0) return offset + 2;
    }
    return 0;
}

// The same for a menu or class, which may also be a mark and a number.
size_t BehindName(std::span<const std::byte> bytes, size_t offset) {
    if (ReadAt<WORD>(bytes, offset) != kOrdinalMark) return BehindText(bytes, offset);
    return offset + 4 <= bytes.size() ? offset + 4 : 0;
}

std::string Narrow(std::span<const std::byte> bytes, size_t start, size_t end) {
    std::string text;
    for (size_t offset = start; offset + 2 < end; offset += 2) {
        const WORD unit = ReadAt<WORD>(bytes, offset);
        text.push_back(unit < 0x100 ? static_cast<char>(unit) : '?');
    }
    return text;
}

const HeaderLayout& LayoutOf(const PageTemplate& page) {
    return page.extended ? kExtended : kClassic;
}

}  // namespace

std::optional<PageTemplate> ReadPageTemplate(std::span<const std::byte> bytes) {
    if (bytes.size() < kSmallest) return std::nullopt;
    PageTemplate page;
    page.bytes = bytes;
    page.extended =
        ReadAt<WORD>(bytes, 0) == kExtendedVersion && ReadAt<WORD>(bytes, 2) == kOrdinalMark;
    const HeaderLayout& layout = LayoutOf(page);
    page.width = ReadAt<SHORT>(bytes, layout.width);
    page.height = ReadAt<SHORT>(bytes, layout.width + 2);
    if (page.width < 0 || page.height < 0) return std::nullopt;
    const size_t windowClass = BehindName(bytes, layout.menu);
    const size_t caption = windowClass ? BehindName(bytes, windowClass) : 0;
    const size_t font = caption ? BehindText(bytes, caption) : 0;
    if (font == 0) return std::nullopt;
    page.caption = Narrow(bytes, caption, font);
    const bool hasFont = (ReadAt<DWORD>(bytes, layout.style) & DS_SETFONT) != 0;
    if (hasFont && BehindText(bytes, font + layout.fontFixed) == 0) return std::nullopt;
    return page;
}

std::optional<PageTemplate> FindPageTemplate(HINSTANCE instance, LPCSTR name) {
    HRSRC resource = FindResourceA(instance, name, RT_DIALOG);
    if (!resource) return std::nullopt;
    const void* data = LockResource(LoadResource(instance, resource));
    if (!data) return std::nullopt;
    const size_t size = SizeofResource(instance, resource);
    return ReadPageTemplate({static_cast<const std::byte*>(data), size});
}

std::vector<std::byte> ChildTemplate(const PageTemplate& page) {
    std::vector<std::byte> copy(page.bytes.begin(), page.bytes.end());
    const HeaderLayout& layout = LayoutOf(page);
    const DWORD style = ReadAt<DWORD>(page.bytes, layout.style);
    const DWORD exStyle = ReadAt<DWORD>(page.bytes, layout.exStyle);
    WriteAt<DWORD>(copy, layout.style, (style & ~kForbidden) | WS_CHILD | DS_CONTROL);
    WriteAt<DWORD>(copy, layout.exStyle, exStyle | WS_EX_CONTROLPARENT);
    return copy;
}

}  // namespace kv
