// Records of the spooler's queries: fixed structures at the start of the caller's buffer, the texts
// they point to behind them. One pass measures, a second one fills.
#pragma once

#include <winbase.h>

#include <cstring>
#include <string>

namespace kvspool {

// Hands out the text area behind the structures, or only counts when there is no buffer.
class TextArea {
 public:
    TextArea(BYTE* buffer, std::size_t structures) : buffer_(buffer), used_(structures) {}

    // The place of a copy of the text; null while only counting.
    char* Add(const std::string& text) {
        return static_cast<char*>(AddBytes(text.c_str(), text.size() + 1, 1));
    }
    void* AddBytes(const void* bytes, std::size_t size, std::size_t alignment) {
        used_ = (used_ + alignment - 1) / alignment * alignment;
        void* place = nullptr;
        if (buffer_) {
            place = buffer_ + used_;
            std::memcpy(place, bytes, size);
        }
        used_ += size;
        return place;
    }
    std::size_t Used() const { return used_; }

 private:
    BYTE* buffer_;
    std::size_t used_;
};

// Fills `buffer` by `fill(BYTE* bufferOrNull) -> bytes needed` under the two-call rule: too small a
// buffer is ERROR_INSUFFICIENT_BUFFER with the size in `needed`, and stays untouched.
template <typename Fill>
BOOL AnswerInBuffer(BYTE* buffer, DWORD size, LPDWORD needed, const Fill& fill) {
    if (!needed) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *needed = static_cast<DWORD>(fill(nullptr));
    if (!buffer || size < *needed) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    fill(buffer);
    return TRUE;
}

constexpr DWORD kErrorInvalidLevel = 124;

inline BOOL Fail(DWORD error) {
    SetLastError(error);
    return FALSE;
}

}  // namespace kvspool
