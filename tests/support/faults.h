// System calls that fail as on a full disk, a broken one or at a limit. faults.cpp defines the
// calls themselves, so that every library of the test program meets the fault.
#pragma once

#include <string>

namespace kv::test {

enum class Call { kOpen, kRead, kWrite, kSync };

// While one lives, calls of a kind on files whose path has this end fail with the errno.
class Fault {
 public:
    Fault(Call call, int error, const std::string& pathEnd);
    ~Fault();
    Fault(const Fault&) = delete;
    Fault& operator=(const Fault&) = delete;
};

}  // namespace kv::test
