# tests/<folder>/*.cpp become test_<folder>: natively for portable folders, under Wine for those that are built for Windows
# only; a folder with two implementations is tested on both, together with tests/<folder>/posix or windows.
# tests/windows/<area>/*.cpp become test_windows_<area>. tests/support/*.cpp are what they share, with tests/support/windows
# under Wine; tests/support/server is the helper COM server TestHelper.dll. One executable is one test of ctest; the single tests inside it are counted from the
# report that it writes into <build>/results.
option(TELVAR_TESTS "Build the tests" ON)
if(NOT TELVAR_TESTS)
    return()
endif()

set(TELVAR_TESTED_ON_BOTH os)

set(INSTALL_GTEST OFF)
set(gtest_force_shared_crt ON)
# Built from the system's sources, with this build's flags.
add_subdirectory(/usr/src/googletest ${CMAKE_CURRENT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)

set(tests ${CMAKE_CURRENT_SOURCE_DIR}/tests)
set(results ${CMAKE_CURRENT_BINARY_DIR}/results)
file(MAKE_DIRECTORY ${results})

file(GLOB support CONFIGURE_DEPENDS ${tests}/support/*.cpp ${tests}/support/${platform}/*.cpp)
if(support)
    add_library(telvar_test_support STATIC ${support})
    set(scope PUBLIC)
else()
    add_library(telvar_test_support INTERFACE)
    set(scope INTERFACE)
endif()
target_include_directories(telvar_test_support ${scope} ${tests})
target_link_libraries(telvar_test_support ${scope} telvar_flags gtest gmock)
# A test of a portable folder links that folder and what the support needs, so that it does not wait for the others.
foreach(folder IN ITEMS os editing)
    telvar_target(${folder} library)
    target_link_libraries(telvar_test_support ${scope} ${library})
endforeach()
# Where the sources and this build's programs lie, as the tested system names paths. A header and no definition on the
# command line, since the compiler cache could not share objects between build folders otherwise.
if(WIN32)
    set(drive "Z:")
    target_link_libraries(telvar_test_support ${scope} telvar_idl)
endif()
file(CONFIGURE OUTPUT generated/support/build_paths.h CONTENT [[
#pragma once

#define TELVAR_SOURCE_DIR "@drive@@CMAKE_CURRENT_SOURCE_DIR@"
#define TELVAR_BIN_DIR "@drive@@CMAKE_CURRENT_BINARY_DIR@/bin"
]] @ONLY)
target_include_directories(telvar_test_support ${scope} ${CMAKE_CURRENT_BINARY_DIR}/generated)
# For tests and benchmarks that reach across folders.
add_library(telvar_all INTERFACE)
foreach(folder IN LISTS TELVAR_FOLDERS)
    telvar_target(${folder} library)
    if(TARGET ${library} AND TELVAR_KIND_${folder} STREQUAL "LIBRARY")
        target_link_libraries(telvar_all INTERFACE ${library})
    endif()
endforeach()

set(TELVAR_PRODUCTS)
foreach(folder IN LISTS TELVAR_FOLDERS)
    if(NOT TELVAR_KIND_${folder} STREQUAL "LIBRARY")
        get_filename_component(product ${TELVAR_NAME_${folder}} NAME_WE)
        if(TARGET ${product})
            list(APPEND TELVAR_PRODUCTS ${product})
        endif()
    endif()
endforeach()

function(telvar_test folder)
    file(GLOB sources CONFIGURE_DEPENDS ${tests}/${folder}/*.cpp ${tests}/${folder}/${platform}/*.cpp)
    if(NOT sources)
        return()
    endif()
    string(REPLACE "/" "_" name test_${folder})
    add_executable(${name} ${sources})
    telvar_target(${folder} library)
    if(TARGET ${library})
        target_link_libraries(${name} PRIVATE ${library})
    endif()
    if(NOT "${TELVAR_KIND_${folder}}" STREQUAL "LIBRARY")
        target_link_libraries(${name} PRIVATE telvar_all)
    endif()
    target_link_libraries(${name} PRIVATE telvar_test_support gmock_main)
    target_include_directories(${name} PRIVATE ${tests}/${folder})
    target_compile_options(${name} PRIVATE ${TELVAR_TEST_FLAGS})
    if(WIN32)
        # Not inlined, operator== of type_info is defined in the run-time library as well.
        target_link_options(${name} PRIVATE -Wl,--allow-multiple-definition)
    endif()
    # Tests of whole programs and servers run those of the same build.
    if(NOT "${TELVAR_KIND_${folder}}" STREQUAL "LIBRARY" AND NOT folder STREQUAL "tools" AND TELVAR_PRODUCTS)
        add_dependencies(${name} ${TELVAR_PRODUCTS})
    endif()
    set_property(GLOBAL APPEND_STRING PROPERTY TELVAR_TEST_LIST "${name} $<TARGET_FILE:${name}>\n")
    add_test(NAME ${name} COMMAND ${name} --gtest_output=xml:${results}/${name}.xml)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()

foreach(folder IN LISTS TELVAR_FOLDERS)
    if(NOT WIN32 OR TELVAR_WINDOWS_ONLY_${folder} OR folder IN_LIST TELVAR_TESTED_ON_BOTH)
        telvar_test(${folder})
    endif()
endforeach()

if(WIN32)
    set(windows_tests)
    file(GLOB areas CONFIGURE_DEPENDS LIST_DIRECTORIES true RELATIVE ${tests}/windows ${tests}/windows/*)
    foreach(area IN LISTS areas)
        telvar_test(windows/${area})
        if(TARGET test_windows_${area})
            list(APPEND windows_tests test_windows_${area})
            target_link_libraries(test_windows_${area} PRIVATE telvar_windows)
            if(TARGET telvar_win32)
                target_link_libraries(test_windows_${area} PRIVATE telvar_win32)
            endif()
            if(TARGET telvar_com_kit)
                target_link_libraries(test_windows_${area} PRIVATE telvar_com_kit)
            endif()
            if(area STREQUAL "host" AND TARGET telvar_host_shell)
                # The program's pieces are tested beside the program itself.
                target_link_libraries(test_windows_host PRIVATE telvar_host_shell telvar_walk)
                target_sources(test_windows_host PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/src/host/shell/TelvarHost.rc)
                target_include_directories(test_windows_host PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/src/host/shell)
            endif()
            if(TELVAR_TRIPLE STREQUAL "x86_64-w64-mingw32")
                # The system's own container for controls, which serves as the foreign one.
                target_link_libraries(test_windows_${area} PRIVATE atl)
            endif()
        endif()
    endforeach()
    file(GLOB helper CONFIGURE_DEPENDS ${tests}/support/server/*.cpp)
    if(helper)
        set(libraries telvar_flags telvar_windows telvar_idl)
        if(TARGET telvar_com_kit)
            list(APPEND libraries telvar_com_kit)
        endif()
        telvar_module(TestHelper TestHelper.dll FOLDER ${tests}/support/server SOURCES ${helper} LIBRARIES ${libraries})
        foreach(test IN LISTS windows_tests)
            add_dependencies(${test} TestHelper)
        endforeach()
    endif()
else()
    # Things that concern no folder of src, such as the build's own tools.
    telvar_test(tools)
endif()

# What tools/run_tests runs: a name and a program, one a line.
get_property(list GLOBAL PROPERTY TELVAR_TEST_LIST)
file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/tests.txt CONTENT "${list}")
