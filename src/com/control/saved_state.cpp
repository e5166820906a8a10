#include "com/control/saved_state.h"

#include <cstdint>
#include <variant>

#include "base/conversion.h"
#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "com/kit/value.h"

namespace telvar::com {

namespace {

constexpr std::uint32_t signature = 0x4E4C5354;  // "TSLN" in the order of bytes in the stream
constexpr std::uint32_t version = 1;
constexpr LONG largestExtent = 1'000'000;  // ten metres

// Little-endian, without gaps.
struct Record {
    std::uint32_t signature;
    std::uint32_t version;
    std::int32_t width;
    std::int32_t height;
    std::uint32_t hidden;
};
static_assert(sizeof(Record) == 20);

constexpr const wchar_t* widthName = L"_ExtentX";
constexpr const wchar_t* heightName = L"_ExtentY";
constexpr const wchar_t* versionName = L"_Version";
constexpr const wchar_t* hiddenName = L"bHidden";

[[nodiscard]] bool isExtent(LONG value) noexcept { return value >= 0 && value <= largestExtent; }

[[noreturn]] void refuse() { throw ComFailure(STG_E_INVALIDHEADER, "The saved state of the control cannot be read"); }

[[noreturn]] void refuseNewer() { throw ComFailure(STG_E_OLDDLL, "The control was saved by a newer version"); }

// In whatever type the bag keeps it. Bags answer E_INVALIDARG for what they do not have.
[[nodiscard]] base::Value readProperty(IPropertyBag& bag, const wchar_t* name, IErrorLog* log) {
    Variant value;
    const HRESULT answer = bag.Read(name, &value.get(), log);
    if (answer == E_INVALIDARG) {
        return base::Empty{};
    }
    check(answer);
    return valueOf(value);
}

template <class Read>
void readInto(IErrorLog* log, const wchar_t* name, Read&& read) {
    try {
        read();
    } catch (const base::Failure& failure) {
        if (log != nullptr) {
            const Bstr description(std::string_view(failure.what()));
            EXCEPINFO information{};
            information.bstrDescription = description.get();
            information.scode = E_INVALIDARG;
            log->AddError(name, &information);
        }
        throw ComFailure(E_INVALIDARG, failure.what());
    }
}

[[nodiscard]] LONG extentOf(const base::Value& value, LONG otherwise) {
    if (std::holds_alternative<base::Empty>(value)) {
        return otherwise;
    }
    const LONG extent = base::toInt32(value);
    if (!isExtent(extent)) {
        throw base::ConversionFailure::overflow();
    }
    return extent;
}

}  // namespace

SavedState readState(IStream& stream) {
    Record record{};
    ULONG read = 0;
    check(stream.Read(&record, sizeof record, &read));
    if (read != sizeof record) {
        throw ComFailure(STG_E_READFAULT, "The saved state of the control is cut short");
    }
    if (record.signature != signature || record.version == 0) {
        refuse();
    }
    if (record.version > version) {
        refuseNewer();
    }
    if (!isExtent(record.width) || !isExtent(record.height) || record.hidden > 1) {
        refuse();
    }
    return {.extent = {record.width, record.height}, .hidden = record.hidden != 0};
}

void writeState(IStream& stream, const SavedState& state) {
    const Record record{signature, version, static_cast<std::int32_t>(state.extent.cx),
                        static_cast<std::int32_t>(state.extent.cy), state.hidden ? 1U : 0U};
    ULONG written = 0;
    check(stream.Write(&record, sizeof record, &written));
    if (written != sizeof record) {
        throw ComFailure(STG_E_WRITEFAULT);
    }
}

ULONGLONG savedSize() noexcept { return sizeof(Record); }

SavedState readState(IPropertyBag& bag, IErrorLog* log, const SavedState& otherwise) {
    SavedState state = otherwise;
    readInto(log, versionName, [&] {
        const auto found = readProperty(bag, versionName, log);
        if (!std::holds_alternative<base::Empty>(found) && base::toInt32(found) > static_cast<std::int32_t>(version)) {
            refuseNewer();
        }
    });
    readInto(log, widthName,
             [&] { state.extent.cx = extentOf(readProperty(bag, widthName, log), otherwise.extent.cx); });
    readInto(log, heightName,
             [&] { state.extent.cy = extentOf(readProperty(bag, heightName, log), otherwise.extent.cy); });
    readInto(log, hiddenName, [&] {
        const auto found = readProperty(bag, hiddenName, log);
        state.hidden = std::holds_alternative<base::Empty>(found) ? otherwise.hidden : base::isTrue(found);
    });
    return state;
}

void writeState(IPropertyBag& bag, const SavedState& state) {
    const auto write = [&bag](const wchar_t* name, Variant value) { check(bag.Write(name, &value.get())); };
    write(versionName, Variant(static_cast<std::int32_t>(version)));
    write(widthName, Variant(static_cast<std::int32_t>(state.extent.cx)));
    write(heightName, Variant(static_cast<std::int32_t>(state.extent.cy)));
    write(hiddenName, Variant(state.hidden));
}

}  // namespace telvar::com
