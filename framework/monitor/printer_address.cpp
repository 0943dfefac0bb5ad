// See printer_address.h.
#include "printer_address.h"

#include <winreg.h>

#include <cstring>

namespace kvmonitor {
namespace {

constexpr char kMonitors[] = "System\\CurrentControlSet\\Control\\Print\\Monitors\\";
constexpr std::uint16_t kRawPort = 9100;
constexpr DWORD kTextSize = 260;

struct MonitorRow {
    const char* monitor;
    const char* address;
    const char* otherAddress;  // when the first is missing or empty; may be null
    bool isDevice;
};
// monitor, value with the address, another one, whether it is a device file; the first that knows
// the port counts
constexpr MonitorRow kMonitorRows[] = {
    {"LPR Port", "Server Name", nullptr, false},
    {"Standard TCP/IP Port", "IPAddress", "HostName", false},
    {"Tarrow Port+", "IPAddress", nullptr, false},
    {"USB Monitor", "Device", nullptr, true},
};

std::string ReadText(HKEY key, const char* value) {
    char text[kTextSize + 1] = "";
    DWORD size = kTextSize, type = 0;
    if (value == nullptr ||
        RegQueryValueExA(key, value, nullptr, &type, reinterpret_cast<BYTE*>(text), &size) != 0) {
        return "";
    }
    return type == REG_SZ ? text : "";
}

std::uint16_t ReadPortNumber(HKEY key) {
    DWORD number = 0, size = sizeof number, type = 0;
    const LSTATUS error = RegQueryValueExA(key, "PortNumber", nullptr, &type,
                                           reinterpret_cast<BYTE*>(&number), &size);
    const bool good = error == 0 && type == REG_DWORD && number > 0 && number <= 0xFFFF;
    return good ? static_cast<std::uint16_t>(number) : kRawPort;
}

bool ReadEntry(const MonitorRow& row, const std::string& port, PrinterAddress& address) {
    const std::string path = std::string(kMonitors) + row.monitor + "\\Ports\\" + port;
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key) != 0) return false;
    std::string place = ReadText(key, row.address);
    if (place.empty()) place = ReadText(key, row.otherAddress);
    (row.isDevice ? address.device : address.host) = place;
    address.port = ReadPortNumber(key);
    RegCloseKey(key);
    return !place.empty();
}

}  // namespace

bool FindPrinterAddress(const std::string& port, PrinterAddress& address) {
    const std::string first = port.substr(0, port.find(','));
    // A path of several keys is no port's name.
    if (first.empty() || first.find('\\') != std::string::npos) return false;
    for (const MonitorRow& row : kMonitorRows) {
        address = {};
        if (ReadEntry(row, first, address)) return true;
    }
    return false;
}

}  // namespace kvmonitor
