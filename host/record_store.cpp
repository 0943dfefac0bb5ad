// Record files: <state>/records/<printer name, escaped>.record.
#include <host/record_check.h>
#include <host/record_store.h>

#include <fcntl.h>
#include <kvcore.h>
#include <platform/registry/state_directory.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <winbase.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace kvhost {
namespace {

// A printer's name may hold any character; a file name may not.
std::string EscapedName(const std::string& name) {
    std::string escaped;
    for (const unsigned char c : name) {
        const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                           (c >= 'a' && c <= 'z') || c == '-' || c == '_';
        char text[4];
        std::snprintf(text, sizeof text, plain ? "%c" : "%%%02X", c);
        escaped += text;
    }
    return escaped;
}

std::string SystemMessage(const std::string& path) {
    return path + ": " + std::strerror(errno);
}

std::string FreeAsideName(const std::string& path) {
    for (int n = 1; n < 1000; ++n) {
        const std::string aside = path + ".bad" + std::to_string(n);
        if (access(aside.c_str(), F_OK) != 0) return aside;
    }
    return path + ".bad";
}

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.find_last_of('/'));
}

// While it is held nobody else stores records. A lock on the folder leaves no file behind.
class FolderLock {
 public:
    FolderLock(const std::string& folder, std::string& error)
        : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        constexpr int kAttempts = 1000;  // five seconds
        constexpr DWORD kPause = 5;
        for (int attempt = 0; folder_ >= 0 && attempt < kAttempts; ++attempt) {
            held_ = flock(folder_, LOCK_EX | LOCK_NB) == 0;
            if (held_) return;
            if (errno != EWOULDBLOCK && errno != EINTR) break;
            Sleep(kPause);
        }
        error = SystemMessage(folder);
    }
    ~FolderLock() {
        if (folder_ >= 0) close(folder_);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    bool IsHeld() const { return held_; }

 private:
    int folder_;
    bool held_ = false;
};

}  // namespace

bool ReadWholeFile(const std::string& path, size_t limit, std::string& bytes, std::string& error) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        error = SystemMessage(path);
        return false;
    }
    bytes.resize(limit + 1);
    size_t size = 0;
    while (size < bytes.size()) {
        const ssize_t got = read(file, bytes.data() + size, bytes.size() - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            error = SystemMessage(path);
            close(file);
            return false;
        }
        if (got == 0) break;
        size += static_cast<size_t>(got);
    }
    close(file);
    if (size > limit) {
        error = path + ": larger than " + std::to_string(limit) + " bytes";
        return false;
    }
    bytes.resize(size);
    return true;
}

bool WriteWholeFile(const std::string& path, const void* bytes, size_t size, std::string& error) {
    const std::string temporary = path + ".new" + std::to_string(getpid());
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0) {
        error = SystemMessage(path);
        return false;
    }
    size_t written = 0;
    bool good = true;
    while (good && written < size) {
        const ssize_t put = write(file, static_cast<const char*>(bytes) + written, size - written);
        if (put < 0 && errno == EINTR) continue;
        good = put > 0;
        if (good) written += static_cast<size_t>(put);
    }
    good = good && fsync(file) == 0;
    if (!good) error = SystemMessage(path);
    close(file);
    if (good && rename(temporary.c_str(), path.c_str()) != 0) {
        error = SystemMessage(path);
        good = false;
    }
    if (!good) {
        unlink(temporary.c_str());
        return false;
    }
    // The new name is durable only when its folder is.
    const int directory = open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory >= 0) {
        fsync(directory);
        close(directory);
    }
    return true;
}

RecordStore::RecordStore(const std::string& printerName)
    : path_(kv::StateDirectory() + "/records/" + EscapedName(printerName) + ".record") {}

RecordStore::Found RecordStore::Read(Record& record, std::string& problem) const {
    if (access(path_.c_str(), F_OK) != 0) return Found::kNothing;
    std::string bytes;
    if (!ReadWholeFile(path_, kRecordBytes, bytes, problem)) return Found::kBad;
    problem = CheckRecord(reinterpret_cast<const BYTE*>(bytes.data()), bytes.size());
    if (!problem.empty()) return Found::kBad;
    std::memcpy(record.data(), bytes.data(), kRecordBytes);
    return Found::kGood;
}

bool RecordStore::ReadDefaults(PrinterBlock& printer, Record& record, std::string& error) {
    if (QDMGetStdDefaults(&printer, record.data(), nullptr) != 0) return true;
    error = std::string("no default settings for printer \"") + printer.printerName + "\"";
    return false;
}

bool RecordStore::Load(PrinterBlock& printer, Record& record, std::string& warning,
                       std::string& error) {
    std::string problem;
    const Found found = Read(record, problem);
    if (found == Found::kGood) return true;
    if (found == Found::kBad) {
        const std::string aside = FreeAsideName(path_);
        const bool moved = rename(path_.c_str(), aside.c_str()) == 0;
        warning = "stored settings refused (" + problem + "); the printer's defaults are used" +
                  (moved ? ", the old file is kept as " + aside : std::string());
    }
    return ReadDefaults(printer, record, error);
}

bool RecordStore::MakeFolder(std::string& error) const {
    const std::string folder = FolderOf(path_);
    if (mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST) return true;
    error = SystemMessage(folder);
    return false;
}

bool RecordStore::Store(const Record& record, std::string& error) {
    if (!MakeFolder(error)) return false;
    const FolderLock lock(FolderOf(path_), error);
    return lock.IsHeld() && WriteWholeFile(path_, record.data(), record.size(), error);
}

RecordStore::Outcome RecordStore::StoreUnlessChanged(const Record& expected, const Record& record,
                                                     Record& found, std::string& error) {
    if (!MakeFolder(error)) return Outcome::kFailed;
    const FolderLock lock(FolderOf(path_), error);
    if (!lock.IsHeld()) return Outcome::kFailed;
    std::string problem;
    switch (Read(found, problem)) {
        case Found::kGood:
            if (found == record) return Outcome::kStored;
            if (found != expected) return Outcome::kChangedMeanwhile;
            break;
        case Found::kBad:
            // Settings that nobody can use; kept for whoever wants to look at them.
            rename(path_.c_str(), FreeAsideName(path_).c_str());
            break;
        case Found::kNothing:
            break;
    }
    const bool stored = WriteWholeFile(path_, record.data(), record.size(), error);
    return stored ? Outcome::kStored : Outcome::kFailed;
}

}  // namespace kvhost
