// Lets a test or a tool name the rules file itself instead of having it found beside the driver.
#pragma once

namespace kvui {

// Until the next ComputeRulesFilePath.
void UseRulesFile(const char* path);

}  // namespace kvui
