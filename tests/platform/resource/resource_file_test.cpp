// Reading compiled resource files: lookups, and input that is cut short or lies about its sizes.
#include <gtest/gtest.h>
#include <platform/resource/resource_file.h>
#include <windows.h>

#include <cstring>
#include <functional>

#include "tests/platform/support/compiled_file.h"

namespace {

using kv::ResourceEntry;
using kv::ResourceFile;
using kv::ResourceNameOf;

const ResourceEntry* Find(const ResourceFile& file, LPCSTR type, LPCSTR name) {
    ResourceFile::Found found;
    return file.Find(ResourceNameOf(type), ResourceNameOf(name), found);
}

TEST(ResourceFile, FindsByNumberAndByTextWithoutRegardToCase) {
    const auto bytes = CompiledFile()
                           .Add(CompiledFile::Id(5), CompiledFile::Text("TAB0R"), {1})
                           .Add(CompiledFile::Id(5), CompiledFile::Id(700), {2})
                           .Add(CompiledFile::Text("trc"), CompiledFile::Text("dQDTA"), {3})
                           .bytes;
    ResourceFile file;
    ASSERT_EQ(file.Parse(bytes), "");
    const struct {
        LPCSTR type;
        LPCSTR name;
        int value;  // 0: not there
    } cases[] = {
        {MAKEINTRESOURCEA(5), "TAB0R", 1},
        {MAKEINTRESOURCEA(5), "tab0r", 1},
        {"#5", "#700", 2},
        {MAKEINTRESOURCEA(5), MAKEINTRESOURCEA(700), 2},
        {"TRC", "DQDTA", 3},
        {"Trc", "dqdta", 3},
        {MAKEINTRESOURCEA(5), "TAB0", 0},
        {MAKEINTRESOURCEA(6), "TAB0R", 0},
        {MAKEINTRESOURCEA(5), "#700x", 0},
        {"TRC", "TAB0R", 0},
        {MAKEINTRESOURCEA(0), "#0", 0},
    };
    for (const auto& test : cases) {
        const ResourceEntry* entry = Find(file, test.type, test.name);
        EXPECT_EQ(entry ? entry->bytes[0] : 0, test.value);
    }
}

TEST(ResourceFile, PrefersTheNeutralLanguageThenEnglish) {
    CompiledFile file;
    file.Add(CompiledFile::Id(6), CompiledFile::Id(1), {7}, 0x0407)
        .Add(CompiledFile::Id(6), CompiledFile::Id(1), {9}, 0x0409);
    ResourceFile read;
    ASSERT_EQ(read.Parse(file.bytes), "");
    EXPECT_EQ(read.FindById(6, 1)->bytes[0], 9);
    file.Add(CompiledFile::Id(6), CompiledFile::Id(1), {1}, 0);
    ASSERT_EQ(read.Parse(file.bytes), "");
    EXPECT_EQ(read.FindById(6, 1)->bytes[0], 1);
}

TEST(ResourceFile, SaysWhereMalformedInputFailsAndIndexesNothing) {
    CompiledFile good;
    good.Add(CompiledFile::Text("AB"), CompiledFile::Id(3), {1, 2, 3, 4});
    constexpr std::size_t kSecond = 32;  // offset of the entry after the mark
    const auto put = [](std::vector<BYTE>& bytes, std::size_t at, DWORD value) {
        std::memcpy(&bytes[at], &value, sizeof value);
    };
    const struct {
        const char* what;
        std::function<void(std::vector<BYTE>&)> spoil;
    } cases[] = {
        {"two sizes", [](auto& bytes) { bytes.resize(kSecond + 6); }},
        {"header passes the end", [&](auto& bytes) { put(bytes, kSecond + 4, 0xFFFFFFF0); }},
        {"whole words", [&](auto& bytes) { put(bytes, kSecond + 4, 35); }},
        {"too short", [&](auto& bytes) { put(bytes, kSecond + 4, 4); }},
        {"too short for its type", [&](auto& bytes) { put(bytes, kSecond + 4, 20); }},
        {"data pass the end", [&](auto& bytes) { put(bytes, kSecond, 0xFFFFFFFF); }},
        {"data pass the end", [](auto& bytes) { bytes.pop_back(); }},
    };
    for (const auto& test : cases) {
        std::vector<BYTE> bytes = good.bytes;
        test.spoil(bytes);
        ResourceFile file;
        const std::string error = file.Parse(bytes);
        EXPECT_NE(error.find(test.what), std::string::npos) << error;
        EXPECT_NE(error.find("offset 32"), std::string::npos) << error;
        EXPECT_TRUE(file.entries().empty());
    }
}

TEST(ResourceFile, EveryCutAndEveryChangedByteStaysInsideTheFile) {
    const auto bytes = CompiledFile()
                           .Add(CompiledFile::Text("TRC"), CompiledFile::Text("x"), {1, 2, 3})
                           .Add(CompiledFile::Id(6), CompiledFile::Id(2), {4, 5})
                           .bytes;
    const auto check = [](const std::vector<BYTE>& spoilt) {
        ResourceFile file;
        file.Parse(spoilt);
        for (const ResourceEntry& entry : file.entries()) {
            ASSERT_GE(entry.bytes, spoilt.data());
            ASSERT_LE(entry.size, spoilt.data() + spoilt.size() - entry.bytes);
        }
    };
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        check({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)});
    }
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            std::vector<BYTE> spoilt = bytes;
            spoilt[at] = static_cast<BYTE>(spoilt[at] ^ 1 << bit);
            check(spoilt);
        }
    }
}

}  // namespace
