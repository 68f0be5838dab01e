# cmake --install BUILD --prefix FOLDER --component program: one folder that holds the program and what it needs.
# The workspace lies beside the program and is the user's: nothing is ever installed into 参数文件 or SJCS.
install(TARGETS velumark-calc RUNTIME DESTINATION . COMPONENT program)
if(VM_QT)
    install(TARGETS velumark RUNTIME DESTINATION . COMPONENT program)
endif()
install(FILES LICENSE README.zh-CN.md DESTINATION . COMPONENT program)
