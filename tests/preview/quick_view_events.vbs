' A click in the shown report reaches the host: while Show waits, the window test runner
' clicks the third line ("Total a pagar 1234,56 ") at column 5 and presses Escape; the event
' handler and the notify target must each get that line and column once.
Dim qv, events, notified, connected, onWine, shell
events = ""
notified = ""

Sub Expect(name, actual, expected)
    If actual = expected Then
        WScript.Echo "PASS " & name
    Else
        WScript.Echo "FAIL " & name & ": got [" & actual & "], expected [" & expected & "]"
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

Set shell = CreateObject("WScript.Shell")
onWine = shell.Environment("PROCESS")("WINECONFIGDIR") <> ""
Set qv = CreateObject("PrinterFiscalCorvid.lfQuickView")
On Error Resume Next
WScript.ConnectObject qv, "qv_"
connected = Err.Number
Err.Clear
On Error GoTo 0
qv.SetNotify New ClickTarget

qv.SetLinesPerPage 32767
qv.Add "Reporte de prueba", 0
qv.Add "-----------------", 0
qv.Add "Total a pagar 1234,56", 0
qv.Add "Fin del reporte", 0
qv.Show
WScript.Echo "Show returned"

Const kClicked = "[Total a pagar 1234,56 ] 5;"
If connected = 0 Then
    Expect "the ReportClicked handler got the clicked line and column", events, kClicked
ElseIf onWine And connected = 445 Then
    WScript.Echo "SKIP the ReportClicked handler: WScript.ConnectObject is not implemented by this script host"
Else
    WScript.Echo "FAIL WScript.ConnectObject qv, ""qv_"": error " & connected
End If
Expect "the notify target got the clicked line and column", notified, kClicked
WScript.Echo "DONE"
