// Changes to the text of a profile file: comments, order, spelling and line ends of everything else
// stay as they are. Used by profile_write.cpp.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kv {

// Sets or, without a value, deletes a key; the section is created when a value needs it.
std::string EditProfileKey(const std::string& text, std::string_view section, std::string_view key,
                           std::optional<std::string_view> value);

// Replaces the lines of a section by the texts of a double-terminated block, each verbatim.
// Without a block the section goes, with its comments.
std::string EditProfileSection(const std::string& text, std::string_view section,
                               const char* block);

}  // namespace kv
