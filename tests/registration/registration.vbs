' What regsvr32 left in the registry, and the classes it makes creatable.
Const kPrinterClsid = "{F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC}"
Const kBufferClsid = "{A704A2B7-2252-4DF2-B09A-7A534DAD3BD7}"
Const kLibid = "{8409FF7E-3AC8-4FDB-83DE-F52157BB2F1C}"

Dim shell
Set shell = CreateObject("WScript.Shell")

Function ReadKey(path)
    On Error Resume Next
    ReadKey = shell.RegRead(path)
    If Err.Number <> 0 Then ReadKey = "<missing>"
    Err.Clear
End Function

Function EndsWithDll(path)
    EndsWithDll = LCase(Right(path, 13)) = "corvidapi.dll"
End Function

Sub CheckClass(progId, clsid)
    Check progId & " names its CLSID", ReadKey("HKCR\" & progId & "\CLSID\"), clsid
    Check progId & " CLSID names its ProgID", ReadKey("HKCR\CLSID\" & clsid & "\ProgID\"), progId
    Check progId & " is apartment-threaded", _
        ReadKey("HKCR\CLSID\" & clsid & "\InprocServer32\ThreadingModel"), "Apartment"
    CheckTrue progId & " is served by CorvidAPI.dll", _
        EndsWithDll(ReadKey("HKCR\CLSID\" & clsid & "\InprocServer32\"))
    Check progId & " names the type library", ReadKey("HKCR\CLSID\" & clsid & "\TypeLib\"), kLibid
End Sub

CheckClass "PrinterFiscalCorvid.PrinterFiscal", kPrinterClsid
CheckClass "PrinterFiscalCorvid.CStringBuffer", kBufferClsid
Check "the type library is registered by name", _
    ReadKey("HKCR\TypeLib\" & kLibid & "\1.0\"), "PrinterFiscalCorvid: fiscal printer driver"
CheckTrue "the type library points at CorvidAPI.dll", _
    EndsWithDll(ReadKey("HKCR\TypeLib\" & kLibid & "\1.0\0\win64\"))

Dim printer, other, buffer
Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
Set other = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
Set buffer = CreateObject("PrinterFiscalCorvid.CStringBuffer")
CheckTrue "a PrinterFiscal is created", IsObject(printer)
CheckTrue "a CStringBuffer is created", IsObject(buffer)
printer.DescripcionError = "one"
other.DescripcionError = "two"
Check "two sessions keep their own state", printer.DescripcionError & other.DescripcionError, _
    "onetwo"

On Error Resume Next
printer.NoSuchMember
CheckError "an unknown member", 438, "", ""
On Error GoTo 0

Finish
