// How the printer misbehaves: what it does to an answer, and how it hands the answer over.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "tools/kvprinter/machine.h"

namespace kvprinter {

// What is not set is not done. Several may be.
struct Manners {
    // The answer itself.
    std::optional<std::size_t> binary;  // that many bytes of all values instead of it
    std::optional<std::size_t> padded;  // that many bytes more before its form feed
    std::optional<std::size_t> twice;   // a second answer right behind it, with every option
    std::optional<std::size_t> noFormFeed;
    std::optional<std::size_t> endless;  // no form feed, and filling for ever
    // How it is handed over.
    std::optional<std::size_t> split;   // so many bytes a packet
    std::optional<std::size_t> slow;    // milliseconds before each packet
    std::optional<std::size_t> silent;  // nothing at all
    std::optional<std::size_t> close;   // the connection ends behind so many bytes; 0: at once
};

// "split", "close=20", ... False, with what was expected, for anything else.
bool ReadManner(const std::string& text, Manners& manners, std::string& error);
// One line for each, for the help.
std::string DescribeManners();

// The answer to a command as these manners bend it.
std::string Bend(const Manners& manners, const Machine& machine, const std::string& command,
                 std::string answer);
// What an endless answer goes on with.
extern const std::string kFilling;

}  // namespace kvprinter
