' After regsvr32 /u: the classes cannot be created and the registry keeps nothing of them.
Dim shell, classes, keys, key, i, created, value
Set shell = CreateObject("WScript.Shell")
classes = kClasses
keys = Array("HKCR\TypeLib\{8409FF7E-3AC8-4FDB-83DE-F52157BB2F1C}\1.0\", _
    "HKCR\Interface\{C411D3FE-A8B5-4BF3-9481-019442CAA875}\", "HKCR\Interface\{8C450785-9F83-403A-A647-350827BF101A}\")
On Error Resume Next
For i = 0 To UBound(classes) Step 2
    Set created = CreateObject("PrinterFiscalCorvid." & classes(i))
    CheckError classes(i) & " cannot be created", 429, "", ""
    keys = Split(Join(keys, "|") & "|HKCR\PrinterFiscalCorvid." & classes(i) & "\|HKCR\CLSID\" & classes(i + 1) & "\", "|")
Next
For Each key In keys
    value = shell.RegRead(key)
    CheckTrue "removed: " & key, Err.Number <> 0
    Err.Clear
Next
On Error GoTo 0

Finish
