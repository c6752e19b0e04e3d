' Opening and using a session without a printer: the errors a host sees.
Dim p, port, number, source, description
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")

On Error Resume Next
p.Abrir 42
number = Err.Number : source = Err.Source : description = Err.Description
Err.Clear
On Error GoTo 0
Check "Abrir on a missing port: Err.Number", number, 40001
Check "Abrir on a missing port: Err.Source", source, "PrinterFiscal.Abrir"
CheckTrue "Abrir on a missing port: Err.Description names the failed call", _
    InStr(description, "CommOpen (CreateFile)") > 0
CheckTrue "Abrir on a missing port: Err.Description has the error number", _
    Left(description, 7) = "Error ("

On Error Resume Next
port = "42"
p.Abrir port
CheckError "Abrir with the port number as text", 40001, "PrinterFiscal.Abrir", ""
p.Abrir "COM1"
CheckError "Abrir with a text that is no number", 13, "", "Type mismatch"
p.Abrir 70000
CheckError "Abrir with a number beyond 16 bits", 6, "", "Overflow"
On Error GoTo 0

On Error Resume Next
p.Cerrar
CheckError "Cerrar after a failed Abrir", 0, "", ""
On Error GoTo 0

' A session that never opened a port.
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
p.ExecuteNoCheck "x"
Check "ExecuteNoCheck without a port: pfError is pfCommError", p.pfError, 1
Check "ExecuteNoCheck without a port: lError", p.lError, 1
Check "ExecuteNoCheck without a port: DescripcionError", p.DescripcionError, "PUERTO CERRADO"

Finish
