// Files, the platform's folders, version, text helpers.
#include <cstring>

#include <platform/shell/drives.h>

#include "tests/platform/shell/scratch.h"

namespace kv::test {
namespace {

class Files : public ScratchTest {
 protected:
    static HANDLE Open(const std::string& path, DWORD access, DWORD disposition) {
        return CreateFileA(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition, 0, nullptr);
    }
};

TEST_F(Files, AFileIsWrittenAndReadThroughItsHandle) {
    HANDLE file = Open(Path("a\\..\\f.bin"), GENERIC_WRITE, CREATE_ALWAYS);
    EXPECT_EQ(file, INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    file = Open(Path("f.bin"), GENERIC_WRITE, CREATE_ALWAYS);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD count = 0;
    EXPECT_TRUE(WriteFile(file, "hello", 5, &count, nullptr));
    EXPECT_EQ(count, 5u);
    char buffer[8] = {};
    EXPECT_FALSE(ReadFile(file, buffer, 8, &count, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_FALSE(WriteFile(file, "x", 1, &count, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(CloseHandle(file));

    file = Open(Path("f.bin"), GENERIC_READ, OPEN_EXISTING);
    DWORD high = 1;
    EXPECT_EQ(GetFileSize(file, &high), 5u);
    EXPECT_EQ(high, 0u);
    EXPECT_TRUE(ReadFile(file, buffer, 8, &count, nullptr));
    EXPECT_EQ(std::string(buffer, count), "hello");
    EXPECT_TRUE(ReadFile(file, buffer, 8, &count, nullptr));
    EXPECT_EQ(count, 0u) << "the end of a file is no error";
    CloseHandle(file);
    EXPECT_EQ(Open(Path("F.BIN"), GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Open(Path(""), GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST_F(Files, ACopyRefusesOrReplacesItsTarget) {
    const std::string from = Write("from.ini", std::string(200000, 'x'));
    const std::string to = Path("to.ini");
    EXPECT_TRUE(CopyFileA(from.c_str(), to.c_str(), TRUE));
    EXPECT_EQ(Read(to), Read(from));
    Write("from.ini", "new");
    EXPECT_FALSE(CopyFileA(from.c_str(), to.c_str(), TRUE));
    EXPECT_EQ(GetLastError(), ERROR_FILE_EXISTS);
    EXPECT_EQ(Read(to).size(), 200000u);
    EXPECT_TRUE(CopyFileA(from.c_str(), to.c_str(), FALSE));
    EXPECT_EQ(Read(to), "new");
    EXPECT_FALSE(CopyFileA(from.c_str(), from.c_str(), FALSE));
    EXPECT_EQ(Read(from), "new");
    EXPECT_FALSE(CopyFileA(Path("none").c_str(), to.c_str(), FALSE));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(CopyFileA(from.c_str(), Path("no/such").c_str(), FALSE));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    const auto entries = std::filesystem::directory_iterator(Path(""));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2) << "no copy is left half done";
}

TEST_F(Files, AttributesAndDeletionFollowTheFile) {
    const std::string file = Write("f", "x");
    EXPECT_EQ(GetFileAttributesA(file.c_str()), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(GetFileAttributesA(Path("").c_str()), FILE_ATTRIBUTE_DIRECTORY);
    chmod(file.c_str(), 0444);
    EXPECT_FALSE(DeleteFileA(file.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    chmod(file.c_str(), 0644);
    EXPECT_TRUE(DeleteFileA(file.c_str()));
    EXPECT_EQ(GetFileAttributesA(file.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(DeleteFileA(nullptr));
}

TEST_F(Files, AFolderIsMadeOnceAndInsideAnother) {
    EXPECT_TRUE(CreateDirectoryA(Path("color").c_str(), nullptr));
    EXPECT_EQ(GetFileAttributesA(Path("color").c_str()), FILE_ATTRIBUTE_DIRECTORY);
    const std::pair<std::string, DWORD> refused[] = {
        {Path("color"), ERROR_ALREADY_EXISTS},
        {Path("no\\color"), ERROR_PATH_NOT_FOUND},
        {Write("file", "") + "/color", ERROR_PATH_NOT_FOUND},
        {"", ERROR_PATH_NOT_FOUND},
    };
    for (const auto& [path, error] : refused) {
        EXPECT_FALSE(CreateDirectoryA(path.c_str(), nullptr)) << path;
        EXPECT_EQ(GetLastError(), error) << path;
    }
}

TEST_F(Files, LettersLeadToWhatIsMounted) {
    const std::string disc = Path("a disc");
    Write("a disc/setup.exe", "MZ");
    std::string escaped = disc;
    escaped.replace(escaped.find(' '), 1, "\\040");
    UseMountTable(Write("mounts",
                        "/dev/sda1 / ext4 rw 0 0\nproc /proc proc rw 0 0\n"
                        "/dev/sr0 " +
                            escaped +
                            " iso9660 ro 0 0\n"
                            "host:/x /net nfs4 rw 0 0\n/dev/sda2 /boot/efi vfat rw 0 0\n"));
    EXPECT_EQ(GetLogicalDrives(), 0x1Cu);
    const std::pair<const char*, UINT> types[] = {
        {"C:\\", DRIVE_FIXED},       {"d:\\", DRIVE_CDROM},     {"E:\\", DRIVE_REMOTE},
        {"F:\\", DRIVE_NO_ROOT_DIR}, {"D:", DRIVE_NO_ROOT_DIR}, {nullptr, DRIVE_FIXED},
    };
    for (const auto& [root, type] : types) EXPECT_EQ(GetDriveTypeA(root), type) << root;
    DWORD binary = 99;
    EXPECT_TRUE(GetBinaryTypeA("D:\\setup.exe", &binary));
    EXPECT_EQ(binary, SCS_DOS_BINARY);
    EXPECT_EQ(GetFileAttributesA(("C:" + disc).c_str()), FILE_ATTRIBUTE_DIRECTORY);
    UseMountTable({});
}

TEST_F(Files, AProgramIsKnownByItsHeaders) {
    const auto pe = [](WORD characteristics, WORD optional) {
        std::string bytes(0x80, '\0');
        bytes.replace(0, 2, "MZ");
        bytes[0x3C] = 0x40;
        bytes.replace(0x40, 2, "PE");
        std::memcpy(&bytes[0x44 + 18], &characteristics, 2);
        std::memcpy(&bytes[0x44 + 20], &optional, 2);
        return bytes;
    };
    const struct {
        std::string path;
        DWORD type;
        DWORD error;
    } files[] = {
        {Write("setup32.exe", pe(0x0102, 0x10B)), SCS_32BIT_BINARY, 0},
        {Write("setup64.exe", pe(0x0022, 0x20B)), SCS_64BIT_BINARY, 0},
        {Write("old.exe", "MZ and a stub"), SCS_DOS_BINARY, 0},
        {"/proc/self/exe", SCS_64BIT_BINARY, 0},
        {Write("library.dll", pe(0x2102, 0x10B)), 0, ERROR_BAD_EXE_FORMAT},
        {Write("text.exe", "echo"), 0, ERROR_BAD_EXE_FORMAT},
        {Write("empty.exe", ""), 0, ERROR_BAD_EXE_FORMAT},
        {Path("missing.exe"), 0, ERROR_FILE_NOT_FOUND},
    };
    for (const auto& file : files) {
        DWORD type = 99;
        EXPECT_EQ(GetBinaryTypeA(file.path.c_str(), &type), file.error == 0) << file.path;
        if (file.error == 0) {
            EXPECT_EQ(type, file.type) << file.path;
        } else {
            EXPECT_EQ(GetLastError(), file.error) << file.path;
        }
    }
}

// The program writes what it was given into a file of the folder that it starts in.
TEST_F(Files, AProgramStartsWithItsArgumentsFolderAndVariables) {
    const std::string program = Write("a tool.exe",
                                      "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done"
                                      " > part; echo \"$SIGN\" >> part; mv part out\n");
    chmod(program.c_str(), 0755);
    Write("work/none", "");
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    std::string line = "\"" + program + "\" one \"two words\" a\\\"b c\\\\d \"\"";
    char variables[] = "SIGN=here\0PATH=/usr/bin:/bin\0";
    ASSERT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, variables,
                               Path("work").c_str(), &startup, &started))
        << GetLastError();
    EXPECT_NE(started.dwProcessId, 0u);
    EXPECT_TRUE(CloseHandle(started.hThread));
    EXPECT_TRUE(CloseHandle(started.hProcess));
    for (int i = 0; i < 500 && access(Path("work/out").c_str(), F_OK) != 0; ++i) Sleep(10);
    EXPECT_EQ(Read(Path("work/out")), "one\ntwo words\na\"b\nc\\\\d\n\nhere\n");

    // Unquoted, the name may hold blanks, and ".exe" may be left out.
    line = Path("a tool") + " again";
    ASSERT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               State().c_str(), &startup, &started) ||
                GetLastError() == ERROR_DIRECTORY);
    Write("state/none", "");
    ASSERT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               State().c_str(), &startup, &started));
    for (int i = 0; i < 500 && access((State() + "/out").c_str(), F_OK) != 0; ++i) Sleep(10);
    EXPECT_EQ(Read(State() + "/out").substr(0, 6), "again\n");

    const struct {
        std::string application;
        std::string folder;
        DWORD error;
    } refused[] = {
        {Path("missing.exe"), Path("work"), ERROR_FILE_NOT_FOUND},
        {program, Path("missing"), ERROR_DIRECTORY},
        {Write("setup.exe", "MZ"), Path("work"), ERROR_ACCESS_DENIED},
    };
    for (const auto& row : refused) {
        EXPECT_FALSE(CreateProcessA(row.application.c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                                    nullptr, row.folder.c_str(), &startup, &started));
        EXPECT_EQ(GetLastError(), row.error) << row.application;
    }
    chmod(Path("setup.exe").c_str(), 0755);
    EXPECT_FALSE(CreateProcessA(Path("setup.exe").c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                                nullptr, nullptr, &startup, &started));
    EXPECT_EQ(GetLastError(), ERROR_BAD_EXE_FORMAT);
}

TEST_F(Files, ThePlatformsFoldersLieInTheStateDirectory) {
    char buffer[261];
    const UINT length = GetWindowsDirectoryA(buffer, sizeof buffer);
    EXPECT_EQ(std::string(buffer, length), State() + "/windows");
    EXPECT_TRUE(std::filesystem::is_directory(buffer));
    EXPECT_EQ(ModeOf(buffer), 0700u);
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_EQ(GetWindowsDirectoryA(buffer, length), length + 1) << "one short of the terminator";
    EXPECT_EQ(buffer[0], '#');
    GetSystemDirectoryA(buffer, sizeof buffer);
    EXPECT_EQ(buffer, State() + "/windows/system32");
}

TEST_F(Files, TheVersionNeedsTheRightSize) {
    OSVERSIONINFOA info{};
    EXPECT_FALSE(GetVersionExA(&info));
    info.dwOSVersionInfoSize = sizeof info;
    EXPECT_TRUE(GetVersionExA(&info));
    EXPECT_EQ(info.dwPlatformId, VER_PLATFORM_WIN32_NT);
    EXPECT_GE(info.dwMajorVersion, 6u);
}

TEST(TextHelpers, ComparisonAndScalingRoundAsThePlatformDoes) {
    EXPECT_EQ(lstrcmpiA("KVUIMOD.ini", "kvuimod.INI"), 0);
    EXPECT_LT(lstrcmpA("a", "A"), 0);
    EXPECT_LT(lstrcmpA("A", "b"), 0);
    EXPECT_LT(lstrcmpA(nullptr, ""), 0);
    EXPECT_EQ(lstrlenA(nullptr), 0);
    const struct {
        int number, numerator, denominator, expected;
    } rows[] = {{10, 96, 72, 13},       {-10, 96, 72, -13},
                {1, 1, 2, 1},           {-1, 1, 2, -1},
                {7, 1, -2, -4},         {1, 1, 0, -1},
                {0x7FFFFFFF, 2, 1, -1}, {0x7FFFFFFF, 2, 4, 0x40000000}};
    for (const auto& row : rows) {
        EXPECT_EQ(MulDiv(row.number, row.numerator, row.denominator), row.expected);
    }
}

}  // namespace
}  // namespace kv::test
