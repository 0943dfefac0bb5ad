// CreateProcessA: starts a program and goes on. The program is adopted by the system; what the
// handles name is only its number.
#include <winbase.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include <platform/shell/errors.h>
#include <platform/shell/kernel_objects.h>
#include <platform/shell/paths.h>

extern char** environ;

namespace kv {

namespace {

struct ProcessObject : KernelObject {
    explicit ProcessObject(pid_t number) : pid(number) {}
    const pid_t pid;
};

struct Started {
    int error = 0;
    pid_t pid = 0;
};

// Arguments are separated by blanks and held together by quotation marks. Backslashes stand for
// themselves, save before a mark: two make one, and one more makes the mark part of the text.
std::vector<std::string> SplitCommandLine(const std::string& line) {
    std::vector<std::string> words;
    bool quoted = false;
    bool inWord = false;
    for (std::size_t i = 0; i < line.size();) {
        const std::size_t end = std::min(line.find_first_not_of('\\', i), line.size());
        const std::size_t slashes = end - i;
        const bool mark = end < line.size() && line[end] == '"';
        if (!inWord && (slashes > 0 || (line[i] != ' ' && line[i] != '\t'))) {
            inWord = true;
            words.emplace_back();
        }
        if (slashes > 0) {
            words.back().append(mark ? slashes / 2 : slashes, '\\');
            i = end;
            if (!mark) continue;
            if (slashes % 2 != 0) {
                words.back() += '"';
                ++i;
                continue;
            }
        }
        const char character = line[i++];
        if (character == '"') {
            quoted = !quoted;
        } else if (!quoted && (character == ' ' || character == '\t')) {
            inWord = false;
        } else {
            words.back() += character;
        }
    }
    return words;
}

std::string FullPath(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? resolved : path;
}

bool IsFile(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

// A name without a folder is looked for beside the program, in the current folder, in the
// platform's own folders and in those of PATH; ".exe" may be left out.
std::string FindProgram(const std::string& name) {
    std::vector<std::string> folders = {""};
    if (name.find('/') == std::string::npos) {
        char self[4096];
        const ssize_t length = readlink("/proc/self/exe", self, sizeof self);
        if (length > 0) folders[0] = FolderOf(std::string(self, static_cast<std::size_t>(length)));
        folders.insert(folders.end(), {".", SystemDirectory(), WindowsDirectory()});
        const char* variable = std::getenv("PATH");
        std::string path = variable ? variable : "";
        for (std::size_t at = 0; at < path.size();) {
            const std::size_t end = std::min(path.find(':', at), path.size());
            folders.push_back(path.substr(at, end - at));
            at = end + 1;
        }
    }
    const bool hasExtension = BaseName(name).find('.') != std::string_view::npos;
    for (const std::string& folder : folders) {
        const std::string path = folder.empty() ? name : folder + "/" + name;
        if (IsFile(path)) return path;
        if (!hasExtension && IsFile(path + ".exe")) return path + ".exe";
    }
    return {};
}

// Without an application name the command line begins with it. Unquoted it may hold blanks: the
// shortest beginning that is a program is taken.
std::string ProgramOf(const std::string& commandLine, std::vector<std::string>& words) {
    if (words.empty()) return {};
    if (commandLine.find('"') == commandLine.find_first_not_of(" \t")) {
        return FindProgram(NativePath(words[0].c_str()));
    }
    for (std::size_t end = 0; end < commandLine.size();) {
        end = std::min(commandLine.find(' ', end + 1), commandLine.size());
        const std::string found = FindProgram(NativePath(commandLine.substr(0, end).c_str()));
        if (found.empty()) continue;
        words = SplitCommandLine(commandLine.substr(end));
        words.insert(words.begin(), commandLine.substr(0, end));
        return found;
    }
    return {};
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// Runs in the grandchild, which shares nothing but the report with this program: its output may be
// data.
[[noreturn]] void Become(const std::string& program, char* const* arguments, char* const* variables,
                         const char* folder, int report) {
    setsid();
    const int null = open("/dev/null", O_RDWR);
    for (int fd = 0; null >= 0 && fd <= 2; ++fd) dup2(null, fd);
    Started started{0, getpid()};
    ssize_t ignored = write(report, &started, sizeof started);
    if (!folder || chdir(folder) == 0) execve(program.c_str(), arguments, variables);
    started.error = errno;
    ignored = write(report, &started, sizeof started);
    _exit(ignored > 0 ? 127 : 126);
}

Started Start(const std::string& program, char* const* arguments, char* const* variables,
              const char* folder) {
    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0) return {errno, 0};
    const pid_t child = fork();
    if (child == 0) {
        const pid_t grandchild = fork();
        if (grandchild == 0) Become(program, arguments, variables, folder, report[1]);
        _exit(grandchild < 0 ? 1 : 0);
    }
    const int error = errno;
    close(report[1]);
    int status = 0;
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    // The second report comes only when the program could not be started.
    Started started{child < 0 ? error : EAGAIN, 0};
    Started read_;
    for (;;) {
        const ssize_t got = read(report[0], &read_, sizeof read_);
        if (got < 0 && errno == EINTR) continue;
        if (got != static_cast<ssize_t>(sizeof read_)) break;
        started = read_;
    }
    close(report[0]);
    return started;
}

BOOL Refuse(DWORD error) {
    SetLastError(error);
    return FALSE;
}

}  // namespace

}  // namespace kv

BOOL CreateProcessA(LPCSTR application, LPSTR commandLine, SECURITY_ATTRIBUTES*,
                    SECURITY_ATTRIBUTES*, BOOL, DWORD, LPVOID environment, LPCSTR directory,
                    STARTUPINFOA* startup, PROCESS_INFORMATION* information) {
    if ((!application && !commandLine) || !startup || !information) {
        return kv::Refuse(ERROR_INVALID_PARAMETER);
    }
    *information = {};
    const std::string line = commandLine ? commandLine : application;
    std::vector<std::string> words = kv::SplitCommandLine(line);
    // Absolute, since the program may start in another folder.
    const std::string program =
        kv::FullPath(application ? kv::NativePath(application) : kv::ProgramOf(line, words));
    if (program.empty()) return kv::Refuse(ERROR_FILE_NOT_FOUND);
    if (application && !kv::IsFile(program)) {
        return kv::Refuse(
            kv::ErrorFromErrno(access(program.c_str(), F_OK) == 0 ? EACCES : errno, program));
    }
    const std::string folder = kv::NativePath(directory);
    struct stat info;
    if (directory && (stat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode))) {
        return kv::Refuse(ERROR_DIRECTORY);
    }
    std::vector<std::string> variables;
    for (const char* at = static_cast<const char*>(environment); at && *at;) {
        variables.emplace_back(at);
        at += variables.back().size() + 1;
    }
    if (!commandLine || words.empty()) words = {program};
    const std::vector<char*> arguments = kv::Pointers(words);
    const std::vector<char*> block = kv::Pointers(variables);
    const kv::Started started =
        kv::Start(program, arguments.data(), environment ? block.data() : environ,
                  directory ? folder.c_str() : nullptr);
    if (started.error != 0) {
        return kv::Refuse(started.error == ENOEXEC ? ERROR_BAD_EXE_FORMAT
                                                   : kv::ErrorFromErrno(started.error, program));
    }
    const auto handle = [&] {
        return reinterpret_cast<HANDLE>(
            kv::KernelObjects().Add(std::make_shared<kv::ProcessObject>(started.pid)));
    };
    information->hProcess = handle();
    information->hThread = handle();
    information->dwProcessId = static_cast<DWORD>(started.pid);
    information->dwThreadId = static_cast<DWORD>(started.pid);
    return TRUE;
}
