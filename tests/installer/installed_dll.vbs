' The installed CorvidAPI.dll, found through the registry the installer wrote, talks to the
' simulated printer on COM$CORVID_SIM_PORT. The runner puts tests/registration/checks.inc in front.
Dim p
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.Abrir CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Check "Execute w through the installed DLL: 0 with ACK", p.Execute("w") & " " & p.resultFlag & " " & p.pfError, "0 6 0"
Finish
