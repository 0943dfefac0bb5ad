// The cache of printer descriptions and the lookups in one.
#include "description.h"

#include <platform/shell/paths.h>

#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <mutex>

#include "description_parser.h"

namespace kvcore {
namespace {

constexpr off_t kMaxFileSize = 1 << 20;

// What tells one state of a file from another.
struct Identity {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = -1;
    timespec changed{};

    bool operator==(const Identity& other) const {
        return device == other.device && inode == other.inode && size == other.size &&
               changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }
};

struct Cached {
    Identity identity;
    std::shared_ptr<const Description> description;
};

Identity IdentityOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

Description ReadDescription(const std::string& path, const Identity& identity) {
    Description none;
    if (identity.size < 0 || identity.size > kMaxFileSize) {
        none.problems.push_back(path + ": expected a printer description of at most 1 MB");
        return none;
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        none.problems.push_back(path + ": expected a file that can be read");
        return none;
    }
    const std::string text(std::istreambuf_iterator<char>(file), {});
    return ParseDescription(text, path);
}

constexpr LONG HundredthsToTenths(LONG hundredths) {
    return (hundredths * 254 + 50) / 100;
}

}  // namespace

LONG DescribedPaper::WidthTenths() const {
    return unit == PaperUnit::kInch ? HundredthsToTenths(width) : width;
}
LONG DescribedPaper::LengthTenths() const {
    return unit == PaperUnit::kInch ? HundredthsToTenths(length) : length;
}

const DescribedPaper* Description::FindPaper(LONG code) const {
    const auto found = std::find_if(papers.begin(), papers.end(), [&](const DescribedPaper& paper) {
        return paper.code == code;
    });
    return found == papers.end() ? nullptr : &*found;
}

const std::string* Description::FindPrinterValue(std::string_view name) const {
    for (const auto& [key, value] : printerValues) {
        if (kv::EqualsIgnoringCase(key, name)) return &value;
    }
    return nullptr;
}

const DescribedSection* Description::FindOtherSection(std::string_view name) const {
    for (const DescribedSection& section : otherSections) {
        if (kv::EqualsIgnoringCase(section.name, name)) return &section;
    }
    return nullptr;
}

std::shared_ptr<const Description> LoadDescription(const std::string& path) {
    static std::mutex lock;
    static std::map<std::string, Cached> cache;
    const Identity identity = IdentityOf(path);
    std::lock_guard guard(lock);
    Cached& cached = cache[path];
    if (!cached.description || !(cached.identity == identity)) {
        cached.description = std::make_shared<const Description>(ReadDescription(path, identity));
        cached.identity = identity;
    }
    return cached.description;
}

std::shared_ptr<const Description> DescriptionOf(const PrinterBlock& printer) {
    // A host's block may come from a record on disk: the path need not end in a zero.
    const std::string path(printer.descriptionPath,
                           strnlen(printer.descriptionPath, sizeof printer.descriptionPath));
    return LoadDescription(kv::NativePath(path.c_str()));
}

}  // namespace kvcore
