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
Dim records, i
records = Array("PrinterResponse1", "{FB227847-75EF-4505-B215-22BA97C10BB5}", _
    "PrinterResponse2", "{299BCC32-3CC5-4E00-88D8-F306A6305E1B}", _
    "EstadoDocumento", "{30ABF7A0-1080-452F-B932-33EBEB4826AD}", _
    "PrinterResponse3", "{6D93AB38-5EA9-4557-A2EB-3D41E9756220}", _
    "PrinterResponse4", "{F94F5C88-B28A-4482-A664-E2763B20507A}", _
    "ResumenZ", "{77EEFE1C-CBDD-45C0-A930-F12420291E68}", _
    "ReporteZMF", "{109B91AE-087A-4B19-9579-7B1CDA238E67}", _
    "lfQuickView", "{B9F4FDFD-3E73-4EC8-BB86-5F05E5E51C18}")
For i = 0 To UBound(records) Step 2
    CheckNotCreatable "PrinterFiscalCorvid." & records(i)
    CheckKeyGone "HKCR\PrinterFiscalCorvid." & records(i) & "\"
    CheckKeyGone "HKCR\CLSID\" & records(i + 1) & "\"
Next
CheckKeyGone "HKCR\TypeLib\{8409FF7E-3AC8-4FDB-83DE-F52157BB2F1C}\1.0\"
CheckKeyGone "HKCR\Interface\{C411D3FE-A8B5-4BF3-9481-019442CAA875}\"
CheckKeyGone "HKCR\Interface\{8C450785-9F83-403A-A647-350827BF101A}\"

Finish
