' The script host's side of scripts/bench-wine.sh: opens COMn (CORVID_SIM_PORT) through
' CorvidAPI.dll and runs Execute("w") CORVID_BENCH_EXCHANGES times, as a point-of-sale
' script would. The times come from the simulator's transcript, so this only counts.
Dim env, p, port, exchanges, failed, i
Set env = CreateObject("WScript.Shell").Environment("PROCESS")
port = CInt(env("CORVID_SIM_PORT"))
exchanges = CLng(env("CORVID_BENCH_EXCHANGES"))
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.Abrir port
failed = 0
For i = 1 To exchanges
    If p.Execute("w") <> 0 Or p.resultFlag <> 6 Then failed = failed + 1
Next
p.Cerrar
WScript.Echo "exchanges " & exchanges & " failed " & failed
