// Printer data: rights, sizes and types, and the requests that go to the printer.
#include <framework/monitor/language_monitor.h>
#include <kvspool.h>

#include <cstring>

#include "tests/support/printer_fixture.h"

namespace kvtest {
namespace {

class PrinterData : public PrinterTest {
 protected:
    ~PrinterData() override { kvmonitor::SetMonitorTransport(nullptr); }

    DWORD Get(const char* name, DWORD room) {
        const HANDLE handle = Open(PRINTER_ACCESS_USE);
        std::memset(buffer, '?', sizeof buffer);
        type = needed = 99;
        const DWORD error =
            GetPrinterDataA(handle, const_cast<LPSTR>(name), &type, buffer, room, &needed);
        ClosePrinter(handle);
        return error;
    }
    std::string Text() const { return std::string(reinterpret_cast<const char*>(buffer), needed); }

    BYTE buffer[64];
    DWORD type = 0;
    DWORD needed = 0;
};

TEST_F(PrinterData, ValuesComeBackWithTypeAndSize) {
    ASSERT_EQ(Put("Blob", REG_BINARY, std::string("a\0b", 3)), ERROR_SUCCESS);
    EXPECT_EQ(Get("bLOB", 3), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_BINARY);
    EXPECT_EQ(Text(), std::string("a\0b", 3));
    EXPECT_EQ(Get("Blob", 2), ERROR_MORE_DATA);
    EXPECT_EQ(needed, 3u);
    EXPECT_EQ(buffer[0], '?') << "nothing is copied in part";
    EXPECT_EQ(Get("None", 64), ERROR_FILE_NOT_FOUND);

    ASSERT_EQ(Put("Blob", REG_BINARY, ""), ERROR_SUCCESS);
    EXPECT_EQ(Get("Blob", 0), ERROR_SUCCESS);
    EXPECT_EQ(needed, 0u);
}

TEST_F(PrinterData, WritingAndDeletingNeedTheHandlesRight) {
    BYTE byte = 1;
    char name[] = "WriteTest";
    const HANDLE use = Open(PRINTER_ACCESS_USE);
    EXPECT_EQ(SetPrinterDataA(use, name, REG_BINARY, &byte, 1), ERROR_ACCESS_DENIED);
    const HANDLE odd = Open(0xF0003);
    EXPECT_EQ(SetPrinterDataA(odd, name, REG_BINARY, &byte, 1), ERROR_ACCESS_DENIED);
    const HANDLE all = Open(PRINTER_ALL_ACCESS);
    EXPECT_EQ(SetPrinterDataA(all, name, REG_BINARY, &byte, 1), ERROR_SUCCESS);
    EXPECT_EQ(SetPrinterDataA(all, name, REG_BINARY, nullptr, 1), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(DeletePrinterDataA(use, name), ERROR_ACCESS_DENIED);
    EXPECT_EQ(DeletePrinterDataA(all, name), ERROR_SUCCESS);
    EXPECT_EQ(DeletePrinterDataA(all, name), ERROR_FILE_NOT_FOUND);
    for (HANDLE handle : {use, odd, all}) ClosePrinter(handle);
}

TEST_F(PrinterData, AChangeIsStoredAsAWholeOrNotAtAll) {
    const auto storedNow = [&] {
        return (Get("One", 64) == ERROR_SUCCESS ? Text() : "-") +
               (Get("Two", 64) == ERROR_SUCCESS ? Text() : "-");
    };
    const HANDLE use = Open(PRINTER_ACCESS_USE);
    EXPECT_EQ(KVSPBeginPrinterChange(use), ERROR_ACCESS_DENIED);
    EXPECT_EQ(KVSPEndPrinterChange(use, TRUE), ERROR_INVALID_HANDLE) << "nothing was begun";
    ClosePrinter(use);

    enum class End { kKeep, kDrop, kClose };
    for (const End end : {End::kDrop, End::kClose, End::kKeep}) {
        const HANDLE all = Open(PRINTER_ALL_ACCESS);
        ASSERT_EQ(KVSPBeginPrinterChange(all), ERROR_SUCCESS);
        EXPECT_EQ(KVSPBeginPrinterChange(all), ERROR_INVALID_PARAMETER);
        EXPECT_EQ(Put("One", REG_BINARY, "1"), ERROR_SUCCESS);
        EXPECT_EQ(Put("Two", REG_BINARY, "2"), ERROR_SUCCESS);
        EXPECT_EQ(storedNow(), "12") << "the writer sees what it wrote";
        if (end != End::kClose) {
            EXPECT_EQ(KVSPEndPrinterChange(all, end == End::kKeep), ERROR_SUCCESS);
        }
        ClosePrinter(all);
        kv::CloseStateStore();
        EXPECT_EQ(storedNow(), end == End::kKeep ? "12" : "--");
    }
}

TEST_F(PrinterData, RequestsGoToThePrinterAndAreNotStored) {
    constexpr const char* kConfig = "#GET#\n@PJL INFO CONFIG";
    EXPECT_EQ(Get(kConfig, 64), ERROR_UNKNOWN_PORT) << "no monitor knows the printer's port";
    EXPECT_EQ(Put(kConfig, REG_BINARY, ""), ERROR_SUCCESS) << "a read is only announced";

    std::string sent;
    kvmonitor::SetMonitorTransport(
        [&](const std::string& port, const std::string& command, std::string& reply) {
            sent += port + "<" + command + ">";
            reply = "TRAY2=INSTALLED\f";
            return ERROR_SUCCESS;
        });
    EXPECT_EQ(Put(kConfig, REG_BINARY, ""), ERROR_SUCCESS);
    EXPECT_EQ(sent, "");
    EXPECT_EQ(Get(kConfig, 64), ERROR_SUCCESS);
    EXPECT_EQ(Text(), "TRAY2=INSTALLED\f");
    EXPECT_EQ(buffer[needed], 0) << "readers treat the reply as text";
    EXPECT_EQ(Get(kConfig, 5), ERROR_MORE_DATA);
    EXPECT_EQ(Put("#SET#\n@PJL X", REG_BINARY, ""), ERROR_SUCCESS);
    EXPECT_THAT(sent, testing::EndsWith("USB001<@PJL X>"));

    EXPECT_EQ(Put("#GET#it", REG_BINARY, "x"), ERROR_SUCCESS) << "an ordinary name";
    EXPECT_EQ(Get("#GET#it", 64), ERROR_SUCCESS);
    EXPECT_EQ(Text(), "x");
}

}  // namespace
}  // namespace kvtest
