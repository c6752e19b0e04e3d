' Test mode (set in ORV.ini): no port is opened, so Abrir takes any argument at all, and
' commands go to the preview instead of the printer.
Dim p
DeleteFileIfPresent "ORV.ini"
WriteTextFile "ORV.ini", "[Config\NimbusPF]" & vbCrLf & "TestMode=True" & vbCrLf
Set p = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
DeleteFileIfPresent "ORV.ini"

On Error Resume Next
p.Abrir "no port at all"
CheckError "test mode: Abrir with a text that is no number", 0, "", ""
p.Abrir Nothing
CheckError "test mode: Abrir with an object", 0, "", ""
On Error GoTo 0

p.pfError = 2
Check "test mode: Execute returns the current pfError", p.Execute("w"), 2
Check "test mode: GetResponseString answers Ok", p.GetResponseString("S1", "|"), "|Ok"
p.Cerrar

Finish
