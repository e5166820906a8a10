// Stores and links that are written in the system's script language.
#include <gtest/gtest.h>

#include <string>

#include "base/conversion.h"
#include "base/failure.h"
#include "com/adapters/foreign_data_store.h"
#include "com/adapters/foreign_radio_link.h"
#include "com/kit/failure.h"
#include "com/kit/late_bound.h"
#include "com/kit/value.h"
#include "script_engine.h"

namespace telvar::com::test {
namespace {

using model::ChannelKey;
using model::StoreMember;

class Scripts : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(engine.run(classes)); }

    [[nodiscard]] model::DataStorePointer store(const char* function) {
        return adaptDataStore(engine.object(function).get());
    }
    [[nodiscard]] std::string textOf(const char* function) {
        const auto script = engine.global();
        return base::toText(valueOf(invoke(*script, memberOf(*script, function), getOrCallFlags)));
    }

    static constexpr std::wstring_view classes = LR"(
Dim staged, selected, loaded, single
Class Record
  Public TxFreq
  Public TxSub
  Public sm
  Private scan_
  Public Property Get scan()
    scan = scan_
  End Property
  Public Property Let scan(value)
    scan_ = value
  End Property
End Class
Function NewRecord(number)
  Dim record
  Set record = New Record
  record.TxFreq = 145000000 + number
  record.sm = number
  Set NewRecord = record
End Function

Class Items
  Private items_
  Private Sub Class_Initialize()
    Dim t(254), i
    For i = 0 To 254
      Set t(i) = NewRecord(i)
    Next
    items_ = t
  End Sub
  Public Default Property Get Item(index)
    Set Item = items_(index)
  End Property
End Class

' The table is an array, made when the store is.
Class ArrayStore
  Private table_
  Private configuration_
  Public TableOpen
  Private Sub Class_Initialize()
    Dim t(254), i
    For i = 0 To 254
      Set t(i) = NewRecord(i)
    Next
    table_ = t
    configuration_ = Array(NewRecord(3))
    TableOpen = False
  End Sub
  Public Property Get ChannelTable()
    ChannelTable = table_
  End Property
  Public Property Get ConfigRecords()
    ConfigRecords = configuration_
  End Property
  Public Sub SetPotValue(index, level)
    staged = staged & index & "=" & level & " "
  End Sub
  Public Function AutomaticSelect(ByRef query)
    AutomaticSelect = (query = 2)
    query = 9
  End Function
  Public Function CheckKey(ByVal code)
    CheckKey = code >= 48 And code <= 57
  End Function
  Public Function CtcssTone(index)
    CtcssTone = CSng(67)
  End Function
  Public Sub EnterChannelSelect()
    staged = staged & "entered "
  End Sub
End Class

' The table is an object that is indexed.
Class CollectionStore
  Private table_
  Private Sub Class_Initialize()
    Set table_ = New Items
  End Sub
  Public Property Get ChannelTable()
    Set ChannelTable = table_
  End Property
  Public Property Get ConfigRecords()
    Set ConfigRecords = table_
  End Property
  Public Property Get MessageTitle()
    Err.Raise 1001, "A store", "No title today"
  End Property
End Class

' The table is a property with an argument.
Class IndexedStore
  Private table_
  Private Sub Class_Initialize()
    Set table_ = New Items
  End Sub
  Public Property Get ChannelTable(index)
    Set ChannelTable = table_(index)
  End Property
  Public Property Get ConfigRecords(index)
    Set ConfigRecords = table_(index)
  End Property
  Public Property Get SendPermitted()
    SendPermitted = False
  End Property
End Class

Class Link
  Public Sub SelectChannel(ByRef channel)
    selected = channel
    channel = "went to " & channel
  End Sub
  Public Sub LoadChannelTable(ByRef text, ByRef flag)
    loaded = TypeName(text) & " " & TypeName(flag)
    text = "reading"
    flag = False
  End Sub
  Public Sub SendPotValues(ByVal text)
    loaded = "pots" & text
  End Sub
End Class

' Leaves nothing usable behind.
Class OddLink
  Public Sub SelectChannel(ByRef channel)
    Set channel = Me
  End Sub
  Public Sub LoadChannelTable(ByRef text, ByRef flag)
    text = Null
    Set flag = Nothing
  End Sub
  Public Sub SendPotValues(ByRef text)
    text = Array(1, 2)
  End Sub
End Class

Class Number
  Public Default Property Get Value()
    Value = 446000000
  End Property
End Class
Class ObjectRecord
  Public Property Get TxFreq()
    Set TxFreq = New Number
  End Property
End Class
Class ObjectStore
  Public Property Get ChannelTable(index)
    Set ChannelTable = New ObjectRecord
  End Property
End Class

Function NewObjectStore()
  Set NewObjectStore = New ObjectStore
End Function
Function NewOddLink()
  Set NewOddLink = New OddLink
End Function
Function NewArrayStore()
  Set NewArrayStore = New ArrayStore
End Function
Function NewCollectionStore()
  Set NewCollectionStore = New CollectionStore
End Function
Function NewIndexedStore()
  Set NewIndexedStore = New IndexedStore
End Function
Function NewLink()
  Set NewLink = New Link
End Function
Function TheStaged()
  TheStaged = staged
End Function
Function TheSelected()
  TheSelected = selected
End Function
Function TheLoaded()
  TheLoaded = loaded
End Function
)";

    ScriptEngine engine;
};

class ScriptTables : public Scripts, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Each, ScriptTables, testing::Values("NewArrayStore", "NewCollectionStore", "NewIndexedStore"));

TEST_P(ScriptTables, AreReadAndWritten) {
    const auto table = store(GetParam());
    for (const int index : {0, 1, 127, 254}) {
        const auto at = static_cast<std::int16_t>(index);
        EXPECT_EQ(base::toDouble(table->readChannel(at, ChannelKey::TxFreq)), 145'000'000 + index);
        table->writeChannel(at, ChannelKey::TxFreq, base::Value{433.5e6});
        EXPECT_EQ(table->readChannel(at, ChannelKey::TxFreq), base::Value{433.5e6});
        table->writeChannel(at, ChannelKey::scan, true);
        EXPECT_EQ(table->readChannel(at, ChannelKey::scan), base::Value{true});
        EXPECT_EQ(table->readChannel(at, ChannelKey::TxSub), base::Value{base::Empty{}});
    }
    EXPECT_THROW((void)table->readChannel(0, ChannelKey::RxFreq), base::Failure);
    EXPECT_NO_THROW((void)base::toInt16(table->referenceDividerScaling()));
}

TEST_F(Scripts, AStoresOperationsAreCalled) {
    const auto table = store("NewArrayStore");
    table->SetPotValue(0, 12);
    table->SetPotValue(3, 255);
    table->EnterChannelSelect();
    EXPECT_EQ(textOf("TheStaged"), "0=12 3=255 entered ");
    EXPECT_TRUE(table->AutomaticSelect(2));
    EXPECT_FALSE(table->AutomaticSelect(3));
    EXPECT_TRUE(table->CheckKey(48));
    EXPECT_FALSE(table->CheckKey(65));
    EXPECT_EQ(table->CtcssTone(5), 67.0F);
    EXPECT_TRUE(table->SendPermitted());
    EXPECT_FALSE(store("NewIndexedStore")->SendPermitted());
    table->put(StoreMember::TableOpen, true);
    EXPECT_EQ(table->get(StoreMember::TableOpen), base::Value{true});
    EXPECT_EQ(base::toInt16(table->referenceDividerScaling()), 3);
}

TEST_F(Scripts, AStoresFailureIsAFailure) {
    const auto table = store("NewCollectionStore");
    try {
        (void)table->get(StoreMember::MessageTitle);
        FAIL() << "no failure";
    } catch (const ComFailure& failure) {
        // The script's own number. Its words travel with it only where the engine passes them on.
        EXPECT_EQ(failure.code(), static_cast<HRESULT>(0x800A0000 + 1001));
        EXPECT_FALSE(failure.description().empty());
    }
    EXPECT_THROW((void)table->get(StoreMember::DatabaseTitle), base::Failure);
}

TEST_F(Scripts, ALinkIsGivenVariablesThatItMayChange) {
    const auto link = adaptRadioLink(engine.object("NewLink").get());
    std::string channel = "17";
    link->SelectChannel(channel);
    EXPECT_EQ(textOf("TheSelected"), "17");
    EXPECT_EQ(channel, "went to 17");

    std::string text;
    bool flag = true;
    link->LoadChannelTable(text, flag);
    EXPECT_EQ(textOf("TheLoaded"), "String Boolean");
    EXPECT_EQ(text, "reading");
    EXPECT_FALSE(flag);

    text.clear();
    link->SendPotValues(text);
    EXPECT_EQ(textOf("TheLoaded"), "pots");
    EXPECT_EQ(text, "");
    EXPECT_THROW(link->SendChannelTable(), base::Failure);
}

TEST_F(Scripts, WhatALinkLeavesInItsArgumentsAndIsNothingOfTheKindIsNoFailure) {
    const auto link = adaptRadioLink(engine.object("NewOddLink").get());
    std::string text = "table";
    bool flag = true;
    EXPECT_NO_THROW(link->LoadChannelTable(text, flag));
    EXPECT_EQ(text, "table");
    EXPECT_TRUE(flag);
    EXPECT_NO_THROW(link->SelectChannel(text));
    EXPECT_EQ(text, "table");
    EXPECT_NO_THROW(link->SendPotValues(text));
    EXPECT_EQ(text, "table");
}

TEST_F(Scripts, AValueThatIsAnObjectAnswersWithItsDefaultProperty) {
    const auto table = store("NewObjectStore");
    EXPECT_EQ(base::toInt32(table->readChannel(7, ChannelKey::TxFreq)), 446'000'000);
}

}  // namespace
}  // namespace telvar::com::test
