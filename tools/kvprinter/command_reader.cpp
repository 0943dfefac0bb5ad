// See command_reader.h.
#include "tools/kvprinter/command_reader.h"

#include <algorithm>

namespace kvprinter {
namespace {

constexpr std::string_view kUniversalExit = "\x1B%-12345X";
constexpr std::string_view kPrefix = "@PJL";
// A line that is longer is no command; its bytes need not be kept.
constexpr std::size_t kLongestLine = 4096;

// Where the first line ends, and where the next one begins; npos when it is not complete. The
// universal exit ends a line too.
struct LineEnd {
    std::size_t end;
    std::size_t next;
};
LineEnd FindLineEnd(const std::string& text) {
    const std::size_t feed = text.find('\n');
    const std::size_t exit = text.find(kUniversalExit);
    if (exit < feed) return {exit, exit + kUniversalExit.size()};
    return {feed, feed == std::string::npos ? feed : feed + 1};
}

std::string Trimmed(const std::string& text) {
    constexpr const char* kBlanks = " \t\r";
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string::npos) return "";
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

}  // namespace

std::vector<std::string> CommandReader::Take(std::string_view bytes) {
    std::vector<std::string> commands;
    rest_ += bytes;
    for (LineEnd at = FindLineEnd(rest_); at.end != std::string::npos; at = FindLineEnd(rest_)) {
        const std::string line = Trimmed(rest_.substr(0, at.end));
        rest_.erase(0, at.next);
        if (line.compare(0, kPrefix.size(), kPrefix) == 0) commands.push_back(line);
    }
    // Enough is kept to know an exit sequence whose first bytes have come.
    if (rest_.size() > kLongestLine) rest_.erase(0, rest_.size() - kUniversalExit.size());
    return commands;
}

}  // namespace kvprinter
