// Joins a model's rules file with the one that a driver's folder has: the vendor's sections come
// from the model, what users stored stays. Used when a printer is added.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvcore {

struct TakenRules {
    std::string text;                  // the joined file
    std::vector<std::string> changed;  // sections of the vendor that differed, by name
    std::vector<std::string> kept;     // sections with what users stored, by name
};

TakenRules TakeOverRules(std::string_view installed, std::string_view model);

}  // namespace kvcore
