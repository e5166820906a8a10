' The radio link and its events as a script writer uses them. Ends with the line "done" and code 42 when every check held.
Option Explicit
Dim failures, link, ds, helper, sink, text, flag
failures = 0

Sub Check(name, actual, expected)
    If CStr(actual) <> CStr(expected) Then
        failures = failures + 1
        WScript.Echo name & ": " & actual & " instead of " & expected
    End If
End Sub

Class Ending
    Public Count
    Public Told
    Public Sub ExchangeEnded(task, succeeded, message)
        Count = Count + 1
        Told = task & " " & succeeded & " [" & message & "]"
    End Sub
    Public Sub Link_ExchangeEnded(task, succeeded, message)
        Count = Count + 100
    End Sub
End Class

Set link = CreateObject("VexloRadioLink.RadioLink")
Set ds = CreateObject("VexloDataStore.DataStore")
Set helper = CreateObject("TelvarTest.Helper")
Set sink = New Ending
sink.Count = 0

Check "Connected", link.Connected, False
Check "Wait", link.Wait(60000), True
Set link.DataStore = ds
Check "DataStore", link.DataStore.MessageTitle, "Telvar"
Set link.DataStore = Nothing
Check "no DataStore", link.DataStore Is Nothing, True

helper.Connect link, sink
link.AbortTransfer
Check "events", sink.Count, 1
Check "arguments", sink.Told, "0 " & False & " []"
helper.Connect link, sink, "Link_"
link.AbortTransfer
Check "events with and without a prefix", sink.Count, 102
Check "EventCount", helper.EventCount & " " & helper.FailureCount, "3 0"
helper.Disconnect
link.AbortTransfer
Check "events after Disconnect", sink.Count, 102
Check "WaitForEvent", helper.WaitForEvent(1), False
helper.Pump 10

On Error Resume Next
link.SendChannelTable
Check "SendChannelTable", Err.Description, "The radio is not connected."
Check "source", Err.Source, "VexloRadioLink"
Err.Clear
text = "as passed"
flag = True
link.LoadChannelTable text, flag
Check "LoadChannelTable", Err.Description & text & flag, "The radio is not connected.as passed" & True
Err.Clear
link.LoadChannelTable "", True
Check "LoadChannelTable by literals", Err.Description, "The radio is not connected."
Err.Clear
link.SendPotValues text
Check "SendPotValues", Err.Description, "The radio is not connected."
Err.Clear
link.SelectChannel "12"
Check "SelectChannel", Err.Description, "The radio is not connected."
Err.Clear
helper.Connect ds, sink
Check "a source without events", Err.Description, "The source's class has no events"
On Error Goto 0

WScript.Echo "done"
WScript.Quit 42 + failures
