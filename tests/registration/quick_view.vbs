' lfQuickView as a late-bound host builds a report. These runs have no desktop: Show must
' then return at once, modal or not.
Dim qv, lines
Set qv = CreateObject("PrinterFiscalCorvid.lfQuickView")
lines = "10"
qv.SetLinesPerPage lines
qv.Add "line", 0
Check "LineasPagina of a ByRef text of 10 lines; Linea", qv.LineasPagina & " " & qv.Linea, "9 2"

Class ClickTarget
    Public Sub ReportClicked(line, column)
    End Sub
End Class
On Error Resume Next
qv.LeftMargin = -1
CheckError "a negative LeftMargin", &H80040005, "lfQuickView::SetLeftMargin", "Argumento inv" & Chr(225) & "lido"
qv.SetNotify New ClickTarget
qv.SetNotify Nothing
CheckError "SetNotify takes a script's object and Nothing", 0, "", ""
qv.SetNotify 5
CheckError "SetNotify of a number", 13, "", ""
qv.Show
qv.Show 1, Nothing
qv.Show False
qv.Hide
CheckError "without a desktop Show returns at once, modal, with an owner form or modeless", 0, "", ""
On Error GoTo 0

Finish
