' The framing members as a host calls them: a ByRef command, the check byte as an Integer,
' and the characters of the ANSI code page crossing the boundary as single bytes.
Dim p, command, result
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")

command = "w"
Check "BuildCommandBlock of a variable", Codes(p.BuildCommandBlock(command)), "2,119,3,116"
Check "CalcXOr is an Integer", VarType(p.CalcXOr("w")), vbInteger
Check "CalcXOr of an accented character and the euro sign are their ANSI bytes", _
    p.CalcXOr(Chr(233)) & " " & p.CalcXOr(Chr(128)), "233 128"
On Error Resume Next
result = p.CalcXOr("")
CheckError "CalcXOr of an empty text", 5, "", "Invalid procedure call or argument"
On Error GoTo 0

Finish
