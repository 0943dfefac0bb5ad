// Tells on a terminal what a command waits for, once that takes longer than a moment.
#pragma once

#include <string>

namespace kvhost {

class WaitProgress {
 public:
    WaitProgress();
    ~WaitProgress();
    WaitProgress(const WaitProgress&) = delete;
    WaitProgress& operator=(const WaitProgress&) = delete;

 private:
    void Told(const char* what, unsigned milliseconds);
    void Clear();

    std::string shown_;
};

}  // namespace kvhost
