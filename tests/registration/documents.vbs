' Document members without a printer: arguments are converted before anything is sent, the
' optional arguments have their defaults, and results have the kinds hosts expect.
Dim p, table
' Rates of its own, so that no rate is asked of the (absent) printer.
WriteTextFile "ORV.ini", "[Config\NimbusPF\Tasas]" & vbCrLf & "0=0" & vbCrLf & "1=16" & vbCrLf & _
    "2=8" & vbCrLf & "3=31" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
DeleteFileIfPresent "ORV.ini"

' Nothing reaches the exchange when an argument does not convert: pfError stays as it was
' (an attempt without a port would have set it to 1).
On Error Resume Next
p.PasarItem "PAN", "abc", 1, 16
CheckError "PasarItem with a price that is no number", 13, "", ""
On Error GoTo 0
Check "nothing was attempted: pfError", p.pfError, 0

' Without a port every command fails with pfCommError; the inverted Booleans say True.
table = Array( _
    "SubTotal()", p.SubTotal(), True, _
    "SubTotal(Null)", p.SubTotal(Null), True, _
    "CerrarComprobante()", p.CerrarComprobante(), 1, _
    "detalleGeneral gives a Variant of Integer", TypeName(p.detalleGeneral("F+", "PAN", 12.5, 2, 16)), "Integer", _
    "SetTime takes date text", p.SetTime("10:30:00"), 1, _
    "PrintNoFiscal", p.PrintNoFiscal("hola", False), 1)
CheckRows table
p.pfError = 0
p.reimprimirFactura 123
Check "reimprimirFactura leaves its outcome in pfError", p.pfError, 1

Finish
