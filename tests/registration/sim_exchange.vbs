' corvid-sim: --serial Z7A0001234 --layout long
' A session on the simulated printer through COMn of the Wine prefix: opening, a command,
' a reply of fields and a reply of several blocks.
Dim p, r, fields, blocks, port, none
port = CInt(CreateObject("WScript.Shell").Environment("PROCESS")("CORVID_SIM_PORT"))
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")

On Error Resume Next
p.Abrir port
CheckError "Abrir on the simulated printer", 0, "", ""
On Error GoTo 0
Check "Abrir learns the serial number from S1", p.SerialPrinter, "Z7A0001234"
Check "the serial tells the model", p.tipoPrinter(), 2
Check "status byte 1 after Abrir", p.STS1, 96
Check "status byte 2 after Abrir", p.STS2, 64
Check "explainSTS1", p.explainSTS1(), "Modo fiscal: IDLE (0x60)"

none = p.NextStatusBlock()
CheckTrue "NextStatusBlock gives an array", IsArray(none)
Check "NextStatusBlock's array is empty", UBound(none), -1

r = p.Execute("w")
Check "Execute w returns 0", r, 0
Check "Execute w: resultFlag is ACK", p.resultFlag, 6
Check "Execute w: pfError is pfOk", p.pfError, 0
CheckTrue "AbrirGaveta answers False when the drawer opened", Not p.AbrirGaveta()

fields = p.GetResponse("S1")
Check "GetResponse S1: 16 fields in the long layout", UBound(fields), 15
Check "GetResponse S1: the serial field", fields(13), "Z7A0001234"
Check "GetResponse S1: resultFlag is ETX", p.resultFlag, 3
Check "GetResponse S1: DescripcionError", p.DescripcionError, "Ok"

blocks = p.GetMultipleResponses("~B3")
Check "GetMultipleResponses: three blocks", UBound(blocks), 2
Check "GetMultipleResponses: first field of the last block", blocks(2)(0), "3"
Check "GetMultipleResponses: the reply ended with ETX", p.resultFlag, 3
Check "GetMultipleResponsesStr with separators", p.GetMultipleResponsesStr("~B2", ",", ";"), "1,2;2,2"

p.Cerrar
Finish
