' corvid-sim: --serial Z7A0001234 --layout long
' A session on the simulated printer through COMn of the Wine prefix: opening, a command,
' replies of fields and of several blocks.
Dim p, fields, blocks, port, none
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")

On Error Resume Next
p.Abrir port
CheckError "Abrir on the simulated printer", 0, "", ""
On Error GoTo 0
Check "Abrir learns the serial number and status bytes", p.SerialPrinter & " " & p.STS1 & " " & p.STS2, _
    "Z7A0001234 96 64"
none = p.NextStatusBlock()
Check "NextStatusBlock gives an empty array", IsArray(none) & " " & UBound(none), "True -1"
Check "Execute w returns 0 with ACK", p.Execute("w") & " " & p.resultFlag & " " & p.pfError, "0 6 0"
Check "AbrirGaveta answers False when the drawer opened", p.AbrirGaveta(), False
fields = p.GetResponse("S1")
Check "GetResponse S1: 16 fields, the serial in field 13", UBound(fields) & " " & fields(13), "15 Z7A0001234"
blocks = p.GetMultipleResponses("~B3")
Check "GetMultipleResponses: three blocks", UBound(blocks) & " " & blocks(2)(0) & " " & p.resultFlag, "2 3 3"
Check "GetMultipleResponsesStr with separators", p.GetMultipleResponsesStr("~B2", ",", ";"), "1,2;2,2"

p.Cerrar
Finish
