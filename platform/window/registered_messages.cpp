// RegisterWindowMessageA: one number per name for the life of the program.
#include <windows.h>

#include <platform/shell/paths.h>

#include <string>
#include <unordered_map>

namespace {

constexpr UINT kFirst = 0xC000;
constexpr UINT kLast = 0xFFFF;

}  // namespace

UINT WINAPI RegisterWindowMessageA(LPCSTR name) {
    static auto* numbers = new std::unordered_map<std::string, UINT>;
    if (!name || !*name) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const UINT next = kFirst + static_cast<UINT>(numbers->size());
    const auto [place, added] = numbers->try_emplace(kv::LowerCase(name), next);
    if (next <= kLast || !added) return place->second;
    numbers->erase(place);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return 0;
}
