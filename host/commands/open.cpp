// kvprefs open: the window. The Qt display is loaded here and nowhere else.
#include <dlfcn.h>
#include <host/commands/commands.h>
#include <host/display_plugin.h>
#include <host/host_paths.h>
#include <host/window/printer_windows.h>

#include <cstdlib>

namespace kvhost {
namespace {

bool HasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && value[0] != '\0') return true;
    }
    return false;
}

// Null without the plugin, or when it lacks the function.
template <typename Function>
Function FunctionOf(void* plugin, const char* name) {
    return plugin != nullptr ? reinterpret_cast<Function>(dlsym(plugin, name)) : nullptr;
}

}  // namespace

ExitStatus RunOpen(const Options& options, const std::vector<std::string>& named, int argc,
                   char** argv) {
    if (!HasDisplay()) {
        PrintError("no display to open a window on; `kvprefs list`, `get` and `set` show and change "
                   "the same settings, `kvprefs shot DIR` draws the pages to files");
        return kRefused;
    }
    const std::string path = QtDisplayPath();
    void* plugin = path.empty() ? nullptr : dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    const auto create = FunctionOf<KvCreateQtDisplayFunction>(plugin, kCreateQtDisplay);
    const auto destroy = FunctionOf<KvDestroyQtDisplayFunction>(plugin, kDestroyQtDisplay);
    if (create == nullptr || destroy == nullptr) {
        const char* why = plugin == nullptr && !path.empty() ? dlerror() : nullptr;
        PrintError(std::string("the window needs the Qt display plugin (") + kQtDisplayLibrary +
                   ", in the package kvprefs-gui), which could not be loaded" +
                   (why != nullptr ? std::string(": ") + why : std::string()));
        return kRefused;
    }
    PrinterWindows windows;
    if (!windows.Prepare(options, named)) return kBadInput;
    const char* error = nullptr;
    kv::Display* display = create(&argc, argv, &error);
    if (display == nullptr) {
        PrintError(error != nullptr ? error : "the display could not be opened");
        return kRefused;
    }
    kv::UseDisplay(display);
    const ExitStatus status = windows.Run();
    kv::UseDisplay(nullptr);
    destroy(display);
    return status;
}

}  // namespace kvhost
