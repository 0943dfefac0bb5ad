// What every test program, and every program that it starts, finds around it: a desktop whose numbers
// have a comma (no number may be written or read in the way of whoever's locale it is), and a machine
// without shared printers.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

namespace {

constexpr const char* kLocale = "de_DE.UTF-8";  // built beside the tests, not the machine's own

class DecimalComma : public testing::Environment {
    void SetUp() override {
        ASSERT_NE(std::setlocale(LC_NUMERIC, kLocale), nullptr) << "no locale in " << KV_LOCALES;
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    }
};

// Before the main function, which may already look at the locale.
const bool used = [] {
    // The variable for everything comes before that for numbers; the one for the rest comes last.
    if (const char* all = std::getenv("LC_ALL")) setenv("LANG", all, 1);
    unsetenv("LC_ALL");
    setenv("LOCPATH", KV_LOCALES, 1);
    setenv("LC_NUMERIC", kLocale, 1);
    setenv("KVPREFS_SYSTEM", "/nonexistent", 1);
    testing::AddGlobalTestEnvironment(new DecimalComma);
    return true;
}();

}  // namespace
