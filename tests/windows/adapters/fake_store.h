// A foreign store of 255 records whose ChannelTable answers in whichever form a test chooses.
#pragma once

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "com/adapters/foreign_data_store.h"
#include "com/kit/variant.h"
#include "fake_object.h"
#include "model/data_store.h"

namespace telvar::com::test {

inline constexpr int tableSize = 255;

// Owns an array.
class Array {
public:
    explicit Array(SAFEARRAY* array) noexcept : array_(array) {}
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
    Array(Array&& other) noexcept : array_(std::exchange(other.array_, nullptr)) {}
    Array& operator=(Array&& other) noexcept {
        std::swap(array_, other.array_);
        return *this;
    }
    ~Array() { SafeArrayDestroy(array_); }
    [[nodiscard]] SAFEARRAY*& get() noexcept { return array_; }

private:
    SAFEARRAY* array_;
};

[[nodiscard]] inline Array arrayOf(VARTYPE type, LONG lowest, const std::vector<ComPointer<FakeObject>>& objects) {
    SAFEARRAY* const array = SafeArrayCreateVector(type, lowest, static_cast<ULONG>(objects.size()));
    for (LONG at = 0; at < static_cast<LONG>(objects.size()); ++at) {
        LONG index = lowest + at;
        Variant element = objectVariant(objects[static_cast<std::size_t>(at)]);
        void* source = &element.get();
        if (type != VT_VARIANT) {
            source = V_DISPATCH(&element.get());
        }
        SafeArrayPutElement(array, &index, source);
    }
    return Array(array);
}

// A new copy for every caller.
[[nodiscard]] inline Variant copyOfArray(SAFEARRAY* array, VARTYPE elements) {
    Variant answer;
    SAFEARRAY* copy = nullptr;
    SafeArrayCopy(array, &copy);
    V_VT(answer.put()) = static_cast<VARTYPE>(VT_ARRAY | elements);
    V_ARRAY(&answer.get()) = copy;
    return answer;
}

[[nodiscard]] inline Variant referenceToArray(SAFEARRAY*& array, VARTYPE elements) {
    return Variant::reference(static_cast<VARTYPE>(VT_ARRAY | elements), &array);
}

// The index that a caller passed, from 0.
[[nodiscard]] inline std::size_t indexIn(const Call& call) {
    Variant index = Variant::copyBehind(call.argument(0));
    index.convertTo(VT_I4);
    return static_cast<std::size_t>(V_I4(&index.get()));
}

struct FakeStore {
    FakeStore() {
        for (int at = 0; at < tableSize; ++at) {
            values.emplace_back(std::int32_t{145'000'000 + 12'500 * at});
        }
        for (auto& value : values) {
            records.push_back(makeObject());
            records.back()->with(L"TxFreq", property(value));
        }
        object = makeObject();
        object->with(L"ChannelTable", [this](const Call& call) { return table(call); });
        adapter = adaptDataStore(object.get());
    }
    FakeStore(const FakeStore&) = delete;
    FakeStore& operator=(const FakeStore&) = delete;
    FakeStore(FakeStore&&) = delete;
    FakeStore& operator=(FakeStore&&) = delete;
    ~FakeStore() = default;

    [[nodiscard]] base::Value read(int index) const {
        return adapter->readChannel(static_cast<std::int16_t>(index), model::ChannelKey::TxFreq);
    }
    void write(int index, const base::Value& value) const {
        adapter->writeChannel(static_cast<std::int16_t>(index), model::ChannelKey::TxFreq, value);
    }
    [[nodiscard]] static base::Value frequencyOf(int index) { return std::int32_t{145'000'000 + 12'500 * index}; }

    std::vector<Variant> values;
    std::vector<ComPointer<FakeObject>> records;
    Member table;
    ComPointer<FakeObject> object;
    model::DataStorePointer adapter;
};

}  // namespace telvar::com::test
