' The previews a session shows when it closes, as a host sees them on a desktop: in test
' mode Cerrar shows what would have been sent, modally (and releasing the session closes
' it, and shows it, once more); with "IsDebug" and "DebugInmediato" Cerrar shows the trace
' view. The window test runner closes each preview as it appears and keeps its text
' (quickview-driver dismiss-all); this script says when each Cerrar returned.
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
