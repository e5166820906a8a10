#include <cstdint>
#include <string>
#include <vector>

#include "world.h"

namespace telvar::tests {
namespace {

class ChannelTable : public StoreWorld {
protected:
    [[nodiscard]] HRESULT element(const Variant& index, Variant& result) const {
        return callCode(*store, "ChannelTable", {index}, result);
    }
};

[[nodiscard]] const VARIANT& elementOf(SAFEARRAY* array, LONG index) {
    void* element = nullptr;
    com::check(SafeArrayPtrOfIndex(array, &index, &element));
    return *static_cast<VARIANT*>(element);
}

TEST_F(ChannelTable, IsAnArrayOf255Records) {
    const Variant table = get(*store, "ChannelTable");
    ASSERT_EQ(table.type(), VT_ARRAY | VT_VARIANT);
    SAFEARRAY* const array = V_ARRAY(&table.get());
    EXPECT_EQ(SafeArrayGetDim(array), 1U);
    LONG bound = -1;
    ASSERT_EQ(SafeArrayGetLBound(array, 1, &bound), S_OK);
    EXPECT_EQ(bound, 0);
    ASSERT_EQ(SafeArrayGetUBound(array, 1, &bound), S_OK);
    EXPECT_EQ(bound, 254);
    for (LONG index = 0; index <= bound; ++index) {
        const VARIANT& element = elementOf(array, index);
        ASSERT_EQ(element.vt, VT_DISPATCH);
        EXPECT_EQ(V_DISPATCH(&element), record(static_cast<std::int16_t>(index)).get()) << index;
    }
}

// Late-bound in every way in which callers ask, and typed.
TEST_F(ChannelTable, BelongsToWhoeverAskedForIt) {
    put(*record(7), "TxFreq", Variant(std::int32_t{66}));
    std::vector<Variant> tables(4);
    const auto member = com::memberOf(*store, "ChannelTable");
    ASSERT_EQ(com::tryInvoke(*store, member, DISPATCH_PROPERTYGET, {}, tables[0]), S_OK);
    ASSERT_EQ(com::tryInvoke(*store, member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, tables[1]), S_OK);
    ASSERT_EQ(store->get_ChannelTable(tables[2].put()), S_OK);
    ASSERT_EQ(store->get_ChannelTable(tables[3].put()), S_OK);
    EXPECT_EQ(store->get_ChannelTable(nullptr), E_POINTER);
    for (Variant& table : tables) {
        ASSERT_EQ(table.type(), VT_ARRAY | VT_VARIANT);
        VARIANT& element = const_cast<VARIANT&>(elementOf(V_ARRAY(&table.get()), 7));
        EXPECT_EQ(V_DISPATCH(&element), record(7).get());
        EXPECT_EQ(VariantClear(&element), S_OK);
        EXPECT_EQ(SafeArrayDestroy(V_ARRAY(&table.get())), S_OK);
        V_VT(&table.get()) = VT_EMPTY;
    }
    EXPECT_EQ(textOf(get(*record(7), "TxFreq")), "66");
}

TEST_F(ChannelTable, OutlivesTheStore) {
    put(*record(4), "TxFreq", Variant(std::int32_t{156'300'000}));
    const Variant table = get(*store, "ChannelTable");
    store.reset();
    EXPECT_FALSE(server.canUnload());
    const auto kept = ComPointer<IDispatch>(V_DISPATCH(&elementOf(V_ARRAY(&table.get()), 4)));
    EXPECT_EQ(textOf(get(*kept, "TxFreq")), "156300000");
}

TEST_F(ChannelTable, HandsOutOneRecordAloneToWhoKnowsHowToAsk) {
    const auto records = ComPointer<IChannelRecords>::from(store);
    ASSERT_TRUE(records);
    EXPECT_TRUE(com::sameObject(records.get(), store.get()));
    for (const std::int16_t index : std::initializer_list<std::int16_t>{0, 7, 254}) {
        ComPointer<IChannelRecord> found;
        ASSERT_EQ(records->Record(index, found.put()), S_OK);
        EXPECT_EQ(found.get(), record(index).get());
    }
    ComPointer<IChannelRecord> none;
    EXPECT_EQ(records->Record(-1, none.put()), DISP_E_BADINDEX);
    EXPECT_EQ(records->Record(255, none.put()), DISP_E_BADINDEX);
    EXPECT_FALSE(none);
    EXPECT_EQ(records->Record(0, nullptr), E_POINTER);
}

TEST_F(ChannelTable, WithOneArgumentIsThatElement) {
    put(*record(7), "TxFreq", Variant(std::int32_t{66}));
    std::int16_t small = 7;
    std::int32_t large = 7;
    Variant variable(std::int16_t{7});
    const std::vector<Variant> sevens{Variant(std::int16_t{7}),
                                      Variant(std::int32_t{7}),
                                      Variant(std::uint8_t{7}),
                                      Variant(7.0),
                                      Variant(6.6),
                                      Variant("7"),
                                      Variant::reference(VT_I2, &small),
                                      Variant::reference(VT_I4, &large),
                                      Variant::reference(VT_VARIANT, &variable.get())};
    for (const auto& seven : sevens) {
        Variant result;
        ASSERT_EQ(element(seven, result), S_OK) << seven.type();
        ASSERT_EQ(result.type(), VT_DISPATCH);
        EXPECT_EQ(textOf(get(*objectIn<IDispatch>(result), "TxFreq")), "66") << seven.type();
    }
}

TEST_F(ChannelTable, RefusesIndicesOutsideIt) {
    Variant result;
    for (const std::int32_t index : {-1, 255, 256, 65'536, -32'768}) {
        EXPECT_EQ(element(Variant(index), result), DISP_E_BADINDEX) << index;
    }
    EXPECT_EQ(element(Variant("first"), result), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(element(Variant(1e10), result), DISP_E_OVERFLOW);
    EXPECT_EQ(result.type(), VT_EMPTY);
    EXPECT_EQ(callCode(*store, "ChannelTable", {Variant(std::int16_t{1}), Variant(std::int16_t{1})}, result),
              DISP_E_BADPARAMCOUNT);
}

TEST_F(ChannelTable, CannotBePut) {
    EXPECT_EQ(putCode(*store, "ChannelTable", Variant(std::int16_t{1})), DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace telvar::tests
