; The per-user installer: the library, its header and the almanac into a folder of the user's choice,
; the two data files to the one place where the library looks for them. Needs no administrator.
;   makensis -DVERSION=1.0.0 -DOUT=<repository>/out -DSOURCE=<repository> installer.nsi
;   setup.exe /S [/D=folder]   installs without a window

Unicode true
!include LogicLib.nsh
!define REPLACE_NOW 9 ; MOVEFILE_REPLACE_EXISTING, MOVEFILE_WRITE_THROUGH
Name "Zenithor ${VERSION}"
OutFile "${OUT}/dist/zenithor-setup-${VERSION}.exe"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Zenithor"
InstallDirRegKey HKCU "Software\Zenithor" "InstallDir"
SetCompressor /SOLID lzma
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Zenithor"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Zenithor"
VIAddVersionKey "FileDescription" "Zenithor setup"
VIAddVersionKey "FileVersion" "${VERSION}.0"
VIAddVersionKey "LegalCopyright" "Zenithor project"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Renames NAME.new in the output folder to NAME, over what has that name. A program that is reading the
; file just now makes that fail: tried for two seconds, and then for as long as somebody says so.
!macro PutInPlace NAME
  StrCpy $1 0
  ${Do}
    System::Call 'kernel32::MoveFileExW(w "$OUTDIR\${NAME}.new", w "$OUTDIR\${NAME}", i ${REPLACE_NOW}) i .r0'
    ${If} $0 <> 0
      ${ExitDo}
    ${EndIf}
    Sleep 50
    IntOp $1 $1 + 1
    ${If} $1 > 40
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$OUTDIR\${NAME} is in use and cannot be replaced." \
        /SD IDCANCEL IDRETRY +2
      Abort "$OUTDIR\${NAME} could not be replaced."
      StrCpy $1 0
    ${EndIf}
  ${Loop}
!macroend

Section "Zenithor"
  SetShellVarContext current
  SetOutPath "$INSTDIR"
  File "${OUT}/win32/zenithor.dll"
  File "${OUT}/win32/almanac.exe"
  SetOutPath "$INSTDIR\x64"
  File "${OUT}/win64/zenithor.dll"
  SetOutPath "$INSTDIR\include\zenithor"
  File "${SOURCE}/include/zenithor/zenithor.h"
  SetOutPath "$INSTDIR\lib"
  File "${OUT}/win32/libzenithor.dll.a"
  File "${OUT}/win32/zenithor.lib"
  SetOutPath "$INSTDIR\docs"
  File "${SOURCE}/docs/host-guide.md"
  File "${SOURCE}/docs/deliberate.md"
  ; $APPDATA is the user's roaming application-data folder. Programs may be reading the files: each
  ; is written beside its name and put in place in one step, the data first.
  SetOutPath "$APPDATA\tavvin_files\archive"
  File "/oname=karvo.dat.new" "${OUT}/data/archive/karvo.dat"
  File "/oname=karvo.ndx.new" "${OUT}/data/archive/karvo.ndx"
  File "/oname=manifest.json.new" "${OUT}/data/archive/manifest.json"
  !insertmacro PutInPlace "karvo.dat"
  !insertmacro PutInPlace "karvo.ndx"
  !insertmacro PutInPlace "manifest.json"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "Software\Zenithor" "InstallDir" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Zenithor ${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Zenithor project"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
SectionEnd

Section "Uninstall"
  SetShellVarContext current
  Delete "$APPDATA\tavvin_files\archive\karvo.ndx"
  Delete "$APPDATA\tavvin_files\archive\karvo.dat"
  Delete "$APPDATA\tavvin_files\archive\manifest.json"
  RMDir "$APPDATA\tavvin_files\archive"
  RMDir "$APPDATA\tavvin_files"
  Delete "$INSTDIR\zenithor.dll"
  Delete "$INSTDIR\almanac.exe"
  Delete "$INSTDIR\x64\zenithor.dll"
  Delete "$INSTDIR\include\zenithor\zenithor.h"
  Delete "$INSTDIR\lib\libzenithor.dll.a"
  Delete "$INSTDIR\lib\zenithor.lib"
  Delete "$INSTDIR\docs\host-guide.md"
  Delete "$INSTDIR\docs\deliberate.md"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR\x64"
  RMDir "$INSTDIR\include\zenithor"
  RMDir "$INSTDIR\include"
  RMDir "$INSTDIR\lib"
  RMDir "$INSTDIR\docs"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${UNINSTALL}"
  DeleteRegKey HKCU "Software\Zenithor"
SectionEnd
