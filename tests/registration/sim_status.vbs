' corvid-sim: --variant srp350
' The status records a session hands out on the simulated printer, while an invoice runs and
' after the day's closings, and the closings read back from fiscal memory as a collection.
Dim p, port, r1, doc, z, closures, closure, numbers, first
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.Abrir port

Check "an invoice", p.Login(7) & p.PasarItem("CAFE", 10, 2, 16) & p.pasarLineaFacturaG("PAN", 2.5, 2, 8, "C1"), "000"
Check "Response2 during the invoice", p.Response2.subTotalVenta & "/" & p.Response2.total, "25/28.6"
Set doc = p.getEstadoDocumento
Check "getEstadoDocumento during the invoice", doc.MontoPorPagar & "/" & doc.estado, "28.6/1"
Check "CerrarConMedio", p.CerrarConMedio(1, 30), 0
Set r1 = p.Response1
Check "Response1 read from the printer", r1.isFake & "/" & r1.Serial & "/" & r1.facturasDia, _
    "False/" & p.SerialPrinter & "/1"
Check "StatusS3 and tasa agree", p.StatusS3.ValorTasa2, p.tasa(2)
Check "Response4: cash took the sale, change deducted", p.Response4.valor(1), 28.6

Set z = p.CerrarZ
first = z.numeroUltimoZ
Check "CerrarZ gives the summary of one more closing", first - r1.nCierres & "/" & z.baseVG, "1/20"
Check "NumeroUltimoCierre and ResumenZ read the same closing", p.NumeroUltimoCierre & "/" & p.ResumenZ.numeroUltimoZ, first & "/" & first
Set z = CreateObject("PrinterFiscalCorvid.ResumenZ")
z.load p
Check "a host's ResumenZ loaded from the session", z.baseVG, 20
CheckTrue "its dump starts with the serial Abrir learnt", _
    InStr(z.toString(), "Serial = " & p.SerialPrinter & vbCrLf) = 1
Set z = p.CerrarZ

Set closures = p.reportesZMF(first, first + 1)
Check "reportesZMF of both closings", closures.Count, 2
numbers = ""
For Each closure In closures
    numbers = numbers & closure.numeroCierre & ";"
Next
Check "For Each walks them in order", numbers, first & ";" & first + 1 & ";"
CheckTrue "Item is the default member, from 1", closures(1) Is closures.Item(1)
Check "the first closing's sales", closures(1).baseVG & "/" & closures(2).baseVG, "20/0"
Check "loadReporteZMF of the first", p.loadReporteZMF(first).numeroCierre, first
Set closure = CreateObject("PrinterFiscalCorvid.ReporteZMF")
Check "a host's ReporteZMF loads the second", closure.load(p, first + 1) & "/" & closure.numeroCierre, _
    "True/" & (first + 1)

p.Cerrar
Finish
