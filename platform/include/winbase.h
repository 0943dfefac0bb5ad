// Kernel services that the driver uses: last error, memory blocks, modules, files, profile (INI)
// files, access tokens, time and version. Implemented in platform/profile, platform/resource,
// platform/security, platform/shell.
#pragma once
#include <windef.h>
#include <winnt.h>

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_BAD_FORMAT = 11;
constexpr DWORD ERROR_NO_MORE_FILES = 18;
constexpr DWORD ERROR_NOT_READY = 21;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_CALL_NOT_IMPLEMENTED = 120;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_INVALID_NAME = 123;
constexpr DWORD ERROR_INVALID_LEVEL = 124;
constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;
constexpr DWORD ERROR_BAD_EXE_FORMAT = 193;
constexpr DWORD ERROR_FILENAME_EXCED_RANGE = 206;
constexpr DWORD ERROR_MORE_DATA = 234;
constexpr DWORD ERROR_NO_MORE_ITEMS = 259;
constexpr DWORD ERROR_DIRECTORY = 267;
constexpr DWORD ERROR_NO_TOKEN = 1008;
constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
constexpr DWORD ERROR_CANNOT_FIND_WND_CLASS = 1407;
constexpr DWORD ERROR_CONTROL_ID_NOT_FOUND = 1421;
constexpr DWORD ERROR_TIMEOUT = 1460;
constexpr DWORD ERROR_UNKNOWN_PORT = 1796;
constexpr DWORD ERROR_INVALID_PRINTER_NAME = 1801;
constexpr DWORD ERROR_INVALID_ENVIRONMENT = 1805;
constexpr DWORD ERROR_RESOURCE_DATA_NOT_FOUND = 1812;
constexpr DWORD ERROR_RESOURCE_TYPE_NOT_FOUND = 1813;
constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;
constexpr DWORD ERROR_PRINT_PROCESSOR_ALREADY_INSTALLED = 3005;

constexpr UINT GMEM_FIXED = 0x0000;
constexpr UINT GMEM_MOVEABLE = 0x0002;
constexpr UINT GMEM_ZEROINIT = 0x0040;
constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;
constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT;

constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFFu;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD GENERIC_READ = 0x80000000u;
constexpr DWORD GENERIC_WRITE = 0x40000000u;
constexpr DWORD FILE_SHARE_READ = 0x1;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD CREATE_ALWAYS = 2;
#define INVALID_HANDLE_VALUE ((HANDLE)(LONG_PTR)-1)

constexpr DWORD VER_PLATFORM_WIN32_WINDOWS = 1;
constexpr DWORD VER_PLATFORM_WIN32_NT = 2;

constexpr UINT DRIVE_UNKNOWN = 0;
constexpr UINT DRIVE_NO_ROOT_DIR = 1;
constexpr UINT DRIVE_REMOVABLE = 2;
constexpr UINT DRIVE_FIXED = 3;
constexpr UINT DRIVE_REMOTE = 4;
constexpr UINT DRIVE_CDROM = 5;
constexpr UINT DRIVE_RAMDISK = 6;
constexpr DWORD SCS_32BIT_BINARY = 0;
constexpr DWORD SCS_DOS_BINARY = 1;
constexpr DWORD SCS_64BIT_BINARY = 6;
constexpr DWORD STARTF_USESHOWWINDOW = 0x00000001;

struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};
struct STARTUPINFOA {
    DWORD cb;
    LPSTR lpReserved;
    LPSTR lpDesktop;
    LPSTR lpTitle;
    DWORD dwX;
    DWORD dwY;
    DWORD dwXSize;
    DWORD dwYSize;
    DWORD dwXCountChars;
    DWORD dwYCountChars;
    DWORD dwFillAttribute;
    DWORD dwFlags;
    WORD wShowWindow;
    WORD cbReserved2;
    LPBYTE lpReserved2;
    HANDLE hStdInput;
    HANDLE hStdOutput;
    HANDLE hStdError;
};
struct PROCESS_INFORMATION {
    HANDLE hProcess;
    HANDLE hThread;
    DWORD dwProcessId;
    DWORD dwThreadId;
};
struct OVERLAPPED;
struct OSVERSIONINFOA {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    CHAR szCSDVersion[128];
};

extern "C" {
DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD error);

HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T bytes);
HGLOBAL WINAPI GlobalReAlloc(HGLOBAL memory, SIZE_T bytes, UINT flags);
LPVOID WINAPI GlobalLock(HGLOBAL memory);
BOOL WINAPI GlobalUnlock(HGLOBAL memory);
HGLOBAL WINAPI GlobalFree(HGLOBAL memory);
SIZE_T WINAPI GlobalSize(HGLOBAL memory);

HMODULE WINAPI LoadLibraryA(LPCSTR fileName);
BOOL WINAPI FreeLibrary(HMODULE module);
FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR procName);
HMODULE WINAPI GetModuleHandleA(LPCSTR moduleName);
DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR fileName, DWORD size);
HRSRC WINAPI FindResourceA(HMODULE module, LPCSTR name, LPCSTR type);
HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource);
LPVOID WINAPI LockResource(HGLOBAL resource);
DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource);

DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer,
                                      DWORD size, LPCSTR fileName);
UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR fileName);
DWORD WINAPI GetPrivateProfileSectionA(LPCSTR section, LPSTR buffer, DWORD size, LPCSTR fileName);
DWORD WINAPI GetPrivateProfileSectionNamesA(LPSTR buffer, DWORD size, LPCSTR fileName);
BOOL WINAPI WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR fileName);
BOOL WINAPI WritePrivateProfileSectionA(LPCSTR section, LPCSTR text, LPCSTR fileName);
UINT WINAPI GetProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue);
DWORD WINAPI GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer,
                               DWORD size);

HANDLE WINAPI CreateFileA(LPCSTR fileName, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                          DWORD disposition, DWORD flags, HANDLE templateFile);
BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD bytes, LPDWORD bytesRead,
                     OVERLAPPED* overlapped);
BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD bytes, LPDWORD bytesWritten,
                      OVERLAPPED* overlapped);
DWORD WINAPI GetFileSize(HANDLE file, LPDWORD sizeHigh);
BOOL WINAPI CloseHandle(HANDLE object);
BOOL WINAPI CopyFileA(LPCSTR existing, LPCSTR created, BOOL failIfExists);
BOOL WINAPI DeleteFileA(LPCSTR fileName);
DWORD WINAPI GetFileAttributesA(LPCSTR fileName);
UINT WINAPI GetWindowsDirectoryA(LPSTR buffer, UINT size);
UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size);

BOOL WINAPI CreateDirectoryA(LPCSTR path, SECURITY_ATTRIBUTES* security);
DWORD WINAPI GetLogicalDrives();
UINT WINAPI GetDriveTypeA(LPCSTR root);
BOOL WINAPI GetBinaryTypeA(LPCSTR fileName, LPDWORD type);
BOOL WINAPI CreateProcessA(LPCSTR application, LPSTR commandLine, SECURITY_ATTRIBUTES* process,
                           SECURITY_ATTRIBUTES* thread, BOOL inheritHandles, DWORD flags,
                           LPVOID environment, LPCSTR directory, STARTUPINFOA* startup,
                           PROCESS_INFORMATION* information);

HANDLE WINAPI GetCurrentThread();
HANDLE WINAPI GetCurrentProcess();
BOOL WINAPI OpenThreadToken(HANDLE thread, DWORD access, BOOL openAsSelf, HANDLE* token);
BOOL WINAPI OpenProcessToken(HANDLE process, DWORD access, HANDLE* token);
BOOL WINAPI GetTokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS infoClass, LPVOID info,
                                DWORD size, PDWORD needed);
BOOL WINAPI AllocateAndInitializeSid(PSID_IDENTIFIER_AUTHORITY authority, BYTE count, DWORD a0,
                                     DWORD a1, DWORD a2, DWORD a3, DWORD a4, DWORD a5, DWORD a6,
                                     DWORD a7, PSID* sid);
BOOL WINAPI EqualSid(PSID left, PSID right);
PVOID WINAPI FreeSid(PSID sid);

BOOL WINAPI GetVersionExA(OSVERSIONINFOA* info);
DWORD WINAPI GetTickCount();
void WINAPI Sleep(DWORD milliseconds);
BOOL WINAPI Beep(DWORD frequency, DWORD duration);

int WINAPI lstrlenA(LPCSTR text);
int WINAPI lstrcmpA(LPCSTR left, LPCSTR right);
int WINAPI lstrcmpiA(LPCSTR left, LPCSTR right);
int WINAPI MulDiv(int number, int numerator, int denominator);
}
