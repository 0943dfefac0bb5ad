// The table of graphics handles. A handle holds an index and a generation, so that a stale, foreign
// or made-up value finds nothing. Used by every file of this folder.
#pragma once

#include <windows.h>

#include <memory>

namespace kv {

enum class ObjectKind : std::uint8_t { kDc, kBitmap, kBrush, kPen, kFont, kRegion, kIcon };

struct GdiObject {
    explicit GdiObject(ObjectKind objectKind) : kind(objectKind) {}
    virtual ~GdiObject() = default;
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;

    const ObjectKind kind;
    bool permanent = false;  // stock objects
    int selections = 0;      // DCs that have it selected now
};

std::uintptr_t AddToTable(std::unique_ptr<GdiObject> object);
// Null, with ERROR_INVALID_HANDLE as last error, when the handle does not name a living object.
GdiObject* FindInTable(std::uintptr_t handle);
// Destroys the object; false when there is none.
bool RemoveFromTable(std::uintptr_t handle);
// Number of living objects, for leak checks.
int CountObjects();

template <typename Handle, typename Object>
Handle NewHandle(std::unique_ptr<Object> object) {
    return reinterpret_cast<Handle>(AddToTable(std::move(object)));
}

template <typename Object, typename Handle>
Object* ObjectOf(Handle handle) {
    GdiObject* object = FindInTable(reinterpret_cast<std::uintptr_t>(handle));
    if (object == nullptr) return nullptr;
    if (object->kind == Object::kKind) return static_cast<Object*>(object);
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

}  // namespace kv
