' The properties of PrinterFiscal, read and written as a host does; the enum-typed ones
' arrive as 32-bit numbers with the enum's values.
Dim p, table, code, narrowed
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
table = Array( _
    "a new session: result, a String", VarType(p.result) & " [" & p.result & "]", vbString & " []", _
    "a new session: resultFlag, a Long", VarType(p.resultFlag) & " " & p.resultFlag, vbLong & " 0", _
    "a new session: lStatus, an Integer", VarType(p.lStatus) & " " & p.lStatus, vbInteger & " 0", _
    "f21 is an Integer", VarType(p.f21), vbInteger, _
    "tipoPrinter is a Long", VarType(p.tipoPrinter()), vbLong)
CheckRows table

p.result = Chr(2) & "A" & Chr(10) & "B" & Chr(3)
Check "result written and read", Codes(p.result), "2,65,10,66,3"
p.resultFlag = 21
p.pfError = 3
p.STS2 = -5
p.SerialPrinter = "Z1F0001234"
p.f21 = 30
code = "12"
p.STS1 = code
Check "written and read", p.resultFlag & " " & p.pfError & " " & p.lError & " " & p.STS2 & " " & _
    p.SerialPrinter & " " & p.f21 & " " & p.STS1, "21 3 3 -5 Z1F0001234 30 12"

On Error Resume Next
p.pfError = 32768
narrowed = p.lError
CheckError "lError of a pfError beyond 16 bits", 6, "PrinterFiscalCorvid.PrinterFiscal", "Overflow"
p.pfError = 0
p.lError = 1
CheckError "lError cannot be written", 438, "", ""
On Error GoTo 0

Finish
