# Language level, warnings, sanitizers and the macros that Windows headers read, as the interface library telvar_flags.
set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
# MinGW hides half of its C library from strictly conforming programs; -Wpedantic still refuses extensions of the language.
set(CMAKE_CXX_EXTENSIONS ${WIN32})
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(TELVAR_SANITIZE "Address and undefined-behaviour sanitizers; any finding ends the program" OFF)

add_library(telvar_flags INTERFACE)
target_include_directories(telvar_flags INTERFACE ${CMAKE_CURRENT_SOURCE_DIR}/src)
# A designated initialiser that names some members is meant to leave the others at their defaults.
target_compile_options(telvar_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wno-missing-field-initializers -Wold-style-cast -Wduplicated-cond -Wlogical-op -Wcast-qual -Wunused -Werror)

if(TELVAR_SANITIZE)
    # Everything in the program, test framework included, is compiled alike.
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

# What is tested is instrumented and optimised, the tests themselves are not: they are most of the code to compile.
set(TELVAR_TEST_FLAGS -O0 -g1)
if(TELVAR_SANITIZE)
    list(APPEND TELVAR_TEST_FLAGS -fno-sanitize=all)
endif()

find_package(Threads REQUIRED)
target_link_libraries(telvar_flags INTERFACE Threads::Threads)
target_compile_definitions(telvar_flags INTERFACE ASIO_STANDALONE ASIO_NO_DEPRECATED)

if(WIN32)
    # The linker keeps one of several copies of an inline function. This compiler takes the copy before its eyes for that one and
    # lets a caller rely on the registers that it leaves alone; the copy that is kept may have been compiled otherwise, and uses them.
    add_compile_options(-fno-ipa-ra)

    # Windows 7 and later.
    target_compile_definitions(telvar_flags INTERFACE
        UNICODE _UNICODE _WIN32_WINNT=0x0601 WINVER=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)
    # The header-only libraries are the machine's own. Its whole /usr/include would bring another C library's headers along.
    set(borrowed ${CMAKE_CURRENT_BINARY_DIR}/include)
    file(MAKE_DIRECTORY ${borrowed})
    foreach(name asio asio.hpp CLI rapidjson)
        file(CREATE_LINK /usr/include/${name} ${borrowed}/${name} SYMBOLIC)
    endforeach()
    target_include_directories(telvar_flags SYSTEM INTERFACE ${borrowed})

    # Import libraries only: what a binary does not call, it does not import.
    add_library(telvar_windows INTERFACE)
    target_link_libraries(telvar_windows INTERFACE
        comctl32 comdlg32 gdi32 user32 imm32 oleacc shell32 shlwapi advapi32 bcrypt msimg32 version ws2_32 ole32 oleaut32 uuid)
endif()
