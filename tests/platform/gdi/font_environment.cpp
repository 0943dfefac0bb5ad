// Gives every test of this program the same font family, before any text is measured.
#include <test_paths.h>
#include <cstdlib>

namespace {
const int kFontsChosen = setenv("FONTCONFIG_FILE", KV_SOURCE_DIR "/tests/support/fonts.conf", 1);
}  // namespace
