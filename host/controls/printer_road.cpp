// See printer_road.h.
#include <host/controls/printer_road.h>

#include <framework/monitor/printer_link.h>
#include <module/device/port_address.h>
#include <module/device/printer_answer.h>
#include <winspool.h>

#include <vector>

namespace kvhost {
namespace {

constexpr char kConfigCommand[] = "@PJL INFO CONFIG";
constexpr std::uint16_t kRawPort = 9100;

struct KindRow {
    DWORD kind;
    const char* name;
};
constexpr KindRow kKinds[] = {
    {kvui::kPortUsb, "usb"},       {kvui::kPortTcp, "tcp"}, {kvui::kPortLpr, "lpr"},
    {kvui::kPortSharedSmb, "smb"}, {kvui::kPortIpp, "ipp"}, {kvui::kPortTarrow, "tarrow"},
};

bool PortOf(const PrinterBlock& printer, std::string& port, DWORD& attributes) {
    HANDLE handle = nullptr;
    if (!OpenPrinterA(const_cast<LPSTR>(printer.printerName), &handle, nullptr)) return false;
    DWORD needed = 0;
    GetPrinterA(handle, 2, nullptr, 0, &needed);
    std::vector<std::uint64_t> buffer(needed / sizeof(std::uint64_t) + 1);
    auto* const bytes = reinterpret_cast<BYTE*>(buffer.data());
    const bool got = GetPrinterA(handle, 2, bytes, needed, &needed) != FALSE;
    if (got) {
        const auto& info = *reinterpret_cast<const PRINTER_INFO_2A*>(bytes);
        port = info.pPortName != nullptr ? info.pPortName : "";
        attributes = info.Attributes;
    }
    ClosePrinter(handle);
    return got;
}

// Through the spooler the language monitor must find the printer too.
std::string WhyMonitorCannot(const std::string& port, bool isBidirectional) {
    kvmonitor::PrinterAddress address;
    if (!isBidirectional) return "the port is used in one direction only";
    if (kvmonitor::FindPrinterAddress(port, address)) return {};
    return "no port monitor names a device for \"" + port +
           "\"; `kvprefs printer add` does with --device";
}

std::string NoAnswer(const PrinterRoad& road, DWORD error) {
    const std::string whom = "the printer at " + road.address;
    if (error == ERROR_TIMEOUT) return whom + " does not answer";
    return whom + " cannot be reached, or ends the connection";
}

std::string FaultOf(const std::string& reply) {
    DWORD options = 0;
    if (kvui::ReadInstalledOptions(reply, options)) return {};
    if (reply.find('\f') == reply.npos) return "the answer has no end (no form feed came)";
    return std::string("the answer is none to ") + kConfigCommand;
}

}  // namespace

PrinterRoad RoadTo(const PrinterBlock& printer) {
    PrinterRoad road;
    DWORD attributes = 0;
    if (!PortOf(printer, road.port, attributes)) {
        road.reason = "the spooler does not tell its port";
        return road;
    }
    kvui::PrinterPortAddress found{};
    const bool queryable = kvui::ClassifyPort(road.port, attributes, found);
    for (const KindRow& row : kKinds) {
        if (row.kind == found.kind) road.kind = row.name;
    }
    if (!found.found) {
        road.reason = "no port monitor knows the address of \"" + road.port + "\"";
        return road;
    }
    kvmonitor::PrinterAddress device;
    if (found.kind != kvui::kPortUsb) {
        road.address = inet_ntoa(found.address.sin_addr);
    } else if (kvmonitor::FindPrinterAddress(road.port, device)) {
        road.address = device.device;
    }
    road.isDirect = kvui::IsAskedDirectly(found);
    if (!road.isDirect) {
        road.reason =
            WhyMonitorCannot(road.port, (attributes & PRINTER_ATTRIBUTE_ENABLE_BIDI) != 0);
    }
    road.queryable = queryable && road.reason.empty();
    if (road.queryable) {
        road.reason = road.isDirect ? "over a connection to " + road.address
                                    : "through the spooler, at " + road.address;
    }
    return road;
}

std::string AskForOptions(const PrinterRoad& road, std::string& problem) {
    std::string reply;
    DWORD error = ERROR_SUCCESS;
    if (road.isDirect) {
        kvmonitor::PrinterAddress address;
        address.host = road.address;
        address.port = kRawPort;
        error = kvmonitor::AskPrinterAt(address, kConfigCommand, reply);
    } else {
        error = kvmonitor::AskPrinter(road.port, kConfigCommand, reply);
    }
    problem = reply.empty() ? NoAnswer(road, error) : FaultOf(reply);
    return reply;
}

}  // namespace kvhost
