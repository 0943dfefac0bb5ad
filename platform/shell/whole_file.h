// Files that appear whole or not at all: they are written beside their place under a name of their
// own and moved there. Used by everybody who replaces a file that somebody else may be reading.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace kv {

class WholeFile {
 public:
    // Makes the file beside `target`, after clearing away those of writers that were killed.
    WholeFile(const std::string& target, mode_t mode);
    // Removes the file when it has not taken its place.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    bool Write(std::string_view bytes);
    // Mode and owner of the file that is replaced; without rights the owner stays the writer.
    bool TakeRightsOf(uid_t user, gid_t group, mode_t mode);
    // Durable when it answers true. What stands in the place is replaced.
    bool TakePlace();
    // The same, but fails with EEXIST when something stands there.
    bool TakeFreePlace();

    // The errno of the first call that failed, 0 while all went well.
    int Problem() const { return problem_; }

 private:
    bool Make(const std::string& path, mode_t mode);
    bool Keep(bool done);
    bool Finish();

    std::string target_;
    std::string path_;  // empty when there is nothing to remove
    int fd_ = -1;
    int problem_ = 0;
};

}  // namespace kv
