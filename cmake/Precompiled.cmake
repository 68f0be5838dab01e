# vm_precompiled(name HEADERS header... LINK library... DEFINE macro...): a precompiled header that targets of the same options share.
# vm_precompile(target name): lets a target use it. A release of the headers, not of the rules: nothing may rely on it,
# so every file goes on naming what it includes (VM_PRECOMPILED=OFF builds without).
option(VM_PRECOMPILED "Precompiled headers of the library, Qt and GoogleTest" ON)

function(vm_precompiled name)
    cmake_parse_arguments(P "" "" "HEADERS;LINK;DEFINE" ${ARGN})
    if(NOT VM_PRECOMPILED)
        return()
    endif()
    set(empty ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp)
    file(CONFIGURE OUTPUT ${empty} CONTENT "// nothing: ${name} is a precompiled header\n" NEWLINE_STYLE UNIX)
    add_library(${name} STATIC ${empty})
    target_link_libraries(${name} PRIVATE ${P_LINK})
    target_compile_definitions(${name} PRIVATE ${P_DEFINE})
    set_property(TARGET ${name} PROPERTY VM_DEFINE "${P_DEFINE}")
    target_precompile_headers(${name} PRIVATE ${P_HEADERS})
    # ccache: the header's own macros may differ as long as the compiler accepts it.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()

function(vm_precompile target name)
    if(TARGET ${name})
        target_precompile_headers(${target} REUSE_FROM ${name})
        get_property(define TARGET ${name} PROPERTY VM_DEFINE)   # the compiler insists on the same ones
        target_compile_definitions(${target} PRIVATE ${define})
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endif()
endfunction()
