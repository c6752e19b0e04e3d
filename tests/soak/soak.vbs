' Create, use and release every published class over and over, as a host that runs all
' day does, and walk a collection of closures read from the simulated printer. Between
' the classes the script stops at "MEASURE label" and waits for the file "go-label" in
' its folder: scripts/soak.sh reads the process's memory and handles from the Linux side
' meanwhile. Prints "HANDLES n" before each stop when Windows tells the handle count, FAIL
' lines for wrong results, and DONE at its end.
Option Explicit

Dim shell, fso, cycles, failures
Set shell = CreateObject("WScript.Shell")
Set fso = CreateObject("Scripting.FileSystemObject")
cycles = CLng(shell.Environment("PROCESS")("CORVID_SOAK_CYCLES"))
If cycles <= 0 Then cycles = 10000
failures = 0

Sub Expect(what, actual, expected)
    If actual <> expected Then
        failures = failures + 1
        If failures <= 20 Then WScript.Echo "FAIL " & what & ": got [" & actual & "], expected [" & expected & "]"
    End If
End Sub

' The process's handle count, when Wine's WMI has it; -1 otherwise.
Function HandleCount()
    Dim processes, process
    HandleCount = -1
    On Error Resume Next
    Set processes = GetObject("winmgmts:\\.\root\cimv2").ExecQuery( _
        "SELECT HandleCount FROM Win32_Process WHERE Name = 'cscript.exe'")
    For Each process In processes
        HandleCount = CLng(process.HandleCount)
    Next
    If Err.Number <> 0 Then HandleCount = -1
    Err.Clear
End Function

' Waits by polling: Wine's WScript has neither Sleep nor StdIn.
Sub Measure(label)
    Dim started, waited
    WScript.Echo "HANDLES " & HandleCount()
    WScript.Echo "MEASURE " & label
    started = Timer
    Do While Not fso.FileExists("go-" & label)
        waited = Timer - started
        If waited < 0 Then waited = waited + 86400
        If waited > 120 Then
            WScript.Echo "FAIL nobody measured " & label
            WScript.Quit 1
        End If
    Loop
End Sub

' The simulated printer on COM<CORVID_SIM_PORT>, for the closures of fiscal memory: two
' closings made now, read back with reportesZMF in every cycle. Opened before ORV.ini is
' written, so this session does talk to the printer.
Dim printer, firstClosing, closing
If shell.Environment("PROCESS")("CORVID_SIM_PORT") = "" Then
    WScript.Echo "FAIL CORVID_SIM_PORT names the simulated printer's port"
    WScript.Quit 1
End If
Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
printer.Abrir CInt(shell.Environment("PROCESS")("CORVID_SIM_PORT"))
Set closing = printer.CerrarZ
firstClosing = closing.numeroUltimoZ
Set closing = printer.CerrarZ
Expect "two closings were made", closing.numeroUltimoZ, firstClosing + 1
Set closing = Nothing

' The other sessions have no printer: status queries give their substitutes without
' touching a port.
Dim stream
Set stream = fso.CreateTextFile("ORV.ini", True)
stream.Write "[Config\NimbusPF]" & vbCrLf & "SkipChecks=True" & vbCrLf
stream.Close

Dim session
Set session = CreateObject("PrinterFiscalCorvid.PrinterFiscal")

Sub UsePrinterFiscal()
    Dim p, r1, r3
    Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
    p.SerialPrinter = "Z7A0000001"
    Expect "tipoPrinter", p.tipoPrinter(), 2
    Expect "GetResponseString", p.GetResponseString("S1", "|"), "|VOID"
    Set r1 = p.Response1
    Expect "Response1 is given", r1 Is Nothing, False
    Set r3 = p.StatusS3
    Set p.s3 = r3
    Expect "s3 is the record set", p.s3 Is r3, True
    p.explainSTS1
End Sub

Sub UseCStringBuffer()
    Dim b
    Set b = CreateObject("PrinterFiscalCorvid.CStringBuffer")
    b.Append "uno"
    b.AppendV 2
    b.Replace "uno", "tres"
    Expect "CStringBuffer", b.Value, "tres2"
End Sub

Sub UseRecord(progId)
    Dim r, text
    Set r = CreateObject("PrinterFiscalCorvid." & progId)
    Select Case progId
        Case "PrinterResponse4"
            r.loadFake
            Expect "PrinterResponse4 is a substitute", r.isFake, True
        Case "PrinterResponse3"
            r.loadFake
            text = r.toString()
            text = text & r.Flag(1)
        Case "ResumenZ"
            r.load session
            text = r.toString()
        Case "ReporteZMF"
            ' An array literal: Wine's Split keeps some 700 bytes of every array it makes.
            r.loadFromResponse Array("0007", "240517", "2359", "000120", "240516", "1015", _
                "x", "x", "x", "150000", "2000", "320", "1000", "80", "x", "x", "x", "x", "x", _
                "x", "x", "x", "x", "500", "100", "16", "0", "0")
            Expect "ReporteZMF.numeroCierre", r.numeroCierre, 7
            text = r.toString()
        Case "EstadoDocumento"
            text = r.toString()
        Case Else
            r.loadFake
            text = r.toString()
    End Select
    If progId <> "PrinterResponse4" Then Expect progId & ".toString", Len(text) > 0, True
End Sub

Sub UseQuickView()
    Dim q
    Set q = CreateObject("PrinterFiscalCorvid.lfQuickView")
    q.SetLinesPerPage 5
    q.Add "Reporte", 2
    q.Add "Linea", 0
    q.PageBreak
    q.LoadText
    Expect "lfQuickView.Pagina", q.Pagina, 2
End Sub

Sub UseClosures()
    Dim closures, closure, numbers
    Set closures = printer.reportesZMF(firstClosing, firstClosing + 1)
    numbers = ""
    For Each closure In closures
        numbers = numbers & closure.numeroCierre & ";"
    Next
    Expect "For Each walks both closings", numbers, firstClosing & ";" & firstClosing + 1 & ";"
    Expect "Item(1) is the first", closures(1) Is closures.Item(1), True
End Sub

' An error stops the cycle it happened in, not the soak (Wine's cscript would end the
' script without a word).
Sub Use(name)
    On Error Resume Next
    Select Case name
        Case "PrinterFiscal": UsePrinterFiscal
        Case "CStringBuffer": UseCStringBuffer
        Case "reportesZMF": UseClosures
        Case "lfQuickView": UseQuickView
        Case Else: UseRecord name
    End Select
    If Err.Number <> 0 Then Expect name & " raised " & Err.Description, Err.Number, 0
    Err.Clear
End Sub

Dim names, name, i
names = Array("PrinterFiscal", "CStringBuffer", "PrinterResponse1", "PrinterResponse2", _
    "EstadoDocumento", "PrinterResponse3", "PrinterResponse4", "ResumenZ", "ReporteZMF", _
    "lfQuickView", "reportesZMF")

' Warm-up: the first objects fill caches (type library, class factories, heaps) once.
For Each name In names
    For i = 1 To 200
        Use name
    Next
Next
Measure "baseline"
For Each name In names
    WScript.Echo "RUN " & name & " " & cycles
    For i = 1 To cycles
        Use name
    Next
    Measure name
Next
Set session = Nothing
printer.Cerrar
Set printer = Nothing
fso.DeleteFile "ORV.ini"
If failures > 20 Then WScript.Echo "FAIL " & (failures - 20) & " more wrong results"
WScript.Echo "DONE"
