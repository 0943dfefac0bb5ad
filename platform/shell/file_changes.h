// How long what was read from a file may be taken as unchanged without asking the file system.
// While one user action runs, driver code reads the same keys a hundred times, and each question
// would cost far more than the answer. Raised by the file functions and writers, used by those who
// remember.
#pragma once

namespace kv {

// This process changed a file: who remembers looks again.
void NoteFileChange();

// While one lives, each file is checked once, and again after this process changed one. An inner
// one, for instance an action in a dialog that the outer action opened, checks again, and so does
// what follows it.
class FileTrust {
 public:
    FileTrust();
    ~FileTrust();
    FileTrust(const FileTrust&) = delete;
    FileTrust& operator=(const FileTrust&) = delete;
};

// Equal as long as a check holds; 0 outside any trust, where every use is checked.
unsigned long long TrustNumber();

}  // namespace kv
