' CStringBuffer as a late-bound host uses it: ByRef arguments given as variables and as
' literals (and written back), the default member, the errors it raises, and text of every
' kind crossing the boundary.
Dim b, text, index, length, found, other, fresh
Set b = CreateObject("PrinterFiscalCorvid.CStringBuffer")
text = "abc"
b.Append text
b.Append "def"
Check "Append of a variable and of a literal; the variable keeps its text", b.Value & " " & text, "abcdef abc"
Check "Value is the default member", "[" & b & "]", "[abcdef]"
index = 4 : length = 2
b.Remove index, length
Check "Remove 4, 2 writes the removed count back into Length", b.Value & " " & length & " " & VarType(length), "abc 3 " & vbLong
b.Value = "abcdef"
length = "2"
b.Remove 2, length
Check "Remove with a literal and a numeric text for Length", b.Value & " " & length, "adef 2"
index = 5 : text = "!"
b.Insert index, text
Check "Insert of variables at the length + 1 appends", b.Value, "adef!"
found = "d" : other = "XX"
b.Replace found, other
b.AppendV 12
b.AppendV True
Check "Replace, and AppendV of a number and a Boolean", b.Value, "aXXef!12True"
On Error Resume Next
b.Insert 70, "x"
CheckError "Insert beyond the length + 1", 5, "PrinterFiscalCorvid.CStringBuffer", _
    "Invalid procedure call or argument"
b.AppendV Null
CheckError "AppendV of Null", 13, "", "Type mismatch"
On Error GoTo 0

Set fresh = CreateObject("PrinterFiscalCorvid.CStringBuffer")
fresh.Replace "a", "b"
text = fresh.Value
Check "NUL characters cross the boundary", Len(text) & " " & Asc(Mid(text, 65536, 1)), "65536 0"
text = "caf" & Chr(233) & " " & Chr(128)
b.Value = text
Check "accented and euro characters survive the ANSI code page", b.Value, text

' Text outside the ANSI code page is kept as the host wrote it; positions count its
' UTF-16 units. Wine's VBScript has no ChrW: such a text is read back from a file written
' with the bytes of its UTF-16 units, low byte first, after the byte order mark.
Function Utf16(code)
    Dim fso, stream
    Set fso = CreateObject("Scripting.FileSystemObject")
    Set stream = fso.CreateTextFile("utf16.txt", True, False)
    stream.Write Chr(255) & Chr(254) & Chr(code And 255) & Chr(code \ 256)
    stream.Close
    Set stream = fso.OpenTextFile("utf16.txt", 1, False, -1)
    Utf16 = stream.ReadAll
    stream.Close
    fso.DeleteFile "utf16.txt"
End Function

Dim omega, han, session
omega = Utf16(&H3A9)
han = Utf16(&H4E2D)
Set session = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
session.DescripcionError = omega & han
CheckTrue "the text used is outside the ANSI code page", _
    Len(omega & han) = 2 And session.DescripcionError <> omega & han
b.Value = omega & han & "x"
b.Insert 3, omega
b.Remove 2, 1
b.Replace omega, han
b.AppendV omega
Check "Insert, Remove, Replace and AppendV keep it and count its UTF-16 units", b.Value, han & han & "x" & omega

Finish
