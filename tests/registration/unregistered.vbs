' After regsvr32 /u: the classes cannot be created and the registry keeps nothing of them.
Dim shell
Set shell = CreateObject("WScript.Shell")

Sub CheckKeyGone(path)
    Dim value
    On Error Resume Next
    value = shell.RegRead(path)
    CheckTrue "removed: " & path, Err.Number <> 0
    Err.Clear
End Sub

Sub CheckNotCreatable(progId)
    Dim created
    On Error Resume Next
    Set created = CreateObject(progId)
    CheckError progId & " cannot be created", 429, "", ""
End Sub

CheckNotCreatable "PrinterFiscalCorvid.PrinterFiscal"
CheckNotCreatable "PrinterFiscalCorvid.CStringBuffer"
CheckKeyGone "HKCR\PrinterFiscalCorvid.PrinterFiscal\"
CheckKeyGone "HKCR\PrinterFiscalCorvid.CStringBuffer\"
CheckKeyGone "HKCR\CLSID\{F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC}\"
CheckKeyGone "HKCR\CLSID\{A704A2B7-2252-4DF2-B09A-7A534DAD3BD7}\"
CheckKeyGone "HKCR\TypeLib\{8409FF7E-3AC8-4FDB-83DE-F52157BB2F1C}\1.0\"
CheckKeyGone "HKCR\Interface\{C411D3FE-A8B5-4BF3-9481-019442CAA875}\"
CheckKeyGone "HKCR\Interface\{8C450785-9F83-403A-A647-350827BF101A}\"

Finish
