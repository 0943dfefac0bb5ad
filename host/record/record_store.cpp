// Record files: <state>/records/<printer name, escaped>.record; of a printer of the machine
// <state>/records/shared/<printer name, escaped>.record.
#include <host/record/record_check.h>
#include <host/record/record_store.h>

#include <fcntl.h>
#include <kvcore.h>
#include <platform/shell/errors.h>
#include <platform/shell/folder_lock.h>
#include <platform/shell/paths.h>
#include <platform/shell/state_directory.h>
#include <platform/shell/whole_file.h>
#include <sys/stat.h>
#include <unistd.h>

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

bool Tell(std::string& error, const std::string& path, int problem) {
    if (problem != 0) error = path + ": " + kv::ErrnoInWords(problem);
    return problem == 0;
}

std::string FreeAsideName(const std::string& path) {
    for (int n = 1; n < 1000; ++n) {
        const std::string aside = path + ".bad" + std::to_string(n);
        if (access(aside.c_str(), F_OK) != 0) return aside;
    }
    return path + ".bad";
}

enum class Reading { kWhole, kTooLarge, kMissing, kFailed };

// `flags` go to open() beside the usual ones.
Reading ReadFileAt(const std::string& path, int flags, size_t limit, std::string& bytes,
                   std::string& error) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | flags);
    if (file < 0) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        Tell(error, path, errno);
        return missing ? Reading::kMissing : Reading::kFailed;
    }
    bytes.resize(limit + 1);
    size_t size = 0;
    int problem = 0;
    while (size < bytes.size()) {
        const ssize_t got = read(file, bytes.data() + size, bytes.size() - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) problem = errno;
        if (got <= 0) break;
        size += static_cast<size_t>(got);
    }
    close(file);
    if (!Tell(error, path, problem)) return Reading::kFailed;
    bytes.resize(size);
    if (size <= limit) return Reading::kWhole;
    error = path + ": larger than " + std::to_string(limit) + " bytes";
    return Reading::kTooLarge;
}

}  // namespace

bool ReadWholeFile(const std::string& path, size_t limit, std::string& bytes, std::string& error) {
    return ReadFileAt(path, 0, limit, bytes, error) == Reading::kWhole;
}

bool WriteWholeFile(const std::string& path, const void* bytes, size_t size, std::string& error) {
    kv::WholeFile file(path, 0600);
    file.Write({static_cast<const char*>(bytes), size});
    return file.TakePlace() || Tell(error, path, file.Problem());
}

RecordStore::RecordStore(const std::string& printerName, kv::StatePlace place)
    : path_(kv::StateDirectory() + "/records/" +
            (place == kv::StatePlace::kMachine ? "shared/" : "") + EscapedName(printerName) +
            ".record") {}

RecordStore::Found RecordStore::Read(Record& record, std::string& problem) const {
    struct stat info {};
    if (stat(path_.c_str(), &info) == 0 && !S_ISREG(info.st_mode)) {
        problem = path_ + ": expected a file";
        return Found::kUnreadable;
    }
    std::string bytes;
    // A pipe that takes the place now must not be waited for.
    switch (ReadFileAt(path_, O_NONBLOCK, kRecordBytes, bytes, problem)) {
        case Reading::kMissing:
            problem.clear();
            return Found::kNothing;
        case Reading::kFailed:
            return Found::kUnreadable;
        case Reading::kTooLarge:
            return Found::kBad;
        case Reading::kWhole:
            break;
    }
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
    Found found = Read(record, error);
    if (found == Found::kBad) found = PutAside(record, warning, error);
    if (found == Found::kGood) return true;
    if (found == Found::kUnreadable) return false;
    return ReadDefaults(printer, record, error);
}

// Somebody else may have put it aside, and stored a good one, since it was read: that one is taken.
RecordStore::Found RecordStore::PutAside(Record& record, std::string& warning,
                                         std::string& problem) const {
    const kv::FolderLock lock(kv::FolderOf(path_));
    const Found found = Read(record, problem);
    if (found != Found::kBad) return found;
    const std::string aside = FreeAsideName(path_);
    const bool moved = lock.Problem() == 0 && rename(path_.c_str(), aside.c_str()) == 0;
    warning = "stored settings refused (" + problem + "); the printer's defaults are used" +
              (moved ? ", the old file is kept as " + aside : std::string());
    return found;
}

bool RecordStore::MakeFolder(std::string& error) const {
    const std::string folder = kv::FolderOf(path_);
    return kv::MakeFolders(folder) || Tell(error, folder, errno);
}

bool RecordStore::Store(const Record& record, std::string& error) {
    if (!MakeFolder(error)) return false;
    const kv::FolderLock lock(kv::FolderOf(path_));
    return Tell(error, kv::FolderOf(path_), lock.Problem()) &&
           WriteWholeFile(path_, record.data(), record.size(), error);
}

RecordStore::Outcome RecordStore::StoreUnlessChanged(const Record& expected, const Record& record,
                                                     Record& found, std::string& error) {
    if (!MakeFolder(error)) return Outcome::kFailed;
    const kv::FolderLock lock(kv::FolderOf(path_));
    if (!Tell(error, kv::FolderOf(path_), lock.Problem())) return Outcome::kFailed;
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
        case Found::kUnreadable:
            error = problem;
            return Outcome::kFailed;
        case Found::kNothing:
            break;
    }
    const bool stored = WriteWholeFile(path_, record.data(), record.size(), error);
    return stored ? Outcome::kStored : Outcome::kFailed;
}

}  // namespace kvhost
