' Opening and using a session without a printer: the errors a host sees.
Dim p, description
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")

On Error Resume Next
p.Abrir 42
description = Err.Description
CheckError "Abrir on a missing port", 40001, "PrinterFiscal.Abrir", ""
CheckTrue "Abrir on a missing port: Err.Description names the failed call and its number", _
    InStr(description, "CommOpen (CreateFile)") > 0 And Left(description, 7) = "Error ("
p.Abrir "COM1"
CheckError "Abrir with a text that is no number", 13, "", "Type mismatch"
p.Abrir 70000
CheckError "Abrir with a number beyond 16 bits", 6, "", "Overflow"
p.Cerrar
CheckError "Cerrar after a failed Abrir", 0, "", ""
On Error GoTo 0

Finish
