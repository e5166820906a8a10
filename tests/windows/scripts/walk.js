// The main job in the other script language, with a record store of script objects.
var failures = 0;

function expect(what, found, expected) {
    if (found !== expected) {
        ++failures;
        WScript.Echo("FAILED " + what + ": " + found + " instead of " + expected);
    }
}

try {
    var store = new ActiveXObject("VexloDataStore.DataStore");
    store.ChannelTable(0).TxFreq = 145000000;
    expect("a channel in the store", store.ChannelTable(0).TxFreq, 145000000);
    var control = new ActiveXObject("Tesslin.ChannelInformation");
    control.pCentralDataStore = store;
    control.DistributeDataStoreLink();
    control.Prepare();
    control.UpdateControlsFromMemory();
    expect("what the refresh tells the store", store.GridLoaded, true);
    var channel = 7;
    control.HighLightChannel(channel);
    control.UpdateRowData("8");
    control.SetRowBackColour(7, 255);
    expect("the variable", channel, 7);
    control.bHidden = true;
    expect("bHidden", control.bHidden, true);
    control.intPrevChannel = 9;
    expect("intPrevChannel", control.intPrevChannel, 9);
    var number = 0;
    try {
        control.UpdateRowData(40000);
    } catch (error) {
        number = error.number & 0xFFFF;
    }
    expect("too large a channel", number, 10);
} catch (error) {
    ++failures;
    WScript.Echo("FAILED: " + error.message);
}
WScript.Echo("end of walk.js, failures: " + failures);
WScript.Quit(40 + failures);
