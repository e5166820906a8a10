// The small families: the grid for hosts, editing commands, safety, identity, and the calculator.
#include "world.h"

#include "com/kit/object_safety.h"

#include <docobj.h>

namespace telvar::tests {
namespace {

struct Interfaces : ControlWorld {
    void SetUp() override { setUp(); }
    template <class Interface>
    [[nodiscard]] ComPointer<Interface> as() const {
        return ComPointer<Interface>::from(control);
    }
};

TEST_F(Interfaces, AreAllThereWithOneIdentity) {
    const IID iids[] = {__uuidof(IUnknown),
                        __uuidof(IDispatch),
                        __uuidof(_ChannelInformation),
                        __uuidof(IChannelGrid),
                        __uuidof(IProvideClassInfo),
                        __uuidof(IProvideClassInfo2),
                        __uuidof(IConnectionPointContainer),
                        __uuidof(ISupportErrorInfo),
                        __uuidof(IOleObject),
                        __uuidof(IOleWindow),
                        __uuidof(IOleInPlaceObject),
                        __uuidof(IOleInPlaceActiveObject),
                        __uuidof(IOleControl),
                        __uuidof(IPersist),
                        __uuidof(IPersistStreamInit),
                        __uuidof(IPersistStorage),
                        __uuidof(IPersistPropertyBag),
                        __uuidof(IViewObject),
                        __uuidof(IViewObject2),
                        __uuidof(IOleCommandTarget),
                        __uuidof(IObjectSafety)};
    for (const IID& iid : iids) {
        ComPointer<IUnknown> found;
        ASSERT_EQ(control->QueryInterface(iid, found.putVoid()), S_OK);
        EXPECT_TRUE(com::sameObject(found.get(), control.get()));
    }
    ComPointer<IUnknown> none;
    EXPECT_EQ(control->QueryInterface(__uuidof(IDataStore), none.putVoid()), E_NOINTERFACE);
    EXPECT_EQ(control->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
    const auto dispatch = as<IDispatch>();
    EXPECT_EQ(numberOf(*dispatch, "Prepare"), 5) << "the default interface answers for IDispatch";
}

TEST_F(Interfaces, CannotBeAggregated) {
    void* object = &object;
    EXPECT_EQ(server.factory(__uuidof(ChannelInformation))->CreateInstance(control.get(), __uuidof(IUnknown), &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(server.getClassObject(__uuidof(DataStore), __uuidof(IClassFactory), &object), CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(Interfaces, TheGridShowsItsCellsAndColumns) {
    fill(255, 450'012'500);
    call(*control, "UpdateControlsFromMemory");
    LONG number = 0;
    EXPECT_EQ(grid->get_RowCount(&number), S_OK);
    EXPECT_EQ(number, 256);
    EXPECT_EQ(grid->get_ColumnCount(&number), S_OK);
    EXPECT_EQ(number, 27);
    EXPECT_EQ(cell(255, 1), "450.012500");
    EXPECT_EQ(cell(255, 0), "255");
    Bstr header;
    EXPECT_EQ(grid->get_Header(1, header.put()), S_OK);
    EXPECT_EQ(header.text(), cell(0, 1));
    EXPECT_NE(header.text(), "");
    VARIANT_BOOL visible = VARIANT_FALSE;
    EXPECT_EQ(grid->get_ColumnVisible(1, &visible), S_OK);
    EXPECT_EQ(visible, VARIANT_TRUE);
    EXPECT_EQ(grid->get_ColumnWidth(1, &number), S_OK);
    EXPECT_GT(number, 0);
}

TEST_F(Interfaces, TheGridsSelectionCanBeSet) {
    EXPECT_EQ(grid->Select(5, 2, 9, 4), S_OK);
    EXPECT_EQ(currentRow(), 5);
    LONG number = 0;
    EXPECT_EQ(grid->get_CurrentColumn(&number), S_OK);
    EXPECT_EQ(number, 2);
    EXPECT_EQ(grid->get_SelectionEndRow(&number), S_OK);
    EXPECT_EQ(number, 9);
    EXPECT_EQ(grid->get_SelectionEndColumn(&number), S_OK);
    EXPECT_EQ(number, 4);
    EXPECT_EQ(grid->put_TopRow(100), S_OK);
    EXPECT_EQ(grid->get_TopRow(&number), S_OK);
    EXPECT_EQ(number, 100);
    EXPECT_EQ(grid->put_LeftColumn(2), S_OK);
    EXPECT_EQ(grid->get_LeftColumn(&number), S_OK);
    EXPECT_EQ(number, 2);
}

TEST_F(Interfaces, CellsOutsideTheGridAreNamedAsSuch) {
    Bstr text;
    for (const auto& [row, column] : {std::pair<LONG, LONG>{256, 1}, {-1, 1}, {1, 27}, {1, -1}, {70000, 70000}}) {
        EXPECT_EQ(grid->get_Cell(row, column, text.put()), DISP_E_BADINDEX) << row << "," << column;
        EXPECT_EQ(text.get(), nullptr);
    }
    EXPECT_EQ(grid->Select(1, 1, 300, 1), DISP_E_BADINDEX);
    EXPECT_EQ(grid->get_Cell(1, 1, nullptr), E_POINTER);
}

TEST_F(Interfaces, TheGridAnswersLateBoundToo) {
    fill(1, 145'000'000);
    call(*control, "UpdateControlsFromMemory");
    const Variant text = call(*grid, "Cell", {Variant(std::int16_t{1}), Variant(std::int16_t{1})});
    EXPECT_EQ(com::valueOf(text), base::textValue("145.000000"));
}

struct Commands : Interfaces {
    [[nodiscard]] DWORD status(DWORD command) const {
        OLECMD asked{command, 99};
        com::check(as<IOleCommandTarget>()->QueryStatus(nullptr, 1, &asked, nullptr));
        return asked.cmdf;
    }
    [[nodiscard]] HRESULT run(DWORD command) const {
        return as<IOleCommandTarget>()->Exec(nullptr, command, OLECMDEXECOPT_DODEFAULT, nullptr, nullptr);
    }
    static constexpr DWORD enabled = OLECMDF_SUPPORTED | OLECMDF_ENABLED;
    static constexpr DWORD disabled = OLECMDF_SUPPORTED;
};

TEST_F(Commands, SelectAllSelectsEveryChannelAndColumn) {
    EXPECT_EQ(status(OLECMDID_SELECTALL), enabled);
    EXPECT_EQ(run(OLECMDID_SELECTALL), S_OK);
    LONG row = 0;
    LONG column = 0;
    com::check(grid->get_SelectionEndRow(&row));
    com::check(grid->get_SelectionEndColumn(&column));
    EXPECT_EQ(currentRow(), 1);
    EXPECT_EQ(row, 255);
    EXPECT_EQ(column, 26);
}

TEST_F(Commands, CopyAndPasteCarryAChannelAcross) {
    fill(1, 145'000'000);
    call(*control, "UpdateControlsFromMemory");
    com::check(grid->Select(1, 1, 1, 2));
    EXPECT_EQ(status(OLECMDID_COPY), enabled);
    EXPECT_EQ(run(OLECMDID_COPY), S_OK);
    com::check(grid->Select(9, 1, 9, 1));
    EXPECT_EQ(status(OLECMDID_PASTE), enabled);
    EXPECT_EQ(run(OLECMDID_PASTE), S_OK);
    EXPECT_EQ(boxes.texts(), Texts{});
    EXPECT_EQ(cell(9, 1), "145.000000");
}

TEST_F(Commands, UndoAndRedoAreEnabledWhenThereIsSomethingToTakeBack) {
    fill(1, 145'000'000);
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(status(OLECMDID_UNDO), disabled);
    EXPECT_EQ(run(OLECMDID_UNDO), OLECMDERR_E_DISABLED);
    com::check(grid->Select(1, 1, 1, 2));
    com::check(run(OLECMDID_COPY));
    com::check(grid->Select(9, 1, 9, 1));
    com::check(run(OLECMDID_PASTE));
    EXPECT_EQ(status(OLECMDID_UNDO), enabled);
    EXPECT_EQ(run(OLECMDID_UNDO), S_OK);
    EXPECT_NE(cell(9, 1), "145.000000");
    EXPECT_EQ(status(OLECMDID_REDO), enabled);
    EXPECT_EQ(run(OLECMDID_REDO), S_OK);
    EXPECT_EQ(cell(9, 1), "145.000000");
}

TEST_F(Commands, OthersAreNotTheControls) {
    EXPECT_EQ(status(OLECMDID_PRINT), 0U);
    EXPECT_EQ(run(OLECMDID_PRINT), OLECMDERR_E_NOTSUPPORTED);
    const GUID other = __uuidof(IOleCommandTarget);
    OLECMD asked{OLECMDID_COPY, 0};
    const auto target = as<IOleCommandTarget>();
    EXPECT_EQ(target->Exec(&other, OLECMDID_SELECTALL, 0, nullptr, nullptr), OLECMDERR_E_UNKNOWNGROUP);
    EXPECT_EQ(target->QueryStatus(&other, 1, &asked, nullptr), OLECMDERR_E_UNKNOWNGROUP);
    EXPECT_EQ(target->QueryStatus(nullptr, 1, nullptr, nullptr), E_POINTER);
}

TEST_F(Interfaces, TheControlIsSafeForAnyCallerAndAnyData) {
    const auto safety = as<IObjectSafety>();
    constexpr DWORD both = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;
    DWORD supported = 0;
    DWORD enabled = 0;
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(__uuidof(IDispatch), &supported, &enabled), S_OK);
    EXPECT_EQ(supported, both);
    EXPECT_EQ(enabled, both);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(__uuidof(IPersistStreamInit), both, both), S_OK);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(__uuidof(IDispatch), 0x100, 0x100), E_FAIL);
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(__uuidof(IDataStore), &supported, &enabled), E_NOINTERFACE);
}

TEST_F(Interfaces, TheCalculatorJudgesASetting) {
    const auto calculator = server.create<_clsPLLSetting>(__uuidof(clsPLLSetting));
    short modulo = 99;
    LONG frequency = 99;
    LONG step = 99;
    VARIANT_BOOL valid = VARIANT_FALSE;
    EXPECT_EQ(calculator->get_Modulo(&modulo), S_OK);
    EXPECT_EQ(calculator->get_VCOFreq(&frequency), S_OK);
    EXPECT_EQ(calculator->get_FreqStepSize(&step), S_OK);
    EXPECT_EQ(calculator->get_IsValid(&valid), S_OK);
    EXPECT_EQ(modulo, 0);
    EXPECT_EQ(frequency, 0);
    EXPECT_EQ(step, 0);
    EXPECT_EQ(valid, VARIANT_TRUE);

    call(*calculator, "InitialiseSettings",
         {Variant(std::int32_t{450'000'000}), Variant(std::int16_t{8}), Variant(std::int32_t{0}),
          Variant(std::int32_t{12'800'000})});
    EXPECT_EQ(com::valueOf(get(*calculator, "IsValid")), base::Value{false}) << "a step of 0";
    EXPECT_EQ(com::valueOf(get(*calculator, "VCOFreq")), base::Value{std::int32_t{450'000'000}});
}

}  // namespace
}  // namespace telvar::tests
