' Proves that the tests notice a script that ends too early: the host itself reports success.
Option Explicit
Dim control
Set control = CreateObject("Tesslin.ChannelInformation")
control.NoSuchMember
WScript.Echo "end of breaks_off.vbs, failures: 0"
WScript.Quit 40
