' The status members of a session with "SkipChecks" on and no port: no status request is
' made and every reply is the single field "VOID", so the records are the substitutes and
' the members that read fields themselves meet a reply too short for them. Then the
' session's s3 as a host reads and Sets it.
Dim p, record, flags, i

Sub NewSession(settings)
    DeleteFileIfPresent "ORV.ini"
    WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "SkipChecks=1" & vbCrLf & settings
    Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
    DeleteFileIfPresent "ORV.ini"
End Sub

NewSession ""
Set record = p.Response1
Check "Response1 gives the substitute record", record.RIF, "J-12345678-9"
Check "StatusS1 too", p.StatusS1.RIF, "J-12345678-9"
Check "Response2 gives the substitute record", p.Response2.tipoTrans, -1
Check "StatusS2 too", p.StatusS2.tipoTrans, -1
Check "Response3 gives the substitute record", p.Response3.isFake, True
Check "StatusS3 too", p.StatusS3.isFake, True
Check "Response4 gives the substitute record", p.Response4.isFake & "/" & p.Response4.nMedios, "True/0"
CheckTrue "each query makes a new record", Not p.Response3 Is p.Response3
Check "getEstadoDocumento of a reply without a blank is empty", _
    p.getEstadoDocumento.MontoPorPagar & "/" & p.getEstadoDocumento.NotaS2, "0/"
CheckTrue "CerrarZ without a port is Nothing", p.CerrarZ Is Nothing
Check "ResumenZ of a reply it cannot read keeps numeroUltimoZ -1", p.ResumenZ.numeroUltimoZ, -1

Set record = CreateObject("PrinterFiscalCorvid.ResumenZ")
record.load p
record.Refresh p
Check "ResumenZ.load with this session", record.numeroUltimoZ, -1

p.pfError = 0
Check "tasa(0) is 0", p.tasa(0), 0
Check "tasa(4) is 0", p.tasa(4), 0
Check "tasa outside 1..3 sends nothing", p.pfError, 0
Check "tasa(1) reads the digits after the first character of VOID: none", p.tasa(1), 0
Check "tasa is a Double", TypeName(p.tasa(1)), "Double"

' Conversion errors are not caught: they reach the host as they are.
On Error Resume Next
i = p.tasa("uno")
CheckError "tasa with an index that is no number", 13, "PrinterFiscalCorvid.PrinterFiscal", ""
i = p.numeroUltimaFactura
CheckError "numeroUltimaFactura of a reply without field 2", 9, "", ""
i = p.NumeroUltimoCierre
CheckError "NumeroUltimoCierre of a reply without field 6", 9, "", ""
Set record = p.reportesZMF(5, 12)
CheckError "reportesZMF of a row that is no closure", 13, "", ""
On Error GoTo 0

' s3: Nothing until a host Sets it or the session needs it; the record a host Sets is the
' one the session reads (its flag 21 picks the amount formats).
flags = ""
For i = 0 To 20
    flags = flags & "00"
Next
NewSession "[Config\NimbusPF\Tasas]" & vbCrLf & "0=0" & vbCrLf & "1=16" & vbCrLf
CheckTrue "a new session: s3 is Nothing", p.s3 Is Nothing
Set record = CreateObject("PrinterFiscalCorvid.PrinterResponse3")
record.loadFromResponse Array("11600", "00800", "13100", flags & "30")
Set p.s3 = record
CheckTrue "s3 gives back the record it was Set to", p.s3 Is record
record.ValorTasa1 = 12
Check "s3 is that record, not a copy", p.s3.ValorTasa1, 12
Set record = Nothing
Check "s3 keeps the record after the host lets go of it", p.s3.Flag(21), 30
Check "PasarItem without a port fails", p.PasarItem("PAN", 1, 1, 16), 1
Check "the session took flag 21 from the host's s3", p.f21, 30
On Error Resume Next
Set p.s3 = CreateObject("PrinterFiscalCorvid.CStringBuffer")
CheckError "s3 refuses an object that is no PrinterResponse3", 13, "", ""
On Error GoTo 0
Check "the refused object leaves s3 as it was", p.s3.Flag(21), 30
Set p.s3 = Nothing
CheckTrue "s3 Set to Nothing", p.s3 Is Nothing

' Without rates of its own the session reads the printer's into s3 to place the item.
NewSession ""
Check "PasarItem without a port or rates fails", p.PasarItem("PAN", 1, 1, 16), 1
CheckTrue "the session loaded s3 for its rates", Not p.s3 Is Nothing
CheckTrue "...and gives the same object each time", p.s3 Is p.s3
Check "...the substitute record", p.s3.isFake, True

Finish
