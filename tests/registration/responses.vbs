' The members that return fields, arrays and Variants, on a session with "SkipChecks" on
' (set in ORV.ini): no status request and no reply wait, the single field "VOID".
Dim p, fields, blocks, list, selector, mixed, record, item, table
WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "SkipChecks=1" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
DeleteFileIfPresent "ORV.ini"
fields = p.GetResponse("S1")
blocks = p.GetMultipleResponses("S1")
list = Array("a", "b", "c")
selector = 1
Set record = CreateObject("PrinterFiscalCorvid.CStringBuffer")
mixed = Array(7, Null, record)
p.STS2 = 255
table = Array( _
    "GetResponse gives an array of Variants", VarType(fields) & " " & LBound(fields) & ".." & UBound(fields), vbArray + vbVariant & " 0..0", _
    "GetResponse's field is a String", VarType(fields(0)) & " " & fields(0), vbString & " VOID", _
    "GetResponseString puts the separator in front", p.GetResponseString("S1", "|"), "|VOID", _
    "GetResponseString without a separator uses line feed", p.GetResponseString("S1"), vbLf & "VOID", _
    "GetMultipleResponses: one block of fields", UBound(blocks) & " " & blocks(0)(0), "0 VOID", _
    "GetMultipleResponsesStr with both separators", p.GetMultipleResponsesStr("S1", "|", "/"), "VOID", _
    "responseItem with a variable selector", p.responseItem(selector, list), "b", _
    "responseItem gives Null back as Null", IsNull(p.responseItem(1, mixed)), True, _
    "Execute without a port returns pfCommError, an Integer", VarType(p.Execute("x")) & " " & p.Execute("x"), vbInteger & " 1", _
    "Reset returns a Variant holding Execute's Integer", VarType(p.Reset()) & " " & p.Reset(), vbInteger & " 1", _
    "AbrirGaveta is True when the drawer command fails", p.AbrirGaveta(), True, _
    "explainSTS2 ends with the status in hexadecimal", TypeName(p.explainSTS2()) & Right(p.explainSTS2(), 7), "String (0xFF)")
CheckRows table
Set item = p.responseItem(2, mixed)
CheckTrue "responseItem gives the object itself", item Is record

On Error Resume Next
item = p.responseItem(0, "not an array")
CheckError "responseItem on a text", 13, "", "Type mismatch"
item = p.NextStatusBlock()
CheckError "NextStatusBlock without an open port", 9, "modCOMM", "Subscript out of range"
On Error GoTo 0

Finish
