' corvid-sim: --variant srp350 --paper sale.paper
' A day on the simulated printer through COMn of the Wine prefix, checked on the paper.
Dim p, r1, z, first, closures, closure, numbers, paper, lines, i
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.Abrir CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Check "Abrir learns the serial number and status bytes", Len(p.SerialPrinter) & " " & p.STS1 & " " & p.STS2, "10 96 64"
Check "NextStatusBlock gives an empty array", UBound(p.NextStatusBlock()), -1
Check "Execute w returns 0 with ACK", p.Execute("w") & " " & p.resultFlag & " " & p.pfError, "0 6 0"
Check "AbrirGaveta answers False when the drawer opened", p.AbrirGaveta(), False
Check "GetResponse S1: 14 fields in the short layout", UBound(p.GetResponse("S1")), 13

Check "an invoice", p.SetDate(DateSerial(2024, 5, 17)) & p.SetTime(TimeSerial(10, 30, 0)) & p.Login(7) & _
    p.PasarDatosCliente("ANA DIAZ", "V-1", "Av. Sucre" & vbCrLf & "Caracas") & _
    p.PasarItem("CAFE", 10, 2, 16) & p.pasarLineaFacturaG("PAN", 2.5, 2, 8, "C1"), "000000"
Check "SubTotal(True) and PasarMontoDescuento say False when accepted", p.SubTotal(True) & p.PasarMontoDescuento(1), "FalseFalse"
Check "CerrarConMedio", p.CerrarConMedio(1, 30) & " " & p.resultFlag, "0 6"
Check "PrintNoFiscal", p.PrintNoFiscal("Gracias", True), 0
Check "a credit note", p.PasarDatosClienteNC("ANA DIAZ", "V-1", "", "00001521", "Z1B3000815", _
    DateSerial(2024, 5, 17)) & p.RefundItem("CAFE", 10, 1, 16) & p.CerrarNotaCreditoConMedio(1, "11.6"), "000"
Set r1 = p.Response1
Check "Response1 read from the printer", r1.isFake & "/" & r1.Serial & "/" & r1.facturasDia & "/" & r1.notasCreditoDia, _
    "False/" & p.SerialPrinter & "/1/1"

Set z = p.CerrarZ
first = z.numeroUltimoZ
Check "CerrarZ gives the summary of one more closing", first - r1.nCierres & "/" & z.baseVG & "/" & z.baseVGNC, "1/19.2/10"
Set z = p.CerrarZ
Set closures = p.reportesZMF(first, first + 1)
numbers = ""
For Each closure In closures
    numbers = numbers & closure.numeroCierre & ";"
Next
Check "For Each walks both closings in order", closures.Count & ":" & numbers, "2:" & first & ";" & first + 1 & ";"
Set closure = CreateObject("PrinterFiscalCorvid.ReporteZMF")
Check "a host's ReporteZMF loads the first", closure.load(p, first) & "/" & closure.numeroCierre & "/" & closure.baseVG, _
    "True/" & first & "/19.2"
p.Cerrar

paper = CreateObject("Scripting.FileSystemObject").OpenTextFile("sale.paper").ReadAll()
lines = Array("FECHA: 17-05-2024            HORA: 10:30", "Av. Sucre" & vbLf & "Caracas", _
    "C1 PAN                    (R)       5,00", "TOTAL                              27,45", _
    "SUBTOTAL                           25,00", "Gracias" & vbLf & String(40, "-"), "FACTURA AFECTADA: 00001521")
For i = 0 To UBound(lines)
    CheckTrue "printed: " & Replace(lines(i), vbLf, " | "), InStr(paper, lines(i) & vbLf) > 0
Next
Finish
