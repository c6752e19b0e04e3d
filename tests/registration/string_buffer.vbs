' CStringBuffer as a late-bound host uses it: ByRef arguments given as variables and as
' literals, the default member, and the errors it raises.

Dim b, text, index, length, found, other
Set b = CreateObject("PrinterFiscalCorvid.CStringBuffer")
Check "a new buffer is empty", b.Value, ""

text = "abc"
b.Append text
b.Append "def"
Check "Append of a variable and of a literal", b.Value, "abcdef"
Check "the variable passed ByRef keeps its text", text, "abc"
Check "Value is the default member", "[" & b & "]", "[abcdef]"

index = 1 : length = 3
b.Remove index, length
Check "Remove 1, 3 from abcdef", b.Value, "def"
Check "Remove leaves Length alone when the tail survives", length, 3

b.Value = "abcdef"
index = 4 : length = 2
b.Remove index, length
Check "Remove 4, 2 cuts to the end", b.Value, "abc"
Check "Remove writes the removed count back into Length", length, 3
Check "Length is still a number", VarType(length), vbLong

b.Value = "abcdef"
length = "2"
b.Remove 2, length
Check "Remove with a numeric text for Length", b.Value, "adef"
Check "a text Length gets the number written back", length, 2

b.Value = "abcdef"
b.Remove 5, 2
Check "Remove with literals only", b.Value, "abcd"

b.Value = "abc"
b.Insert 2, "Z"
Check "Insert inside the text", b.Value, "aZbc"
index = 5 : text = "!"
b.Insert index, text
Check "Insert at the length + 1 appends", b.Value, "aZbc!"

On Error Resume Next
b.Insert 7, "x"
CheckError "Insert beyond the length + 1", 5, "PrinterFiscalCorvid.CStringBuffer", _
    "Invalid procedure call or argument"
On Error GoTo 0
Check "a refused Insert leaves the buffer unchanged", b.Value, "aZbc!"

b.Value = "abcabc"
found = "b" : other = "XX"
b.Replace found, other
Check "Replace every occurrence", b.Value, "aXXcaXXc"

b.Value = "x"
b.AppendV 12
b.AppendV True
b.AppendV "y"
Check "AppendV converts numbers, Booleans and texts", b.Value, "x12Truey"
On Error Resume Next
b.AppendV Null
CheckError "AppendV of Null", 13, "", "Type mismatch"
On Error GoTo 0

Dim fresh
Set fresh = CreateObject("PrinterFiscalCorvid.CStringBuffer")
fresh.Replace "a", "b"
text = fresh.Value
Check "NUL characters cross the boundary", Len(text), 65536
Check "the padding is NUL", Asc(Mid(text, 65536, 1)), 0

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
Check "text outside the ANSI code page survives", b.Value, omega & han & "x"
b.Insert 3, omega
Check "Insert counts UTF-16 units", b.Value, omega & han & omega & "x"
b.Remove 2, 1
Check "Remove counts UTF-16 units", b.Value, omega & omega & "x"
b.Replace omega, han
b.AppendV omega
Check "Replace and AppendV keep it too", b.Value, han & han & "x" & omega

Finish
