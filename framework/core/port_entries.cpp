// See port_entries.h.
#include "port_entries.h"

#include <winbase.h>
#include <winreg.h>

#include <cctype>

namespace kvcore {
namespace {

constexpr std::string_view kTcpPrefix = "IP_";
constexpr char kMonitors[] = "System\\CurrentControlSet\\Control\\Print\\Monitors\\";

std::string TcpEntry(const std::string& port) {
    return std::string(kMonitors) + "Standard TCP/IP Port\\Ports\\" + port;
}

std::string UsbEntry(const std::string& port) {
    return std::string(kMonitors) + "USB Monitor\\Ports\\" + port;
}

DWORD Put(kv::StateStore& store, const std::string& entry, const char* value,
          const std::string& text) {
    kv::KeyId key{};
    bool created = false;
    const DWORD error = store.CreateKey(kv::kMachineRoot, entry, key, created);
    return error != ERROR_SUCCESS
               ? error
               : store.SetValue(key, value, REG_SZ, text.c_str(), text.size() + 1);
}

}  // namespace

DWORD RegisterPort(kv::StateStore& store, const std::string& port, const std::string& device) {
    if (!device.empty()) return Put(store, UsbEntry(port), "Device", device);
    if (port.rfind(kTcpPrefix, 0) != 0) return ERROR_SUCCESS;
    const std::string place = port.substr(kTcpPrefix.size());
    const bool isName = !place.empty() && std::isalpha(static_cast<unsigned char>(place[0]));
    return Put(store, TcpEntry(port), isName ? "HostName" : "IPAddress", place);
}

std::string DeviceOfPort(kv::StateStore& store, const std::string& port) {
    kv::KeyId key{};
    kv::StoredValue value;
    if (store.FindKey(kv::kMachineRoot, UsbEntry(port), key) != ERROR_SUCCESS ||
        store.GetValue(key, "Device", value) != ERROR_SUCCESS || value.type != REG_SZ) {
        return "";
    }
    const std::string text(value.data.begin(), value.data.end());
    return text.substr(0, text.find('\0'));
}

}  // namespace kvcore
