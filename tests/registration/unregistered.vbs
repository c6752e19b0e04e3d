' After regsvr32 /u: the classes cannot be created and the registry keeps nothing of them.
Dim shell, classes, keys, key, i, created, value
Set shell = CreateObject("WScript.Shell")
classes = Array("PrinterFiscal", "{F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC}", "CStringBuffer", "{A704A2B7-2252-4DF2-B09A-7A534DAD3BD7}", _
    "PrinterResponse1", "{FB227847-75EF-4505-B215-22BA97C10BB5}", "PrinterResponse2", "{299BCC32-3CC5-4E00-88D8-F306A6305E1B}", _
    "EstadoDocumento", "{30ABF7A0-1080-452F-B932-33EBEB4826AD}", "PrinterResponse3", "{6D93AB38-5EA9-4557-A2EB-3D41E9756220}", _
    "PrinterResponse4", "{F94F5C88-B28A-4482-A664-E2763B20507A}", "ResumenZ", "{77EEFE1C-CBDD-45C0-A930-F12420291E68}", _
    "ReporteZMF", "{109B91AE-087A-4B19-9579-7B1CDA238E67}", "lfQuickView", "{B9F4FDFD-3E73-4EC8-BB86-5F05E5E51C18}")
keys = Array("HKCR\TypeLib\{8409FF7E-3AC8-4FDB-83DE-F52157BB2F1C}\1.0\", _
    "HKCR\Interface\{C411D3FE-A8B5-4BF3-9481-019442CAA875}\", "HKCR\Interface\{8C450785-9F83-403A-A647-350827BF101A}\")
On Error Resume Next
For i = 0 To UBound(classes) Step 2
    Set created = CreateObject("PrinterFiscalCorvid." & classes(i))
    CheckError classes(i) & " cannot be created", 429, "", ""
    keys = Split(Join(keys, "|") & "|HKCR\PrinterFiscalCorvid." & classes(i) & "\|HKCR\CLSID\" & classes(i + 1) & "\", "|")
Next
For Each key In keys
    value = shell.RegRead(key)
    CheckTrue "removed: " & key, Err.Number <> 0
    Err.Clear
Next
On Error GoTo 0

Finish
