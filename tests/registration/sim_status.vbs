' corvid-sim: --variant srp350
' The status queries on the simulated printer: a day with a sale and a credit note, as the
' status records see it while it runs and after its closing, and the closings read back
' from fiscal memory.
Dim p, port, r1, r2, r3, r4, doc, z, closures, closure, numbers, first
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.Abrir port

' An invoice, looked at before it is paid.
Check "Login", p.Login(7), 0
Check "PasarItem", p.PasarItem("CAFE", 10, 2, 16), 0
Check "pasarLineaFacturaG", p.pasarLineaFacturaG("PAN", 2.5, 2, 8, "C1"), 0
Set r2 = p.Response2
Check "Response2 during the invoice: subtotal", r2.subTotalVenta, 25
Check "Response2: taxes", r2.subTotalImpuestos, 3.6
Check "Response2: items", r2.cantidadItems, 4
Check "Response2: total", r2.total, 28.6
Check "Response2: an invoice is open", r2.tipoTrans, 1
Set doc = p.getEstadoDocumento
Check "getEstadoDocumento: bases", doc.subTotalBasesImponibles, 25
Check "getEstadoDocumento: still to pay", doc.MontoPorPagar, 28.6
Check "getEstadoDocumento: no payment yet", doc.numeroPagosRealizados, 0
Check "getEstadoDocumento: an invoice is open", doc.estado, 1
Check "CerrarConMedio", p.CerrarConMedio(1, 30), 0
Check "PasarDatosClienteNC", p.PasarDatosClienteNC("ANA DIAZ", "V-1", "", "00000001", _
    p.SerialPrinter, Date), 0
Check "RefundItem", p.RefundItem("CAFE", 10, 1, 16), 0
Check "CerrarNotaCreditoConMedio", p.CerrarNotaCreditoConMedio(1, 11.6), 0

Set r1 = p.Response1
Check "Response1 read from the printer", r1.isFake, False
Check "Response1: the serial Abrir learnt", r1.Serial, p.SerialPrinter
Check "Response1 and numeroUltimaFactura agree", r1.numeroUltimaFactura, p.numeroUltimaFactura
Check "Response1: one invoice today", r1.facturasDia, 1
Check "Response1: one credit note today", r1.notasCreditoDia, 1
Set r3 = p.StatusS3
Check "StatusS3: the general rate", r3.ValorTasa1, 16
Check "StatusS3 and tasa agree", r3.ValorTasa2, p.tasa(2)
Set r4 = p.Response4
Check "Response4: cash took the sale, change deducted", r4.valor(1), 28.6

' The closing, and the summary read again later.
Set z = p.CerrarZ
CheckTrue "CerrarZ gives the summary", Not z Is Nothing
first = z.numeroUltimoZ
Check "the summary: the printer counted one more closing", first, r1.nCierres + 1
Check "the summary: sales at the general rate", z.baseVG & "/" & z.impuestoVG, "20/3.2"
Check "the summary: sales at the reduced rate", z.baseIR & "/" & z.impuestoIR, "5/0.4"
Check "the summary: the credit note", z.baseVGNC & "/" & z.impuestoVGNC, "10/1.6"
Check "the summary: the last invoice", z.numeroUltimaFactura, r1.numeroUltimaFactura
Check "NumeroUltimoCierre reads the closings of the short S1", p.NumeroUltimoCierre, first
Check "ResumenZ reads the same closing", p.ResumenZ.numeroUltimoZ, first
Set z = CreateObject("PrinterFiscalCorvid.ResumenZ")
z.load p
Check "a host's ResumenZ loaded from the session", z.baseVG, 20
CheckTrue "its dump starts with the serial Abrir learnt", _
    InStr(z.toString(), "Serial = " & p.SerialPrinter & vbCrLf) = 1
Set z = p.CerrarZ
Check "a second closing, of an empty day", z.numeroUltimoZ - first & "/" & z.baseVG, "1/0"

' Both closings from fiscal memory, in order.
Set closures = p.reportesZMF(first, first + 1)
Check "reportesZMF of both: two closings", closures.Count, 2
numbers = ""
For Each closure In closures
    numbers = numbers & closure.numeroCierre & ";"
Next
Check "For Each walks them in order", numbers, first & ";" & first + 1 & ";"
CheckTrue "Item is the default member, from 1", closures(1) Is closures.Item(1)
Check "the first closing's sales", closures(1).baseVG & "/" & closures(1).impuestoIR, "20/0.4"
Check "the first closing's credit note", closures(1).baseNCVG, 10
Check "the second closing's sales", closures(2).baseVG, 0
Set closure = p.loadReporteZMF(first)
Check "loadReporteZMF of the first", closure.numeroCierre - first & "/" & closure.baseNCVG, "0/10"
Set closure = CreateObject("PrinterFiscalCorvid.ReporteZMF")
Check "a host's ReporteZMF loads the second", closure.load(p, first + 1), True
Check "...and holds it", closure.numeroCierre, first + 1

p.Cerrar
Finish
