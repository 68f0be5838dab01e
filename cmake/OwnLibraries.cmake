# For packages: -DVM_LIBRARIES=FOLDER names a folder beside the program that holds Qt, its plugins and what else the
# program brings; both programs look there first, and Qt for its plugins there alone. Nothing of it depends on where the
# program lies.
set(VM_LIBRARIES "" CACHE STRING "Folder beside the program with its own Qt and libraries")

function(vm_own_libraries target)
    if(NOT VM_LIBRARIES)
        return()
    endif()
    # RPATH and not RUNPATH: it holds for the libraries of libraries and of plugins too.
    set_target_properties(${target} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN/${VM_LIBRARIES}")
    target_link_options(${target} PRIVATE -Wl,--disable-new-dtags)
    get_target_property(libraries ${target} LINK_LIBRARIES)
    if(app IN_LIST libraries)
        set(folder ${CMAKE_BINARY_DIR}/own)
        file(CONFIGURE OUTPUT ${folder}/qt.conf CONTENT "[Paths]\nPrefix = ${VM_LIBRARIES}\nPlugins = plugins\n")
        file(CONFIGURE OUTPUT ${folder}/own.qrc CONTENT
             "<RCC><qresource prefix=\"/qt/etc\"><file>qt.conf</file></qresource></RCC>\n")
        target_sources(${target} PRIVATE ${folder}/own.qrc)
        set_target_properties(${target} PROPERTIES AUTORCC ON AUTORCC_OPTIONS "--no-compress;--format-version;1")
    endif()
endfunction()
