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
};

// The template as it lies in the module's resources; nothing when it is missing or damaged.
std::optional<PageTemplate> FindPageTemplate(HINSTANCE instance, LPCSTR name);
std::optional<PageTemplate> ReadPageTemplate(std::span<const std::byte> bytes);

// The template for a child window.
std::vector<std::byte> ChildTemplate(const PageTemplate& page);

}  // namespace kv
