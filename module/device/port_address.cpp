// See port_address.h: which monitor owns the port, and the printer's network address.
#include "device/port_address.h"

#include <winspool.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>

namespace kvui {
namespace {

constexpr char kMonitorsKey[] = "System\\CurrentControlSet\\Control\\Print\\Monitors";
constexpr char kMakersMonitor[] = "VARNELL Tessora 7720MF TCP/IP Port";
constexpr UINT kStringMakersMonitor = 100;
constexpr size_t kNameSize = 260;

// Which monitors are searched depends on the platform's family.
enum class PlatformFamily { kNt4, kNt5, kOld };

PlatformFamily CurrentPlatform() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExA(&version);
    if (version.dwPlatformId != VER_PLATFORM_WIN32_NT) return PlatformFamily::kOld;
    return version.dwMajorVersion >= 5 ? PlatformFamily::kNt5 : PlatformFamily::kNt4;
}

bool EqualsAnyCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), [](char a, char b) {
               return std::tolower(static_cast<unsigned char>(a)) ==
                      std::tolower(static_cast<unsigned char>(b));
           });
}

class RegistryKey {
 public:
    RegistryKey(HKEY parent, const char* path) {
        if (RegOpenKeyExA(parent, path, 0, KEY_READ, &key_) != 0) key_ = nullptr;
    }
    ~RegistryKey() {
        if (key_ != nullptr) RegCloseKey(key_);
    }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    explicit operator bool() const { return key_ != nullptr; }
    HKEY get() const { return key_; }

 private:
    HKEY key_ = nullptr;
};

// Registry names match in any case; a port's sub-key must match exactly.
bool HasSubKey(HKEY key, const char* name) {
    for (DWORD index = 0;; ++index) {
        char found[kNameSize] = "";
        DWORD size = sizeof found;
        if (RegEnumKeyExA(key, index, found, &size, nullptr, nullptr, nullptr, nullptr) != 0) {
            return false;
        }
        if (std::strcmp(found, name) == 0) return true;
    }
}

bool ResolveValue(HKEY key, const char* valueName, PrinterPortAddress& address) {
    if (valueName == nullptr) return false;
    char text[kNameSize + 1] = "";
    DWORD size = kNameSize, type = 0;
    return RegQueryValueExA(key, valueName, nullptr, &type, reinterpret_cast<BYTE*>(text), &size) ==
               0 &&
           ResolveHostAddress(address, text);
}

bool LookupMonitorPort(const char* monitor, const char* port, const char* firstValue,
                       const char* secondValue, PrinterPortAddress& address) {
    const std::string path = std::string(kMonitorsKey) + "\\" + monitor + "\\Ports";
    const RegistryKey ports(HKEY_LOCAL_MACHINE, path.c_str());
    if (!ports || !HasSubKey(ports.get(), port)) return false;
    const RegistryKey entry(ports.get(), port);
    return entry && (ResolveValue(entry.get(), firstValue, address) ||
                     ResolveValue(entry.get(), secondValue, address));
}

std::string MakersMonitorName() {
    char path[kNameSize + 16] = "";
    GetSystemDirectoryA(path, kNameSize);
    std::strncat(path, "\\KVSHRES.DLL", sizeof path - std::strlen(path) - 1);
    char name[kNameSize] = "";
    if (const HMODULE library = LoadLibraryA(path)) {
        LoadStringA(library, kStringMakersMonitor, name, sizeof name);
        FreeLibrary(library);
    }
    return name[0] != '\0' ? name : kMakersMonitor;
}

// "\\server\...SMB_PRI1": the server.
bool ResolveSharedPort(std::string_view port, PrinterPortAddress& address) {
    constexpr std::string_view kEnding = "SMB_PRI1";
    if (port.size() <= kEnding.size() ||
        !EqualsAnyCase(port.substr(port.size() - kEnding.size()), kEnding)) {
        return false;
    }
    const size_t start = std::min(port.find_first_not_of('\\'), port.size());
    const std::string server(port.substr(start, port.find('\\', start) - start));
    return ResolveHostAddress(address, server.c_str());
}

// "http://host[:port]/ipp" or ".../ipp.cgi": the host.
bool ResolveIppPort(std::string_view port, PrinterPortAddress& address) {
    constexpr std::string_view kScheme = "http://";
    if (port.size() <= kScheme.size() || !EqualsAnyCase(port.substr(0, kScheme.size()), kScheme)) {
        return false;
    }
    const std::string_view rest = port.substr(kScheme.size());
    const std::string host(rest.substr(0, rest.find_first_of("/:")));
    const size_t slash = rest.find('/');
    if (host.empty() || slash == std::string_view::npos) return false;
    const std::string_view path = rest.substr(slash + 1);
    if (!EqualsAnyCase(path, "ipp") && !EqualsAnyCase(path, "ipp.cgi")) return false;
    return ResolveHostAddress(address, host.c_str());
}

bool IsUsbPort(const char* name) {
    return std::strlen(name) > 3 && std::strncmp(name, "USB", 3) == 0 &&
           std::isdigit(static_cast<unsigned char>(name[3])) &&
           std::isdigit(static_cast<unsigned char>(name[4])) &&
           std::isdigit(static_cast<unsigned char>(name[5]));
}

}  // namespace

BOOL ResolveHostAddress(PrinterPortAddress& address, const char* text) {
    address.address.sin_family = AF_INET;
    if (text[0] == '\0') return FALSE;
    if (!std::isalpha(static_cast<unsigned char>(text[0]))) {
        address.address.sin_addr.s_addr = inet_addr(text);
        return TRUE;
    }
    WSADATA data{};
    if (WSAStartup(MAKEWORD(1, 1), &data) != 0) return FALSE;
    const hostent* host = gethostbyname(text);
    const bool resolved = host != nullptr && host->h_addr_list != nullptr &&
                          host->h_addr_list[0] != nullptr && host->h_length == 4;
    if (resolved) {
        std::memcpy(&address.address.sin_addr.s_addr, host->h_addr_list[0], 4);
    }
    WSACleanup();
    return resolved;
}

void ResolvePortAddress(const char* portName, PrinterPortAddress& address) {
    const std::string port(portName, std::strcspn(portName, ","));
    const auto look = [&](const char* monitor, const char* first, const char* second, DWORD kind) {
        if (LookupMonitorPort(monitor, port.c_str(), first, second, address)) address.kind = kind;
    };
    if (CurrentPlatform() == PlatformFamily::kOld) {
        look(MakersMonitorName().c_str(), "IPAddress", nullptr, kPortTcp);
    } else {
        look("Standard TCP/IP Port", "IPAddress", "HostName", kPortTcp);
        look("LPR Port", "Server Name", nullptr, kPortLpr);
    }
    if (address.kind == kPortUnresolved) look("Tarrow Port+", "IPAddress", nullptr, kPortTarrow);
    if (address.kind == kPortUnresolved && ResolveSharedPort(port, address)) {
        address.kind = kPortSharedSmb;
    }
    if (address.kind == kPortUnresolved && ResolveIppPort(port, address)) address.kind = kPortIpp;
    if (address.kind != kPortUnresolved) address.found = 1;
}

bool ClassifyPort(const std::string& port, DWORD attributes, PrinterPortAddress& address) {
    address = {};
    address.socket = INVALID_SOCKET;
    if (IsUsbPort(port.c_str())) {
        address.kind = kPortUsb;
        address.found = 1;
    } else {
        ResolvePortAddress(port.c_str(), address);
    }
    if (!address.found) return false;
    return IsAskedDirectly(address) || (attributes & PRINTER_ATTRIBUTE_ENABLE_BIDI) != 0;
}

bool IsAskedDirectly(const PrinterPortAddress& address) {
    return address.kind == kPortSharedSmb || address.kind == kPortIpp;
}

}  // namespace kvui
