// NAME.window beside NAME.record: {"page": "DLGTAB1", "x": 200, "y": 100}.
#include <host/window/window_place.h>

#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

constexpr size_t kLargestFile = 1000;
constexpr LONG kFarthest = 100000;

std::string PathBeside(const RecordStore& store) {
    return store.path().substr(0, store.path().find_last_of('.')) + ".window";
}

std::optional<LONG> NumberIn(const nlohmann::json& object, const char* name) {
    const auto found = object.find(name);
    if (found == object.end() || !found->is_number_integer()) return std::nullopt;
    const auto value = found->get<long long>();
    if (value < -kFarthest || value > kFarthest) return std::nullopt;
    return static_cast<LONG>(value);
}

}  // namespace

WindowPlace ReadWindowPlace(const RecordStore& store) {
    WindowPlace place;
    std::string text, error;
    if (!ReadWholeFile(PathBeside(store), kLargestFile, text, error)) return place;
    const auto object = nlohmann::json::parse(text, nullptr, false);
    if (!object.is_object()) return place;
    const auto page = object.find("page");
    if (page != object.end() && page->is_string()) place.page = page->get<std::string>();
    const auto x = NumberIn(object, "x");
    const auto y = NumberIn(object, "y");
    if (x && y) place.corner = POINT{*x, *y};
    return place;
}

void KeepWindowPlace(const RecordStore& store, const WindowPlace& place) {
    nlohmann::ordered_json object = {{"page", place.page}};
    if (place.corner) {
        object["x"] = place.corner->x;
        object["y"] = place.corner->y;
    }
    const std::string text = object.dump() + "\n";
    std::string before, error;
    const std::string path = PathBeside(store);
    if (ReadWholeFile(path, kLargestFile, before, error) && before == text) return;
    if (store.MakeFolder(error)) WriteWholeFile(path, text.data(), text.size(), error);
}

}  // namespace kvhost
