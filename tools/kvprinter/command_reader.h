// Finds the PJL commands in the bytes that come over a connection.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvprinter {

// Bytes may come in any pieces. Lines that are no PJL, of a print job for one, are passed over.
class CommandReader {
 public:
    // The commands that these bytes complete, without line ends and blanks around them.
    std::vector<std::string> Take(std::string_view bytes);

 private:
    std::string rest_;
};

}  // namespace kvprinter
