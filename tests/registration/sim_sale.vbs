' corvid-sim: --paper sale.paper
' A sale through COM on the simulated printer, checked on the paper it printed.
Dim p, port, fso, paper, expected
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.Abrir port

Check "SetDate", p.SetDate(DateSerial(2024, 5, 17)), 0
Check "SetTime", p.SetTime(TimeSerial(10, 30, 0)), 0
Check "Login", p.Login(7), 0
Check "PasarDatosCliente", p.PasarDatosCliente("ANA DIAZ", "V-1", "Av. Sucre" & vbCrLf & "Caracas"), 0
Check "PasarItem", p.PasarItem("CAFE", 10, 2, 16), 0
Check "pasarLineaFacturaG", p.pasarLineaFacturaG("PAN", 2.5, 2, 8, "C1"), 0
CheckTrue "SubTotal says False when accepted", Not p.SubTotal()
CheckTrue "PasarMontoDescuento says False when accepted", Not p.PasarMontoDescuento(1)
Check "CerrarConMedio", p.CerrarConMedio(1, 30), 0
Check "the printer took the payment", p.resultFlag, 6
Check "PrintNoFiscal", p.PrintNoFiscal("Gracias", True), 0
Check "PasarDatosClienteNC", p.PasarDatosClienteNC("ANA DIAZ", "V-1", "", "00001521", "Z1B3000815", _
    DateSerial(2024, 5, 17)), 0
Check "RefundItem", p.RefundItem("CAFE", 10, 1, 16), 0
Check "CerrarNotaCreditoConMedio", p.CerrarNotaCreditoConMedio(1, "11.6"), 0
Check "the printer took the refund", p.resultFlag, 6
p.Cerrar

Set fso = CreateObject("Scripting.FileSystemObject")
paper = fso.OpenTextFile("sale.paper").ReadAll()
expected = "FACTURA                         00001521" & vbLf & _
    "FECHA: 17-05-2024            HORA: 10:30" & vbLf & _
    "CAJERO: 00007" & vbLf & _
    "ANA DIAZ" & vbLf & _
    "RIF:V-1" & vbLf & _
    "Av. Sucre" & vbLf & _
    "Caracas" & vbLf & _
    String(40, "-") & vbLf & _
    "2 x 10,00" & vbLf & _
    "CAFE                      (G)      20,00" & vbLf & _
    "2 x 2,50" & vbLf & _
    "C1 PAN                    (R)       5,00" & vbLf & _
    "SUBTOTAL                           25,00" & vbLf & _
    "DESCUENTO                          -1,00" & vbLf & _
    String(40, "-") & vbLf & _
    "BI G (16,00%)                      19,20" & vbLf & _
    "IVA G (16,00%)                      3,07" & vbLf & _
    "BI R (8,00%)                        4,80" & vbLf & _
    "IVA R (8,00%)                       0,38" & vbLf & _
    String(40, "-") & vbLf & _
    "TOTAL                              27,45" & vbLf & _
    "EFECTIVO                           30,00" & vbLf & _
    "CAMBIO                              2,55" & vbLf
CheckTrue "the receipt as printed", InStr(paper, expected) > 0
If InStr(paper, expected) = 0 Then WScript.Echo paper
expected = "FACTURA AFECTADA: 00001521" & vbLf & "IMPRESORA: Z1B3000815" & vbLf & _
    "FECHA FACTURA: 17-05-2024" & vbLf & String(40, "-") & vbLf & _
    "CAFE                      (G)      10,00" & vbLf & String(40, "-") & vbLf & _
    "BI G (16,00%)                      10,00" & vbLf & _
    "IVA G (16,00%)                      1,60" & vbLf & String(40, "-") & vbLf & _
    "TOTAL                              11,60" & vbLf & _
    "EFECTIVO                           11,60" & vbLf
CheckTrue "the credit note as printed", InStr(paper, expected) > 0
CheckTrue "the non-fiscal line closes its own document", InStr(paper, "Gracias" & vbLf & String(40, "-")) > 0

Finish
