// Paths: driver code separates folders with backslashes, the host system with slashes.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>

namespace kv {

// The path with slashes, a drive's letter replaced by its folder. Names stay case-sensitive. Null
// gives an empty path.
std::string NativePath(LPCSTR path);

// "$state/windows" and "$state/windows/system32", created when missing; empty, with the last error
// set, when there is no state directory.
std::string WindowsDirectory();
std::string SystemDirectory();

// Creates a folder and its parents with mode 0700, in the machine's state with the mode that is
// right there; false with errno set.
bool MakeFolders(const std::string& path);

std::string_view BaseName(std::string_view path);
// The folder of a path without its last slash: "." when there is none, "/" for the root.
std::string FolderOf(const std::string& path);

// Makes a rename or a new file in the folder durable.
bool SyncFolder(const std::string& folder);

// ASCII only: text is 8-bit, and bytes above 0x7F compare as they are.
constexpr char FoldCase(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}
std::string LowerCase(std::string_view text);
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

}  // namespace kv
