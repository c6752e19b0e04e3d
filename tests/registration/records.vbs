' The status records as a host makes and fills them itself: replies given as a ByRef text
' or as arrays (numbers among them), each family of property read back with the type hosts
' declare and written from other types, and the errors that reach the host.
Dim r1, r2, r3, r4, z, m, table, flags

Function Fields(joined)
    Fields = Split(joined, "|")
End Function

Set r1 = CreateObject("PrinterFiscalCorvid.PrinterResponse1")
' A variable of text, passed as a ByRef String: fields joined by line feeds.
Dim reply
reply = Replace("S105|0012345|00000120|7|3|2|9|1|44|4|15|16|J-31234567-8|z1f0000001|1030|240517", _
    "|", vbLf)
r1.loadFromResponse reply
Set r2 = CreateObject("PrinterFiscalCorvid.PrinterResponse2")
r2.loadFromResponse Array("S2 0001500", 240, "0", "2.5", "0001740", "1", " 2 ")
flags = String(42, "0") & "30"
Set r3 = CreateObject("PrinterFiscalCorvid.PrinterResponse3")
r3.loadFromResponse Array("11600", "00800", "13100", flags)
Set r4 = CreateObject("PrinterFiscalCorvid.PrinterResponse4")
r4.loadFromResponse Fields("S40001000|0002550|0")
Set z = CreateObject("PrinterFiscalCorvid.ResumenZ")
Set m = CreateObject("PrinterFiscalCorvid.ReporteZMF")
m.loadFromResponse Fields("0007|240517|2359|000120|240516|1015|x|x|x|150000|2000|320|1000|80|" & _
    "x|x|x|x|x|x|x|x|x|500|100|16|0|0")

' Name, value read, value expected: one row for each kind of property and of result.
table = Array( _
    "PrinterResponse1.numeroCajero", TypeName(r1.numeroCajero) & " " & r1.numeroCajero, "Integer 5", _
    "PrinterResponse1.totalVentasDiarias", TypeName(r1.totalVentasDiarias) & " " & r1.totalVentasDiarias, "Currency 123.45", _
    "PrinterResponse1.numeroUltimaFactura", TypeName(r1.numeroUltimaFactura) & " " & r1.numeroUltimaFactura, "Long 120", _
    "PrinterResponse1.Serial", TypeName(r1.Serial) & " " & r1.Serial, "String z1f0000001", _
    "PrinterResponse1.Fecha", TypeName(r1.Fecha) & " " & CDbl(r1.Fecha), "Date " & CDbl(DateSerial(2024, 5, 17) + TimeSerial(10, 30, 0)), _
    "PrinterResponse2.subTotalImpuestos of a number in the array", r2.subTotalImpuestos, 2.4, _
    "PrinterResponse2.cantidadItems", TypeName(r2.cantidadItems) & " " & r2.cantidadItems, "Double 2.5", _
    "PrinterResponse3.TipoTasa1", TypeName(r3.TipoTasa1) & " " & r3.TipoTasa1, "Boolean True", _
    "PrinterResponse3.Flag(21)", TypeName(r3.Flag(21)) & " " & r3.Flag(21), "Integer 30", _
    "PrinterResponse3.imagenIncluido(True)", r3.imagenIncluido(True), "INCLUIDO", _
    "PrinterResponse3.imagenIncluido(False)", r3.imagenIncluido(False), "ADICIONAL", _
    "PrinterResponse3.toString", TypeName(r3.toString()), "String", _
    "PrinterResponse4.nMedios", TypeName(r4.nMedios) & " " & r4.nMedios, "Integer 3", _
    "PrinterResponse4.valor(2)", TypeName(r4.valor(2)) & " " & r4.valor(2), "Currency 25.5", _
    "ReporteZMF.toString (a Variant)", TypeName(m.toString()), "String")
CheckRows table

' Properties are plain read-write values of their own types.
r1.RIF = "V-1"
r1.notasCreditoDia = "12"
z.baseVG = "12.5"
r3.isFake = 1
Check "a written String reads back", r1.RIF, "V-1"
Check "an Integer written as text", TypeName(r1.notasCreditoDia) & " " & r1.notasCreditoDia, "Integer 12"
Check "a Currency written as text", TypeName(z.baseVG) & " " & z.baseVG, "Currency 12.5"
Check "a Boolean written as a number", r3.isFake, True

' The errors a host sees.
On Error Resume Next
r1.numeroCajero = 40000
CheckError "an Integer beyond 16 bits", 6, "", ""
r4.nMedios = 5
CheckError "nMedios cannot be written", 438, "", ""
r2.loadFromResponse Fields("S2 0002000|abc|0|1|0|0|0")
CheckError "PrinterResponse2: a bad amount", 13, "PrinterFiscalCorvid.PrinterResponse2", ""
r2.loadFromResponse "S2 0001500"
CheckError "PrinterResponse2: a text where the array goes", 13, "", ""
z.load CreateObject("PrinterFiscalCorvid.CStringBuffer")
CheckError "ResumenZ.load with an object that is no PrinterFiscal", 13, "", ""
z.Refresh Nothing
CheckError "ResumenZ.Refresh with Nothing", 91, "", ""
r3.loadFake
r3.loadFromResponse "no array"
CheckError "PrinterResponse3: an argument it cannot read raises nothing", 0, "", ""
On Error GoTo 0
Check "...and the record is no longer fake", r3.isFake, False

Finish
