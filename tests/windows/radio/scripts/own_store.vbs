' A store that is written in the script itself: the link reads and writes any object. Ends with the line "done" and code 42.
Option Explicit
Dim failures, store, link
failures = 0

Sub Check(name, actual, expected)
    If CStr(actual) <> CStr(expected) Then
        failures = failures + 1
        WScript.Echo name & ": " & actual & " instead of " & expected
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

    Public Function PotValue(at)
        PotValue = 10 * at
    End Function

    Public Function Record(at)
        Set Record = channels(at)
    End Function
End Class

Set store = New Store
Set link = CreateObject("VexloRadioLink.RadioLink")
link.BackupFolder = CreateObject("Scripting.FileSystemObject").GetSpecialFolder(2) & "\telvar-link-script"
Set link.DataStore = store
link.SendChannelTable
Check "CommsBusy", store.CommsBusy, True
Check "Wait for a send", link.Wait(60000), True
Check "a send", link.Succeeded & Left(link.Message, 26), True & "The radio holds the table;"
Check "CommsBusy at the end", store.CommsBusy, False
Check "ProgressCount", store.ProgressCount, 100
store.Record(6).TxFreq = 1
store.Record(254).P25TalkgroupID = "12AB"
link.LoadChannelTable "", True
Check "Wait for a load", link.Wait(60000), True
Check "a load", link.Message, "The table was loaded from the radio."
Check "a frequency", store.Record(6).TxFreq, 450150000
Check "a code", store.Record(254).P25TalkgroupID, ""
Check "DataModified", store.DataModified, True
link.SelectChannel "9"
Check "Wait for a channel", link.Wait(60000), True
Check "SelectedChannel", store.SelectedChannel, 9
link.SendPotValues ""
Check "Wait for levels", link.Wait(60000), True
Check "levels", link.Succeeded, True
store.Record(6).TxFreq = "much"
link.SendChannelTable
Check "Wait for a refusal", link.Wait(60000), True
Check "a refusal", link.Message, "Channel 7: TxFreq is not a number."
Set link.DataStore = Nothing

WScript.Echo "done"
WScript.Quit 42 + failures
