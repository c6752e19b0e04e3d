' corvid-sim: --variant srp350 --paper sale.paper
' A day on the simulated printer through COMn of the Wine prefix: the exchange members, an
' invoice looked at before it is paid, a non-fiscal line and a credit note checked on the
' paper, the status records, two closings and the closings read back from fiscal memory.
Dim p, port, fields, blocks, none, doc, r1, z, first, closures, closure, numbers, paper, lines, i
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.Abrir port
Check "Abrir learns the serial number and status bytes", Len(p.SerialPrinter) & " " & p.STS1 & " " & p.STS2, "10 96 64"
none = p.NextStatusBlock()
Check "NextStatusBlock gives an empty array", IsArray(none) & " " & UBound(none), "True -1"
Check "Execute w returns 0 with ACK", p.Execute("w") & " " & p.resultFlag & " " & p.pfError, "0 6 0"
Check "AbrirGaveta answers False when the drawer opened", p.AbrirGaveta(), False
fields = p.GetResponse("S1")
Check "GetResponse S1: 14 fields in the short layout", UBound(fields), 13
blocks = p.GetMultipleResponses("~B3")
Check "GetMultipleResponses: three blocks", UBound(blocks) & " " & blocks(2)(0) & " " & p.resultFlag, "2 3 3"
Check "GetMultipleResponsesStr with separators", p.GetMultipleResponsesStr("~B2", ",", ";"), "1,2;2,2"

Check "an invoice", p.SetDate(DateSerial(2024, 5, 17)) & p.SetTime(TimeSerial(10, 30, 0)) & p.Login(7) & _
    p.PasarDatosCliente("ANA DIAZ", "V-1", "Av. Sucre" & vbCrLf & "Caracas") & _
    p.PasarItem("CAFE", 10, 2, 16) & p.pasarLineaFacturaG("PAN", 2.5, 2, 8, "C1"), "000000"
Check "Response2 during the invoice", p.Response2.subTotalVenta & "/" & p.Response2.total, "25/28.6"
Set doc = p.getEstadoDocumento
Check "getEstadoDocumento during the invoice", doc.MontoPorPagar & "/" & doc.estado, "28.6/1"
Check "SubTotal(True) and PasarMontoDescuento say False when accepted", p.SubTotal(True) & p.PasarMontoDescuento(1), "FalseFalse"
Check "CerrarConMedio", p.CerrarConMedio(1, 30) & " " & p.resultFlag, "0 6"
Check "Response4: cash took the sale, change deducted", p.Response4.valor(1), 27.45
Check "PrintNoFiscal", p.PrintNoFiscal("Gracias", True), 0
Check "a credit note", p.PasarDatosClienteNC("ANA DIAZ", "V-1", "", "00001521", "Z1B3000815", _
    DateSerial(2024, 5, 17)) & p.RefundItem("CAFE", 10, 1, 16) & p.CerrarNotaCreditoConMedio(1, "11.6"), "000"
Set r1 = p.Response1
Check "Response1 read from the printer", r1.isFake & "/" & r1.Serial & "/" & r1.facturasDia & "/" & r1.notasCreditoDia, _
    "False/" & p.SerialPrinter & "/1/1"
Check "StatusS3 and tasa agree", p.StatusS3.ValorTasa2, p.tasa(2)

Set z = p.CerrarZ
first = z.numeroUltimoZ
Check "CerrarZ gives the summary of one more closing", first - r1.nCierres & "/" & z.baseVG & "/" & z.baseVGNC, "1/19.2/10"
Check "NumeroUltimoCierre and ResumenZ read the same closing", p.NumeroUltimoCierre & "/" & p.ResumenZ.numeroUltimoZ, first & "/" & first
Set z = CreateObject("PrinterFiscalCorvid.ResumenZ")
z.load p
CheckTrue "a host's ResumenZ loaded from the session: its dump starts with the serial", _
    z.baseVG = 19.2 And InStr(z.toString(), "Serial = " & p.SerialPrinter & vbCrLf) = 1
Set z = p.CerrarZ
Set closures = p.reportesZMF(first, first + 1)
numbers = ""
For Each closure In closures
    numbers = numbers & closure.numeroCierre & ";"
Next
Check "For Each walks both closings in order", closures.Count & ":" & numbers, "2:" & first & ";" & first + 1 & ";"
CheckTrue "Item is the default member, from 1", closures(1) Is closures.Item(1)
Check "the closings' sales", closures(1).baseVG & "/" & closures(1).baseNCVG & "/" & closures(2).baseVG, "19.2/10/0"
Check "loadReporteZMF of the first", p.loadReporteZMF(first).numeroCierre, first
Set closure = CreateObject("PrinterFiscalCorvid.ReporteZMF")
Check "a host's ReporteZMF loads the second", closure.load(p, first + 1) & "/" & closure.numeroCierre, _
    "True/" & (first + 1)
p.Cerrar

' What the printer printed: each line of these must be there.
paper = CreateObject("Scripting.FileSystemObject").OpenTextFile("sale.paper").ReadAll()
lines = Array("FECHA: 17-05-2024            HORA: 10:30", "CAJERO: 00007", "ANA DIAZ", "RIF:V-1", _
    "Av. Sucre" & vbLf & "Caracas", "CAFE                      (G)      20,00", _
    "C1 PAN                    (R)       5,00", "SUBTOTAL                           25,00", _
    "DESCUENTO                          -1,00", _
    "TOTAL                              27,45", "EFECTIVO                           30,00", _
    "Gracias" & vbLf & String(40, "-"), "FACTURA AFECTADA: 00001521", "IMPRESORA: Z1B3000815", _
    "CAFE                      (G)      10,00", "TOTAL                              11,60")
For i = 0 To UBound(lines)
    CheckTrue "printed: " & Replace(lines(i), vbLf, " | "), InStr(paper, lines(i) & vbLf) > 0
Next
Finish
