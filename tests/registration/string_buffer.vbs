' CStringBuffer as a late-bound host uses it: ByRef arguments, an error, text of every kind.
Dim b, text, length, fso, stream, omega, session
Set b = CreateObject("PrinterFiscalCorvid.CStringBuffer")
text = "abc"
b.Append text
b.Append "def"
Check "Append of a variable and of a literal; the variable keeps its text", b.Value & " " & text, "abcdef abc"
length = 2
b.Remove 4, length
Check "Remove writes the removed count back into Length", b.Value & " " & length & " " & VarType(length), "abc 3 " & vbLong
On Error Resume Next
b.Insert 70, "x"
CheckError "Insert beyond the length + 1", 5, "PrinterFiscalCorvid.CStringBuffer", "Invalid procedure call or argument"
On Error GoTo 0

Set b = CreateObject("PrinterFiscalCorvid.CStringBuffer")
b.Replace "a", "b"
text = b.Value
Check "NUL characters cross the boundary", Len(text) & " " & Asc(Mid(text, 65536, 1)), "65536 0"
text = "caf" & Chr(233) & " " & Chr(128)
b.Value = text
Check "accented and euro characters survive the ANSI code page", b.Value, text
' Wine's VBScript has no ChrW: U+03A9 is read from a UTF-16 file.
Set fso = CreateObject("Scripting.FileSystemObject")
Set stream = fso.CreateTextFile("utf16.txt", True, False)
stream.Write Chr(255) & Chr(254) & Chr(&HA9) & Chr(&H03)
stream.Close
omega = fso.OpenTextFile("utf16.txt", 1, False, -1).ReadAll
Set session = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
session.DescripcionError = omega
CheckTrue "the text used is outside the ANSI code page", Len(omega) = 1 And session.DescripcionError <> omega
b.Value = omega & "x"
Check "text outside the ANSI code page is kept", b.Value, omega & "x"

Finish
