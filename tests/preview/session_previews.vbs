' The previews a session shows at Cerrar on a desktop: in test mode what would have been sent
' (and again when released), with "IsDebug" and "DebugInmediato" the trace view. The runner
' closes each one as it appears and keeps its text; this script says when each Cerrar returned.
Dim fso, p, q

Sub WriteIni(text)
    Dim stream
    Set stream = fso.CreateTextFile("ORV.ini", True)
    stream.Write text
    stream.Close
End Sub

Set fso = CreateObject("Scripting.FileSystemObject")

WriteIni "[Config\NimbusPF]" & vbCrLf & "TestMode=True" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
fso.DeleteFile "ORV.ini"
p.Abrir 1
p.Execute "@Vista previa"
p.ExecuteNoCheck "810Fin"
p.Cerrar
WScript.Echo "test mode: Cerrar returned"
Set p = Nothing
WScript.Echo "test mode: released"

WriteIni "[Config\NimbusPF]" & vbCrLf & "IsDebug=1" & vbCrLf & "DebugInmediato=1" & vbCrLf & _
    "SkipChecks=True" & vbCrLf
Set q = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
fso.DeleteFile "ORV.ini"
q.ExecuteNoCheck "w"
q.Cerrar
WScript.Echo "trace view: Cerrar returned"
Set q = Nothing
WScript.Echo "DONE"
