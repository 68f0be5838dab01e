# cmake --install BUILD --prefix FOLDER --component program: one folder that holds the program and what it needs.
# The workspace lies beside the program and is the user's: nothing is ever installed into 参数文件 or SJCS.
install(TARGETS velumark-calc RUNTIME DESTINATION . COMPONENT program)
if(VM_QT)
    install(TARGETS velumark RUNTIME DESTINATION . COMPONENT program)
endif()
install(FILES LICENSE DESTINATION . COMPONENT program)

# Files to try the batches and the traverse with, for the samples.
set(batch_files samples/附合导线.csv samples/放样点.txt samples/反算点.txt samples/高程点.txt samples/结构物.txt)
install(FILES ${batch_files} DESTINATION 样例文件 COMPONENT program)

# The page for users, with its picture beside it: what speaks of the source stays with the source.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS README.zh-CN.md)
set(readme ${CMAKE_BINARY_DIR}/readme)
file(READ README.zh-CN.md page)
string(REGEX REPLACE "<!-- source -->.*<!-- /source -->\n" "" page "${page}")
string(REGEX REPLACE "<!-- installed ([^\n]*) -->" "\\1" page "${page}")
string(REPLACE "docs/screens/frmMain.png" "主窗口.png" page "${page}")
file(CONFIGURE OUTPUT ${readme}/README.zh-CN.md CONTENT "${page}" @ONLY NEWLINE_STYLE UNIX)
configure_file(docs/screens/frmMain.png ${readme}/主窗口.png COPYONLY)
install(DIRECTORY ${readme}/ DESTINATION . COMPONENT program)

# The help: its chapters as one page with the pictures inside, beside the program.
if(VM_QT)
    find_program(VM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
    set(help_page ${CMAKE_BINARY_DIR}/Velumark帮助.html)
    file(GLOB help_sources CONFIGURE_DEPENDS help/*.md docs/screens/*.png)
    add_custom_command(OUTPUT ${help_page} COMMAND ${VM_PYTHON} ${CMAKE_SOURCE_DIR}/help/build.py ${help_page}
                       DEPENDS help/build.py ${help_sources} VERBATIM)
    add_custom_target(help_page ALL DEPENDS ${help_page})
    add_dependencies(velumark help_page)
    install(FILES ${help_page} DESTINATION . COMPONENT program)
endif()
