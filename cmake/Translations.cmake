# vm_translations(target): Qt's own Chinese texts (standard buttons, file and print dialogs) as resources of the target.
function(vm_translations target)
    if(CMAKE_CROSSCOMPILING)   # the texts are the same on every system
        find_program(VM_QMAKE qmake6 REQUIRED)
        set(qmake ${VM_QMAKE})
    else()
        get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
    endif()
    execute_process(COMMAND ${qmake} -query QT_INSTALL_TRANSLATIONS OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(file ${folder}/qtbase_zh_CN.qm)
    if(NOT EXISTS ${file})
        message(FATAL_ERROR "${file} is missing: install the translations of Qt (Debian: qt6-translations-l10n)")
    endif()
    configure_file(${file} ${CMAKE_CURRENT_BINARY_DIR}/translations/qtbase_zh_CN.qm COPYONLY)
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/translations/translations.qrc
         "<RCC><qresource prefix=\"/translations\"><file>qtbase_zh_CN.qm</file></qresource></RCC>\n")
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/translations/translations.qrc)
endfunction()
