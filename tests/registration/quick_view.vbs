' lfQuickView as a late-bound host builds a report with it: paging, page breaks, alignments,
' width fitting, the margin and its error, the notify target and the event connection.
' These runs have no desktop: Show must then return at once, modal or not.

Dim qv, i, lines, width
Set qv = CreateObject("PrinterFiscalCorvid.lfQuickView")
Check "a new report is on line 1", qv.Linea, 1
Check "a new report is on page 1", qv.Pagina, 1
Check "a new report has no left margin", qv.LeftMargin, 0

qv.SetLinesPerPage 10
Check "LineasPagina is one less than the lines per page", qv.LineasPagina, 9
For i = 1 To 8
    qv.Add "line " & i, 0
Next
Check "eight lines fill a page of 10: Linea", qv.Linea, 9
Check "eight lines fill a page of 10: Pagina", qv.Pagina, 1
qv.Add "right", 1
Check "the ninth line starts a new page: Linea", qv.Linea, 2
Check "the ninth line starts a new page: Pagina", qv.Pagina, 2
qv.PageBreak
Check "PageBreak starts the next page: Linea", qv.Linea, 1
Check "PageBreak starts the next page: Pagina", qv.Pagina, 3
qv.Add "centre", 2
qv.Add "no such alignment", 7
Check "centred lines and lines of another alignment count too", qv.Linea, 3

lines = "32767"
qv.SetLinesPerPage lines
For i = 1 To 3
    qv.Add "unpaged", 0
Next
Check "without paging Linea stays put", qv.Linea, 3
Check "without paging LineasPagina", qv.LineasPagina, 32766
qv.SetNumeroPagina 7
Check "SetNumeroPagina", qv.Pagina, 7

On Error Resume Next
Check "SetReportWidth fits the printer to 8 columns", qv.SetReportWidth(8), True
qv.Add "abcdefghij", 1
CheckError "a right-aligned text wider than the report", 5, "", _
    "Invalid procedure call or argument"
qv.Add "abcdefghij", 2
CheckError "a centred text wider than the report is cut", 0, "", ""
qv.SetNumeroPagina 32767
qv.PageBreak
CheckError "a page number past 32767", 6, "PrinterFiscalCorvid.lfQuickView", "Overflow"
qv.Linea = 3
CheckError "Linea is read-only", 438, "", ""

qv.LeftMargin = 5
Check "LeftMargin", qv.LeftMargin, 5
qv.LeftMargin = -1
CheckError "a negative LeftMargin", &H80040005, "lfQuickView::SetLeftMargin", _
    "Argumento inv" & Chr(225) & "lido"
Check "a negative LeftMargin leaves the margin", qv.LeftMargin, 5

width = "40"
Check "SetReportWidth of a numeric text", qv.SetReportWidth(width), True
qv.SetPrintFontSize 10
Check "after SetPrintFontSize SetReportWidth only stores the width", qv.SetReportWidth(80), False

Class ClickTarget
    Public Sub ReportClicked(line, column)
    End Sub
End Class
qv.SetNotify New ClickTarget
CheckError "SetNotify takes a script's object", 0, "", ""
qv.SetNotify Nothing
CheckError "SetNotify takes Nothing", 0, "", ""
qv.SetNotify 5
CheckError "SetNotify of a number", 13, "", ""

' Wine's script host has no WScript.ConnectObject (it answers "not implemented"); there the
' event connection is left to the unit tests of the connection point.
Dim shell, onWine, connected
Set shell = CreateObject("WScript.Shell")
onWine = shell.Environment("PROCESS")("WINECONFIGDIR") <> ""
WScript.ConnectObject qv, "qv_"
connected = Err.Number
Err.Clear
If onWine And connected = 445 Then
    WScript.Echo "SKIP WScript.ConnectObject qv, ""qv_"": not implemented by this script host"
Else
    Check "WScript.ConnectObject finds the connection point", connected, 0
End If
On Error GoTo 0

Sub qv_ReportClicked(line, column, cancel)
End Sub

On Error Resume Next
qv.Show
CheckError "without a desktop a modal Show returns at once", 0, "", ""
qv.Show 1, Nothing
CheckError "Show takes the owner form a VB host names, and ignores it", 0, "", ""
qv.Show False
qv.Hide
CheckError "a modeless Show and Hide", 0, "", ""
On Error GoTo 0

Finish
