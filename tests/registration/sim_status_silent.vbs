' corvid-sim: --silent-enq 1000
' A printer that never answers a status request: every query fails before its command is
' sent, and each status member answers as hosts rely on, with the substitute record, -1,
' Nothing or an empty collection, never an error. pfError tells why.
Dim p, port, record, closures, closure, visits
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "TimeOut=1" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
DeleteFileIfPresent "ORV.ini"
p.SerialPrinter = "Z1F0000001"
p.Abrir port

Check "numeroUltimaFactura", p.numeroUltimaFactura, -1
Check "numeroUltimaFactura is a Long", TypeName(p.numeroUltimaFactura), "Long"
Check "the failure shows in pfError", p.pfError, 1
Check "NumeroUltimoCierre", p.NumeroUltimoCierre, -1
Check "tasa(1)", p.tasa(1), -1
Check "Response1 is the substitute", p.Response1.RIF, "J-12345678-9"
Check "Response2 is the substitute", p.Response2.tipoTrans, -1
Check "getEstadoDocumento loads nothing", p.getEstadoDocumento.MontoPorPagar, 0
Check "ResumenZ keeps numeroUltimoZ -1", p.ResumenZ.numeroUltimoZ, -1
CheckTrue "loadReporteZMF is Nothing", p.loadReporteZMF(7) Is Nothing

Set closures = p.reportesZMF(5, 12)
CheckTrue "reportesZMF gives a collection", Not closures Is Nothing
Check "...with Count 0", closures.Count, 0
Check "...Count is a Long", TypeName(closures.Count), "Long"
visits = 0
For Each closure In closures
    visits = visits + 1
Next
Check "For Each over the empty collection", visits, 0
On Error Resume Next
Set closure = closures(1)
CheckError "Item 1 of the empty collection", 9, "", ""
Set closure = closures.Item("a key")
CheckError "the collection has no keys", 5, "", ""
On Error GoTo 0

Set record = CreateObject("PrinterFiscalCorvid.ReporteZMF")
record.numeroCierre = 3
Check "ReporteZMF.load is False", record.load(p, 7), False
Check "...and leaves the record untouched", record.numeroCierre, 3

p.Cerrar
Finish
