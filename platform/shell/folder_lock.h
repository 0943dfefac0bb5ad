// A lock by which programs that replace files in a folder take turns. It is a lock on the folder
// itself: it leaves no file behind, and stays put while the files are replaced. In the machine's
// state it is one on the file ".lock": everybody can open those folders, and so could lock them for
// ever.
#pragma once

#include <string>

namespace kv {

class FolderLock {
 public:
    // Waits up to two seconds for another program.
    explicit FolderLock(const std::string& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    // 0 while the lock is held, else the errno; EWOULDBLOCK when another program kept it.
    int Problem() const { return problem_; }

 private:
    int fd_;
    int problem_ = 0;
};

}  // namespace kv
