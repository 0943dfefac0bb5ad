// The shell's "open" verb and the help viewer: both hand a target to the desktop's opener.
#include <platform/shell/opener.h>

#include <htmlhelp.h>
#include <shellapi.h>
#include <winbase.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include <platform/shell/paths.h>

namespace kv {

namespace {

constexpr INT_PTR kShellFileNotFound = 2;
constexpr INT_PTR kShellNoAssociation = 31;
constexpr INT_PTR kShellDone = 42;

// The grandchild: detached from this program's terminal and output, which may be data.
[[noreturn]] void BecomeOpener(const char* program, const char* target, int report) {
    setsid();
    const int null = open("/dev/null", O_RDWR);
    if (null >= 0) {
        for (int fd = 0; fd <= 2; ++fd) dup2(null, fd);
    }
    char* const arguments[] = {const_cast<char*>(program), const_cast<char*>(target), nullptr};
    execvp(program, arguments);
    const char failed = 1;
    const ssize_t ignored = write(report, &failed, 1);
    _exit(ignored == 1 ? 127 : 126);
}

std::string FullPath(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? resolved : path;
}

bool IsFile(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

HINSTANCE ShellResult(INT_PTR code) {
    return reinterpret_cast<HINSTANCE>(code);
}

// "DIR/BOOK.chm::/html/1101.htm" is the page html/1101.htm of the folder DIR/BOOK; without a topic it
// is the page that lists all others.
std::string TopicFile(const std::string& target) {
    const std::size_t colons = target.find("::");
    std::string book = target.substr(0, colons);
    std::string topic =
        colons != std::string::npos ? target.substr(colons + 2) : "/html/index.htm";
    topic = topic.substr(0, topic.find('>'));  // ">window" names a viewer window
    constexpr std::string_view kExtension = ".chm";
    if (book.size() <= kExtension.size() || topic.empty()) return {};
    const std::size_t stem = book.size() - kExtension.size();
    if (!EqualsIgnoringCase(std::string_view(book).substr(stem), kExtension)) return {};
    book.resize(stem);
    // A topic lies inside its book.
    if ((topic + "/").find("../") != std::string::npos) return {};
    return book + (topic[0] == '/' ? "" : "/") + topic;
}

}  // namespace

bool IsWebAddress(const std::string& text) {
    std::size_t length = 0;
    const auto isSchemeCharacter = [&](char c) {
        const char folded = FoldCase(c);
        if (folded >= 'a' && folded <= 'z') return true;
        return length > 0 && ((c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.');
    };
    while (length < text.size() && isSchemeCharacter(text[length])) ++length;
    return length > 1 && length < text.size() && text[length] == ':';
}

OpenResult OpenOnDesktop(const std::string& target) {
    const char* named = std::getenv("KVPREFS_OPENER");
    const std::string program = named && *named ? named : "xdg-open";
    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0) return OpenResult::kNoProgram;
    const pid_t child = fork();
    if (child == 0) {
        // A child of a child is adopted and reaped by the system, not by us.
        const pid_t opener = fork();
        if (opener == 0) BecomeOpener(program.c_str(), target.c_str(), report[1]);
        _exit(opener < 0 ? 1 : 0);
    }
    close(report[1]);
    int status = -1;
    if (child > 0) {
        while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
        }
    }
    // The pipe closes unread when the program starts, and brings a byte when it cannot.
    char failed = 0;
    ssize_t got;
    while ((got = read(report[0], &failed, 1)) < 0 && errno == EINTR) {
    }
    close(report[0]);
    return status == 0 && got == 0 ? OpenResult::kStarted : OpenResult::kNoProgram;
}

}  // namespace kv

// Values above 32 mean success. Programs are never run, only documents opened: the parameters and
// the folder have no use then.
HINSTANCE ShellExecuteA(HWND, LPCSTR verb, LPCSTR file, LPCSTR, LPCSTR directory, INT) {
    if (verb && *verb && !kv::EqualsIgnoringCase(verb, "open")) {
        return kv::ShellResult(kv::kShellNoAssociation);
    }
    std::string target = file ? file : "";
    if (!kv::IsWebAddress(target)) {
        target = kv::NativePath(file);
        if (directory && *directory && !target.empty() && target[0] != '/') {
            target = kv::NativePath(directory) + "/" + target;
        }
        if (target.empty() || access(target.c_str(), F_OK) != 0) {
            SetLastError(ERROR_FILE_NOT_FOUND);
            return kv::ShellResult(kv::kShellFileNotFound);
        }
        target = kv::FullPath(target);  // absolute, so that no name reads as an option
    }
    const bool started = kv::OpenOnDesktop(target) == kv::OpenResult::kStarted;
    if (!started) SetLastError(ERROR_FILE_NOT_FOUND);
    return kv::ShellResult(started ? kv::kShellDone : kv::kShellNoAssociation);
}

// The viewer is the user's browser, which has no window of ours: the caller's window is answered,
// or a value that is no window when there is no caller.
HWND HtmlHelpA(HWND caller, LPCSTR file, UINT command, DWORD_PTR data) {
    std::string target = kv::NativePath(file);
    if (command == HH_HELP_CONTEXT) {
        char topic[48];
        std::snprintf(topic, sizeof topic, "::/html/%lu.htm", static_cast<unsigned long>(data));
        target = target.substr(0, target.find("::")) + topic;
    } else if (command == HH_DISPLAY_TOPIC && data && target.find("::") == std::string::npos) {
        target += "::/" + kv::NativePath(reinterpret_cast<LPCSTR>(data));
    }
    const std::string page = kv::TopicFile(target);
    if (page.empty() || !kv::IsFile(page)) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return nullptr;
    }
    if (kv::OpenOnDesktop(kv::FullPath(page)) != kv::OpenResult::kStarted) return nullptr;
    return caller ? caller : reinterpret_cast<HWND>(INT_PTR{1});
}
