' corvid-sim: --nak 100
' A printer that refuses every block: seven blocks, then Execute gives up with NAK.
Dim p, r, port
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.SerialPrinter = "Z1F0000001"
p.Abrir port
r = p.Execute("w")
Check "Execute after seven NAKs returns the status outcome", r, 0
Check "Execute after seven NAKs: resultFlag is NAK", p.resultFlag, 21
Check "Execute after seven NAKs: pfError", p.pfError, 0
p.Cerrar
Finish
