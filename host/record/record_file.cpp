// Following links, replacing files and writing through to whatever else a name means.
#include <host/record/record_check.h>
#include <host/record/record_file.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace kvhost {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;
constexpr const char* kStandardInput = "standard input";
constexpr const char* kStandardOutput = "standard output";

bool Fail(const std::string& name, std::string& error) {
    error = name + ": " + std::strerror(errno);
    return false;
}

// One byte more than a record has, so that a longer file is told from a whole one.
bool ReadStandardInput(std::string& bytes, std::string& error) {
    char part[kRecordBytes];
    while (bytes.size() <= kRecordBytes) {
        const ssize_t got = read(STDIN_FILENO, part, sizeof part);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return Fail(kStandardInput, error);
        if (got == 0) return true;
        bytes.append(part, static_cast<size_t>(got));
    }
    error =
        std::string(kStandardInput) + ": larger than " + std::to_string(kRecordBytes) + " bytes";
    return false;
}

bool WriteThrough(int file, const std::string& name, const void* bytes, size_t size,
                  std::string& error) {
    std::signal(SIGPIPE, SIG_IGN);  // a reader that has gone is an error like any other
    for (size_t written = 0; written < size;) {
        const ssize_t put = write(file, static_cast<const char*>(bytes) + written, size - written);
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return Fail(name, error);
        written += static_cast<size_t>(put);
    }
    return true;
}

// The file that a name means in the end, which need not exist yet.
fs::path BehindLinks(fs::path path) {
    std::error_code none;
    for (int links = 0; links < kMostLinks && fs::is_symlink(path, none); ++links) {
        const fs::path target = fs::read_symlink(path, none);
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

}  // namespace

bool ReadRecordFrom(const std::string& file, Record& record, std::string& error) {
    std::string bytes;
    const bool isStandard = file == "-";
    const bool read = isStandard ? ReadStandardInput(bytes, error)
                                 : ReadWholeFile(file, kRecordBytes, bytes, error);
    if (!read) return false;
    const std::string problem =
        CheckRecord(reinterpret_cast<const BYTE*>(bytes.data()), bytes.size());
    if (!problem.empty()) {
        error = (isStandard ? kStandardInput : file) + (" is no settings record: " + problem);
        return false;
    }
    std::memcpy(record.data(), bytes.data(), kRecordBytes);
    return true;
}

bool WriteRecordTo(const std::string& file, const Record& record, std::string& error) {
    return WriteBytesTo(file, record.data(), record.size(), error);
}

bool WriteBytesTo(const std::string& file, const void* bytes, size_t size, std::string& error) {
    if (file == "-") return WriteThrough(STDOUT_FILENO, kStandardOutput, bytes, size, error);
    struct stat status {};
    const bool exists = stat(file.c_str(), &status) == 0;
    if (!exists || S_ISREG(status.st_mode)) {
        const std::string target = BehindLinks(file).string();
        if (!WriteWholeFile(target, bytes, size, error)) return false;
        return !exists || chmod(target.c_str(), status.st_mode & 07777) == 0 || Fail(file, error);
    }
    const int device = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    if (device < 0) return Fail(file, error);
    const bool written = WriteThrough(device, file, bytes, size, error);
    return (close(device) == 0 || Fail(file, error)) && written;
}

}  // namespace kvhost
