; Corvid's installer for 64-bit Windows, built by scripts/package-windows.sh:
;   makensis -DVERSION=1.0.0 -DBIN=FOLDER -DOUTFILE=setup.exe packaging/windows/corvid.nsi
; BIN holds the stripped corvid.exe, x64\CorvidAPI.dll and x86\CorvidAPI.dll.
;
; It installs corvid.exe and the 64-bit CorvidAPI.dll in $PROGRAMFILES64\Corvid and the
; 32-bit one in its x86 folder, registers each with the regsvr32 of its own bitness, adds the
; folder to the system PATH and runs `corvid serve` as the service CorvidService (automatic
; start, data in %ProgramData%\Corvid, the printer on /PORT=COMn, COM1 when not given).
; Silent with /S. Installed over an older version it stops the service, replaces the files,
; registers them again, keeps the service's command line and keeps the data folder.
; The uninstaller undoes all of it but keeps the data folder (the shop's journal) unless
; given /PURGE.

!ifndef VERSION
  !error "makensis -DVERSION=MAJOR.MINOR.PATCH"
!endif
!ifndef BIN
  !error "makensis -DBIN=FOLDER (corvid.exe, x64\CorvidAPI.dll, x86\CorvidAPI.dll)"
!endif
!ifndef OUTFILE
  !define OUTFILE "corvid-${VERSION}-setup.exe"
!endif

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include WinMessages.nsh

!define SERVICE "CorvidService"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvid"
!define SC_MANAGER_ALL_ACCESS 0xF003F
!define SERVICE_ALL_ACCESS 0xF01FF
!define SERVICE_NO_CHANGE 0xFFFFFFFF
!define SERVICE_AUTO_START 2
!define ENVIRONMENT_KEY "SYSTEM\CurrentControlSet\Control\Session Manager\Environment"

Name "Corvid ${VERSION}"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\Corvid"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
ShowInstDetails show

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Corvid"
VIAddVersionKey "CompanyName" "Corvid"
VIAddVersionKey "FileDescription" "Corvid installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Copyright (C) 2026 the Corvid developers"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Var DataFolder
Var Port  ; /PORT=COMn: the printer's port the service starts with (COM1 when not given)
Var PortGiven

; Runs a command line hidden and fails the install when it fails.
!macro MustRun what command
  nsExec::ExecToLog '${command}'
  Pop $0
  ${If} $0 != 0
    SetErrorLevel 2
    Abort "${what} failed (exit status $0)"
  ${EndIf}
!macroend

; net stop waits until the service has stopped (and fails harmlessly when it is not running).
!macro StopService
  nsExec::ExecToLog '"$SYSDIR\net.exe" stop ${SERVICE}'
  Pop $0
!macroend

Function .onInit
  SetRegView 64
  SetShellVarContext all
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/PORT=" $Port
  ${If} ${Errors}
    StrCpy $Port "COM1"
    StrCpy $PortGiven 0
  ${Else}
    StrCpy $PortGiven 1
  ${EndIf}
FunctionEnd

Function un.onInit
  SetRegView 64
  SetShellVarContext all
FunctionEnd

Section "Corvid"
  StrCpy $DataFolder "$APPDATA\Corvid"
  ; An older version's service holds corvid.exe open.
  !insertmacro StopService

  SetOutPath "$INSTDIR"
  File "${BIN}\corvid.exe"
  File "/oname=CorvidAPI.dll" "${BIN}\x64\CorvidAPI.dll"
  SetOutPath "$INSTDIR\x86"
  File "${BIN}\x86\CorvidAPI.dll"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  Call RegisterServers
  Call InstallService
  Call AddToPath
  Call WriteUninstallEntry
SectionEnd

; Each DLL in its own registry view: 64-bit hosts read the native one, 32-bit hosts (VB6,
; 32-bit Office) the WOW64 one, filled by SysWOW64's regsvr32.
Function RegisterServers
  !insertmacro MustRun "Registering CorvidAPI.dll" '"$SYSDIR\regsvr32.exe" /s "$INSTDIR\CorvidAPI.dll"'
  ${If} ${FileExists} "$WINDIR\SysWOW64\regsvr32.exe"
    !insertmacro MustRun "Registering x86\CorvidAPI.dll" '"$WINDIR\SysWOW64\regsvr32.exe" /s "$INSTDIR\x86\CorvidAPI.dll"'
  ${Else}
    DetailPrint "This Windows runs no 32-bit programs: x86\CorvidAPI.dll is not registered"
  ${EndIf}
FunctionEnd

Function InstallService
  CreateDirectory "$DataFolder"
  StrCpy $1 '"$INSTDIR\corvid.exe" serve --windows-service --data "$DataFolder" --printer default=$Port'
  nsExec::ExecToLog '"$SYSDIR\sc.exe" query ${SERVICE}'
  Pop $0
  ${If} $0 == 0
    ; An upgrade keeps the command line the shop gave the service (its printers).
    ${If} $PortGiven == 1
      Call UpdateServiceCommand
    ${EndIf}
  ${Else}
    ; sc takes the command line as one argument: its own quotes escaped.
    ${WordReplace} $1 '"' '\"' "+" $2
    !insertmacro MustRun "Creating the service" '"$SYSDIR\sc.exe" create ${SERVICE} binPath= "$2" start= auto DisplayName= "Corvid print service"'
  ${EndIf}
  nsExec::ExecToLog '"$SYSDIR\sc.exe" description ${SERVICE} "Prints fiscal documents posted over HTTP to the printers it owns"'
  Pop $0
  !insertmacro MustRun "Starting the service" '"$SYSDIR\net.exe" start ${SERVICE}'
FunctionEnd

; Points the existing service at the command line $1, keeping the rest of its settings. Through the service API: not every sc has "config".
Function UpdateServiceCommand
  System::Call 'advapi32::OpenSCManagerW(p 0, p 0, i ${SC_MANAGER_ALL_ACCESS}) p.r2'
  System::Call 'advapi32::OpenServiceW(p r2, w "${SERVICE}", i ${SERVICE_ALL_ACCESS}) p.r3'
  System::Call 'advapi32::ChangeServiceConfigW(p r3, i ${SERVICE_NO_CHANGE}, i ${SERVICE_AUTO_START}, i ${SERVICE_NO_CHANGE}, w r1, p 0, p 0, p 0, p 0, p 0, p 0) i.r4'
  System::Call 'advapi32::CloseServiceHandle(p r3)'
  System::Call 'advapi32::CloseServiceHandle(p r2)'
  ${If} $4 == 0
    SetErrorLevel 2
    Abort "Updating the service failed"
  ${EndIf}
FunctionEnd

; The system PATH as a list separated by ";", the folder added once. A value longer than
; NSIS strings hold would come back cut: it is left alone rather than damaged.
Function AddToPath
  ReadRegStr $0 HKLM "${ENVIRONMENT_KEY}" "Path"
  StrLen $1 $0
  ${If} $1 >= ${NSIS_MAX_STRLEN}
    DetailPrint "The system PATH is too long to edit here: add $INSTDIR to it by hand"
    Return
  ${EndIf}
  ${WordAdd} $0 ";" "+$INSTDIR" $0
  WriteRegExpandStr HKLM "${ENVIRONMENT_KEY}" "Path" $0
  SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=5000
FunctionEnd

Function WriteUninstallEntry
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Corvid"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Corvid"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\corvid.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
FunctionEnd

Section "Uninstall"
  !insertmacro StopService
  nsExec::ExecToLog '"$SYSDIR\sc.exe" delete ${SERVICE}'
  Pop $0
  nsExec::ExecToLog '"$SYSDIR\regsvr32.exe" /s /u "$INSTDIR\CorvidAPI.dll"'
  Pop $0
  ${If} ${FileExists} "$WINDIR\SysWOW64\regsvr32.exe"
    nsExec::ExecToLog '"$WINDIR\SysWOW64\regsvr32.exe" /s /u "$INSTDIR\x86\CorvidAPI.dll"'
    Pop $0
  ${EndIf}

  Delete "$INSTDIR\corvid.exe"
  Delete "$INSTDIR\CorvidAPI.dll"
  Delete "$INSTDIR\x86\CorvidAPI.dll"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR\x86"
  RMDir "$INSTDIR"

  ReadRegStr $0 HKLM "${ENVIRONMENT_KEY}" "Path"
  StrLen $1 $0
  ${If} $1 < ${NSIS_MAX_STRLEN}
    ${un.WordAdd} $0 ";" "-$INSTDIR" $0
    WriteRegExpandStr HKLM "${ENVIRONMENT_KEY}" "Path" $0
    SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=5000
  ${EndIf}
  DeleteRegKey HKLM "${UNINSTALL_KEY}"

  ; The journal is the shop's record of what was printed: gone only when asked for.
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/PURGE" $1
  ${IfNot} ${Errors}
    RMDir /r "$APPDATA\Corvid"
  ${EndIf}
SectionEnd
