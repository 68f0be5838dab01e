# vm_library(folder [QT module...] [USES library...])
#
# One static library from src/<folder>, named after it (a/b becomes a_b); its files are those of src/<folder>/sources.cmake,
# and a file of the folder that is not listed there ends the configuration.
# What USES names is linked and is all that an #include in the library may reach; layers.<name> checks it.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTORCC_OPTIONS --format-version 1)  # without the times of the files: one commit gives the same bytes
option(VM_QT "Build what needs Qt" ON)
option(VM_WARNINGS_ARE_ERRORS "A warning ends the build; the presets set it, a user's newer compiler may warn" OFF)
option(VM_SANITIZE "Address and undefined-behaviour sanitizers" OFF)

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()
find_package(Threads REQUIRED)
if(VM_QT)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets PrintSupport)
endif()

# Every digit must repeat on every machine: no fused multiply-add, no reassociation.
add_library(vm_flags INTERFACE)
target_include_directories(vm_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(vm_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow -Wno-sign-conversion
                       $<$<BOOL:${VM_WARNINGS_ARE_ERRORS}>:-Werror> -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Warnings of GCC 12 that optimised library code sets off by itself: "text" + string, a variant moved, a text
    # assigned.
    target_compile_options(vm_flags INTERFACE -Wno-restrict -Wno-maybe-uninitialized -Wno-stringop-overflow
                                              -Wno-array-bounds)
endif()
if(VM_SANITIZE)   # the libraries and the programs: tests/CMakeLists.txt takes the compile options away from its own code
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vm_flags INTERFACE -fsanitize=address,undefined)
endif()

include(Precompiled)
set(VM_STD_HEADERS <algorithm> <array> <charconv> <cmath> <cstdint> <filesystem> <fstream> <functional> <iostream> <map>
    <memory> <optional> <set> <span> <sstream> <string> <string_view> <variant> <vector>)
vm_precompiled(pch_std HEADERS ${VM_STD_HEADERS} LINK vm_flags)
if(VM_QT)
    vm_precompiled(pch_qt HEADERS ${VM_STD_HEADERS} <QtWidgets> LINK vm_flags Qt6::Widgets
                   DEFINE QT_PRINTSUPPORT_LIB QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
endif()

function(vm_library path)
    cmake_parse_arguments(L "" "" "QT;USES" ${ARGN})
    string(REPLACE / _ name ${path})
    set(folder ${CMAKE_SOURCE_DIR}/src/${path})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${folder}/sources.cmake)
    include(${folder}/sources.cmake)
    list(TRANSFORM sources PREPEND ${folder}/ OUTPUT_VARIABLE files)
    file(GLOB unlisted ${folder}/*.cpp ${folder}/*.h)
    list(REMOVE_ITEM unlisted ${files} ${folder}/main.cpp)
    if(unlisted)
        message(FATAL_ERROR "not listed in src/${path}/sources.cmake: ${unlisted}")
    endif()
    # What only one kind of system has is named after it.
    if(WIN32)
        list(FILTER files EXCLUDE REGEX "Posix\\.(cpp|h)$")
    else()
        list(FILTER files EXCLUDE REGEX "Windows\\.(cpp|h)$")
    endif()
    set(sources ${files})
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    if(sources)
        add_library(${name} STATIC ${files})
        set(scope PUBLIC)
        target_link_libraries(${name} PRIVATE vm_flags)
        target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    else()
        add_library(${name} INTERFACE)
        set(scope INTERFACE)
        target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR}/src)
    endif()
    target_link_libraries(${name} ${scope} ${L_USES})
    foreach(module ${L_QT})
        target_link_libraries(${name} ${scope} Qt6::${module})
    endforeach()
    if(L_QT AND sources)
        vm_precompile(${name} pch_qt)
    elseif(sources)
        vm_precompile(${name} pch_std)
    endif()
    if(L_QT AND sources)
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
        target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
        file(GLOB qrc CONFIGURE_DEPENDS ${folder}/*.qrc)
        target_sources(${name} PRIVATE ${qrc})
    endif()
    set_property(TARGET ${name} PROPERTY VM_FILES "${files}")
    set_property(TARGET ${name} PROPERTY VM_USES "${L_USES}")
    set_property(TARGET ${name} PROPERTY VM_QT "${L_QT}")
    set_property(GLOBAL APPEND PROPERTY VM_LIBRARIES ${name})
endfunction()

# layers.<name>: every quoted include of the library names a header of its own or of a library in USES, every library in
# USES has a header that is included; <Q...> needs QT.
function(vm_layer_tests)
    get_property(libraries GLOBAL PROPERTY VM_LIBRARIES)
    foreach(name ${libraries})
        get_property(files TARGET ${name} PROPERTY VM_FILES)
        get_property(uses TARGET ${name} PROPERTY VM_USES)
        get_property(qt TARGET ${name} PROPERTY VM_QT)
        set(plan "set(root ${CMAKE_SOURCE_DIR}/src)\nset(files ${files})\nset(uses ${uses})\nset(qt \"${qt}\")\n")
        foreach(used ${uses})
            get_property(headers TARGET ${used} PROPERTY VM_FILES)
            list(FILTER headers INCLUDE REGEX "\\.h$")
            string(APPEND plan "set(headers_of_${used} ${headers})\n")
        endforeach()
        file(WRITE ${CMAKE_BINARY_DIR}/layers/${name}.cmake "${plan}")
        add_test(NAME layers.${name} COMMAND ${CMAKE_COMMAND} -DPLAN=${CMAKE_BINARY_DIR}/layers/${name}.cmake
                                             -P ${CMAKE_SOURCE_DIR}/cmake/CheckLayers.cmake)
    endforeach()
endfunction()
