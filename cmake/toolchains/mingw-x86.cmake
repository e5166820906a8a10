set(TELVAR_TRIPLE i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
# The old coprocessor's 80 bits give 5199.9998 Hz for 5.2 kHz. Windows calls back with a stack aligned to 4 bytes only,
# while SSE spills need 16.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
foreach(kind MODULE SHARED)
    # The .def names are undecorated on purpose.
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static -Wl,--enable-stdcall-fixup")
endforeach()
