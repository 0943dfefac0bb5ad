// The windows that `kvprefs open` shows, one printer after another, on whatever display is in use.
#pragma once

#include <host/controls/session.h>

#include <string>
#include <vector>

namespace kvhost {

class PrinterWindows {
   public:
    // Finds the options' printer and those named, each once, and reads the first one's settings.
    // False after saying why, so that nothing opens when a name is wrong.
    bool Prepare(const Options& options, const std::vector<std::string>& named);
    // Each window opens when the one before it has closed.
    ExitStatus Run();

   private:
    std::vector<std::string> printers_;
    Session first_;
};

}  // namespace kvhost
