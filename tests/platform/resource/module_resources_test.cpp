// The resource functions on the resources of a module: this test program registers its own.
#include <gtest/gtest.h>
#include <platform/resource/register.h>
#include <windows.h>
#include <winver.h>

#include <cstring>
#include <memory>

#include "tests/platform/support/compiled_file.h"

namespace {

constexpr WORD kFirstString = 60000;  // far from the strings of other tests of this program

std::vector<BYTE> StringBlock(const std::vector<std::u16string>& texts) {
    std::vector<BYTE> block;
    for (const std::u16string& text : texts) {
        std::u16string counted(1, static_cast<char16_t>(text.size()));
        for (const char16_t unit : counted + text) {
            block.push_back(static_cast<BYTE>(unit));
            block.push_back(static_cast<BYTE>(unit >> 8));
        }
    }
    return block;
}

// A node of a version resource: its name, a value, and nodes below, each at a multiple of four.
std::vector<BYTE> VersionNode(const std::u16string& name, const std::vector<BYTE>& value,
                              WORD valueLength, WORD type,
                              const std::vector<std::vector<BYTE>>& below = {}) {
    std::vector<BYTE> node(6);
    const auto pad = [&node] { node.resize((node.size() + 3) / 4 * 4); };
    for (const char16_t unit : name + u'\0') {
        node.push_back(static_cast<BYTE>(unit));
        node.push_back(static_cast<BYTE>(unit >> 8));
    }
    pad();
    node.insert(node.end(), value.begin(), value.end());
    for (const auto& child : below) {
        pad();
        node.insert(node.end(), child.begin(), child.end());
    }
    const WORD words[] = {static_cast<WORD>(node.size()), valueLength, type};
    std::memcpy(node.data(), words, sizeof words);
    return node;
}

std::vector<BYTE> VersionText(const std::u16string& name, const std::u16string& text) {
    std::vector<BYTE> value;
    for (const char16_t unit : text + u'\0') {
        value.push_back(static_cast<BYTE>(unit));
        value.push_back(static_cast<BYTE>(unit >> 8));
    }
    return VersionNode(name, value, static_cast<WORD>(text.size() + 1), 1);
}

std::vector<BYTE> VersionResource() {
    VS_FIXEDFILEINFO fixed{};
    fixed.dwSignature = static_cast<DWORD>(VS_FFI_SIGNATURE);
    fixed.dwProductVersionMS = 0x00070002;
    const auto* bytes = reinterpret_cast<const BYTE*>(&fixed);
    const auto table = VersionNode(
        u"040904E4", {}, 0, 1,
        {VersionText(u"CompanyName", u"Varnell\u2122"), VersionText(u"ProductVersion", u"7.2")});
    return VersionNode(u"VS_VERSION_INFO", {bytes, bytes + sizeof fixed}, sizeof fixed, 0,
                       {VersionNode(u"StringFileInfo", {}, 0, 1, {table}),
                        VersionNode(u"VarFileInfo", {}, 0, 1,
                                    {VersionNode(u"Translation", {9, 4, 0xE4, 4}, 4, 0)})});
}

class ModuleResources : public testing::Test {
 protected:
    ModuleResources() {
        const std::vector<std::u16string> texts = {u"Watermark", u"",
                                                   u"\u20ac 5 \u2013 caf\u00e9 \u0416", u"OK"};
        std::vector<BYTE> cut = StringBlock({u"first", u"second"});
        cut.pop_back();
        file.Add(CompiledFile::Id(6), CompiledFile::Id(kFirstString / 16 + 1), StringBlock(texts))
            .Add(CompiledFile::Id(6), CompiledFile::Id(kFirstString / 16 + 2), cut)
            .Add(CompiledFile::Id(16), CompiledFile::Id(1), VersionResource())
            .Add(CompiledFile::Text("TRC"), CompiledFile::Text("CURVE"), {10, 20, 30});
        held = std::make_unique<kv::ModuleResources>(&kFirstString, file.bytes.data(),
                                                     file.bytes.size());
    }

    std::string Load(UINT id, int size = 64) {
        char buffer[64];
        std::fill(std::begin(buffer), std::end(buffer), 'x');
        const int length = LoadStringA(nullptr, id, buffer, size);
        EXPECT_EQ(buffer[length], '\0');
        if (size < 64) {
            EXPECT_EQ(buffer[size], 'x');
        }
        return {buffer, static_cast<std::size_t>(length)};
    }

    CompiledFile file;
    std::unique_ptr<kv::ModuleResources> held;
};

TEST_F(ModuleResources, StringsAreDecodedTruncatedAndEmptyWhenMissing) {
    const struct {
        UINT id;
        int size;
        const char* text;
    } cases[] = {
        {0, 64, "Watermark"},
        {0, 10, "Watermark"},
        {0, 9, "Watermar"},
        {0, 1, ""},
        {2, 64, "\x80 5 \x96 caf\xe9 ?"},
        {3, 64, "OK"},
        {1, 64, ""},
        {4, 64, ""},
        {16, 64, "first"},
        {17, 64, ""},
        {32, 64, ""},
    };
    for (const auto& test : cases) EXPECT_EQ(Load(kFirstString + test.id, test.size), test.text);
    char buffer[] = "x";
    EXPECT_EQ(LoadStringA(nullptr, kFirstString, buffer, 0), 0);
    EXPECT_EQ(LoadStringA(nullptr, kFirstString, nullptr, 8), 0);
    EXPECT_EQ(buffer[0], 'x');
}

TEST_F(ModuleResources, ResourcesAreFoundLockedAndMeasured) {
    const HMODULE self = GetModuleHandleA(nullptr);
    const HRSRC resource = FindResourceA(self, "curve", "trc");
    ASSERT_NE(resource, nullptr);
    EXPECT_EQ(SizeofResource(self, resource), 3u);
    const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(self, resource)));
    EXPECT_EQ(bytes[2], 30);
}

TEST_F(ModuleResources, FailuresTellWhatIsMissing) {
    const auto failure = [](HMODULE module, LPCSTR name, LPCSTR type) {
        SetLastError(0);
        EXPECT_EQ(FindResourceA(module, name, type), nullptr);
        return GetLastError();
    };
    EXPECT_EQ(failure(nullptr, "CURVE", "NOSUCH"), ERROR_RESOURCE_TYPE_NOT_FOUND);
    EXPECT_EQ(failure(nullptr, "NOSUCH", "TRC"), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(failure(reinterpret_cast<HMODULE>(std::uintptr_t{0x123}), "CURVE", "TRC"),
              ERROR_RESOURCE_DATA_NOT_FOUND);
}

TEST_F(ModuleResources, TheVersionIsReadFromTheModulesFile) {
    char self[MAX_PATH];
    GetModuleFileNameA(nullptr, self, sizeof self);
    DWORD handle = 1;
    const DWORD size = GetFileVersionInfoSizeA(self, &handle);
    ASSERT_GT(size, VersionResource().size());
    EXPECT_EQ(handle, 0u);
    // A heap block of exactly that size: one byte too many would be an error of the sanitizer.
    std::vector<BYTE> block(size);
    ASSERT_TRUE(GetFileVersionInfoA(self, 0, size, block.data()));
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueA(block.data(), "\\", &value, &length));
    EXPECT_EQ(length, sizeof(VS_FIXEDFILEINFO));
    EXPECT_EQ(static_cast<VS_FIXEDFILEINFO*>(value)->dwProductVersionMS, 0x00070002u);
    ASSERT_TRUE(VerQueryValueA(block.data(), "\\VarFileInfo\\Translation", &value, &length));
    EXPECT_EQ(length, 4u);
    EXPECT_EQ(static_cast<BYTE*>(value)[2], 0xE4);
    const char* const texts[][2] = {{"CompanyName", "Varnell\x99"}, {"productversion", "7.2"}};
    for (const auto& [name, text] : texts) {
        const std::string path = std::string("\\StringFileInfo\\040904e4\\") + name;
        ASSERT_TRUE(VerQueryValueA(block.data(), path.c_str(), &value, &length)) << name;
        EXPECT_STREQ(static_cast<char*>(value), text);
        EXPECT_EQ(length, std::strlen(text) + 1);
    }
    EXPECT_FALSE(VerQueryValueA(block.data(), "\\StringFileInfo\\04090000", &value, &length));
    EXPECT_EQ(length, 0u);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_TYPE_NOT_FOUND);
    // What fits of a copy that is cut short can be read, and nothing behind it.
    for (DWORD room = 8; room < size; room += 4) {
        std::vector<BYTE> part(room);
        ASSERT_TRUE(GetFileVersionInfoA(self, 0, room, part.data()));
        const std::string path = "\\StringFileInfo\\040904E4\\CompanyName";
        EXPECT_FALSE(VerQueryValueA(part.data(), path.c_str(), &value, &length)) << room;
    }
    EXPECT_EQ(GetFileVersionInfoSizeA("/nowhere/KVUIMOD.DLL", nullptr), 0u);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    held.reset();
    EXPECT_EQ(GetFileVersionInfoSizeA(self, nullptr), 0u);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_DATA_NOT_FOUND);
}

TEST_F(ModuleResources, AForeignOrStaleHandleIsRefused) {
    const HRSRC resource = FindResourceA(nullptr, "CURVE", "TRC");
    ASSERT_NE(resource, nullptr);
    const auto address = reinterpret_cast<std::uintptr_t>(resource);
    for (const auto wrong : {address + 1, std::uintptr_t{8}, ~std::uintptr_t{0}}) {
        EXPECT_EQ(LoadResource(nullptr, reinterpret_cast<HRSRC>(wrong)), nullptr);
    }
    held.reset();
    EXPECT_EQ(SizeofResource(nullptr, resource), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Load(kFirstString), "");
}

}  // namespace
