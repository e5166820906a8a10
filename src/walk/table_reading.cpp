#include "walk/table_reading.h"

#include <algorithm>

#include "base/pinned.h"
#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "com/kit/variant.h"

namespace telvar::walk {

namespace {

struct Key {
    std::wstring name;
    DISPID member = DISPID_UNKNOWN;
};

class FunctionDescription : private base::Pinned {
public:
    FunctionDescription(ITypeInfo& type, UINT index) : type_(type) {
        com::check(type.GetFuncDesc(index, &description_));
    }
    ~FunctionDescription() { type_.ReleaseFuncDesc(description_); }
    const FUNCDESC* operator->() const noexcept { return description_; }

private:
    ITypeInfo& type_;
    FUNCDESC* description_ = nullptr;
};

UINT functionCount(ITypeInfo& type) {
    TYPEATTR* attributes = nullptr;
    com::check(type.GetTypeAttr(&attributes));
    const UINT count = attributes->cFuncs;
    type.ReleaseTypeAttr(attributes);
    return count;
}

// Every property that can be read without an argument; the store's own type library is asked, so that none is
// forgotten.
std::vector<Key> keysOf(IDispatch& record) {
    com::ComPointer<ITypeInfo> type;
    com::checkCall(record.GetTypeInfo(0, LOCALE_INVARIANT, type.put()));
    std::vector<Key> keys;
    const UINT count = functionCount(*type);
    for (UINT index = 0; index < count; ++index) {
        const FunctionDescription function(*type, index);
        if (function->invkind != INVOKE_PROPERTYGET || function->memid <= 0) {
            continue;
        }
        com::Bstr name;
        UINT names = 0;
        com::check(type->GetNames(function->memid, name.put(), 1, &names));
        keys.push_back({std::wstring(name.view()), function->memid});
    }
    return keys;
}

std::wstring valueText(IDispatch& record, DISPID member) {
    DISPPARAMS none{};
    com::Variant value;
    com::checkCall(
        record.Invoke(member, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYGET, &none, value.put(), nullptr, nullptr));
    value.convertTo(VT_BSTR);
    return std::wstring(com::viewOf(V_BSTR(&value.get())));
}

void compare(std::vector<std::wstring>& result, const std::wstring& what, const std::wstring& expected,
             const std::wstring& found) {
    if (expected != found) {
        result.push_back(what + L": expected \"" + expected + L"\", found \"" + found + L"\"");
    }
}

}  // namespace

std::wstring& TableCopy::value(int channel, const std::wstring& key) {
    const auto found = std::find(keys.begin(), keys.end(), key);
    return values.at(static_cast<std::size_t>(channel - 1)).at(static_cast<std::size_t>(found - keys.begin()));
}

TableCopy copyTable(const WalkedProgram& program, IChannelGrid& grid) {
    TableCopy copy;
    const std::vector<Key> keys = keysOf(*program.record(1));
    for (const Key& key : keys) {
        copy.keys.push_back(key.name);
    }
    for (int channel = 1; channel <= TableCopy::channels; ++channel) {
        const auto record = program.record(channel);
        std::vector<std::wstring>& values = copy.values.emplace_back();
        for (const Key& key : keys) {
            values.push_back(valueText(*record, key.member));
        }
    }
    for (int row = 0; row < TableCopy::rows; ++row) {
        std::vector<std::wstring>& cells = copy.cells.emplace_back();
        for (int column = 0; column < TableCopy::columns; ++column) {
            com::Bstr text;
            com::checkCall(grid.get_Cell(row, column, text.put()));
            cells.emplace_back(text.view());
        }
    }
    return copy;
}

std::vector<std::wstring> differences(const TableCopy& expected, const TableCopy& found) {
    std::vector<std::wstring> result;
    if (expected.keys != found.keys) {
        return {L"the channel keys are not the same"};
    }
    for (std::size_t channel = 0; channel < expected.values.size(); ++channel) {
        for (std::size_t key = 0; key < expected.keys.size(); ++key) {
            compare(result, L"channel " + std::to_wstring(channel + 1) + L", " + expected.keys[key],
                    expected.values[channel][key], found.values[channel][key]);
        }
    }
    for (std::size_t row = 0; row < expected.cells.size(); ++row) {
        for (std::size_t column = 0; column < expected.cells[row].size(); ++column) {
            compare(result, L"cell (" + std::to_wstring(row) + L", " + std::to_wstring(column) + L")",
                    expected.cells[row][column], found.cells[row][column]);
        }
    }
    return result;
}

std::wstring megahertz(long hertz) {
    constexpr long hertzPerMegahertz = 1'000'000;
    std::wstring decimals = std::to_wstring(hertz % hertzPerMegahertz);
    decimals.insert(0, 6 - decimals.size(), L'0');
    return std::to_wstring(hertz / hertzPerMegahertz) + L"." + decimals;
}

}  // namespace telvar::walk
