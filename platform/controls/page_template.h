// The dialog template of a property page: what the sheet reads of it, and the changed copy from
// which the page is created (a child window without a caption). Used by the property sheet only.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kv {

struct PageTemplate {
    std::span<const std::byte> bytes;
    bool extended = false;
    std::string caption;
    int width = 0;  // dialog units
    int height = 0;
    // Byte ranges inside the template.
    size_t captionStart = 0;
    size_t captionEnd = 0;  // behind its terminating zero; the font follows
    size_t fontEnd = 0;     // the first item follows at the next multiple of four
};

// The template as it lies in the module's resources; nothing when it is missing or damaged.
std::optional<PageTemplate> FindPageTemplate(HINSTANCE instance, LPCSTR name);
std::optional<PageTemplate> ReadPageTemplate(std::span<const std::byte> bytes);

// The template for a child window; with `caption` in place of its own when that differs.
std::vector<std::byte> ChildTemplate(const PageTemplate& page, const std::string& caption);

}  // namespace kv
