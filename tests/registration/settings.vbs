' The session's settings as a host provides them: ".\ORV.ini" in the current folder first,
' then the per-user store (HKCU\Software\VB and VBA Program Settings\ORV\...).
Const kSettings = "HKCU\Software\VB and VBA Program Settings\"
Dim shell, p
Set shell = CreateObject("WScript.Shell")

Function KeyExists(path)
    Dim value
    On Error Resume Next
    value = shell.RegRead(path)
    KeyExists = Err.Number = 0
    Err.Clear
End Function

'' Removes the keys written here (the Wine prefix is the tests' own). Wine's WScript.Shell
' has no RegDelete, so reg.exe does it.
Sub RemoveUserSettings()
    shell.Run "reg delete """ & kSettings & "ORV"" /f", 0, True
End Sub

RemoveUserSettings
DeleteFileIfPresent "ORV.ini"
WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "TipoPrinter=7" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
Check "ORV.ini TipoPrinter=7 is returned as it stands", p.tipoPrinter(), 7
DeleteFileIfPresent "ORV.ini"
p.SerialPrinter = "Z7A0000001"
Check "tipoPrinter reads the settings on every call", p.tipoPrinter(), 2

shell.RegWrite kSettings & "ORV\Config\NimbusPF\TipoPrinter", "3", "REG_SZ"
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
Check "without ORV.ini the per-user store gives TipoPrinter", p.tipoPrinter(), 3

WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "TipoPrinter=1" & vbCrLf
Check "ORV.ini comes before the per-user store", p.tipoPrinter(), 1
DeleteFileIfPresent "ORV.ini"

RemoveUserSettings
CheckTrue "the per-user setting is removed again", _
    Not KeyExists(kSettings & "ORV\Config\NimbusPF\TipoPrinter")
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
Check "with no setting left the serial decides", p.tipoPrinter(), 0

Finish
