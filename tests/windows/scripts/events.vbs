' Events reach a script through the tests' helper, with their arguments.
Option Explicit
Dim failures, store, control, helper, sink
failures = 0

Sub Expect(what, found, expected)
    If found <> expected Then
        failures = failures + 1
        WScript.Echo "FAILED " & what & ": " & found & " instead of " & expected
    End If
End Sub

Class Host
    Public Rows
    Public Caption
    Public Captions
    Public Others
    Public Sub control_IncrementProgressBar
        Rows = Rows + 1
    End Sub
    Public Sub control_NewWindowCaption(ByRef sNewCaption)
        Captions = Captions + 1
        Caption = sNewCaption
        sNewCaption = "changed by the host"
    End Sub
    Public Sub control_PrintChannelData
        Others = Others & "PrintChannelData "
    End Sub
    Public Sub control_HourglassOverWindow
        Others = Others & "HourglassOverWindow "
    End Sub
    Public Sub control_PauseDiagnostics
        Others = Others & "PauseDiagnostics "
    End Sub
End Class

Class Link
    Public Sub SelectChannel(ByRef channel)
    End Sub
End Class

Set store = CreateObject("VexloDataStore.DataStore")
store.DatabaseTitle = "Band plan"
Set control = CreateObject("Tesslin.ChannelInformation")
Set helper = CreateObject("TelvarTest.Helper")
Set sink = New Host
helper.Connect control, sink, "control_"
Set control.pCentralDataStore = store
control.DistributeDataStoreLink
control.Prepare
control.UpdateControlsFromMemory

Expect "IncrementProgressBar", sink.Rows, 255
Expect "NewWindowCaption", sink.Captions, 1
Expect "its text", sink.Caption, "Channel Information - Band plan"
Expect "handlers that failed", helper.FailureCount, 0

store.TableOpen = True
control.PrintInfo
' The radio follows each step of the channel number, so a step is a channel select.
store.FollowSteps = True
store.ChannelChangeAllowed = True
Set control.plibRadioComms = New Link
control.DistributeRadioCommsLink
control.ChannelKeyDown
Expect "the other events", sink.Others, "PrintChannelData HourglassOverWindow PauseDiagnostics "

helper.Disconnect
control.UpdateControlsFromMemory
Expect "after the end of the connection", sink.Rows, 255

WScript.Echo "end of events.vbs, failures: " & failures
WScript.Quit 40 + failures
