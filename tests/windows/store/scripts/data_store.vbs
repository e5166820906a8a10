' The data store as a script writer uses it. Ends with the line "done" and code 42 when every check held.
Option Explicit
Dim failures, ds, table, record, element, count, text, variable, index
failures = 0

Sub Check(name, actual, expected)
    If CStr(actual) <> CStr(expected) Then
        failures = failures + 1
        WScript.Echo name & ": " & actual & " instead of " & expected
    End If
End Sub

' ---- members
Set ds = CreateObject("VexloDataStore.DataStore")
Check "TypeName", TypeName(ds), "IDataStore"
Check "MessageTitle", ds.MessageTitle, "Telvar"
Check "spelling", ds.mESSAGEtITLE, "Telvar"
variable = "12500"
ds.ChannelSpacing = variable
Check "ChannelSpacing", ds.ChannelSpacing, 12500
Check "ChannelSpacing's type", TypeName(ds.ChannelSpacing), "Long"
Check "SelectedChannel's type", TypeName(ds.SelectedChannel), "Integer"
Check "TableOpen's type", TypeName(ds.TableOpen), "Boolean"
Check "HardwareRevision's type", TypeName(ds.HardwareRevision), "Single"

' ---- the table as an array
table = ds.ChannelTable
Check "array", TypeName(table), "Variant()"
Check "LBound", LBound(table), 0
Check "UBound", UBound(table), 254
Check "element", TypeName(table(0)), "IChannelRecord"
Check "read through the array", table(0).TxFreq, 0
table(0).TxFreq = 145000000
Check "written through the array", ds.ChannelTable(0).TxFreq, 145000000
Check "type", TypeName(ds.ChannelTable(0).TxFreq), "Long"
count = 0
For Each element In ds.ChannelTable
    count = count + 1
    element.RxFreq = 1000 + count
Next
Check "For Each", count, 255
Check "written in For Each", ds.ChannelTable(254).RxFreq, 1255

' ---- the table with an index
ds.ChannelTable(8).TxFreq = 66
Check "put with an index", ds.ChannelTable(8).TxFreq, 66
Check "seen through the older array", table(8).TxFreq, 66
Set record = ds.ChannelTable(7)
record.scan = 1
Check "scan", record.scan, True
Check "scan's type", TypeName(record.scan), "Boolean"
record.TxSub = 88.5
Check "TxSub's type", TypeName(ds.ChannelTable(7).TxSub), "Double"
record.P25TalkgroupID = "12AB"
Check "P25TalkgroupID", record.P25TalkgroupID, "12AB"
For index = 250 To 254
    ds.ChannelTable(index).ModeBits = index
Next
Check "index in a variable", ds.ChannelTable(252).ModeBits, 252
index = "9"
With ds.ChannelTable(index)
    .TxPower = 200
    .TxPower = .TxPower + 1
End With
Check "index as text, With", ds.ChannelTable(9).TxPower, 201

' ---- operations
variable = 2
ds.SetPotValue variable, 77
ds.SetPotValue 3, 78
Check "PotValue", ds.PotValue(2) & " " & ds.PotValue(3), "77 78"
Check "AutomaticSelect", ds.AutomaticSelect(variable), False
ds.FollowSteps = True
Check "AutomaticSelect by literal", ds.AutomaticSelect(2), True
Check "CheckKey", ds.CheckKey(Asc("5")) & " " & ds.CheckKey(Asc("x")), True & " " & False
ds.EnterChannelSelect
Check "CtcssTone's type", TypeName(ds.CtcssTone(0)), "Single"
ds.ConfigRecords(0).sm = 4
Check "sm", ds.ConfigRecords.Item(0).sm, 4
count = 0
For Each element In ds.ConfigRecords
    count = count + element.sm
Next
Check "For Each over ConfigRecords", count, 4

' ---- failures
On Error Resume Next
element = ds.ChannelTable(255).TxFreq
Check "index beyond the table", Err.Number, 9
Err.Clear
element = ds.ChannelTable(-1).TxFreq
Check "index before the table", Err.Number, 9
Err.Clear
ds.ChannelTable(0).TxFreq = "much"
Check "text for a number", Err.Number, 13
Err.Clear
ds.SelectedChannel = 40000
Check "too large", Err.Number, 6
Err.Clear
ds.ChannelTable(0).NoSuchKey = 1
Check "unknown key", Err.Number, 438
Err.Clear
ds.Open "c:\no such folder\table.telvar"
text = Err.Description
Check "description", Left(text, 33), "c:\no such folder\table.telvar: P"
Check "one sentence", Right(text, 1), "."
Check "source", Err.Source, "VexloDataStore"
Err.Clear
Check "the value before the failures", ds.ChannelTable(0).TxFreq, 145000000
On Error Goto 0

' ---- the store goes first
Set ds = Nothing
Check "array after the store", table(8).TxFreq, 66
Check "record after the store", record.P25TalkgroupID, "12AB"

WScript.Echo "done"
WScript.Quit 42 + failures
