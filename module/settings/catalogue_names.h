// Names in the records of the catalogue, which hold them in fixed arrays. Only its tables include
// this.
#pragma once
#include "settings/item_catalogue.h"

namespace kvui {

// Copies a name into its fixed array; too long a name does not compile.
template <std::size_t size>
consteval void SetName(char (&target)[size], const char* name) {
    std::size_t length = 0;
    for (; name[length] != '\0'; ++length) target[length] = name[length];
    target[length] = '\0';
}

}  // namespace kvui
