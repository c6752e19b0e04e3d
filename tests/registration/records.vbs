' The status records as a host fills them itself, from a ByRef text (fields joined by line
' feeds) or an array: one row for each type of property and of result, and the errors.
Dim r1, r2, r3, z, reply, table
Set r1 = CreateObject("PrinterFiscalCorvid.PrinterResponse1")
reply = Replace("S105|0012345|00000120|7|3|2|9|1|44|4|15|16|J-31234567-8|z1f0000001|1030|240517", _
    "|", vbLf)
r1.loadFromResponse reply
Set r2 = CreateObject("PrinterFiscalCorvid.PrinterResponse2")
r2.loadFromResponse Array("S2 0001500", 240, "0", "2.5", "0001740", "1", " 2 ")
Set r3 = CreateObject("PrinterFiscalCorvid.PrinterResponse3")
r3.loadFromResponse Array("11600", "00800", "13100", String(42, "0") & "30")
Set z = CreateObject("PrinterFiscalCorvid.ResumenZ")
r1.notasCreditoDia = "12"

table = Array( _
    "Integer", TypeName(r1.numeroCajero) & " " & r1.numeroCajero, "Integer 5", _
    "Currency", TypeName(r1.totalVentasDiarias) & " " & r1.totalVentasDiarias, "Currency 123.45", _
    "String", TypeName(r1.Serial) & " " & r1.Serial, "String z1f0000001", _
    "a number in the array", r2.subTotalImpuestos, 2.4, _
    "Boolean", TypeName(r3.TipoTasa1) & " " & r3.TipoTasa1, "Boolean True", _
    "a method with a ByRef Integer", TypeName(r3.Flag(21)) & " " & r3.Flag(21), "Integer 30", _
    "a method with a ByRef Boolean", r3.imagenIncluido(False), "ADICIONAL", _
    "an Integer written as text", TypeName(r1.notasCreditoDia) & " " & r1.notasCreditoDia, "Integer 12", _
    "Date", TypeName(r1.Fecha) & " " & CDbl(r1.Fecha), "Date " & CDbl(DateSerial(2024, 5, 17) + TimeSerial(10, 30, 0)))
CheckRows table

On Error Resume Next
r1.numeroCajero = 40000
CheckError "an Integer beyond 16 bits", 6, "", ""
r2.loadFromResponse Array("S2 0002000", "abc", "0", "1", "0", "0", "0")
CheckError "a bad amount", 13, "PrinterFiscalCorvid.PrinterResponse2", ""
z.Refresh Nothing
CheckError "ResumenZ.Refresh with Nothing", 91, "", ""
On Error GoTo 0

Finish
