// The count of file changes and the depth of trust; see file_changes.h.
#include <platform/shell/file_changes.h>

#include <atomic>

namespace kv {

namespace {

std::atomic<unsigned long long> fileChanges{1};
thread_local int trustDepth = 0;

}  // namespace

void NoteFileChange() {
    ++fileChanges;
}

FileTrust::FileTrust() {
    ++trustDepth;
    NoteFileChange();
}

FileTrust::~FileTrust() {
    --trustDepth;
    NoteFileChange();
}

unsigned long long TrustNumber() {
    return trustDepth > 0 ? fileChanges.load() : 0;
}

}  // namespace kv
