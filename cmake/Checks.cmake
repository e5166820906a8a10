# The target "check": formatting, layers, every header by itself, clang-tidy. Each check leaves a stamp, so that only what
# changed is looked at again. The native build checks the portable folders, the 64-bit Windows build the others.
set(stamps ${CMAKE_CURRENT_BINARY_DIR}/check)
set(root ${CMAKE_CURRENT_SOURCE_DIR})
add_custom_target(check)

function(telvar_stamp_name file result)
    file(RELATIVE_PATH name ${root} ${file})
    string(REPLACE "/" "." name ${name})
    set(${result} ${name} PARENT_SCOPE)
endfunction()

# ---- formatting and layers: once, in the native build
if(NOT WIN32)
    file(GLOB_RECURSE files CONFIGURE_DEPENDS
        ${root}/src/*.h ${root}/src/*.cpp ${root}/tests/*.h ${root}/tests/*.cpp ${root}/bench/*.h ${root}/bench/*.cpp)
    file(MAKE_DIRECTORY ${stamps}/format)
    set(outputs)
    foreach(file IN LISTS files)
        telvar_stamp_name(${file} name)
        add_custom_command(OUTPUT ${stamps}/format/${name}
            COMMAND clang-format-19 --dry-run -Werror --ferror-limit=3 ${file}
            COMMAND ${CMAKE_COMMAND} -E touch ${stamps}/format/${name}
            DEPENDS ${file} ${root}/.clang-format
            COMMENT "Format of ${file}" VERBATIM)
        list(APPEND outputs ${stamps}/format/${name})
    endforeach()
    add_custom_target(check_format DEPENDS ${outputs})

    file(GLOB_RECURSE texts CONFIGURE_DEPENDS ${root}/src/*.md)
    list(FILTER files INCLUDE REGEX "^${root}/src/")
    add_custom_command(OUTPUT ${stamps}/layers
        COMMAND ${root}/tools/check_layers
        COMMAND ${CMAKE_COMMAND} -E touch ${stamps}/layers
        DEPENDS ${files} ${texts} ${root}/tools/layers.txt ${root}/tools/check_layers
        COMMENT "Layers" VERBATIM)
    add_custom_target(check_layers DEPENDS ${stamps}/layers)
    add_dependencies(check check_format check_layers)
endif()

# The files of src, by suffix, that this build checks.
function(telvar_checked suffix result)
    set(found)
    foreach(folder IN LISTS TELVAR_FOLDERS)
        set(own)
        if(NOT WIN32 OR TELVAR_WINDOWS_ONLY_${folder})
            file(GLOB own CONFIGURE_DEPENDS ${root}/src/${folder}/*.${suffix})
        endif()
        file(GLOB platforms CONFIGURE_DEPENDS ${root}/src/${folder}/${platform}/*.${suffix})
        list(APPEND found ${own} ${platforms})
    endforeach()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# ---- every header alone
telvar_checked(h headers)
set(sources)
foreach(header IN LISTS headers)
    file(RELATIVE_PATH name ${root}/src ${header})
    set(source ${stamps}/headers/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@name@\"\n" @ONLY)
    list(APPEND sources ${source})
endforeach()
if(sources)
    add_library(check_headers OBJECT EXCLUDE_FROM_ALL ${sources})
    target_link_libraries(check_headers PRIVATE telvar_flags)
    target_compile_options(check_headers PRIVATE -O0 -g0 -fno-sanitize=all)
    if(WIN32)
        target_link_libraries(check_headers PRIVATE telvar_idl)
    endif()
    add_dependencies(check check_headers)
endif()

# ---- clang-tidy, without the compile database: GCC's warning flags mean nothing to it
set(flags -I${root}/src -DASIO_STANDALONE -DASIO_NO_DEPRECATED)
if(WIN32)
    list(APPEND flags --target=x86_64-w64-mingw32 -std=gnu++23 -DUNICODE -D_UNICODE -D_WIN32_WINNT=0x0601 -DWINVER=0x0601
        -DNOMINMAX -DWIN32_LEAN_AND_MEAN -nostdinc++ -isystem ${TELVAR_IDL_DIR} -isystem ${CMAKE_CURRENT_BINARY_DIR}/include)
    foreach(directory IN LISTS CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
        # The intrinsics are clang's own.
        if(NOT directory MATCHES "/include(-fixed)?$" OR directory MATCHES "mingw32/include$")
            list(APPEND flags -isystem ${directory})
        endif()
    endforeach()
else()
    list(APPEND flags -std=c++23)
endif()

telvar_checked(cpp sources)
file(MAKE_DIRECTORY ${stamps}/tidy)
set(outputs)
foreach(source IN LISTS sources)
    telvar_stamp_name(${source} name)
    set(stamp ${stamps}/tidy/${name})
    set(generated)
    if(WIN32)
        set(generated telvar_idl_files)
    endif()
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${root}/tools/tidy ${stamp} ${CMAKE_CXX_COMPILER} ${source} ${flags}
        DEPENDS ${source} ${root}/.clang-tidy ${root}/tools/tidy ${generated}
        DEPFILE ${stamp}.d
        COMMENT "Tidy ${source}" VERBATIM)
    list(APPEND outputs ${stamp})
endforeach()
add_custom_target(check_tidy DEPENDS ${outputs})
add_dependencies(check check_tidy)
