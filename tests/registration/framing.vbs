' The framing members as a host calls them: bytes of the block, check byte, readable text,
' and the characters of the ANSI code page crossing the boundary as single bytes.
Dim p, command, block
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")

block = p.BuildCommandBlock("w")
Check "BuildCommandBlock(""w"") has four bytes", Len(block), 4
Check "BuildCommandBlock(""w"") byte 1 is STX", Asc(Mid(block, 1, 1)), 2
Check "BuildCommandBlock(""w"") byte 2 is the command", Asc(Mid(block, 2, 1)), 119
Check "BuildCommandBlock(""w"") byte 3 is ETX", Asc(Mid(block, 3, 1)), 3
Check "BuildCommandBlock(""w"") byte 4 is the check byte", Asc(Mid(block, 4, 1)), 116

command = "w"
block = p.BuildCommandBlock(command)
Check "BuildCommandBlock of a variable", Codes(block), "2,119,3,116"
Check "the ByRef command variable is unchanged", command, "w"

Check "CalcXOr of the command and ETX", p.CalcXOr("w" & Chr(3)), 116
Check "CalcXOr is an Integer", VarType(p.CalcXOr("w")), vbInteger
Check "CalcXOr of an accented character is its ANSI byte", p.CalcXOr(Chr(233)), 233
Check "CalcXOr of the euro sign is its ANSI byte", p.CalcXOr(Chr(128)), 128
On Error Resume Next
Dim result
result = p.CalcXOr("")
CheckError "CalcXOr of an empty text", 5, "", "Invalid procedure call or argument"
On Error GoTo 0

Check "EscapeString tags control bytes and blanks", _
    p.EscapeString(Chr(2) & "a b" & Chr(10) & Chr(21) & Chr(3)), "[STX]a[032]b[010][NAK][ETX]"
Check "EscapeString keeps the upper half of the code page", p.EscapeString("A" & Chr(233)), _
    "A" & Chr(233)

Finish
