// The row loops for processors with 256-bit registers. This file alone is compiled for them:
// nothing in it may run before the processor was asked.
#include <platform/gdi/raster.h>

#ifdef __AVX2__
#include <platform/gdi/row_loops.h>

const kv::RowLoops* kv::WideLoops() {
    return __builtin_cpu_supports("avx2") ? &kLoops : nullptr;
}
#else
const kv::RowLoops* kv::WideLoops() {
    return nullptr;
}
#endif
