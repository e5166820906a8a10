' Every published member by its name: the methods without a crash, the properties written and read back.
Option Explicit
Dim store, link, control, calculator, failures, result
failures = 0

Sub Expect(what, found, expected)
    If found <> expected Then
        failures = failures + 1
        WScript.Echo "FAILED " & what & ": " & found & " instead of " & expected
    End If
End Sub

Set store = CreateObject("VexloDataStore.DataStore")
Set link = CreateObject("VexloRadioLink.RadioLink")
Set control = CreateObject("Tesslin.ChannelInformation")

Set control.pCentralDataStore = store
Set control.plibRadioComms = link
control.DistributeDataStoreLink
control.DistributeRadioCommsLink
control.Prepare
control.Prepare
control.HideAdvancedButton
control.DisplayFill
control.ChannelFillDown
control.ChannelFillSeries
result = control.check_Frequencies
Expect "type of check_Frequencies", TypeName(result), "Boolean"
control.LoadFromTelvar
control.SendToTelvar
control.LoadChannelInfoFromTelvar
control.SendChannelInfoToTelvar
result = control.CheckTotalNoOfChannelScan
Expect "type of CheckTotalNoOfChannelScan", TypeName(result), "String"
control.UpdateControlsFromMemory
control.SetRowBackColour 1, 255
control.HighLightChannel 7
control.UpdateChannelSelection
control.UpdateRowData 255
control.UpdateAccess 5
control.DisableMyCommands "RS232"
control.EnableMyCommands "RS232"
store.TableOpen = True
control.PrintInfo
control.RefreshEditForm
control.ChannelKeyUp
control.ChannelKeyDown
control.logMessage "by script"

control.bHidden = True
Expect "bHidden", control.bHidden, True
control.bHidden = False
Expect "bHidden", control.bHidden, False
control.intPrevChannel = 42
Expect "intPrevChannel", control.intPrevChannel, 42
Expect "type of intPrevChannel", TypeName(control.intPrevChannel), "Integer"
Expect "pCentralDataStore", control.pCentralDataStore Is store, True
Expect "plibRadioComms", control.plibRadioComms Is link, True

On Error Resume Next
control.intPrevChannel = 40000
Expect "too large a channel", Err.Number, 6
Err.Clear
control.intPrevChannel = "x"
Expect "a channel that is no number", Err.Number, 13
Err.Clear
control.pCentralDataStore = 5
Expect "a store that is no object", Err.Number, 13
Err.Clear
control.NoSuchMember
Expect "a member that does not exist", Err.Number, 438
Err.Clear
On Error GoTo 0

Set calculator = CreateObject("Tesslin.clsPLLSetting")
Expect "Modulo", calculator.Modulo, 0
Expect "VCOFreq", calculator.VCOFreq, 0
Expect "FreqStepSize", calculator.FreqStepSize, 0
Expect "IsValid", calculator.IsValid, True
calculator.InitialiseSettings 450000000, 8, 12500, 12800000
Expect "Modulo", calculator.Modulo, 8
Expect "VCOFreq", calculator.VCOFreq, 450000000
Expect "FreqStepSize", calculator.FreqStepSize, 12500
Expect "the usual setting", calculator.IsValid, True
Sub Refused(what, vco, modulo, fstep, reference)
    calculator.InitialiseSettings vco, modulo, fstep, reference
    Expect what, calculator.IsValid, False
    Expect what & ", VCOFreq", calculator.VCOFreq, vco
    Expect what & ", Modulo", calculator.Modulo, modulo
    Expect what & ", FreqStepSize", calculator.FreqStepSize, fstep
End Sub
Refused "a step of 0", 450000000, 8, 0, 12800000
Refused "a modulo of 0", 450000000, 0, 12500, 12800000
Refused "a product that overflows", 450000000, 32767, 2147483647, 12800000
Refused "a reference off the raster", 450000000, 8, 12500, 12800001
Refused "a frequency off the raster", 450000001, 8, 12500, 12800000
Refused "the largest arguments", 2147483647, 32767, 2147483647, 2147483647
Refused "the smallest arguments", -2147483647 - 1, -32767 - 1, -2147483647 - 1, -2147483647 - 1
Refused "the smallest frequency by minus one", -2147483647 - 1, 1, -1, 12800000
calculator.InitialiseSettings 450000000, 8, 12500, 12800000
Expect "the usual setting again", calculator.IsValid, True

WScript.Echo "end of members.vbs, failures: " & failures
WScript.Quit 40 + failures
