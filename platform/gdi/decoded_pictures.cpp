// Keeping decoded pictures of resources, the least recently used leave first.
#include <platform/gdi/decoded_pictures.h>
#include <platform/gdi/dib.h>
#include <platform/resource/registry_of_files.h>

#include <algorithm>
#include <map>
#include <utility>

namespace kv {
namespace {

// The pictures of a page with its preview take less than half of it.
constexpr std::size_t kMostBytes = 2u << 20;

struct Kept {
    std::unique_ptr<Bitmap> picture;
    unsigned long lastUse = 0;
};

std::size_t SizeOf(const Bitmap& picture) {
    return std::size_t{4} * static_cast<std::size_t>(picture.view.width) *
           static_cast<std::size_t>(picture.view.height);
}

using Resource = std::pair<HINSTANCE, WORD>;

class Pictures {
 public:
    Bitmap* Find(const Resource& resource) {
        // Another module may stand where an unloaded one stood.
        const unsigned now = RegistryGeneration();
        if (std::exchange(generation_, now) != now) {
            pictures_.clear();
            bytes_ = 0;
        }
        const auto found = pictures_.find(resource);
        if (found == pictures_.end()) return nullptr;
        found->second.lastUse = ++uses_;
        return found->second.picture.get();
    }

    void Keep(const Resource& resource, Bitmap& picture) {
        const std::size_t size = SizeOf(picture);
        if (size > kMostBytes) return;
        while (bytes_ + size > kMostBytes) DropOldest();
        pictures_[resource] = {ShareBitmap(picture), ++uses_};
        bytes_ += size;
    }

 private:
    void DropOldest() {
        const auto oldest = std::min_element(
            pictures_.begin(), pictures_.end(),
            [](const auto& a, const auto& b) { return a.second.lastUse < b.second.lastUse; });
        bytes_ -= SizeOf(*oldest->second.picture);
        pictures_.erase(oldest);
    }

    std::map<Resource, Kept> pictures_;
    std::size_t bytes_ = 0;
    unsigned long uses_ = 0;
    unsigned generation_ = 0;
};

}  // namespace

std::unique_ptr<Bitmap> DecodePicture(HINSTANCE module, LPCSTR name) {
    const std::span<const BYTE> bytes = ResourceBytes(module, name, RT_BITMAP);
    return !bytes.empty() ? DecodeDib(bytes) : nullptr;
}

std::unique_ptr<Bitmap> DecodedPicture(HINSTANCE module, WORD id) {
    static Pictures pictures;
    if (Bitmap* kept = pictures.Find({module, id})) return ShareBitmap(*kept);
    auto picture = DecodePicture(module, MAKEINTRESOURCEA(id));
    if (picture) pictures.Keep({module, id}, *picture);
    return picture;
}

}  // namespace kv
