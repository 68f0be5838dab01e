; velumark-VERSION-setup.exe: into a folder of the user's own, without rights of an administrator, since the data lies
; beside the program. 参数文件, SJCS and 备份 are never written and never removed, neither by an update nor by leaving.
; build defines VERSION, STAGE, FILES (what is put down and taken away), ICON and OUTPUT.
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave on
AllowSkipFiles off
ManifestDPIAware true
RequestExecutionLevel user

!include MUI2.nsh
!include FileFunc.nsh
!include WinVer.nsh
!include "${FILES}"

Name "Velumark"
OutFile "${OUTPUT}"
InstallDir "$PROFILE\Velumark"
InstallDirRegKey HKCU "Software\Velumark" "Folder"
BrandingText "Velumark ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=2052 "ProductName" "Velumark"
VIAddVersionKey /LANG=2052 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=2052 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=2052 "FileDescription" "Velumark 安装程序"
VIAddVersionKey /LANG=2052 "LegalCopyright" "GPL-3.0"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velumark"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\velumark.exe"
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE NotAmongOtherFiles
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "SimpChinese"

; A program that runs holds its file: nothing is replaced half.
!macro RefuseWhileItRuns
  !insertmacro RefuseWhileRunning velumark.exe
  !insertmacro RefuseWhileRunning velumark-calc.exe
!macroend
!macro RefuseWhileRunning PROGRAM
  !define AGAIN again${__LINE__}
  ${AGAIN}:
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${PROGRAM}" a
    ${If} ${Errors}
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${PROGRAM} 正在运行（或不允许写入），请先退出程序。" /SD IDCANCEL IDRETRY ${AGAIN}
      SetErrorLevel 3
      Abort
    ${EndIf}
    FileClose $0
  ${EndIf}
  !undef AGAIN
!macroend

; Nor is anything put down half where nothing can be written.
!macro RefuseWithoutRights
  ClearErrors
  CreateDirectory "$INSTDIR"
  FileOpen $0 "$INSTDIR\velumark.new" w
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "“$INSTDIR”不能写入，请换一个目录安装。" /SD IDOK
    SetErrorLevel 5
    Abort
  ${EndIf}
  FileClose $0
  Delete "$INSTDIR\velumark.new"
!macroend

; What somebody has worked on stays: it has another size than it had.
!macro DeleteUnchanged FILE SIZE
  ClearErrors
  FileOpen $0 "${FILE}" r
  ${IfNot} ${Errors}
    FileSeek $0 0 END $1
    FileClose $0
    ${If} $1 == ${SIZE}
      Delete "${FILE}"
    ${EndIf}
  ${EndIf}
!macroend

; A folder with files of the user's own, maybe with our names, is not the program's.
Function NotAmongOtherFiles
  ${DirState} "$INSTDIR" $0
  ${If} $0 == 1
  ${AndIfNot} ${FileExists} "$INSTDIR\velumark.exe"
  ${AndIfNot} ${FileExists} "$INSTDIR\参数文件\*.*"
    MessageBox MB_OKCANCEL|MB_ICONQUESTION "“$INSTDIR”里已有别的文件，程序将安装到“$INSTDIR\Velumark”。" IDOK below
    Abort
    below:
    StrCpy $INSTDIR "$INSTDIR\Velumark"
  ${EndIf}
FunctionEnd

Function .onInit
  ${IfNot} ${AtLeastWin10}
    StrCpy $1 old
  ${ElseIfNot} ${AtLeastBuild} 17763
    StrCpy $1 old
  ${EndIf}
  ${If} $1 == old
    MessageBox MB_OK|MB_ICONSTOP "Velumark 需要 Windows 10 1809 或更新的版本。" /SD IDOK
    SetErrorLevel 4
    Abort
  ${EndIf}
FunctionEnd

Section "Velumark ${VERSION}"
  SectionIn RO
  !insertmacro RefuseWhileItRuns
  !insertmacro RefuseWithoutRights
  !insertmacro PutFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\卸载.exe"
  CreateDirectory "$SMPROGRAMS\Velumark"
  CreateShortcut "$SMPROGRAMS\Velumark\Velumark.lnk" "$INSTDIR\velumark.exe"
  CreateShortcut "$SMPROGRAMS\Velumark\使用说明.lnk" "$INSTDIR\Velumark帮助.html"
  WriteRegStr HKCU "Software\Velumark" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Velumark 道路施工测量计算"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\velumark.exe"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\卸载.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\卸载.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section /o "桌面快捷方式"
  CreateShortcut "$DESKTOP\Velumark.lnk" "$INSTDIR\velumark.exe"
SectionEnd

Section "Uninstall"
  !insertmacro RefuseWhileItRuns
  !insertmacro TakeFiles
  Delete "$INSTDIR\卸载.exe"
  ; The folder itself stays where the data is in it.
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Velumark\Velumark.lnk"
  Delete "$SMPROGRAMS\Velumark\使用说明.lnk"
  RMDir "$SMPROGRAMS\Velumark"
  Delete "$DESKTOP\Velumark.lnk"
  DeleteRegKey HKCU "${UNINSTALL}"
  DeleteRegKey HKCU "Software\Velumark"
SectionEnd
