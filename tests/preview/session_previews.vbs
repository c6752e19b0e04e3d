' Previews at Cerrar (test mode; IsDebug with DebugInmediato), each closed by the runner.
Dim fso, p
Set fso = CreateObject("Scripting.FileSystemObject")
Function Opened(settings)
    Dim stream
    Set stream = fso.CreateTextFile("ORV.ini", True)
    stream.Write "[Config\NimbusPF]" & vbCrLf & settings
    stream.Close
    Set Opened = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
    fso.DeleteFile "ORV.ini"
End Function

Set p = Opened("TestMode=True" & vbCrLf)
p.Abrir 1
p.Execute "@Vista previa"
p.ExecuteNoCheck "810Fin"
p.Cerrar
WScript.Echo "test mode: Cerrar returned"
Set p = Nothing
WScript.Echo "test mode: released"
Set p = Opened("IsDebug=1" & vbCrLf & "DebugInmediato=1" & vbCrLf & "SkipChecks=True" & vbCrLf)
p.ExecuteNoCheck "w"
p.Cerrar
WScript.Echo "trace view: Cerrar returned"
Set p = Nothing
WScript.Echo "DONE"
