' PrinterFiscal without a printer: properties, framing in the ANSI code page, Abrir's
' errors, and test mode (set in ORV.ini), where no port is opened.
Dim p, command, result
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.result = Chr(2) & "A" & Chr(10) & "B" & Chr(3)
Check "result written and read", Codes(p.result), "2,65,10,66,3"
p.pfError = 3
command = "-12"
p.STS1 = command
Check "pfError, lError and an STS1 written as text", p.pfError & " " & p.lError & " " & p.STS1, "3 3 -12"
Check "CalcXOr of an accented character and the euro sign are their ANSI bytes, an Integer", _
    p.CalcXOr(Chr(233)) & " " & p.CalcXOr(Chr(128)) & " " & VarType(p.CalcXOr("w")), "233 128 " & vbInteger

On Error Resume Next
p.pfError = 32768
result = p.lError
CheckError "lError of a pfError beyond 16 bits", 6, "PrinterFiscalCorvid.PrinterFiscal", "Overflow"
result = p.CalcXOr("")
CheckError "CalcXOr of an empty text", 5, "", "Invalid procedure call or argument"
p.Abrir 42
CheckError "Abrir on a missing port", 40001, "PrinterFiscal.Abrir", ""
p.Abrir "COM1"
CheckError "Abrir with a text that is no number", 13, "", "Type mismatch"
p.Abrir 70000
CheckError "Abrir with a number beyond 16 bits", 6, "", "Overflow"

WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "TestMode=True" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
DeleteFileIfPresent "ORV.ini"
p.Abrir "no port at all"
p.Abrir Nothing
CheckError "test mode: Abrir takes a text that is no number and an object", 0, "", ""
On Error GoTo 0
Check "test mode: GetResponseString answers Ok", p.GetResponseString("S1", "|"), "|Ok"

Finish
