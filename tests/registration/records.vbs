' The status records as a host makes and fills them itself: replies given as text or as
' arrays (numbers among them), properties read back with the types hosts declare, the text
' dumps, and the errors a bad reply raises where the record lets them through.
Dim r1, r2, ed, r3, r4, z, m, text, i

' A host's reply array: the fields of `joined`, separated by "|".
Function Fields(joined)
    Fields = Split(joined, "|")
End Function

' The same fields as one text joined by line feeds (Wine's VBScript has no Join).
Function Lines(joined)
    Lines = Replace(joined, "|", vbLf)
End Function

' --- PrinterResponse1: one text, fields joined by line feeds (long layout, 16 fields).
Set r1 = CreateObject("PrinterFiscalCorvid.PrinterResponse1")
r1.loadFromResponse Lines("S105|0012345|00000120|7|3|2|9|1|44|4|15|16|J-31234567-8|" & _
    "z1f0000001|1030|240517")
Check "PrinterResponse1: the cashier is an Integer", TypeName(r1.numeroCajero), "Integer"
Check "PrinterResponse1: the cashier", r1.numeroCajero, 5
Check "PrinterResponse1: the day's sales are Currency", TypeName(r1.totalVentasDiarias), "Currency"
Check "PrinterResponse1: the day's sales", r1.totalVentasDiarias, 123.45
Check "PrinterResponse1: the last invoice is a Long", TypeName(r1.numeroUltimaFactura), "Long"
Check "PrinterResponse1: the last invoice", r1.numeroUltimaFactura, 120
Check "PrinterResponse1: debit notes today (Integer)", TypeName(r1.notasDebitoDia), "Integer"
Check "PrinterResponse1: closures and reports in the long layout", _
    r1.nCierres & "/" & r1.contadorReportes, "16/15"
Check "PrinterResponse1: the serial as sent", r1.Serial, "z1f0000001"
Check "PrinterResponse1: the date is a Date", TypeName(r1.Fecha), "Date"
Check "PrinterResponse1: time before date in the long layout", r1.Fecha, _
    DateSerial(2024, 5, 17) + TimeSerial(10, 30, 0)
Check "PrinterResponse1: isFake is a Boolean", TypeName(r1.isFake), "Boolean"
Check "PrinterResponse1: not fake after a reply", r1.isFake, False
text = r1.toString()
Check "PrinterResponse1.toString: first line", Left(text, 20), "numeroCajero = 005" & vbCrLf
CheckTrue "PrinterResponse1.toString: serial in capitals", InStr(text, "Serial = Z1F0000001" & vbCrLf) > 0

' Properties are plain read-write values of their own types.
r1.RIF = "V-1"
r1.notasCreditoDia = "12"
Check "PrinterResponse1: a written RIF reads back", r1.RIF, "V-1"
Check "PrinterResponse1: a counter written as text is an Integer", TypeName(r1.notasCreditoDia), "Integer"
On Error Resume Next
r1.numeroCajero = 40000
CheckError "PrinterResponse1: a cashier beyond 16 bits", 6, "", ""
r1.Fecha = "no date"
CheckError "PrinterResponse1: a date that is no date", 13, "", ""
On Error GoTo 0

' A count of 40000 in a 16-bit field makes the record fall back to its substitute values.
r1.loadFromResponse Lines("S105|0012345|120|7|3|2|9|40000|44|4|15|16|J-31234567-8|" & _
    "z1f0000001|1030|240517")
Check "PrinterResponse1: an overflow falls back to the substitute RIF", r1.RIF, "J-12345678-9"
Check "PrinterResponse1: an overflow falls back to cashier 0", r1.numeroCajero, 0

' --- PrinterResponse2 and EstadoDocumento: the same "S2" reply as an array.
Set r2 = CreateObject("PrinterFiscalCorvid.PrinterResponse2")
r2.loadFromResponse Array("S2 0001500", 240, "0", "2.5", "0001740", "1", " 2 ")
Check "PrinterResponse2: subtotal after the echo", r2.subTotalVenta, 15
Check "PrinterResponse2: subtotal is Currency", TypeName(r2.subTotalVenta), "Currency"
Check "PrinterResponse2: a number in the array is read as its text", r2.subTotalImpuestos, 2.4
Check "PrinterResponse2: items are a Double", TypeName(r2.cantidadItems), "Double"
Check "PrinterResponse2: items", r2.cantidadItems, 2.5
Check "PrinterResponse2: total", r2.total, 17.4
Check "PrinterResponse2: payments are an Integer", TypeName(r2.cantidadPagos), "Integer"
Check "PrinterResponse2: transaction kind, trimmed", r2.tipoTrans, 2
Check "PrinterResponse2.toString: first line", Left(r2.toString(), 20), "subTotalVenta = 15" & vbCrLf

On Error Resume Next
r2.loadFromResponse Fields("S2 0002000|abc|0|1|0|0|0")
CheckError "PrinterResponse2: a bad amount", 13, "PrinterFiscalCorvid.PrinterResponse2", ""
Check "PrinterResponse2: fields before the bad one are kept", r2.subTotalVenta, 20
r2.loadFromResponse Fields("S2 0001500|0|0|1|0|40000|0")
CheckError "PrinterResponse2: 40000 payments overflow", 6, "", ""
r2.loadFromResponse Fields("S2 0001500|0|0")
CheckError "PrinterResponse2: a reply of three fields", 9, "", ""
r2.loadFromResponse "S2 0001500"
CheckError "PrinterResponse2: a text where the array goes", 13, "", ""
On Error GoTo 0
Set r2 = CreateObject("PrinterFiscalCorvid.PrinterResponse2")
r2.loadFake
Check "PrinterResponse2.loadFake: kind -1, the rest zero", r2.tipoTrans & "/" & r2.total, "-1/0"

Set ed = CreateObject("PrinterFiscalCorvid.EstadoDocumento")
ed.loadFromResponse Fields("S2 0001500|0000240|0|2.5|0001740|1|2")
Check "EstadoDocumento: bases from the part after the blank", ed.subTotalBasesImponibles, 15
Check "EstadoDocumento: NotaS2 is the text", ed.NotaS2, "2.5"
Check "EstadoDocumento: NotaS2 is a String", TypeName(ed.NotaS2), "String"
Check "EstadoDocumento: still to pay", ed.MontoPorPagar, 17.4
Check "EstadoDocumento: state is an Integer", TypeName(ed.estado), "Integer"
CheckTrue "EstadoDocumento.toString: NotaS2 line", InStr(ed.toString(), vbCrLf & "NotaS2 = 2.5" & vbCrLf) > 0
Set ed = CreateObject("PrinterFiscalCorvid.EstadoDocumento")
ed.loadFromResponse Array("pfError")
Check "EstadoDocumento: the failure reply loads nothing", _
    ed.subTotalIVA & "/" & ed.NotaS2 & "/" & ed.estado, "0//0"

' --- PrinterResponse3: rates and a flag row of 22 flags, flag 21 being 30.
Dim flags
flags = ""
For i = 0 To 20
    flags = flags & "00"
Next
flags = flags & "30"
Set r3 = CreateObject("PrinterFiscalCorvid.PrinterResponse3")
r3.loadFromResponse Array("11600", "00800", "13100", flags)
Check "PrinterResponse3: kind 1 included (Boolean)", TypeName(r3.TipoTasa1) & " " & r3.TipoTasa1, "Boolean True"
Check "PrinterResponse3: kind 2 added", r3.TipoTasa2, False
Check "PrinterResponse3: rate 1 is a Double", TypeName(r3.ValorTasa1), "Double"
Check "PrinterResponse3: rates", r3.ValorTasa1 & "/" & r3.ValorTasa2 & "/" & r3.ValorTasa3, "16/8/31"
Check "PrinterResponse3: IGTF by default with four fields", r3.TasaIGTF, 3
Check "PrinterResponse3: nFlags is an Integer", TypeName(r3.nFlags), "Integer"
Check "PrinterResponse3: nFlags is the upper index", r3.nFlags, 21
Check "PrinterResponse3: Flag(21)", r3.Flag(21), 30
Check "PrinterResponse3: Flag beyond the table", r3.Flag(22), -1
Check "PrinterResponse3: Flag gives an Integer", TypeName(r3.Flag(0)), "Integer"
Check "PrinterResponse3: imagenIncluido(True)", r3.imagenIncluido(True), "INCLUIDO"
Check "PrinterResponse3: imagenIncluido(False)", r3.imagenIncluido(False), "ADICIONAL"
Check "PrinterResponse3.toString: first line", Left(r3.toString(), 17), "Tasa1: INCLUIDO" & vbCrLf
r3.loadFake
Check "PrinterResponse3.loadFake: fake, rates zero, flags kept", _
    r3.isFake & "/" & r3.ValorTasa1 & "/" & r3.nFlags, "True/0/21"
On Error Resume Next
r3.loadFromResponse "no array"
CheckError "PrinterResponse3: an argument it cannot read raises nothing", 0, "", ""
On Error GoTo 0
Check "PrinterResponse3: ...and the record is no longer fake", r3.isFake, False

' --- PrinterResponse4: amounts by means of payment.
Set r4 = CreateObject("PrinterFiscalCorvid.PrinterResponse4")
r4.loadFromResponse Fields("S40001000|0002550|0")
Check "PrinterResponse4: nMedios is an Integer", TypeName(r4.nMedios), "Integer"
Check "PrinterResponse4: three means", r4.nMedios, 3
Check "PrinterResponse4: valor(1) without the echo", r4.valor(1), 10
Check "PrinterResponse4: valor is Currency", TypeName(r4.valor(2)), "Currency"
Check "PrinterResponse4: valor(2)", r4.valor(2), 25.5
Check "PrinterResponse4: valor(0) and valor(4)", r4.valor(0) & "/" & r4.valor(4), "0/0"
On Error Resume Next
r4.nMedios = 5
CheckTrue "PrinterResponse4: nMedios cannot be written", Err.Number <> 0
Err.Clear
Set r4 = CreateObject("PrinterFiscalCorvid.PrinterResponse4")
r4.loadFromResponse Fields("S40001000|x")
CheckError "PrinterResponse4: a bad amount", 13, "", ""
On Error GoTo 0
Check "PrinterResponse4: ...leaves nMedios at 0", r4.nMedios, 0
r4.loadFake
Check "PrinterResponse4.loadFake", r4.isFake & "/" & r4.nMedios & "/" & r4.valor(1), "True/0/0"

' --- ResumenZ: empty until read from a session.
Set z = CreateObject("PrinterFiscalCorvid.ResumenZ")
Check "ResumenZ: a new one has numeroUltimoZ -1", z.numeroUltimoZ, -1
Check "ResumenZ: numeroUltimoZ is an Integer", TypeName(z.numeroUltimoZ), "Integer"
Check "ResumenZ: amounts are Currency", TypeName(z.IGTFNC), "Currency"
Check "ResumenZ: dates are Dates", TypeName(z.fechaUltimaFactura), "Date"
z.baseVG = 12.5
Check "ResumenZ: a written amount reads back", z.baseVG, 12.5
text = z.toString()
Check "ResumenZ.toString: starts with the serial", Left(text, 9), "Serial = "
CheckTrue "ResumenZ.toString: the closure number", InStr(text, vbCrLf & "NumeroCierre = -00001" & vbCrLf) > 0
On Error Resume Next
z.load CreateObject("PrinterFiscalCorvid.CStringBuffer")
CheckError "ResumenZ.load with an object that is no PrinterFiscal", 13, "", ""
z.Refresh Nothing
CheckError "ResumenZ.Refresh with Nothing", 91, "", ""
On Error GoTo 0

' --- ReporteZMF: one row of 28 fields.
Dim row
row = Fields("0007|240517|2359|000120|240516|1015|x|x|x|150000|2000|320|1000|80|x|x|x|x|x|x|x|x|x|" & _
    "500|100|16|0|0")
Set m = CreateObject("PrinterFiscalCorvid.ReporteZMF")
m.loadFromResponse row
Check "ReporteZMF: closure number (Integer)", TypeName(m.numeroCierre) & " " & m.numeroCierre, "Integer 7"
Check "ReporteZMF: closure date and time", m.fechaCierre, DateSerial(2024, 5, 17) + TimeSerial(23, 59, 0)
Check "ReporteZMF: horaCierre stays the zero date", CDbl(m.horaCierre), 0
Check "ReporteZMF: invoice time on the zero date", _
    Int(CDbl(m.horaUltimaFactura)) & " " & Hour(m.horaUltimaFactura) & ":" & Minute(m.horaUltimaFactura), "0 10:15"
Check "ReporteZMF: exempt sales", m.ventasExentas, 1500
Check "ReporteZMF: credit-note tax", m.impuestoNCVG, 0.16
text = m.toString()
Check "ReporteZMF.toString gives a String", TypeName(text), "String"
Check "ReporteZMF.toString: first line", Left(text, 18), "NumeroCierre = 7" & vbCrLf
On Error Resume Next
ReDim Preserve row(26)
m.loadFromResponse row
CheckError "ReporteZMF: a row of 27 fields", 9, "", ""
m.load CreateObject("PrinterFiscalCorvid.ResumenZ"), 7
CheckError "ReporteZMF.load with an object that is no PrinterFiscal", 13, "", ""
On Error GoTo 0

Finish
