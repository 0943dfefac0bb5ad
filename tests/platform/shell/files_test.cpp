// Files, the platform's folders, version, text helpers.
#include <cstring>

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
