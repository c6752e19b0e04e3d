' Document members without a printer: arguments are converted before anything is sent, the
' optional arguments have their defaults, and results have the kinds hosts expect.
Dim p, failed, result
' Rates of its own, so that no rate is asked of the (absent) printer.
DeleteFileIfPresent "ORV.ini"
WriteTextFile "ORV.ini", "[Config\NimbusPF\Tasas]" & vbCrLf & "0=0" & vbCrLf & "1=16" & vbCrLf & _
    "2=8" & vbCrLf & "3=31" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
DeleteFileIfPresent "ORV.ini"

' Nothing reaches the exchange when an argument does not convert: pfError stays as it was
' (an attempt without a port would have set it to 1).
On Error Resume Next
p.PasarItem "PAN", "abc", 1, 16
CheckError "PasarItem with a price that is no number", 13, "", ""
p.CerrarConMedio "x", 10
CheckError "CerrarConMedio with a means that is no number", 13, "", ""
p.PasarMontoDescuento "diez"
CheckError "PasarMontoDescuento with an amount that is no number", 13, "", ""
p.pasarLineaFacturaG "PAN", 1, "dos", 16
CheckError "pasarLineaFacturaG with a quantity that is no number", 13, "", ""
On Error GoTo 0
Check "nothing was attempted: pfError", p.pfError, 0

Check "PasarItem with a negative quantity returns 3", p.PasarItem("PAN", 1, -0.001, 16), 3
Check "PasarItem with a negative quantity: DescripcionError", p.DescripcionError, _
    "Argumento inv" & Chr(225) & "lido (cantidad negativa) en PasarItem"

' Without a port every command fails with pfCommError; the inverted Booleans say True.
CheckTrue "SubTotal() fails without a port", p.SubTotal()
CheckTrue "SubTotal(True) fails without a port", p.SubTotal(True)
CheckTrue "SubTotal(Null) fails without a port", p.SubTotal(Null)
CheckTrue "PasarDescuento fails without a port", p.PasarDescuento(10)
Check "CerrarComprobante() gives 1", p.CerrarComprobante(), 1
Check "CerrarComprobante(0) gives 1", p.CerrarComprobante(0), 1
result = p.detalleGeneral("F+", "PAN", 12.5, 2, 16)
Check "detalleGeneral gives a Variant of Integer", TypeName(result), "Integer"
result = p.setFlag(21, 1)
Check "setFlag gives a Variant of Integer", TypeName(result), "Integer"
Check "setFlag without a port gives 1", result, 1
Check "SetDate takes a date", p.SetDate(DateSerial(2024, 10, 31)), 1
Check "SetTime takes date text", p.SetTime("10:30:00"), 1
Check "PrintNoFiscal", p.PrintNoFiscal("hola", False), 1
p.reimprimirFactura 123
Check "reimprimirFactura leaves its outcome in pfError", p.pfError, 1

Finish
