// The data store as a script writer uses it. Ends with the line "done" and code 42 when every check held.
var failures = 0;

function check(name, actual, expected) {
    if (actual !== expected) {
        ++failures;
        WScript.Echo(name + ": " + actual + " instead of " + expected);
    }
}

var ds = new ActiveXObject("VexloDataStore.DataStore");
check("MessageTitle", ds.MessageTitle, "Telvar");
ds.ChannelSpacing = 12500;
check("ChannelSpacing", ds.ChannelSpacing, 12500);
check("TableOpen", ds.TableOpen, false);

ds.ChannelTable(8).TxFreq = 66;
check("put with an index", ds.ChannelTable(8).TxFreq, 66);
var record = ds.ChannelTable(7);
record.scan = 1;
check("scan", record.scan, true);
record.TxSub = 88.5;
check("TxSub", ds.ChannelTable(7).TxSub, 88.5);
record.P25TalkgroupID = "12AB";
check("P25TalkgroupID", record.P25TalkgroupID, "12AB");
for (var index = 250; index < 255; ++index) {
    ds.ChannelTable(index).ModeBits = index;
}
check("index in a variable", ds.ChannelTable(252).ModeBits, 252);
check("index as text", ds.ChannelTable("252").ModeBits, 252);

var table = new VBArray(ds.ChannelTable);
check("bounds", table.lbound(1) + " " + table.ubound(1), "0 254");
check("element", table.getItem(8).TxFreq, 66);
table.getItem(9).TxPower = 201;
check("written through the array", ds.ChannelTable(9).TxPower, 201);

ds.SetPotValue(2, 77);
check("PotValue", ds.PotValue(2), 77);
ds.FollowSteps = true;
check("AutomaticSelect", ds.AutomaticSelect(2), true);
ds.ConfigRecords(0).sm = 4;
check("sm", ds.ConfigRecords.Item(0).sm, 4);
var sum = 0;
for (var all = new Enumerator(ds.ConfigRecords); !all.atEnd(); all.moveNext()) {
    sum += all.item().sm;
}
check("Enumerator over ConfigRecords", sum, 4);

function codeOf(action) {
    try {
        action();
    } catch (failure) {
        return failure.number & 0xFFFF;
    }
    return "no failure";
}
check("text for a number", codeOf(function () { ds.ChannelTable(0).TxFreq = "much"; }), 0x0005);
check("index beyond the table", codeOf(function () { ds.ChannelTable(255).TxFreq; }), 0x000B);

ds = null;
CollectGarbage();
check("record after the store", record.P25TalkgroupID, "12AB");
check("array after the store", table.getItem(8).TxFreq, 66);

WScript.Echo("done");
WScript.Quit(42 + failures);
