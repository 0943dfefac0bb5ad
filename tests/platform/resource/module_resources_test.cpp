// The resource functions on the resources of a module: this test program registers its own.
#include <gtest/gtest.h>
#include <platform/resource/register.h>
#include <windows.h>

#include <memory>

#include "compiled_file.h"

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

class ModuleResources : public testing::Test {
 protected:
    ModuleResources() {
        const std::vector<std::u16string> texts = {u"Watermark", u"",
                                                   u"\u20ac 5 \u2013 caf\u00e9 \u0416", u"OK"};
        std::vector<BYTE> cut = StringBlock({u"first", u"second"});
        cut.pop_back();
        file.Add(CompiledFile::Id(6), CompiledFile::Id(kFirstString / 16 + 1), StringBlock(texts))
            .Add(CompiledFile::Id(6), CompiledFile::Id(kFirstString / 16 + 2), cut)
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
