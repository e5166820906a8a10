' A send and a load by script: the checks, the control's events and the link's in one order, and the table that comes back.
Option Explicit
Dim failures, store, link, control, helper, host, folder, i
failures = 0

Sub Expect(what, found, expected)
    If found <> expected Then
        failures = failures + 1
        WScript.Echo "FAILED " & what & ": " & found & " instead of " & expected
    End If
End Sub

Class Host
    Public Told
    Public Sub control_DisableCommands
        Told = Told & "DisableCommands "
    End Sub
    Public Sub control_HourglassOverWindow
        Told = Told & "HourglassOverWindow "
    End Sub
    Public Sub control_PauseDiagnostics
        Told = Told & "PauseDiagnostics "
    End Sub
    Public Sub control_RestoreButtons
        Told = Told & "RestoreButtons "
    End Sub
    Public Sub control_EnableCommands(ByRef commands)
        Told = Told & "EnableCommands " & commands & " "
    End Sub
    Public Sub link_ExchangeEnded(task, succeeded, message)
        Told = Told & "ExchangeEnded " & task & " " & CInt(succeeded) & " "
        control.EnableMyCommands "RS232"
    End Sub
End Class

' What the host was told since the last time.
Function Told()
    Told = Trim(host.Told)
    host.Told = ""
End Function

folder = CreateObject("Scripting.FileSystemObject").GetSpecialFolder(2)
Set store = CreateObject("VexloDataStore.DataStore")
store.NewTable
store.ShowSendWarning = False
For i = 0 To 39
    store.ChannelTable(i).TxFreq = 450000000 + i * 12500
    store.ChannelTable(i).scan = True
Next
Set link = CreateObject("VexloRadioLink.RadioLink")
link.BackupFolder = folder & "\telvar-control-script"
Set link.DataStore = store
Set control = CreateObject("Tesslin.ChannelInformation")
Set control.pCentralDataStore = store
Set control.plibRadioComms = link
control.DistributeDataStoreLink
control.DistributeRadioCommsLink
control.Prepare
control.UpdateControlsFromMemory
Set host = New Host
Set helper = CreateObject("TelvarTest.Helper")
helper.Connect control, host, "control_"
helper.Connect link, host, "link_"

Expect "the checks of a good table", control.check_Frequencies, True
Expect "forty scanned channels", control.CheckTotalNoOfChannelScan, ""
control.SendToTelvar
Expect "the link is busy when the call returns", link.Busy, True
Expect "the store knows", store.CommsBusy & store.CommsTask, True & "30"
Expect "waiting for the send", link.Wait(60000), True
Expect "the send", Left(link.Message, 26), "The radio holds the table;"
Expect "events of a send", Told(), "DisableCommands HourglassOverWindow PauseDiagnostics ExchangeEnded 30 -1"

store.ChannelTable(6).TxFreq = 446006250
control.LoadFromTelvar
Expect "waiting for the load", link.Wait(60000), True
Expect "the load", link.Message, "The table was loaded from the radio."
Expect "events of a load", Told(), "DisableCommands HourglassOverWindow PauseDiagnostics ExchangeEnded 22 -1"
Expect "what came back", store.ChannelTable(6).TxFreq, 450075000
Expect "the scan flag that came back", store.ChannelTable(39).scan, True

' The long forms do the same.
control.SendChannelInfoToTelvar
Expect "waiting for the second send", link.Wait(60000), True
control.LoadChannelInfoFromTelvar
Expect "waiting for the second load", link.Wait(60000), True
Expect "events of both", Told(), "DisableCommands HourglassOverWindow PauseDiagnostics ExchangeEnded 30 -1 " & _
    "DisableCommands HourglassOverWindow PauseDiagnostics ExchangeEnded 22 -1"

' Each refusal reports as many ends as stages were passed over, so that the host gets its commands back.
store.SendPermitted = False
control.SendToTelvar
Expect "events without permission", Told(), "DisableCommands HourglassOverWindow ExchangeEnded 0 0 ExchangeEnded 0 0 ExchangeEnded 0 0"
store.SendPermitted = True
store.ChannelTable(40).TxFreq = 450500000
store.ChannelTable(40).scan = True
Expect "forty-one scanned channels", control.CheckTotalNoOfChannelScan, "Total number of channel scan must not exceed 40."
control.SendToTelvar
Expect "events of too many", Told(), "DisableCommands HourglassOverWindow PauseDiagnostics ExchangeEnded 0 0"
store.ChannelTable(40).scan = False
store.ChannelTable(40).TxFreq = 450500001
Expect "the checks of a faulty table", control.check_Frequencies, False
control.SendToTelvar
Expect "events of a faulty table", Told(), "DisableCommands HourglassOverWindow ExchangeEnded 0 0 ExchangeEnded 0 0"
store.ChannelTable(40).TxFreq = 0

' A fault ends in one sentence, the table stays, and the next load is good again.
link.Faults = "identity"
control.LoadFromTelvar
Expect "waiting for the fault", link.Wait(60000), True
Expect "the fault", link.Message, "What answers is not a Telvar radio: it calls itself ""BASALT""; the table here was not changed."
Expect "events of a fault", Told(), "DisableCommands HourglassOverWindow PauseDiagnostics ExchangeEnded 22 0"
Expect "the table after it", store.ChannelTable(6).TxFreq, 450075000
link.Faults = ""
control.LoadFromTelvar
Expect "waiting for the last load", link.Wait(60000), True
Expect "the last load", link.Succeeded, True
Expect "handlers that failed", helper.FailureCount, 0

helper.Disconnect
Set link.DataStore = Nothing
WScript.Echo "end of transfer.vbs, failures: " & failures
WScript.Quit 40 + failures
