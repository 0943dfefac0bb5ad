// Drive letters: "C:" is the root of the file system, the letters after it are the media and shares
// that are mounted below it, in the order of the mount table.
#pragma once

#include <string>

namespace kv {

// The folder that a letter stands for, without a last slash ("" for the root folder); false when
// the letter has no drive.
bool FolderOfDrive(char letter, std::string& folder);

// Reads another mount table than that of the running system; empty returns to it.
void UseMountTable(const std::string& path);

}  // namespace kv
