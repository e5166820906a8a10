' Arguments by reference, 16 and 32 bits and texts: as literals, constants, expressions, variables of any type, elements of
' arrays and members of objects.
Option Explicit
Const asConstant = 6
Dim store, control, failures
Dim anInteger, aLong, aDouble, aString, aByte, nothingYet, anArray, aBoolean
failures = 0

Sub Expect(what, found, expected)
    If found <> expected Then
        failures = failures + 1
        WScript.Echo "FAILED " & what & ": " & found & " instead of " & expected
    End If
End Sub

Sub ByReference(ByRef channel)
    control.UpdateRowData channel
End Sub

Sub ByValue(ByVal channel)
    control.UpdateRowData channel
End Sub

Class Holder
    Public Channel
End Class

Set store = CreateObject("VexloDataStore.DataStore")
Set control = CreateObject("Tesslin.ChannelInformation")
Set control.pCentralDataStore = store
control.DistributeDataStoreLink
control.Prepare

control.UpdateRowData 5
control.UpdateRowData (5)
control.UpdateRowData 2 + 3
control.UpdateRowData asConstant
control.UpdateRowData CInt(5)
control.UpdateRowData CLng(5)
control.UpdateRowData CByte(5)
control.UpdateRowData 5.0
control.UpdateRowData "5"

anInteger = CInt(7)
control.UpdateRowData anInteger
Expect "the Integer", anInteger, 7
Expect "its type", TypeName(anInteger), "Integer"
aLong = CLng(8)
control.UpdateRowData aLong
Expect "the Long", aLong, 8
aDouble = 9.0
control.UpdateRowData aDouble
Expect "the Double", aDouble, 9
aString = "10"
control.UpdateRowData aString
Expect "the String", aString, "10"
Expect "its type", TypeName(aString), "String"
aByte = CByte(11)
control.UpdateRowData aByte
Expect "the Byte", aByte, 11
anArray = Array(1, 2, 3)
control.UpdateRowData anArray(1)
Expect "the element", anArray(1), 2

Dim held
Set held = New Holder
held.Channel = 12
control.UpdateRowData held.Channel
Expect "the member", held.Channel, 12
ByReference anInteger
ByValue anInteger
Expect "through a procedure", anInteger, 7

' Two of them, 16 and 32 bits.
anInteger = CInt(3)
aLong = CLng(65280)
control.SetRowBackColour anInteger, aLong
control.SetRowBackColour 3, 65280
control.SetRowBackColour aLong - 65277, &HFF00&
Expect "the row", anInteger, 3
Expect "the colour", aLong, 65280
control.HighLightChannel anInteger
control.UpdateAccess nothingYet
Expect "a variable that was never set", IsEmpty(nothingYet), True

aString = "RS232"
control.DisableMyCommands aString
control.EnableMyCommands aString
Expect "the text", aString, "RS232"
control.EnableMyCommands "All"
control.logMessage "line " & 1
aLong = 17
control.logMessage aLong
Expect "a number as a text", aLong, 17

On Error Resume Next
aLong = 40000
control.UpdateRowData aLong
Expect "too large", Err.Number, 6
Err.Clear
aString = "x"
control.UpdateRowData aString
Expect "no number", Err.Number, 13
Err.Clear
control.UpdateRowData anArray
Expect "a whole array", Err.Number, 13
Err.Clear
control.UpdateRowData
Expect "too few", Err.Number <> 0, True
Err.Clear
control.UpdateRowData 1, 2
Expect "too many", Err.Number <> 0, True
Err.Clear
On Error GoTo 0

WScript.Echo "end of arguments.vbs, failures: " & failures
WScript.Quit 40 + failures
