' What regsvr32 left in the registry, and the classes it makes creatable.
Const kLibid = "{8409FF7E-3AC8-4FDB-83DE-F52157BB2F1C}"
Dim shell, classes, i, key, platform, printer, other
Set shell = CreateObject("WScript.Shell")

Function ReadKey(path)
    On Error Resume Next
    ReadKey = shell.RegRead(path)
    If Err.Number <> 0 Then ReadKey = "<missing>"
    Err.Clear
End Function

classes = Array("PrinterFiscal", "{F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC}", "CStringBuffer", "{A704A2B7-2252-4DF2-B09A-7A534DAD3BD7}", _
    "PrinterResponse1", "{FB227847-75EF-4505-B215-22BA97C10BB5}", "PrinterResponse2", "{299BCC32-3CC5-4E00-88D8-F306A6305E1B}", _
    "EstadoDocumento", "{30ABF7A0-1080-452F-B932-33EBEB4826AD}", "PrinterResponse3", "{6D93AB38-5EA9-4557-A2EB-3D41E9756220}", _
    "PrinterResponse4", "{F94F5C88-B28A-4482-A664-E2763B20507A}", "ResumenZ", "{77EEFE1C-CBDD-45C0-A930-F12420291E68}", _
    "ReporteZMF", "{109B91AE-087A-4B19-9579-7B1CDA238E67}", "lfQuickView", "{B9F4FDFD-3E73-4EC8-BB86-5F05E5E51C18}")
For i = 0 To UBound(classes) Step 2
    key = "HKCR\CLSID\" & classes(i + 1)
    Check classes(i) & " is created from its ProgID", TypeName(CreateObject("PrinterFiscalCorvid." & classes(i))), "_" & classes(i)
    Check classes(i) & ": ThreadingModel and TypeLib", ReadKey(key & "\InprocServer32\ThreadingModel") & " " & _
        ReadKey(key & "\TypeLib\"), "Apartment " & kLibid
Next
' A 32-bit host (cscript of SysWOW64) loads the 32-bit build, registered for win32.
platform = "win64"
If shell.Environment("PROCESS")("PROCESSOR_ARCHITECTURE") = "x86" Then platform = "win32"
Check "the type library points at CorvidAPI.dll for " & platform, _
    LCase(Right(ReadKey("HKCR\TypeLib\" & kLibid & "\1.0\0\" & platform & "\"), 13)), "corvidapi.dll"

Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
Set other = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
printer.DescripcionError = "one"
other.DescripcionError = "two"
Check "two sessions keep their own state", printer.DescripcionError & other.DescripcionError, "onetwo"

Finish
