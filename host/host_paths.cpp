// Paths relative to the running program.
#include <host/host_paths.h>

#include <limits.h>
#include <unistd.h>

namespace kvhost {

std::string ProgramDirectory() {
    char path[PATH_MAX];
    const ssize_t size = readlink("/proc/self/exe", path, sizeof path);
    if (size <= 0) return ".";
    const std::string program(path, static_cast<size_t>(size));
    return program.substr(0, program.find_last_of('/'));
}

std::string DataPath(const char* name) {
    const std::string program = ProgramDirectory();
    return program.substr(0, program.find_last_of('/')) + "/share/kvprefs/" + name;
}

std::string QtDisplayPath() {
    for (const char* folder : {"", "/../" KV_PRIVATE_LIBS}) {
        const std::string path = ProgramDirectory() + folder + "/libkvdisplay-qt.so";
        if (access(path.c_str(), R_OK) == 0) return path;
    }
    return {};
}

}  // namespace kvhost
