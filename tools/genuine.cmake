# Toolchain of the preset "genuine": the module alone, for its genuine platform. Nothing that it builds is
# run here.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(KV_CROSS x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER ${KV_CROSS}-g++)
set(CMAKE_C_COMPILER ${KV_CROSS}-gcc)
set(CMAKE_RC_COMPILER ${KV_CROSS}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${KV_CROSS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# The platform's libraries that the module calls. Not the spooler's: KVSPOOL stands before it.
set(CMAKE_CXX_STANDARD_LIBRARIES
    "-lcomctl32 -lcomdlg32 -lgdi32 -luser32 -lshell32 -ladvapi32 -lversion -lws2_32 -lhtmlhelp -lkernel32")
