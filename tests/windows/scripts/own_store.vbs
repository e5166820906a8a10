' Stores and links that are written in the script itself: the control takes any object.
Option Explicit
Dim failures, store, control, link, i
failures = 0

Sub Expect(what, found, expected)
    If found <> expected Then
        failures = failures + 1
        WScript.Echo "FAILED " & what & ": " & found & " instead of " & expected
    End If
End Sub

Class Channel
    Public TxFreq : Public RxFreq : Public TxCTCSSDCS : Public TxDCSIndex : Public TxSub
    Public RxCTCSSDCS : Public RxDCSIndex : Public RxSub : Public ModeBits : Public scan
    Public TxLevel : Public SynthStep : Public AccelInt : Public BinMain : Public Modulo
    Public AccelProp : Public RxSynthStep : Public RxAccelInt : Public RxBinMain : Public RxModulo
    Public RxAccelProp : Public TxPower : Public RefOscFreq : Public VCODev : Public RefOscDev
    Public NBRefOscFreq : Public NBVCODev : Public NBRefOscDev : Public P25TransmitMode : Public p25RepeaterEnable
    Public TTRAnalogDataMode : Public P25TxNetworkAccessCode : Public P25RxNetworkAccessCode : Public P25TalkgroupID : Public Reads
End Class

Class Store
    Public BandwidthSwitchable : Public FCCNarrowBandRadio : Public HardwareRevision : Public P25BoardFitted : Public RadioConfigurationCode
    Public TxReferenceFrequency : Public RxReferenceFrequency : Public LocalOscOffset : Public TxSynthChipInfo : Public RxSynthChipInfo
    Public DCSOptionFitted : Public ChannelSpacing : Public MessageTitle : Public DatabaseTitle : Public TableOpen
    Public SelectedChannel : Public GridLoaded : Public DataModified : Public ChannelDataModified : Public CommsBusy
    Public CommsTask : Public ProgressCount : Public ShowSendWarning : Public SendInProgress : Public ChannelChangeAllowed
    Private channels
    Public Asked

    Private Sub Class_Initialize
        Dim at, made, list
        ReDim list(254)
        For at = 0 To 254
            Set made = New Channel
            made.TxFreq = 450000000 + at * 25000
            made.RxFreq = made.TxFreq
            Set list(at) = made
        Next
        channels = list
        Asked = 0
        DatabaseTitle = "Script's own"
    End Sub

    Public Property Get ChannelTable
        Asked = Asked + 1
        ChannelTable = channels
    End Property

    Public Function Record(at)
        Set Record = channels(at)
    End Function
End Class

Class Link
    Public Calls
    Public Sub SelectChannel(ByRef text)
        Calls = Calls & "SelectChannel " & text & ";"
    End Sub
    ' What is left in the arguments is nobody's business.
    Public Sub LoadChannelTable(ByRef text, ByRef flag)
        Calls = Calls & "LoadChannelTable;"
        text = Null
        Set flag = Nothing
    End Sub
    Public Sub AbortTransfer
        Calls = Calls & "AbortTransfer;"
    End Sub
End Class

Set store = New Store
Set link = New Link
Set control = CreateObject("Tesslin.ChannelInformation")
Set control.pCentralDataStore = store
Set control.plibRadioComms = link
Expect "the store", control.pCentralDataStore Is store, True
Expect "the link", control.plibRadioComms Is link, True
control.DistributeDataStoreLink
control.DistributeRadioCommsLink
control.Prepare
control.UpdateControlsFromMemory
Expect "the table was asked for", store.Asked > 255, True
Expect "what the refresh tells the store", store.GridLoaded, True

i = store.Asked
store.Record(4).TxFreq = 446006250
control.UpdateRowData 5
Expect "asked afresh for one row", store.Asked > i, True

control.LoadFromTelvar
Expect "a load that the link accepted", link.Calls, "LoadChannelTable;"

' One record of the script's own would not fit into the other store; the other way round works.
Set control.pCentralDataStore = CreateObject("VexloDataStore.DataStore")
control.DistributeDataStoreLink
control.UpdateControlsFromMemory
Set control.pCentralDataStore = store
control.UpdateControlsFromMemory

WScript.Echo "end of own_store.vbs, failures: " & failures
WScript.Quit 40 + failures
