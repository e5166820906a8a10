// Stores and links that are written in the script language whose objects are made of plain data properties: a value is
// got there, and nothing is called.
#include <gtest/gtest.h>

#include <string>

#include "base/conversion.h"
#include "base/failure.h"
#include "com/adapters/foreign_data_store.h"
#include "com/adapters/foreign_radio_link.h"
#include "com/kit/late_bound.h"
#include "com/kit/value.h"
#include "script_engine.h"

namespace telvar::com::test {
namespace {

using model::ChannelKey;
using model::StoreMember;

class DataScripts : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(engine.run(objects)); }

    [[nodiscard]] model::DataStorePointer store(const char* function) {
        return adaptDataStore(engine.object(function).get());
    }
    [[nodiscard]] std::string textOf(const char* function) {
        const auto script = engine.global();
        return base::toText(valueOf(invoke(*script, memberOf(*script, function), getOrCallFlags)));
    }
    static void expectEveryChannelIsReadAndWritten(model::DataStore& table) {
        for (const int index : {0, 1, 127, 254}) {
            const auto at = static_cast<std::int16_t>(index);
            EXPECT_EQ(base::toDouble(table.readChannel(at, ChannelKey::TxFreq)), 145'000'000 + index);
            table.writeChannel(at, ChannelKey::TxFreq, base::Value{433.5e6});
            // The engine keeps whole numbers as such.
            EXPECT_EQ(base::toDouble(table.readChannel(at, ChannelKey::TxFreq)), 433.5e6);
            table.writeChannel(at, ChannelKey::scan, true);
            EXPECT_EQ(table.readChannel(at, ChannelKey::scan), base::Value{true});
        }
    }

    static constexpr std::wstring_view objects = LR"(
var staged = "";
function record(number) { return { TxFreq: 145000000 + number, scan: false, sm: number }; }
function addRecords(store) {
  store.ChannelTable = [];
  store.ConfigRecords = [record(3)];
  for (var i = 0; i < 255; i++) store.ChannelTable[i] = record(i);
  return store;
}
function arrayStore() { return addRecords({
  TableOpen: false, MessageTitle: "Telvar", SendPermitted: false,
  SetPotValue: function (index, level) { staged += index + "=" + level + " "; },
  EnterChannelSelect: function () { staged += "entered "; },
  AutomaticSelect: function (query) { return query == 2; },
  CheckKey: function (code) { return code >= 48 && code <= 57; },
  CtcssTone: function (index) { return 67 + index / 2; },
  PotValue: function (index) { return 10 * index; }
}); }
function dictionaryStore() {
  var store = { ChannelTable: new ActiveXObject("Scripting.Dictionary") };
  for (var i = 0; i < 255; i++) store.ChannelTable.Add(i, record(i));
  return store;
}
// A variant array of the dictionary's items: the only array of that kind that the language can make.
function itemsStore() { return { ChannelTable: dictionaryStore().ChannelTable.Items() }; }
function storeWithFiles() {
  var store = arrayStore();
  store.files = new ActiveXObject("Scripting.FileSystemObject");
  for (var i = 0; i < 255; i++) store.ChannelTable[i].files = store.files;
  return store;
}
function misspeltStore() {
  return { ChannelTable: [{ Scan: true, txfreq: 5 }, { Scan: true, scan: false, txfreq: 5, TxFreq: 6 }], tableopen: true };
}
function link() { return {
  files: new ActiveXObject("Scripting.FileSystemObject"),
  Busy: false, Succeeded: true,
  SelectChannel: function (text) { staged = "channel " + text; },
  LoadChannelTable: function (text, flag) { staged = typeof text + " " + typeof flag; }
}; }
function theStaged() { return staged; }
)";

    ScriptEngine engine{ScriptEngine::Language::Java};
};

class DataTables : public DataScripts, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Each, DataTables,
                         testing::Values("arrayStore", "dictionaryStore", "itemsStore", "storeWithFiles"),
                         [](const testing::TestParamInfo<const char*>& form) { return std::string(form.param); });

TEST_P(DataTables, AreReadAndWritten) { expectEveryChannelIsReadAndWritten(*store(GetParam())); }

TEST_F(DataScripts, AStoresPropertiesAreGotAndPut) {
    const auto table = store("arrayStore");
    EXPECT_EQ(table->get(StoreMember::TableOpen), base::Value{false});
    table->put(StoreMember::TableOpen, true);
    EXPECT_EQ(table->get(StoreMember::TableOpen), base::Value{true});
    EXPECT_EQ(table->get(StoreMember::MessageTitle), base::textValue("Telvar"));
    EXPECT_EQ(base::toInt16(table->referenceDividerScaling()), 3);
    EXPECT_FALSE(table->SendPermitted());
    EXPECT_THROW((void)table->get(StoreMember::DatabaseTitle), base::Failure);
}

TEST_F(DataScripts, AStoresOperationsAreCalled) {
    const auto table = store("arrayStore");
    table->SetPotValue(0, 12);
    table->SetPotValue(3, 255);
    table->EnterChannelSelect();
    EXPECT_EQ(textOf("theStaged"), "0=12 3=255 entered ");
    EXPECT_TRUE(table->AutomaticSelect(2));
    EXPECT_FALSE(table->AutomaticSelect(3));
    EXPECT_TRUE(table->CheckKey(48));
    EXPECT_FALSE(table->CheckKey(65));
    EXPECT_EQ(table->CtcssTone(5), 69.5F);
    EXPECT_EQ(table->PotValue(3), 30);
}

TEST_F(DataScripts, AStoreThatHoldsAnObjectOfTheSystemIsReadToo) {
    const auto table = store("storeWithFiles");
    EXPECT_EQ(table->get(StoreMember::MessageTitle), base::textValue("Telvar"));
    EXPECT_EQ(base::toInt16(table->referenceDividerScaling()), 3);
    EXPECT_TRUE(table->CheckKey(48));
}

TEST_F(DataScripts, KeysAreFoundInTheirExactSpellingOnly) {
    const auto table = store("misspeltStore");
    EXPECT_THROW((void)table->readChannel(0, ChannelKey::scan), base::Failure);
    EXPECT_THROW((void)table->readChannel(0, ChannelKey::TxFreq), base::Failure);
    EXPECT_THROW(table->writeChannel(0, ChannelKey::scan, true), base::Failure);
    EXPECT_EQ(table->readChannel(1, ChannelKey::scan), base::Value{false});
    EXPECT_EQ(base::toInt16(table->readChannel(1, ChannelKey::TxFreq)), 6);
    EXPECT_THROW((void)table->get(StoreMember::TableOpen), base::Failure);
}

TEST_F(DataScripts, ALinkThatHoldsAnObjectOfTheSystemIsCalled) {
    const auto link = adaptRadioLink(engine.object("link").get());
    std::string channel = "17";
    link->SelectChannel(channel);
    EXPECT_EQ(textOf("theStaged"), "channel 17");
    EXPECT_EQ(channel, "17");
    std::string text = "table";
    bool flag = true;
    link->LoadChannelTable(text, flag);
    EXPECT_EQ(textOf("theStaged"), "string boolean");
    EXPECT_TRUE(flag);
    EXPECT_EQ(link->lastExchangeSucceeded(), true);
}

}  // namespace
}  // namespace telvar::com::test
