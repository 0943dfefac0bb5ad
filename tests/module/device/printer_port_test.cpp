// By which road a printer can be asked: what its port's name and the port monitors' keys say.
#include "device/printer_port.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/module/support/sheet_fixture.h"
#include "tests/support/printer_data.h"
#include "tests/support/registry.h"

namespace kvui {
namespace {

class PrinterPort : public testing::Test {
 protected:
    static void Put(const std::string& port, const char* value, const std::string& text) {
        kvtest::PutRegistryValue(HKEY_LOCAL_MACHINE,
                                 "System\\CurrentControlSet\\Control\\Print\\Monitors\\" + port,
                                 value, REG_SZ, text + '\0');
    }
    ScratchSheet sheet;
};

TEST_F(PrinterPort, IsFoundByItsMonitorElseByItsName) {
    const std::string standard = "Standard TCP/IP Port\\Ports\\", lpr = "LPR Port\\Ports\\",
                      tarrow = "Tarrow Port+\\Ports\\";
    Put(standard + "Other", "IPAddress", "10.0.0.99");
    Put(standard + "IP_1", "IPAddress", "10.0.0.1");
    Put(standard + "IP_1", "HostName", "10.0.0.98");
    Put(tarrow + "IP_1", "IPAddress", "10.0.0.97");
    Put(standard + "IP_2", "HostName", "localhost");
    Put(standard + "IP_3", "IPAddress", "");
    Put(standard + "IP_3", "HostName", "10.0.0.3");
    Put(standard + "Both", "IPAddress", "10.0.0.96");
    Put(lpr + "Both", "Server Name", "10.0.0.4");
    Put(tarrow + "Tarrow", "IPAddress", "10.0.0.5");
    const struct { const char* port; DWORD kind; const char* address; } rows[] = {
        {"IP_1", kPortTcp, "10.0.0.1"},
        {"IP_1,LPT1:", kPortTcp, "10.0.0.1"},
        {"ip_1", kPortUnresolved, ""},
        {"IP_2", kPortTcp, "127.0.0.1"},
        {"IP_3", kPortTcp, "10.0.0.3"},
        {"Both", kPortLpr, "10.0.0.4"},
        {"Tarrow", kPortTarrow, "10.0.0.5"},
        {"\\\\10.0.0.6\\Office_SMB_PRI1", kPortSharedSmb, "10.0.0.6"},
        {"\\\\localhost\\smb_pri1", kPortSharedSmb, "127.0.0.1"},
        {"10.0.0.6\\SMB_PRI2", kPortUnresolved, ""},
        {"SMB_PRI1", kPortUnresolved, ""},
        {"http://10.0.0.7/ipp", kPortIpp, "10.0.0.7"},
        {"HTTP://10.0.0.7:631/IPP.CGI", kPortIpp, "10.0.0.7"},
        {"http://10.0.0.7/ipp/x", kPortUnresolved, ""},
        {"http://10.0.0.7", kPortUnresolved, ""},
        {"http:///ipp", kPortUnresolved, ""},
        {"http://", kPortUnresolved, ""},
        {"ftp://10.0.0.7/ipp", kPortUnresolved, ""},
        {"", kPortUnresolved, ""},
    };
    for (const auto& row : rows) {
        PrinterPortAddress found{};
        ResolvePortAddress(row.port, found);
        EXPECT_EQ(found.kind, row.kind) << row.port;
        EXPECT_EQ(found.found, row.kind != kPortUnresolved ? 1u : 0u) << row.port;
        if (!found.found) continue;
        EXPECT_EQ(found.address.sin_family, AF_INET) << row.port;
        EXPECT_EQ(found.address.sin_addr.s_addr, inet_addr(row.address)) << row.port;
    }
}

TEST_F(PrinterPort, CanBeAskedBothWaysOrDirectly) {
    const DWORD both = PRINTER_ATTRIBUTE_ENABLE_BIDI;
    const struct { const char* port; DWORD attributes, kind; BOOL queryable; } rows[] = {
        {"USB001", both, kPortUsb, TRUE},
        {"USB001", 0, kPortUsb, FALSE},
        {"USB01", both, kPortUnresolved, FALSE},
        {"usb001", both, kPortUnresolved, FALSE},
        {"http://10.0.0.7/ipp", 0, kPortIpp, TRUE},
        {"\\\\10.0.0.6\\SMB_PRI1", 0, kPortSharedSmb, TRUE},
    };
    sheet.InstallPrinter();
    EXPECT_TRUE(ClassifyPrinterPort(sheet.context, nullptr));
    for (const auto& row : rows) {
        ASSERT_EQ(kvtest::PutPrinterPort(sheet.printer.printerName, row.port, row.attributes),
                  ERROR_SUCCESS);
        PrinterPortAddress found{};
        EXPECT_EQ(ClassifyPrinterPort(sheet.context, &found), row.queryable) << row.port;
        EXPECT_EQ(found.kind, row.kind) << row.port;
        EXPECT_EQ(found.socket, INVALID_SOCKET) << row.port;
    }
    sheet.printer = {};
    EXPECT_FALSE(ClassifyPrinterPort(sheet.context, nullptr)) << "no printer";
}

}  // namespace
}  // namespace kvui
