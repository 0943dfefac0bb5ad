// The framework's own texts that the module asks for by number.
#include <kvcore.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

struct FrameworkString {
    UINT id;
    std::string_view text;
};

// id, text
constexpr FrameworkString kStrings[] = {
    {kFrameworkStringDotGainSection, "DotGain"},
    {kFrameworkStringDotGainKeyFields, "DotGainKeyFields"},
    {kFrameworkStringHelpFileValue, "HelpFile"},
    {kFrameworkStringTableLibraryValue, "UseTableLibrary"},
};

}  // namespace

extern "C" int QDMLoadString(HMODULE /*module*/, UINT id, LPSTR buffer, int size) {
    if (!buffer || size <= 0) return 0;
    buffer[0] = '\0';
    for (const FrameworkString& string : kStrings) {
        if (string.id != id) continue;
        const std::size_t length = std::min<std::size_t>(string.text.size(), size - 1);
        std::memcpy(buffer, string.text.data(), length);
        buffer[length] = '\0';
        return static_cast<int>(length);
    }
    return 0;
}
