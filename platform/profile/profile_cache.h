// The profile files that were read, kept parsed as long as the file stays the same one (device,
// inode, size, time of change). Used by the reading and the writing profile functions.
#pragma once

#include <windef.h>

#include <memory>
#include <string>

#include <platform/profile/profile_document.h>

namespace kv {

// The path of a profile file: a bare name lies in the windows directory, null means WIN.INI there.
std::string ProfilePath(LPCSTR fileName);

// The file's document. Null with `error` set when there is no such file, it is not a plain file
// (ERROR_ACCESS_DENIED), or it is larger than ProfileDocument::kLargestFile (223, file too large);
// readers treat all of these as a file without sections.
std::shared_ptr<const ProfileDocument> LoadProfile(LPCSTR fileName, DWORD& error);

// Reads the file anew, past the cache; for the writer, which holds the lock.
bool ReadProfileText(const std::string& path, std::string& text, DWORD& error);

// Forgets every document.
void DropProfileCache();

}  // namespace kv
