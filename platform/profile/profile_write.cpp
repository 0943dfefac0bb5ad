// The writing profile functions. A file is replaced whole, by renaming a finished copy over it, and
// under a lock on its folder, so that two programs cannot lose each other's keys.
#include <winbase.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>

#include <platform/profile/profile_cache.h>
#include <platform/profile/profile_edit.h>
#include <platform/shell/errors.h>
#include <platform/shell/folder_lock.h>
#include <platform/shell/paths.h>
#include <platform/shell/state_directory.h>
#include <platform/shell/whole_file.h>

namespace kv {

namespace {

// A link is followed to the file that it names: the rename must not replace the link.
std::string FinalPath(const std::string& path) {
    char resolved[PATH_MAX];
    if (realpath(path.c_str(), resolved)) return resolved;
    return path;
}

bool IsInStateDirectory(const std::string& path) {
    const std::string state = FinalPath(StateDirectory()) + "/";
    return FinalPath(FolderOf(path)).append("/").rfind(state, 0) == 0;
}

// `existing` gives mode and owner of the file to replace, null for a new one.
DWORD ReplaceFile(const std::string& path, const std::string& text, const struct stat* existing) {
    const mode_t newMode = IsInStateDirectory(path) ? 0600 : 0666;
    WholeFile file(path, existing ? 0600 : newMode);
    file.Write(text);
    if (existing) file.TakeRightsOf(existing->st_uid, existing->st_gid, existing->st_mode & 07777);
    return file.TakePlace() ? DWORD{ERROR_SUCCESS} : ErrorFromErrno(file.Problem(), path);
}

using Edit = std::function<std::string(const std::string&)>;

DWORD ChangeProfile(LPCSTR fileName, const Edit& edit) {
    const std::string path = FinalPath(ProfilePath(fileName));
    if (path.empty()) return ERROR_PATH_NOT_FOUND;
    const FolderLock lock(FolderOf(path));
    if (lock.Problem() == ENOENT) return ERROR_PATH_NOT_FOUND;
    if (lock.Problem() != 0) return ErrorFromErrno(lock.Problem());
    struct stat info;
    const bool exists = stat(path.c_str(), &info) == 0;
    std::string text;
    DWORD error = ERROR_SUCCESS;
    if (exists) {
        // Renaming would get around the file's own rights.
        const bool writable = S_ISREG(info.st_mode) && (info.st_mode & 0222) != 0 &&
                              faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
        if (!writable) return ERROR_ACCESS_DENIED;
        if (!ReadProfileText(path, text, error)) return error;
    }
    const std::string changed = edit(text);
    if (changed == text) return ERROR_SUCCESS;
    if (changed.size() > ProfileDocument::kLargestFile) return kErrorFileTooLarge;
    return ReplaceFile(path, changed, exists ? &info : nullptr);
}

bool IsOneLine(std::string_view text) {
    return text.find_first_of("\r\n") == text.npos;
}

// Names that could not be found again, and values that would not be one line, are refused: writing
// them would change the meaning of the rest of the file.
bool IsSectionName(std::string_view name) {
    return IsOneLine(name) && name.find(']') == name.npos && !TrimBlanks(name).empty();
}

bool IsKeyName(std::string_view name) {
    const std::string_view key = TrimBlanks(name);
    return IsOneLine(key) && !key.empty() && key[0] != ';' && key[0] != '[' &&
           key.find('=') == key.npos;
}

bool AreLines(LPCSTR block) {
    for (; *block; block += std::string_view(block).size() + 1) {
        if (!IsOneLine(block) || TrimBlanks(block).substr(0, 1) == "[") return false;
    }
    return true;
}

BOOL Answer(DWORD error) {
    SetLastError(error);
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}

}  // namespace

}  // namespace kv

// Without a section the call only drops what is cached, and answers FALSE as on the platform.
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR fileName) {
    if (!section) {
        kv::DropProfileCache();
        return kv::Answer(key || text ? DWORD{ERROR_INVALID_PARAMETER} : DWORD{ERROR_SUCCESS}) &&
               FALSE;
    }
    if (!key) return WritePrivateProfileSectionA(section, nullptr, fileName);
    if (!kv::IsSectionName(section) || !kv::IsKeyName(key) || (text && !kv::IsOneLine(text))) {
        return kv::Answer(ERROR_INVALID_PARAMETER);
    }
    const auto value = text ? std::optional<std::string_view>(text) : std::nullopt;
    return kv::Answer(kv::ChangeProfile(fileName, [&](const std::string& before) {
        return kv::EditProfileKey(before, section, key, value);
    }));
}

BOOL WritePrivateProfileSectionA(LPCSTR section, LPCSTR text, LPCSTR fileName) {
    if (!section || !kv::IsSectionName(section) || (text && !kv::AreLines(text))) {
        return kv::Answer(ERROR_INVALID_PARAMETER);
    }
    return kv::Answer(kv::ChangeProfile(fileName, [&](const std::string& before) {
        return kv::EditProfileSection(before, section, text);
    }));
}
