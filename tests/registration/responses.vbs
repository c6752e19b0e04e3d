' The members that return fields, arrays, Variants and records, on sessions with "SkipChecks"
' on: no port, no status request and no reply wait; every reply is the single field "VOID".
Dim p, fields, blocks, list, selector, mixed, record, item, table

Sub NewSession(settings)
    WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "SkipChecks=1" & vbCrLf & settings
    Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
    DeleteFileIfPresent "ORV.ini"
End Sub

NewSession ""
fields = p.GetResponse("S1")
blocks = p.GetMultipleResponses("S1")
list = Array("a", "b", "c")
selector = 1
Set item = CreateObject("PrinterFiscalCorvid.CStringBuffer")
mixed = Array(7, Null, item)
Set record = CreateObject("PrinterFiscalCorvid.ResumenZ")
record.load p
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
    "responseItem gives the object itself", p.responseItem(2, mixed) Is item, True, _
    "Execute without a port returns pfCommError, an Integer", VarType(p.Execute("x")) & " " & p.Execute("x"), vbInteger & " 1", _
    "Reset returns a Variant holding Execute's Integer", VarType(p.Reset()) & " " & p.Reset(), vbInteger & " 1", _
    "AbrirGaveta is True when the drawer command fails", p.AbrirGaveta(), True, _
    "explainSTS2 ends with the status in hexadecimal", TypeName(p.explainSTS2()) & Right(p.explainSTS2(), 7), "String (0xFF)", _
    "Response1, a substitute", p.Response1.RIF, "J-12345678-9", _
    "Response3, a substitute", TypeName(p.Response3) & " " & p.Response3.isFake, "_PrinterResponse3 True", _
    "each query makes a new record", p.Response3 Is p.Response3, False, _
    "ResumenZ.load with this session", record.numeroUltimoZ, -1, _
    "CerrarZ without a port is Nothing", p.CerrarZ Is Nothing, True, _
    "tasa(4) is a Double", TypeName(p.tasa(4)) & " " & p.tasa(4), "Double 0")
CheckRows table
On Error Resume Next
item = p.responseItem(0, "not an array")
CheckError "responseItem on a text", 13, "", "Type mismatch"
item = p.NextStatusBlock()
CheckError "NextStatusBlock without an open port", 9, "modCOMM", "Subscript out of range"
item = p.tasa("uno")
CheckError "tasa with an index that is no number", 13, "PrinterFiscalCorvid.PrinterFiscal", ""
item = p.numeroUltimaFactura
CheckError "numeroUltimaFactura of a reply without field 2", 9, "", ""
On Error GoTo 0

' The session reads the host's s3 (its flag 21); without rates of its own it loads s3 itself.
NewSession "[Config\NimbusPF\Tasas]" & vbCrLf & "0=0" & vbCrLf & "1=16" & vbCrLf
CheckTrue "a new session: s3 is Nothing", p.s3 Is Nothing
Set record = CreateObject("PrinterFiscalCorvid.PrinterResponse3")
record.loadFromResponse Array("11600", "00800", "13100", String(42, "0") & "30")
Set p.s3 = record
CheckTrue "s3 gives back the record it was Set to", p.s3 Is record
Check "the session takes flag 21 from the host's s3", p.PasarItem("PAN", 1, 1, 16) & " " & p.f21, "1 30"
NewSession ""
Check "PasarItem without a port or rates fails", p.PasarItem("PAN", 1, 1, 16), 1
CheckTrue "the session loaded s3 for its rates, the same object each time", p.s3 Is p.s3 And p.s3.isFake

Finish
