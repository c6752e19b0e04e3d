' Every property of PrinterFiscal, read and written as a host does; the enum-typed ones
' arrive as 32-bit numbers with the enum's values.
Dim p
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")

Check "a new session: result", p.result, ""
Check "a new session: resultFlag", p.resultFlag, 0
Check "a new session: pfError is pfOk", p.pfError, 0
Check "a new session: STS1", p.STS1, 0
Check "a new session: STS2", p.STS2, 0
Check "a new session: SerialPrinter", p.SerialPrinter, ""
Check "a new session: lStatus", p.lStatus, 0

Check "resultFlag is a Long", VarType(p.resultFlag), vbLong
Check "pfError is a Long", VarType(p.pfError), vbLong
Check "STS1 is a Long", VarType(p.STS1), vbLong
Check "f21 is an Integer", VarType(p.f21), vbInteger
Check "lError is an Integer", VarType(p.lError), vbInteger
Check "lStatus is an Integer", VarType(p.lStatus), vbInteger

p.result = Chr(2) & "A" & Chr(10) & "B" & Chr(3)
Check "result written and read", Codes(p.result), "2,65,10,66,3"
p.resultFlag = 23
Check "resultFlag takes ETB", p.resultFlag, 23
p.resultFlag = 21
Check "resultFlag takes NAK", p.resultFlag, 21
p.pfError = 2
Check "pfError takes pfPrinterError", p.pfError, 2
Check "lError follows pfError", p.lError, 2
p.pfError = 3
Check "lError follows pfClientError", p.lError, 3
p.STS1 = &H80
Check "STS1 written and read", p.STS1, 128
p.STS2 = -5
Check "STS2 written and read", p.STS2, -5
p.DescripcionError = "PUERTO CERRADO"
Check "DescripcionError written and read", p.DescripcionError, "PUERTO CERRADO"
p.SerialPrinter = "Z1F0001234"
Check "SerialPrinter written and read", p.SerialPrinter, "Z1F0001234"
p.f21 = 30
Check "f21 written and read", p.f21, 30
Dim code
code = "12"
p.STS1 = code
Check "a numeric text is taken as a number", p.STS1, 12

On Error Resume Next
Dim narrowed
p.pfError = 32768
narrowed = p.lError
CheckError "lError of a pfError beyond 16 bits", 6, "PrinterFiscalCorvid.PrinterFiscal", "Overflow"
p.pfError = 0
p.lError = 1
CheckTrue "lError cannot be written", Err.Number <> 0
Err.Clear
p.lStatus = 1
CheckTrue "lStatus cannot be written", Err.Number <> 0
Err.Clear
p.f21 = 40000
CheckTrue "f21 refuses a value beyond 16 bits", Err.Number <> 0
Err.Clear
On Error GoTo 0

' Without a "TipoPrinter" setting the model follows the serial number's prefix.
p.SerialPrinter = "Z6B0000001"
Check "tipoPrinter of a Z6B serial is DT230", p.tipoPrinter(), 1
p.SerialPrinter = "Z7A0000001"
Check "tipoPrinter of a Z7A serial is HKA112", p.tipoPrinter(), 2
p.SerialPrinter = "Z1F0000001"
Check "tipoPrinter of a Z1F serial is SRP812", p.tipoPrinter(), 3
p.SerialPrinter = ""
Check "tipoPrinter without a serial is SRP350", p.tipoPrinter(), 0
Check "tipoPrinter is a Long", VarType(p.tipoPrinter()), vbLong

Finish
