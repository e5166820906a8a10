#include "com/adapters/foreign_radio_link.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "base/conversion.h"
#include "base/failure.h"
#include "com/adapters/foreign_reference.h"
#include "com/kit/late_bound.h"
#include "com/kit/value.h"

namespace telvar::com {

namespace {

// From Busy on, members that a link need not have.
enum Operation : std::size_t {
    SendChannelTable,
    LoadChannelTable,
    AbortTransfer,
    SendPotValues,
    SelectChannel,
    Busy,
    Succeeded,
    ExchangeNumber,
    OutcomeOf
};

// What the link left in a variable of the caller, who keeps the former value where that is nothing of the kind: a link
// may leave Null or an object there, and has accepted the call all the same.
template <class T>
void takeBack(T& variable, const std::function<T()>& left) {
    try {
        variable = left();
    } catch (const base::ConversionFailure&) {
        return;
    }
}

// A call may let the host run, which may drop the link: every operation keeps the adapter itself alive to its end.
class ForeignRadioLink final : public model::RadioLink, public std::enable_shared_from_this<ForeignRadioLink> {
public:
    explicit ForeignRadioLink(IDispatch& link) : link_(&link) {}

    void SendChannelTable() override { call(Operation::SendChannelTable, {}); }

    void LoadChannelTable(std::string& text, bool& flag) override {
        std::array references{ReferenceArgument(base::Value{text}), ReferenceArgument(base::Value{flag})};
        call(Operation::LoadChannelTable, references);
        takeBack<std::string>(text, [&] { return base::toText(references[0].value()); });
        takeBack<bool>(flag, [&] { return base::isTrue(references[1].value()); });
    }

    void AbortTransfer() override { call(Operation::AbortTransfer, {}); }
    void SendPotValues(std::string& text) override { callWithText(Operation::SendPotValues, text); }
    void SelectChannel(std::string& channel) override { callWithText(Operation::SelectChannel, channel); }

    std::optional<bool> lastExchangeSucceeded() override {
        const auto busy = flag(Operation::Busy);
        return busy == false ? flag(Operation::Succeeded) : std::nullopt;
    }

    std::optional<std::int32_t> exchangeNumber() override {
        const auto answer = asked(Operation::ExchangeNumber);
        return answer ? std::optional(base::toInt32(*answer)) : std::nullopt;
    }

    model::ExchangeOutcome exchangeOutcome(std::int32_t number) override {
        const std::array arguments{Variant(number)};
        const auto answer = asked(Operation::OutcomeOf, arguments);
        const auto code = answer ? base::toInt16(*answer) : std::int16_t{};
        constexpr auto last = static_cast<std::int16_t>(model::ExchangeOutcome::Aborted);
        return code > 0 && code <= last ? static_cast<model::ExchangeOutcome>(code) : model::ExchangeOutcome::Unknown;
    }

private:
    void callWithText(Operation operation, std::string& text) {
        std::array references{ReferenceArgument(base::Value{text})};
        call(operation, references);
        takeBack<std::string>(text, [&] { return base::toText(references[0].value()); });
    }

    std::optional<bool> flag(Operation property) {
        const auto answer = asked(property);
        return answer ? std::optional(base::isTrue(*answer)) : std::nullopt;
    }

    // Nothing where the link has no such member.
    std::optional<base::Value> asked(Operation question, std::span<const Variant> arguments = {}) {
        const auto alive = shared_from_this();
        const MemberId member = members_.find(*link_, question);
        if (!member.known()) {
            return std::nullopt;
        }
        // A question with an argument may be a property of the link or a method.
        return valueOf(invoke(*link_, member, arguments.empty() ? getFlags : getOrCallFlags, arguments));
    }

    void call(Operation operation, std::span<ReferenceArgument> references) {
        const auto alive = shared_from_this();
        const MemberId member = members_.require(*link_, operation);
        (void)invokeWithReferences(*link_, member, DISPATCH_METHOD, references);
    }

    ComPointer<IDispatch> link_;
    MembersOfKind members_{{L"SendChannelTable", L"LoadChannelTable", L"AbortTransfer", L"SendPotValues",
                            L"SelectChannel", L"Busy", L"Succeeded", L"ExchangeNumber", L"OutcomeOf"}};
};

}  // namespace

model::RadioLinkPointer adaptRadioLink(IDispatch* link) {
    return link == nullptr ? nullptr : std::make_shared<ForeignRadioLink>(*link);
}

}  // namespace telvar::com
