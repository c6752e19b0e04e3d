' The status members of a session with "SkipChecks" on and no port: every reply is the
' single field "VOID", so the records are the substitutes. Then the session's s3.
Dim p, record, table, i

Sub NewSession(settings)
    WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "SkipChecks=1" & vbCrLf & settings
    Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
    DeleteFileIfPresent "ORV.ini"
End Sub

NewSession ""
Set record = CreateObject("PrinterFiscalCorvid.ResumenZ")
record.load p
table = Array( _
    "Response1", p.Response1.RIF, "J-12345678-9", _
    "Response3", TypeName(p.Response3) & " " & p.Response3.isFake, "_PrinterResponse3 True", _
    "ResumenZ.load with this session", record.numeroUltimoZ, -1, _
    "CerrarZ without a port is Nothing", p.CerrarZ Is Nothing, True, _
    "each query makes a new record", p.Response3 Is p.Response3, False, _
    "tasa(4) is a Double", TypeName(p.tasa(4)) & " " & p.tasa(4), "Double 0")
CheckRows table
On Error Resume Next
i = p.tasa("uno")
CheckError "tasa with an index that is no number", 13, "PrinterFiscalCorvid.PrinterFiscal", ""
i = p.numeroUltimaFactura
CheckError "numeroUltimaFactura of a reply without field 2", 9, "", ""
On Error GoTo 0

' The record a host Sets as s3 is the one the session reads (its flag 21 picks the amount
' formats); without rates of its own the session loads s3 itself.
NewSession "[Config\NimbusPF\Tasas]" & vbCrLf & "0=0" & vbCrLf & "1=16" & vbCrLf
CheckTrue "a new session: s3 is Nothing", p.s3 Is Nothing
Set record = CreateObject("PrinterFiscalCorvid.PrinterResponse3")
record.loadFromResponse Array("11600", "00800", "13100", String(42, "0") & "30")
Set p.s3 = record
CheckTrue "s3 gives back the record it was Set to", p.s3 Is record
Check "PasarItem without a port fails", p.PasarItem("PAN", 1, 1, 16), 1
Check "the session took flag 21 from the host's s3", p.f21, 30
NewSession ""
Check "PasarItem without a port or rates fails", p.PasarItem("PAN", 1, 1, 16), 1
CheckTrue "the session loaded s3 for its rates, the same object each time", p.s3 Is p.s3 And p.s3.isFake

Finish
