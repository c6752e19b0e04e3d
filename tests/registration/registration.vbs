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

classes = kClasses
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
