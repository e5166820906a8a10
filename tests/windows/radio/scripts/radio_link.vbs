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

Dim folder
folder = CreateObject("Scripting.FileSystemObject").GetSpecialFolder(2)
link.BackupFolder = folder & "\telvar-link-script"
Check "BackupFolder", link.BackupFolder, folder & "\telvar-link-script"
Check "Connection", link.Connection, "simulated"
Set link.DataStore = ds
ds.NewTable
ds.ChannelTable(7).TxFreq = 156400000
text = "as passed"
flag = True
link.SendChannelTable
Check "Busy", link.Busy, True
Check "Wait for a send", link.Wait(60000), True
Check "a send", link.Succeeded & " " & Left(link.Message, 26), True & " The radio holds the table;"
Check "CommsBusy", ds.CommsBusy, False
Check "ProgressCount", ds.ProgressCount, 100
ds.ChannelTable(7).TxFreq = 1
link.LoadChannelTable text, flag
Check "Wait for a load", link.Wait(60000), True
Check "a load", link.Succeeded & " " & link.Message, True & " The table was loaded from the radio."
Check "LoadChannelTable", text & flag, "as passed" & True
Check "what was loaded", ds.ChannelTable(7).TxFreq, 156400000
link.SelectChannel "12"
Check "Wait for a channel", link.Wait(60000), True
Check "SelectedChannel", ds.SelectedChannel, 12
ds.SetPotValue 0, 7
link.SendPotValues text
Check "Wait for levels", link.Wait(60000), True
Check "levels", link.Succeeded, True
link.Faults = "silence"
link.QueryStatus
Check "Wait for a status", link.Wait(60000), True
link.Faults = "identity"
link.LoadChannelTable "", True
Check "Wait for a failure", link.Wait(60000), True
Check "a failure", link.Message, "What answers is not a Telvar radio: it calls itself ""BASALT""; the table here was not changed."
link.Faults = ""
On Error Resume Next
link.Connection = "usb:1"
Check "Connection", Err.Description, """usb:1"" is no connection: write simulated, tcp:ADDRESS:PORT or serial:PORT,SPEED."
Check "source", Err.Source, "VexloRadioLink"
Err.Clear
link.LoadChannelTable "", True
link.SendChannelTable
Check "a second exchange", Err.Description, "The radio link is busy with another exchange."
Err.Clear
link.AbortTransfer
Check "Wait for an abort", link.Wait(60000), True
helper.Connect ds, sink
Check "a source without events", Err.Description, "The source's class has no events"
On Error Goto 0

WScript.Echo "done"
WScript.Quit 42 + failures
