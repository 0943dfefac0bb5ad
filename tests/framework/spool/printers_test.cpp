// Opening printers with rights, level-2 information in packed buffers, enumeration and drivers.
#include <test_paths.h>
#include <cstring>
#include <vector>

#include "tests/support/printer_fixture.h"

namespace kvtest {
namespace {

using Printers = PrinterTest;

TEST_F(Printers, OnlyAdministratorsOpenForAdministration) {
    struct {
        Actor actor;
        const char* name;
        DWORD access;
        DWORD error;
    } const cases[] = {
        {Actor::kUser, kPrinter, 0, ERROR_SUCCESS},
        {Actor::kUser, kPrinter, PRINTER_ACCESS_USE, ERROR_SUCCESS},
        {Actor::kUser, kPrinter, PRINTER_ACCESS_ADMINISTER, ERROR_ACCESS_DENIED},
        {Actor::kUser, kPrinter, PRINTER_ALL_ACCESS, ERROR_ACCESS_DENIED},
        {Actor::kUser, "office tessora", PRINTER_ACCESS_USE, ERROR_SUCCESS},
        {Actor::kAdministrator, kPrinter, PRINTER_ALL_ACCESS, ERROR_SUCCESS},
        {Actor::kAdministrator, "Nobody's", PRINTER_ACCESS_USE, ERROR_INVALID_PRINTER_NAME},
        {Actor::kAdministrator, "", PRINTER_ACCESS_USE, ERROR_INVALID_PRINTER_NAME},
    };
    for (const auto& row : cases) {
        Act(row.actor);
        SetLastError(ERROR_SUCCESS);
        const HANDLE handle = Open(row.access, row.name);
        EXPECT_EQ(handle != nullptr, row.error == ERROR_SUCCESS) << row.name << row.access;
        EXPECT_TRUE(handle || GetLastError() == row.error) << row.name << GetLastError();
        if (handle) ClosePrinter(handle);
    }
}

TEST_F(Printers, AClosedOrForeignHandleIsRefused) {
    const HANDLE handle = Open(PRINTER_ACCESS_USE);
    EXPECT_TRUE(ClosePrinter(handle));
    EXPECT_FALSE(ClosePrinter(handle));
    DWORD needed = 0;
    int local = 0;
    char value[] = "X";
    for (HANDLE bad : {handle, HANDLE{}, INVALID_HANDLE_VALUE, static_cast<HANDLE>(&local)}) {
        EXPECT_FALSE(GetPrinterA(bad, 2, nullptr, 0, &needed));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        EXPECT_EQ(GetPrinterDataA(bad, value, nullptr, nullptr, 0, &needed), ERROR_INVALID_HANDLE);
    }
}

TEST_F(Printers, InformationFitsExactlyTheSizeAskedFor) {
    const HANDLE handle = Open(PRINTER_ACCESS_USE);
    DWORD needed = 0;
    EXPECT_FALSE(GetPrinterA(handle, 2, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    // A heap block of exactly that size: one byte too many would be an error of the sanitizer.
    std::vector<BYTE> buffer(needed, 0xCC);
    DWORD again = 0;
    EXPECT_FALSE(GetPrinterA(handle, 2, buffer.data(), needed - 1, &again));
    EXPECT_EQ(buffer, std::vector<BYTE>(needed, 0xCC)) << "too small a buffer stays untouched";
    ASSERT_TRUE(GetPrinterA(handle, 2, buffer.data(), needed, &again));
    EXPECT_EQ(again, needed);
    const auto& info = *reinterpret_cast<const PRINTER_INFO_2A*>(buffer.data());
    EXPECT_STREQ(info.pPrinterName, kPrinter);
    EXPECT_STREQ(info.pPortName, "USB001");
    EXPECT_STREQ(info.pDriverName, "Varnell Tessora 7720MF");
    EXPECT_TRUE(info.Attributes & PRINTER_ATTRIBUTE_ENABLE_BIDI);
    DWORD brief = 0;
    EXPECT_FALSE(GetPrinterA(handle, 1, nullptr, 0, &brief));
    std::vector<BYTE> small(brief);
    ASSERT_TRUE(GetPrinterA(handle, 1, small.data(), brief, &brief));
    const auto& summary = *reinterpret_cast<const PRINTER_INFO_1A*>(small.data());
    EXPECT_STREQ(summary.pName, kPrinter);
    EXPECT_STREQ(summary.pDescription, "Office Tessora,Varnell Tessora 7720MF,");
    EXPECT_STREQ(summary.pComment, "");
    EXPECT_TRUE(summary.Flags & PRINTER_ENUM_ICON8);
    EXPECT_FALSE(GetPrinterA(handle, 99, buffer.data(), needed, &again));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_LEVEL);
    ClosePrinter(handle);
}

TEST_F(Printers, ChangesNeedTheHandlesRightAndReachOtherHandles) {
    const HANDLE user = Open(PRINTER_ACCESS_USE);
    const HANDLE administrator = Open(PRINTER_ACCESS_ADMINISTER);
    char port[] = "IP_10.0.0.5";
    char name[] = "Renamed";
    PRINTER_INFO_2A change{};
    change.pPortName = port;
    change.pPrinterName = name;
    change.Attributes = PRINTER_ATTRIBUTE_SHARED;
    auto* bytes = reinterpret_cast<BYTE*>(&change);
    EXPECT_FALSE(SetPrinterA(user, 2, bytes, 0));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    ASSERT_TRUE(SetPrinterA(administrator, 2, bytes, 0));
    DWORD needed = 0;
    GetPrinterA(user, 2, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed);
    ASSERT_TRUE(GetPrinterA(user, 2, buffer.data(), needed, &needed));
    const auto& info = *reinterpret_cast<const PRINTER_INFO_2A*>(buffer.data());
    EXPECT_STREQ(info.pPrinterName, "Renamed");
    EXPECT_STREQ(info.pPortName, "IP_10.0.0.5");
    EXPECT_STREQ(info.pDriverName, "Varnell Tessora 7720MF") << "what was null is kept";
    EXPECT_EQ(info.Attributes, PRINTER_ATTRIBUTE_SHARED);
    ClosePrinter(user);
    ClosePrinter(administrator);
}

TEST_F(Printers, EnumerationListsAllOrSaysHowMuchRoomIsMissing) {
    std::string error;
    ASSERT_TRUE(kvcore::InstallPrinter({"Another", "FILE:"}, KV_SOURCE_DIR "/models", error));
    DWORD needed = 0;
    DWORD returned = 99;
    EXPECT_FALSE(EnumPrintersA(PRINTER_ENUM_LOCAL, nullptr, 2, nullptr, 0, &needed, &returned));
    EXPECT_EQ(returned, 0u);
    std::vector<BYTE> buffer(needed);
    ASSERT_TRUE(
        EnumPrintersA(PRINTER_ENUM_LOCAL, nullptr, 2, buffer.data(), needed, &needed, &returned));
    ASSERT_EQ(returned, 2u);
    const auto* infos = reinterpret_cast<const PRINTER_INFO_2A*>(buffer.data());
    EXPECT_STREQ(infos[0].pPrinterName, "Another");
    EXPECT_STREQ(infos[1].pPrinterName, kPrinter);
}

TEST_F(Printers, APrintProcessorIsAddedOnceByAnAdministrator) {
    char file[] = "KVPROC.DLL";
    char name[] = "KVProc";
    char again[] = "kvproc";
    char standard[] = "WinPrint";
    char wrong[] = "Other OS";
    const auto add = [&](char* environment, char* processor) {
        SetLastError(ERROR_SUCCESS);
        return AddPrintProcessorA(nullptr, environment, file, processor) ? ERROR_SUCCESS
                                                                         : GetLastError();
    };
    EXPECT_EQ(add(nullptr, name), ERROR_FILE_NOT_FOUND);
    Write("state/windows/system32/spool/prtprocs/w32x86/KVPROC.DLL", "MZ");
    Act(Actor::kUser);
    EXPECT_EQ(add(nullptr, name), ERROR_ACCESS_DENIED);
    Act(Actor::kAdministrator);
    EXPECT_EQ(add(wrong, name), ERROR_INVALID_ENVIRONMENT);
    EXPECT_EQ(add(nullptr, name), ERROR_SUCCESS);
    EXPECT_EQ(add(nullptr, again), ERROR_PRINT_PROCESSOR_ALREADY_INSTALLED);
    EXPECT_EQ(add(nullptr, standard), ERROR_PRINT_PROCESSOR_ALREADY_INSTALLED);
    DWORD needed = 0;
    DWORD returned = 9;
    EXPECT_FALSE(EnumPrintProcessorsA(nullptr, nullptr, 1, nullptr, 0, &needed, &returned));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    std::vector<BYTE> buffer(needed);
    ASSERT_TRUE(
        EnumPrintProcessorsA(nullptr, nullptr, 1, buffer.data(), needed, &needed, &returned));
    ASSERT_EQ(returned, 2u);
    const auto* infos = reinterpret_cast<const PRINTPROCESSOR_INFO_1A*>(buffer.data());
    EXPECT_STREQ(infos[0].pName, "winprint");
    EXPECT_STREQ(infos[1].pName, "KVProc");
    EXPECT_FALSE(
        EnumPrintProcessorsA(wrong, nullptr, 1, buffer.data(), needed, &needed, &returned));
}

TEST_F(Printers, TheDriverLeadsToFilesThatExist) {
    const HANDLE handle = Open(PRINTER_ACCESS_USE);
    DWORD needed = 0;
    GetPrinterDriverA(handle, nullptr, 2, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed);
    ASSERT_TRUE(GetPrinterDriverA(handle, nullptr, 2, buffer.data(), needed, &needed));
    const auto& info = *reinterpret_cast<const DRIVER_INFO_2A*>(buffer.data());
    EXPECT_NE(GetFileAttributesA(info.pDataFile), INVALID_FILE_ATTRIBUTES) << info.pDataFile;
    ClosePrinter(handle);

    char folder[260];
    ASSERT_TRUE(GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                           sizeof folder, &needed));
    EXPECT_EQ(needed, std::strlen(folder) + 1);
    const std::string rules = std::string(folder) + "\\3\\KVUIMOD.ini";
    EXPECT_NE(GetFileAttributesA(rules.c_str()), INVALID_FILE_ATTRIBUTES) << rules;
    EXPECT_FALSE(GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                            needed - 1, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

}  // namespace
}  // namespace kvtest
