// GetLogicalDrives, GetDriveTypeA and the letters that paths may begin with.
#include <platform/shell/drives.h>

#include <winbase.h>

#include <mntent.h>

#include <cstdio>
#include <cstring>
#include <vector>

#include <platform/shell/paths.h>

namespace kv {

namespace {

constexpr const char* kSystemMounts = "/proc/self/mounts";
constexpr char kFirstLetter = 'C';

struct FileSystem {
    const char* type;
    UINT drive;
};

// Columns: type of file system, type of drive. Others are parts of the one tree and get no letter.
constexpr FileSystem kFileSystems[] = {
    {"iso9660", DRIVE_CDROM},  {"udf", DRIVE_CDROM},       {"nfs", DRIVE_REMOTE},
    {"nfs4", DRIVE_REMOTE},    {"cifs", DRIVE_REMOTE},     {"smb3", DRIVE_REMOTE},
    {"vfat", DRIVE_REMOVABLE}, {"exfat", DRIVE_REMOVABLE},
};

struct Drive {
    std::string folder;
    UINT type;
};

std::string& MountTable() {
    static auto* table = new std::string(kSystemMounts);
    return *table;
}

// A partition that the system starts from is no medium, whatever its type.
bool IsMedium(const mntent& mount, UINT type) {
    return type != DRIVE_REMOVABLE || std::strncmp(mount.mnt_dir, "/boot", 5) != 0;
}

std::vector<Drive> ReadDrives() {
    std::vector<Drive> drives = {{"", DRIVE_FIXED}};
    FILE* table = setmntent(MountTable().c_str(), "r");
    if (!table) return drives;
    mntent mount;
    char texts[4096];
    while (getmntent_r(table, &mount, texts, sizeof texts)) {
        for (const FileSystem& known : kFileSystems) {
            if (std::strcmp(known.type, mount.mnt_type) != 0 || !IsMedium(mount, known.drive)) {
                continue;
            }
            if (kFirstLetter + drives.size() <= 'Z') drives.push_back({mount.mnt_dir, known.drive});
        }
    }
    endmntent(table);
    return drives;
}

std::size_t NumberOf(char letter) {
    const char upper = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
    return upper >= kFirstLetter && upper <= 'Z' ? static_cast<std::size_t>(upper - kFirstLetter)
                                                 : SIZE_MAX;
}

}  // namespace

bool FolderOfDrive(char letter, std::string& folder) {
    const std::size_t number = NumberOf(letter);
    if (number == 0) return folder.clear(), true;
    if (number == SIZE_MAX) return false;
    const std::vector<Drive> drives = ReadDrives();
    if (number >= drives.size()) return false;
    folder = drives[number].folder;
    return true;
}

void UseMountTable(const std::string& path) {
    MountTable() = path.empty() ? kSystemMounts : path;
}

}  // namespace kv

DWORD GetLogicalDrives() {
    const std::size_t count = kv::ReadDrives().size();
    return ((1u << count) - 1) << (kv::kFirstLetter - 'A');
}

// A root is a letter's, with its backslash, or the folder that something is mounted on.
UINT GetDriveTypeA(LPCSTR root) {
    if (!root) return DRIVE_FIXED;  // the drive of the current folder
    std::string native = kv::NativePath(root);
    if (native.empty() || native.back() != '/') return DRIVE_NO_ROOT_DIR;
    native.pop_back();
    for (const kv::Drive& drive : kv::ReadDrives()) {
        if (drive.folder == native) return drive.type;
    }
    return DRIVE_NO_ROOT_DIR;
}
