' The members that return fields, arrays and Variants, on a session with "SkipChecks" on
' (set in ORV.ini): no status request and no reply wait, the single field "VOID".
Dim p, fields, blocks, inner, list, selector, status
DeleteFileIfPresent "ORV.ini"
WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "SkipChecks=1" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
DeleteFileIfPresent "ORV.ini"

fields = p.GetResponse("S1")
Check "GetResponse gives an array of Variants", VarType(fields), vbArray + vbVariant
Check "GetResponse's array starts at 0", LBound(fields), 0
Check "GetResponse with SkipChecks has one field", UBound(fields), 0
Check "GetResponse with SkipChecks gives VOID", fields(0), "VOID"
Check "the field is a String", VarType(fields(0)), vbString

Check "GetResponseString puts the separator in front", p.GetResponseString("S1", "|"), "|VOID"
Check "GetResponseString without a separator uses line feed", _
    p.GetResponseString("S1"), Chr(10) & "VOID"

blocks = p.GetMultipleResponses("S1")
Check "GetMultipleResponses gives one block", UBound(blocks), 0
inner = blocks(0)
Check "each block is an array of fields", inner(0), "VOID"
Check "GetMultipleResponsesStr with default separators", p.GetMultipleResponsesStr("S1"), "VOID"
Check "GetMultipleResponsesStr with both separators", _
    p.GetMultipleResponsesStr("S1", "|", "/"), "VOID"

list = Array("a", "b", "c")
Check "responseItem picks an element", p.responseItem(2, list), "c"
selector = 1
Check "responseItem with a variable selector", p.responseItem(selector, list), "b"
Check "responseItem above the last index", p.responseItem(3, list), "<nil>"
Check "responseItem below 0", p.responseItem(-1, list), "<nil>"
Check "responseItem on GetResponse's array", p.responseItem(0, fields), "VOID"

' The element comes back as it is, not as its text.
Dim mixed, record, item
Set record = CreateObject("PrinterFiscalCorvid.CStringBuffer")
mixed = Array(7, Null, record)
Check "responseItem keeps a number a number", VarType(p.responseItem(0, mixed)), vbInteger
CheckTrue "responseItem gives Null back as Null", IsNull(p.responseItem(1, mixed))
Set item = p.responseItem(2, mixed)
CheckTrue "responseItem gives the object itself", item Is record

On Error Resume Next
item = p.responseItem(0, "not an array")
CheckError "responseItem on a text", 13, "", "Type mismatch"

' The members that write to the port reach the port layer, which refuses port 0.
status = p.NextStatusBlock()
CheckError "NextStatusBlock without an open port", 9, "modCOMM", "Subscript out of range"
On Error GoTo 0

Check "Execute without a port returns pfCommError", p.Execute("x"), 1
Check "Execute without a port says so", p.DescripcionError, "PUERTO CERRADO"
Check "Execute returns an Integer", VarType(p.Execute("x")), vbInteger
Check "Reset returns a Variant holding an Integer", VarType(p.Reset()), vbInteger
Check "Reset returns Execute's outcome", p.Reset(), 1
Check "AbrirGaveta is True when the drawer command fails", p.AbrirGaveta(), True

p.STS1 = 0
Check "explainSTS1 ends with the status in hexadecimal", Right(p.explainSTS1(), 6), " (0x0)"
Check "explainSTS1 is a String", VarType(p.explainSTS1()), vbString
p.STS2 = 255
Check "explainSTS2 ends with the status in hexadecimal", Right(p.explainSTS2(), 7), " (0xFF)"

Finish
