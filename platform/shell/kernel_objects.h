// The objects that CloseHandle closes: files and access tokens. The table is shared by
// platform/shell (files) and platform/security (tokens).
#pragma once

#include <windef.h>

#include <platform/shell/handle_table.h>

namespace kv {

struct KernelObject {
    virtual ~KernelObject() = default;
};

HandleTable<KernelObject, HandleSpace::kKernel>& KernelObjects();

// The object of this type behind a handle; null, with ERROR_INVALID_HANDLE as last error, when the
// handle names no living object or one of another type.
template <typename Object>
std::shared_ptr<Object> KernelObjectOf(HANDLE handle);

void SetInvalidHandleError();

template <typename Object>
std::shared_ptr<Object> KernelObjectOf(HANDLE handle) {
    auto found = KernelObjects().Find(reinterpret_cast<std::uintptr_t>(handle));
    auto object = std::dynamic_pointer_cast<Object>(found);
    if (!object) SetInvalidHandleError();
    return object;
}

}  // namespace kv
