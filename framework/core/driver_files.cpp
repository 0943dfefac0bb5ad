// See driver_files.h.
#include "driver_files.h"

#include <fcntl.h>
#include <framework/spool/driver_folder.h>
#include <platform/security/access.h>
#include <platform/shell/errors.h>
#include <platform/shell/folder_lock.h>
#include <platform/shell/paths.h>
#include <platform/shell/whole_file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "description.h"
#include "rules_takeover.h"

namespace kvcore {
namespace {

namespace fs = std::filesystem;

constexpr const char* kHelpSource = "help";
constexpr const char* kHelpFileValue = "HelpFile";

fs::path DriverPath(kv::StatePlace place, const char* file) {
    return kv::NativePath(kvspool::DriverFile(place, file).c_str());
}

bool ReadText(const fs::path& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    text.assign(std::istreambuf_iterator<char>(file), {});
    return file.is_open() && !file.bad();
}

// What stands in a place, without waiting for a pipe. Missing and empty files can be restored.
enum class Standing { kGood, kMissing, kEmpty, kUnusable };

Standing Look(const fs::path& path, std::string& problem) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        const bool missing = errno == ENOENT;
        problem = path.string() + ": " + (missing ? "is missing" : kv::ErrnoInWords(errno));
        return missing ? Standing::kMissing : Standing::kUnusable;
    }
    if (!S_ISREG(status.st_mode)) {
        problem = path.string() + (S_ISDIR(status.st_mode) ? ": is a folder" : ": is no file") +
                  ", expected a file of the driver";
        return Standing::kUnusable;
    }
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        problem = path.string() + ": " + kv::ErrnoInWords(errno);
        return Standing::kUnusable;
    }
    close(file);
    if (status.st_size > 0) return Standing::kGood;
    problem = path.string() + ": is empty";
    return Standing::kEmpty;
}

kv::StatePlace PlaceOf(const fs::path& path) {
    const bool shared = kv::IsInMachineState(path.string());
    return shared ? kv::StatePlace::kMachine : kv::StatePlace::kPerson;
}

std::string Refusal(const fs::path& path, int problem) {
    const std::string text = path.string() + ": " + kv::ErrnoInWords(problem);
    const bool rights = problem == EACCES || problem == EPERM;
    const bool shared = PlaceOf(path) == kv::StatePlace::kMachine;
    return text + (rights && shared ? kv::WhoAdministers() : "");
}

bool Put(const fs::path& path, const std::string& text, std::string& error) {
    const mode_t mode = kv::NewFileMode(PlaceOf(path));
    kv::WholeFile file(path.string(), mode);
    file.Write(text);
    // Whatever the writer's mask says of what others may read.
    if (PlaceOf(path) == kv::StatePlace::kMachine) {
        file.TakeRightsOf(static_cast<uid_t>(-1), static_cast<gid_t>(-1), mode);
    }
    if (file.TakePlace()) return true;
    error = Refusal(path, file.Problem());
    return false;
}

// Under the first free one of the names ".old1", ".old2", ...
bool KeepOld(const fs::path& path, const std::string& text, std::string& kept, std::string& error) {
    constexpr int kMostKept = 1000;
    for (int n = 1; n < kMostKept; ++n) {
        kept = path.string() + ".old" + std::to_string(n);
        if (!fs::exists(kept)) return Put(kept, text, error);
    }
    error = path.string() + ": too many old files are kept beside it";
    return false;
}

std::string InBrackets(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "[" : ", [") + name + "]";
    return text;
}

// Puts what is new in the place of a file, which is kept when somebody may miss it.
void Replace(const fs::path& path, const std::string& old, const std::string& fresh,
             const std::string& how, DriverFiles& files) {
    std::string kept;
    if (!old.empty() && !KeepOld(path, old, kept, files.error)) return;
    if (!Put(path, fresh, files.error)) return;
    if (!old.empty()) {
        files.done.push_back(path.string() + ": " + how + "; the old file is kept as " + kept);
    }
}

void TakeOverFile(const fs::path& models, kv::StatePlace place, const char* name,
                  DriverFiles& files) {
    const fs::path path = DriverPath(place, name);
    std::string model, installed, problem;
    if (!ReadText(models / name, model)) {
        files.error = (models / name).string() + ": cannot be read";
        return;
    }
    const Standing standing = Look(path, problem);
    if (standing == Standing::kUnusable ||
        (standing == Standing::kGood && !ReadText(path, installed))) {
        files.error = problem.empty() ? path.string() + ": cannot be read" : problem;
        return;
    }
    if (installed == model) return;
    if (standing == Standing::kEmpty) files.done.push_back(problem + "; restored");
    const bool isRules = std::string_view(name) == kvspool::kRulesFile;
    if (!isRules || installed.empty()) {
        Replace(path, installed, model, "replaced by the model's newer file", files);
        return;
    }
    const TakenRules taken = TakeOverRules(installed, model);
    if (taken.changed.empty()) return;
    Replace(path, installed, taken.text,
            "took over " + InBrackets(taken.changed) + " from the model" +
                (taken.kept.empty() ? "" : ", kept what users stored in " + InBrackets(taken.kept)),
            files);
}

// Help pages lie in a folder named like the help file without its extension. A model may come
// without. New ones are many and can be had again: they are not worth a synchronisation each.
void CopyHelpPage(const fs::path& from, const fs::path& to, DriverFiles& files) {
    std::string page, installed;
    if (!ReadText(from, page) || (ReadText(to, installed) && installed == page)) return;
    std::error_code failed;
    if (fs::exists(to)) {
        Put(to, page, files.error);
    } else if (fs::copy_file(from, to, failed)) {
        chmod(to.c_str(), kv::NewFileMode(PlaceOf(to)));
    } else {
        files.error = Refusal(to, failed.value());
    }
}

void CopyHelp(const fs::path& models, kv::StatePlace place, DriverFiles& files) {
    const auto description = LoadDescription((models / kvspool::kDescriptionFile).string());
    const std::string* file = description->FindPrinterValue(kHelpFileValue);
    const fs::path source = models / kHelpSource;
    if (file == nullptr || !fs::is_directory(source)) return;
    const fs::path folder = DriverPath(place, fs::path(*file).stem().c_str());
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        const fs::path target = folder / entry.path().lexically_relative(source);
        if (!files.error.empty()) return;
        if (!kv::MakeFolders(target.parent_path().string())) {
            files.error = Refusal(target.parent_path(), errno);
        } else if (entry.is_regular_file()) {
            CopyHelpPage(entry.path(), target, files);
        }
    }
}

}  // namespace

DriverFiles TakeOverModel(const std::string& modelsDir, kv::StatePlace place) {
    DriverFiles files;
    const fs::path folder = DriverPath(place, "").parent_path();
    if (!kv::MakeFolders(folder.string())) {
        files.error = Refusal(folder, errno);
        return files;
    }
    const kv::FolderLock lock(folder.string());
    if (lock.Problem() != 0) {
        files.error = Refusal(folder, lock.Problem());
        return files;
    }
    for (const char* name : {kvspool::kDescriptionFile, kvspool::kRulesFile}) {
        if (files.error.empty()) TakeOverFile(modelsDir, place, name, files);
    }
    if (files.error.empty()) CopyHelp(modelsDir, place, files);
    return files;
}

DriverFiles RestoreDriverFiles(const std::string& modelsDir) {
    DriverFiles files;
    for (const char* name : {kvspool::kDescriptionFile, kvspool::kRulesFile}) {
        const fs::path path = DriverPath(kv::PlaceInForce(), name);
        std::string problem, model;
        const Standing standing = Look(path, problem);
        if (standing == Standing::kGood) continue;
        const bool isRules = std::string_view(name) == kvspool::kRulesFile;
        if (standing == Standing::kUnusable) {
            // Without rules settings can still be read; who opens pages asks for the problem.
            if (!isRules) files.error = problem;
            continue;
        }
        if (!ReadText(fs::path(modelsDir) / name, model) || !Put(path, model, files.error)) {
            files.error = problem + (files.error.empty() ? "" : "; " + files.error);
            continue;
        }
        files.done.push_back(problem + "; restored from the model's");
    }
    return files;
}

std::string RulesFilePath() {
    return DriverPath(kv::PlaceInForce(), kvspool::kRulesFile).string();
}

std::string RulesFileProblem() {
    std::string problem;
    return Look(RulesFilePath(), problem) == Standing::kGood ? std::string() : problem;
}

}  // namespace kvcore
