// GetBinaryTypeA: what a program file was made for, read from its headers.
#include <winbase.h>

#include <elf.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <optional>

#include <platform/shell/errors.h>
#include <platform/shell/paths.h>

namespace kv {

namespace {

constexpr DWORD kSegmentedBinary = 2;  // of the 16-bit platform
constexpr WORD kDynamicLibrary = 0x2000;
constexpr WORD kOptionalHeader64 = 0x20B;
constexpr off_t kPlaceOfNewHeader = 0x3C;

template <typename Value>
bool ReadAt(int fd, off_t at, Value& value) {
    return pread(fd, &value, sizeof value, at) == static_cast<ssize_t>(sizeof value);
}

// A library is no program. The host system's own have no interpreter.
template <typename Header, typename Segment>
std::optional<DWORD> HostBinary(int fd, DWORD type) {
    Header header;
    if (!ReadAt(fd, 0, header)) return std::nullopt;
    if (header.e_type == ET_EXEC) return type;
    for (int i = 0; header.e_type == ET_DYN && i < header.e_phnum; ++i) {
        Segment segment;
        const off_t at = static_cast<off_t>(header.e_phoff) + i * header.e_phentsize;
        if (!ReadAt(fd, at, segment)) return std::nullopt;
        if (segment.p_type == PT_INTERP) return type;
    }
    return std::nullopt;
}

std::optional<DWORD> PlatformBinary(int fd) {
    DWORD place = 0;
    std::array<char, 4> mark{};
    if (!ReadAt(fd, kPlaceOfNewHeader, place) || !ReadAt(fd, place, mark)) return SCS_DOS_BINARY;
    if (mark[0] == 'N' && mark[1] == 'E') return kSegmentedBinary;
    if (std::memcmp(mark.data(), "PE\0\0", 4) != 0) return SCS_DOS_BINARY;
    WORD characteristics = 0;
    WORD optional = 0;
    const off_t header = static_cast<off_t>(place) + 4;
    if (!ReadAt(fd, header + 18, characteristics) || !ReadAt(fd, header + 20, optional) ||
        (characteristics & kDynamicLibrary) != 0) {
        return std::nullopt;
    }
    return optional == kOptionalHeader64 ? SCS_64BIT_BINARY : SCS_32BIT_BINARY;
}

std::optional<DWORD> BinaryType(int fd) {
    std::array<unsigned char, EI_NIDENT> start{};
    if (pread(fd, start.data(), start.size(), 0) < 2) return std::nullopt;
    if (start[0] == 'M' && start[1] == 'Z') return PlatformBinary(fd);
    if (std::memcmp(start.data(), ELFMAG, SELFMAG) != 0) return std::nullopt;
    return start[EI_CLASS] == ELFCLASS64 ? HostBinary<Elf64_Ehdr, Elf64_Phdr>(fd, SCS_64BIT_BINARY)
                                         : HostBinary<Elf32_Ehdr, Elf32_Phdr>(fd, SCS_32BIT_BINARY);
}

}  // namespace

}  // namespace kv

BOOL GetBinaryTypeA(LPCSTR fileName, LPDWORD type) {
    const std::string path = kv::NativePath(fileName);
    const int fd = type ? open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1;
    if (fd < 0) {
        SetLastError(type ? kv::ErrorFromErrno(errno, path) : ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    struct stat info;
    const bool regular = fstat(fd, &info) == 0 && S_ISREG(info.st_mode);
    const std::optional<DWORD> found = regular ? kv::BinaryType(fd) : std::nullopt;
    close(fd);
    if (found) *type = *found;
    if (!found) SetLastError(regular ? ERROR_BAD_EXE_FORMAT : ERROR_ACCESS_DENIED);
    return found.has_value();
}
