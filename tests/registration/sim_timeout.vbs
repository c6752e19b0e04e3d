' corvid-sim: --ignore-blocks 100
' A printer that answers status requests but never a block: the reply times out.
Dim p, r, port
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "TimeOut=1" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.SerialPrinter = "Z1F0000001"
p.Abrir port
r = p.Execute("w")
Check "Execute on a silent printer returns pfCommError", r, 1
Check "Execute on a silent printer: pfError", p.pfError, 1
Check "Execute on a silent printer: DescripcionError", p.DescripcionError, "pfError de comunicacion"
p.Cerrar
DeleteFileIfPresent "ORV.ini"
Finish
