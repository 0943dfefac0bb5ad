// The table behind file and token handles, the two handles that stand for the caller itself, and
// CloseHandle.
#include <platform/shell/kernel_objects.h>

#include <winbase.h>

namespace kv {

HandleTable<KernelObject, HandleSpace::kKernel>& KernelObjects() {
    static auto* table = new HandleTable<KernelObject, HandleSpace::kKernel>;
    return *table;
}

void SetInvalidHandleError() {
    SetLastError(ERROR_INVALID_HANDLE);
}

}  // namespace kv

HANDLE GetCurrentThread() {
    return reinterpret_cast<HANDLE>(INT_PTR{-2});
}

HANDLE GetCurrentProcess() {
    return reinterpret_cast<HANDLE>(INT_PTR{-1});
}

BOOL CloseHandle(HANDLE object) {
    if (object == GetCurrentProcess() || object == GetCurrentThread()) return TRUE;
    if (kv::KernelObjects().Remove(reinterpret_cast<std::uintptr_t>(object))) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}
