// Profiles: sections, keys made of settings, and the search; and printer values of several numbers.
#include <framework/core/record_fields.h>

#include <array>

#include "tests/support/printer_fixture.h"

namespace kvtest {
namespace {

class Profiles : public PrinterTest {
 protected:
    void Describe(const std::string& text) {
        const std::string path = Write("profiles.ini", text);
        ASSERT_LT(path.size(), sizeof printer.descriptionPath);
        path.copy(printer.descriptionPath, path.size());
        printer.descriptionPath[path.size()] = '\0';
    }
    std::string Search(const char* key, DWORD size = 32) {
        char value[32] = "unset";
        const ProfileHandle profile = QDMFindProfileSection(&printer, 2, "gain");
        return QDMProfileSearch(profile, 2, key, value, size) ? value : "none";
    }
};

TEST_F(Profiles, TheFirstRowThatFitsCounts) {
    Describe("[Gain]\n12, 2 = 14\n12,*=18\n*,*=20\n[Gain]\n12,2=99\n[Empty]\n");
    const std::pair<const char*, const char*> rows[] = {{"12,2", "14"},     {"12,3", "18"},
                                                        {"7,3", "20"},      {"12", "none"},
                                                        {"12,2,1", "none"}, {"", "none"}};
    for (const auto& [key, value] : rows) EXPECT_EQ(Search(key), value) << key;
    EXPECT_EQ(Search("12,2", 2), "none") << "a value is never cut";
    EXPECT_EQ(QDMFindProfileSection(&printer, 2, "Nowhere"), nullptr);
    EXPECT_EQ(QDMFindProfileSection(&printer, 2, "Resolutions"), nullptr);
    EXPECT_EQ(QDMProfileSearch(nullptr, 2, "12,2", nullptr, 0), 0);
}

TEST_F(Profiles, KeysAreMadeOfTheRecordsFields) {
    std::array<BYTE, kvcore::kRecordSize> record{};
    ASSERT_TRUE(QDMGetStdDefaults(&printer, record.data(), nullptr));
    auto& head = *reinterpret_cast<DEVMODEA*>(record.data());
    head.dmPrintQuality = -4;
    char key[32] = "unset";
    EXPECT_TRUE(QDMCreateProfileKey(&printer, 2, "Dither, dmprintquality,MediaType", record.data(),
                                    key, sizeof key));
    EXPECT_STREQ(key, "12,-4,1");
    EXPECT_FALSE(
        QDMCreateProfileKey(&printer, 2, "Dither,Nothing", record.data(), key, sizeof key));
    EXPECT_FALSE(QDMCreateProfileKey(&printer, 2, "Dither", record.data(), key, 2));
    head.dmSize = 0xFFFF;
    EXPECT_TRUE(QDMCreateProfileKey(&printer, 2, "Dither", record.data(), key, sizeof key));
    EXPECT_STREQ(key, "") << "nothing is read beyond the record";
}

TEST_F(Profiles, BinaryPrinterDataAreNumbers) {
    ASSERT_EQ(Put("DitherList7", REG_BINARY, BytesOf(std::array<DWORD, 3>{15, 8, 4})), 0u);
    DWORD numbers[3] = {};
    EXPECT_TRUE(QDMGetPrinterKeyValue(&printer, 2, "DitherList7", 0, numbers, sizeof numbers));
    EXPECT_THAT(numbers, testing::ElementsAre(15u, 8u, 4u));
    EXPECT_FALSE(QDMGetPrinterKeyValue(&printer, 2, "DitherList7", 0, numbers, 8));
}

}  // namespace
}  // namespace kvtest
