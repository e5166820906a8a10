' The main job by script: a store is filled, the control is started up with store and link, and shows the table.
Option Explicit
Dim store, link, control, i, failures
failures = 0

Sub Expect(what, found, expected)
    If found <> expected Then
        failures = failures + 1
        WScript.Echo "FAILED " & what & ": " & found & " instead of " & expected
    End If
End Sub

Set store = CreateObject("VexloDataStore.DataStore")
store.DatabaseTitle = "By script"
For i = 0 To 254
    store.ChannelTable(i).TxFreq = 145000000 + i * 12500
    store.ChannelTable(i).RxFreq = 145000000 + i * 12500
Next
Expect "a channel in the store", store.ChannelTable(254).TxFreq, 148175000

Set link = CreateObject("VexloRadioLink.RadioLink")
Set link.DataStore = store
Expect "the link's store", link.DataStore Is store, True

Set control = CreateObject("Tesslin.ChannelInformation")
Expect "the type's name", TypeName(control), "_ChannelInformation"
Expect "no store at first", control.pCentralDataStore Is Nothing, True
Expect "no link at first", control.plibRadioComms Is Nothing, True
Set control.pCentralDataStore = store
Set control.plibRadioComms = link
Expect "the store", control.pCentralDataStore Is store, True
Expect "the link", control.plibRadioComms Is link, True
control.DistributeDataStoreLink
control.DistributeRadioCommsLink
control.Prepare
control.UpdateControlsFromMemory
Expect "what the refresh tells the store", store.GridLoaded, True

store.ChannelTable(4).TxFreq = 446006250
control.UpdateRowData 5
store.SelectedChannel = 5
control.UpdateChannelSelection

Set control.pCentralDataStore = Nothing
control.DistributeDataStoreLink
Expect "no store at the end", control.pCentralDataStore Is Nothing, True

WScript.Echo "end of walk.vbs, failures: " & failures
WScript.Quit 40 + failures
