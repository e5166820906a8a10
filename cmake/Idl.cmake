# Interface definitions: each Name.idl becomes <build>/idl/Name.h and <build>/idl/Name.tlb, with Wine's widl.
# An IDL that imports another one of ours waits for it. Link telvar_idl to include the generated headers.
if(NOT WIN32)
    return()
endif()

set(TELVAR_IDL_DIR ${CMAKE_CURRENT_BINARY_DIR}/idl)
file(MAKE_DIRECTORY ${TELVAR_IDL_DIR})
file(GLOB idls CONFIGURE_DEPENDS
    ${CMAKE_CURRENT_SOURCE_DIR}/src/com/*/*.idl ${CMAKE_CURRENT_SOURCE_DIR}/tests/support/server/*.idl)

find_program(TELVAR_WIDL NAMES widl widl-stable REQUIRED)
set(widl_flags)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # With -m32 widl no longer finds the standard type library by itself.
    set(widl_flags -m32 -L/usr/lib/x86_64-linux-gnu/wine/x86_64-windows)
endif()

set(known)
set(folders)
foreach(idl IN LISTS idls)
    get_filename_component(name ${idl} NAME_WE)
    get_filename_component(folder ${idl} DIRECTORY)
    list(APPEND known ${name})
    list(APPEND folders -I${folder})
endforeach()

set(outputs)
foreach(idl IN LISTS idls)
    get_filename_component(name ${idl} NAME_WE)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${idl})
    file(READ ${idl} text)
    set(imported)
    foreach(other IN LISTS known)
        if(NOT other STREQUAL name AND text MATCHES "\"${other}\\.(idl|tlb)\"")
            list(APPEND imported ${TELVAR_IDL_DIR}/${other}.tlb)
            foreach(source IN LISTS idls)
                if(source MATCHES "/${other}\\.idl$")
                    list(APPEND imported ${source})
                endif()
            endforeach()
        endif()
    endforeach()
    set(both ${TELVAR_IDL_DIR}/${name}.h ${TELVAR_IDL_DIR}/${name}.tlb)
    add_custom_command(OUTPUT ${both}
        COMMAND ${TELVAR_WIDL} -h -o ${name}.h ${folders} ${idl}
        COMMAND ${TELVAR_WIDL} ${widl_flags} -L${TELVAR_IDL_DIR} -t -o ${name}.tlb ${folders} ${idl}
        DEPENDS ${idl} ${imported}
        WORKING_DIRECTORY ${TELVAR_IDL_DIR}
        COMMENT "Type library ${name}" VERBATIM)
    list(APPEND outputs ${both})
endforeach()

add_custom_target(telvar_idl_files DEPENDS ${outputs})
add_library(telvar_idl INTERFACE)
target_include_directories(telvar_idl SYSTEM INTERFACE ${TELVAR_IDL_DIR})
add_dependencies(telvar_idl telvar_idl_files)
