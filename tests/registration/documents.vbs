' Document members without a printer (with rates of its own, none is asked of it).
Dim p, table
WriteTextFile "ORV.ini", "[Config\NimbusPF\Tasas]" & vbCrLf & "0=0" & vbCrLf & "1=16" & vbCrLf & _
    "2=8" & vbCrLf & "3=31" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
DeleteFileIfPresent "ORV.ini"

' An argument that does not convert stops the call before any attempt (that sets pfError).
On Error Resume Next
p.PasarItem "PAN", "abc", 1, 16
CheckError "PasarItem with a price that is no number", 13, "", ""
On Error GoTo 0
Check "nothing was attempted: pfError", p.pfError, 0

' Without a port every command fails: pfCommError, and True for the inverted Booleans.
table = Array( _
    "SubTotal()", p.SubTotal(), True, _
    "SubTotal(Null)", p.SubTotal(Null), True, _
    "CerrarComprobante()", p.CerrarComprobante(), 1, _
    "detalleGeneral gives a Variant of Integer", TypeName(p.detalleGeneral("F+", "PAN", 12.5, 2, 16)), "Integer", _
    "SetTime takes date text", p.SetTime("10:30:00"), 1, _
    "PrintNoFiscal", p.PrintNoFiscal("hola", False), 1)
CheckRows table

Finish
