#include <cstdint>
#include <string>
#include <vector>

#include "world.h"

namespace telvar::tests {
namespace {

constexpr VARTYPE referenceToArray = VT_BYREF | VT_ARRAY | VT_VARIANT;

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

TEST_F(ChannelTable, IsAReferenceToAnArrayOf255Records) {
    const Variant table = get(*store, "ChannelTable");
    ASSERT_EQ(table.type(), referenceToArray);
    SAFEARRAY* const array = *V_ARRAYREF(&table.get());
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

TEST_F(ChannelTable, IsTheSameForEarlyBoundCallers) {
    const Variant late = get(*store, "ChannelTable");
    Variant early;
    ASSERT_EQ(store->get_ChannelTable(early.put()), S_OK);
    ASSERT_EQ(early.type(), referenceToArray);
    EXPECT_EQ(*V_ARRAYREF(&early.get()), *V_ARRAYREF(&late.get()));
    EXPECT_EQ(store->get_ChannelTable(nullptr), E_POINTER);
}

TEST_F(ChannelTable, IsACopyForCallersThatAskForAPropertyAlone) {
    put(*record(7), "TxFreq", Variant(std::int32_t{66}));
    Variant copy;
    ASSERT_EQ(com::tryInvoke(*store, com::memberOf(*store, "ChannelTable"), DISPATCH_PROPERTYGET, {}, copy), S_OK);
    ASSERT_EQ(copy.type(), VT_ARRAY | VT_VARIANT);
    SAFEARRAY* const array = V_ARRAY(&copy.get());
    LONG bound = -1;
    ASSERT_EQ(SafeArrayGetUBound(array, 1, &bound), S_OK);
    EXPECT_EQ(bound, 254);
    EXPECT_EQ(V_DISPATCH(&elementOf(array, 7)), record(7).get());
    VARIANT& element = const_cast<VARIANT&>(elementOf(array, 7));
    EXPECT_EQ(VariantClear(&element), S_OK);
    Variant result;
    ASSERT_EQ(callCode(*store, "ChannelTable", {Variant(std::int16_t{7})}, result), S_OK);
    EXPECT_EQ(textOf(get(*objectIn<IDispatch>(result), "TxFreq")), "66");
}

TEST_F(ChannelTable, CannotBeDestroyedThroughTheReference) {
    const Variant table = get(*store, "ChannelTable");
    SAFEARRAY* const array = *V_ARRAYREF(&table.get());
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    SAFEARRAYBOUND shorter{3, 0};
    EXPECT_EQ(SafeArrayRedim(array, &shorter), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(elementOf(array, 254).vt, VT_DISPATCH);
}

TEST_F(ChannelTable, CanBeCopiedAndOutlivesTheStoreSo) {
    put(*record(4), "TxFreq", Variant(std::int32_t{156'300'000}));
    Variant copy;
    {
        Variant table = get(*store, "ChannelTable");
        ASSERT_EQ(VariantCopyInd(copy.put(), &table.get()), S_OK);
    }
    store.reset();
    EXPECT_FALSE(server.canUnload());
    ASSERT_EQ(copy.type(), VT_ARRAY | VT_VARIANT);
    const auto kept = ComPointer<IDispatch>(V_DISPATCH(&elementOf(V_ARRAY(&copy.get()), 4)));
    EXPECT_EQ(textOf(get(*kept, "TxFreq")), "156300000");
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
