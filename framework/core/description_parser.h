// Turns the text of a printer description into its records. Called by the description cache.
#pragma once

#include "description.h"

namespace kvcore {

// `path` only names the file in problems.
Description ParseDescription(std::string_view text, const std::string& path);

}  // namespace kvcore
