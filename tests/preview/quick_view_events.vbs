' The runner clicks line 3, column 5 and presses Escape: the handler and target get it once.
Dim qv, events, notified, connected, line
Sub Expect(name, actual)
    If actual = "[Total a pagar 1234,56 ] 5;" Then
        WScript.Echo "PASS " & name
    Else
        WScript.Echo "FAIL " & name & ": got [" & actual & "]"
    End If
End Sub
Sub qv_ReportClicked(line, column, cancel)
    events = events & "[" & line & "] " & column & ";"
End Sub
Class ClickTarget
    Public Sub ReportClicked(line, column)
        notified = notified & "[" & line & "] " & column & ";"
    End Sub
End Class

Set qv = CreateObject("PrinterFiscalCorvid.lfQuickView")
On Error Resume Next
WScript.ConnectObject qv, "qv_"
connected = Err.Number
On Error GoTo 0
qv.SetNotify New ClickTarget
qv.SetLinesPerPage 32767
For Each line In Array("Reporte de prueba", "-----------------", "Total a pagar 1234,56", "Fin")
    qv.Add line, 0
Next
qv.Show
WScript.Echo "Show returned"
If connected = 0 Then
    Expect "the ReportClicked handler got the clicked line and column", events
ElseIf connected = 445 And CreateObject("WScript.Shell").Environment("PROCESS")("WINECONFIGDIR") <> "" Then
    WScript.Echo "SKIP the ReportClicked handler: WScript.ConnectObject is not implemented by this script host"
Else
    WScript.Echo "FAIL WScript.ConnectObject qv, ""qv_"": error " & connected
End If
Expect "the notify target got the clicked line and column", notified
WScript.Echo "DONE"
