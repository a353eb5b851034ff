# The setup, which puts the programs where Hearthbook is. What makensis is told: VERSION, the FOLDER with what is
# installed, REMOVALS with a line for each file and folder of it, its size in KILOBYTES, the ICON, and the SETUP that it makes.
#
# Switches: /S asks nothing, /D=C:\FOLDER as the last one says where to. Statuses: 0 done, 1 cancelled, 2 refused.
Unicode true
# Windows of 64 bits alone: a setup of 32 would run on others too and leave programs there that don't.
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel admin

!include LogicLib.nsh
!include MUI2.nsh

!define NAME "Wrenfield Wizard"
!define REMOVER "wrenfield-uninstall.exe"
!define APPS "Software\Microsoft\Windows\CurrentVersion\Uninstall\WrenfieldWizard"

Name "${NAME}"
OutFile "${SETUP}"
BrandingText "${NAME} ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Setup of ${NAME}"
VIAddVersionKey LegalCopyright ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

# A program that runs can't be replaced or removed. It's told before the first file is touched.
!macro REFUSE_WHILE_RUNNING PROGRAM
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${PROGRAM}" a
    ${If} ${Errors}
      MessageBox MB_OK|MB_ICONSTOP "${PROGRAM} is running, or you may not change it. Close it first." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

!macro REFUSE_WHILE_ANY_RUNS
  !insertmacro REFUSE_WHILE_RUNNING wrenfield-wizard.exe
  !insertmacro REFUSE_WHILE_RUNNING wrenfield-import.exe
  !insertmacro REFUSE_WHILE_RUNNING hearthbook-create-database.exe
!macroend

# Where Hearthbook is: as 32-bit programs see the settings, such as Hearthbook, and then as others do. The programs look
# for its database in the same way.
Function FindHearthbook
  SetRegView 32
  ReadRegStr $0 HKLM "SOFTWARE\Hearthbook\Settings" "APPPath"
  ${If} $0 == ""
    SetRegView 64
    ReadRegStr $0 HKLM "SOFTWARE\Hearthbook\Settings" "APPPath"
  ${EndIf}
  SetRegView 64
  ${If} $0 == ""
    StrCpy $0 "$PROGRAMFILES64\${NAME}"
  ${EndIf}
  StrCpy $INSTDIR $0
FunctionEnd

Function .onInit
  SetShellVarContext all
  # Unless /D has said where to.
  ${If} $INSTDIR == ""
    Call FindHearthbook
  ${EndIf}
FunctionEnd

Function un.onInit
  SetShellVarContext all
  SetRegView 64
FunctionEnd

Section
  SetRegView 64
  !insertmacro REFUSE_WHILE_ANY_RUNS
  # What an older version has brought and this one doesn't goes with it.
  ReadRegStr $0 HKLM "${APPS}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\${REMOVER}"
    ExecWait '"$0\${REMOVER}" /S _?=$0' $1
    ${If} $1 != 0
      MessageBox MB_OK|MB_ICONSTOP "The older version couldn't be removed." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
    Delete "$0\${REMOVER}"
    RMDir "$0"
  ${EndIf}
  SetOutPath "$INSTDIR"
  File /r "${FOLDER}/*"
  WriteUninstaller "$INSTDIR\${REMOVER}"
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\wrenfield-wizard.exe"
  WriteRegStr HKLM "${APPS}" "DisplayName" "${NAME}"
  WriteRegStr HKLM "${APPS}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${APPS}" "DisplayIcon" "$INSTDIR\wrenfield-wizard.exe"
  WriteRegStr HKLM "${APPS}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${APPS}" "UninstallString" '"$INSTDIR\${REMOVER}"'
  WriteRegStr HKLM "${APPS}" "QuietUninstallString" '"$INSTDIR\${REMOVER}" /S'
  WriteRegDWORD HKLM "${APPS}" "NoModify" 1
  WriteRegDWORD HKLM "${APPS}" "NoRepair" 1
  WriteRegDWORD HKLM "${APPS}" "EstimatedSize" ${KILOBYTES}
SectionEnd

# What it has brought, file by file: the folder is Hearthbook's, and its database and the logs stay.
Section Uninstall
  !insertmacro REFUSE_WHILE_ANY_RUNS
  Delete "$SMPROGRAMS\${NAME}.lnk"
  !include "${REMOVALS}"
  Delete "$INSTDIR\${REMOVER}"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${APPS}"
SectionEnd
