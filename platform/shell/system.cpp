// Version and time.
#include <platform/display/waiting.h>
#include <winbase.h>

#include <ctime>

BOOL GetVersionExA(OSVERSIONINFOA* info) {
    if (!info || info->dwOSVersionInfoSize < sizeof(OSVERSIONINFOA)) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    info->dwMajorVersion = 10;
    info->dwMinorVersion = 0;
    info->dwBuildNumber = 19045;
    info->dwPlatformId = VER_PLATFORM_WIN32_NT;
    info->szCSDVersion[0] = '\0';
    return TRUE;
}

DWORD GetTickCount() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<DWORD>(static_cast<ULONGLONG>(now.tv_sec) * 1000 +
                              static_cast<ULONGLONG>(now.tv_nsec) / 1000000);
}

void Sleep(DWORD milliseconds) {
    kv::PassTime(kv::Milliseconds(milliseconds));
}
