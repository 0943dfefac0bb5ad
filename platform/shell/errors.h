// Platform error codes that the layer reports beyond those that driver code names, and the mapping
// from the host system's errors. Used by every folder that touches files.
#pragma once

#include <winbase.h>

#include <string>

namespace kv {

constexpr DWORD kErrorTooManyOpenFiles = 4;
constexpr DWORD kErrorNotSupported = 50;
constexpr DWORD kErrorDiskFull = 112;
constexpr DWORD kErrorDiscarded = 157;
constexpr DWORD kErrorNotLocked = 158;
constexpr DWORD kErrorBadPathname = 161;
constexpr DWORD kErrorBadExeFormat = 193;
constexpr DWORD kErrorFileTooLarge = 223;
constexpr DWORD kErrorNoAccess = 998;
constexpr DWORD kErrorBadKey = 1010;
constexpr DWORD kErrorKeyDeleted = 1018;
constexpr DWORD kErrorIoDevice = 1117;
constexpr DWORD kErrorInvalidFlags = 1004;
constexpr DWORD kErrorRevisionMismatch = 1306;
constexpr DWORD kErrorInvalidSid = 1337;
constexpr DWORD kErrorFileCorrupt = 1392;
constexpr DWORD kErrorPrinterAlreadyExists = 1802;

// `path` tells a missing file from a missing folder; it may be empty.
DWORD ErrorFromErrno(int error, const std::string& path = {});

// What an errno means to a person, to go behind the name of a file and a colon.
std::string ErrnoInWords(int error);

}  // namespace kv
