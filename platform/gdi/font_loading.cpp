// Loads the font library when the first text is drawn: programs that draw none start without it and
// without what it needs.
#include <platform/fonts/font_library.h>

#include <dlfcn.h>

#include <string>

namespace kv {
namespace {

constexpr char kLibraryFile[] = "libkvfonts.so";

const FontLibrary* Load() {
    // It lies beside the platform library, which this address is in.
    Dl_info info;
    if (dladdr(reinterpret_cast<const void*>(&LoadedFontLibrary), &info) == 0) return nullptr;
    const std::string own = info.dli_fname;
    const std::size_t slash = own.rfind('/');
    const std::string path = (slash == own.npos ? "" : own.substr(0, slash + 1)) + kLibraryFile;
    void* loaded = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!loaded) return nullptr;
    const auto library = reinterpret_cast<FontLibraryFunction>(dlsym(loaded, kFontLibraryName));
    return library ? library() : nullptr;
}

}  // namespace

const FontLibrary* LoadedFontLibrary() {
    static const FontLibrary* library = Load();
    return library;
}

}  // namespace kv
