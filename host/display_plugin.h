// The C interface of libkvdisplay-qt.so, the display that shows the windows on a desktop. `kvprefs
// open` loads the library at run time; nothing else knows of it.
#pragma once

#include <platform/display/display.h>

inline constexpr char kQtDisplayLibrary[] = "libkvdisplay-qt.so";
inline constexpr char kCreateQtDisplay[] = "KvCreateQtDisplay";
inline constexpr char kDestroyQtDisplay[] = "KvDestroyQtDisplay";

extern "C" {
// Connects to the desktop. Both `argc` and `argv` must outlive the display, options of the
// desktop's own are taken out of them. Null when there is no desktop; `error` then says why and
// stays valid. The caller hands the display to kv::UseDisplay, and takes it back before destroying
// it.
kv::Display* KvCreateQtDisplay(int* argc, char** argv, const char** error);
void KvDestroyQtDisplay(kv::Display* display);

using KvCreateQtDisplayFunction = kv::Display* (*)(int* argc, char** argv, const char** error);
using KvDestroyQtDisplayFunction = void (*)(kv::Display* display);
}
