// A control in a container whose edit form is opened, driven and read as a user and a screen would: by the mouse and
// key messages of a host that knows nothing of the form.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "base/conversion.h"
#include "container.h"
#include "support/windows/edit_form_driver.h"
#include "world.h"

namespace telvar::tests {

// Passes everything on to a store; `beforePut` is called with the number of each member that is put.
class HookedStore final : public com::Object<IDispatch> {
public:
    explicit HookedStore(IDispatch* behind) : behind_(behind) {}

    std::function<void(DISPID)> beforePut;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override { return behind_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override {
        return behind_->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) noexcept override {
        return behind_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override {
        const auto alive = com::keepAlive(this);
        const auto behind = behind_;
        if (beforePut && (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
            beforePut(member);
        }
        return behind->Invoke(member, iid, locale, flags, arguments, result, exception, wrongArgument);
    }

private:
    ComPointer<IDispatch> behind_;
};

class EditFormWorld : public ControlWorld, protected EditFormDriver {
protected:
    static constexpr std::int32_t firstHertz = 150'000'000;
    static constexpr std::int32_t stepHertz = 25'000;

    // Channels 1 to 12 in service, everything shown, the control in its site.
    void show(IDispatch* dataStore) {
        for (std::int16_t channel = 1; channel <= 12; ++channel) {
            fill(channel, firstHertz + channel * stepHertz);
        }
        setUp(dataStore);
        call(*control, "UpdateControlsFromMemory");
        com::check(control->UpdateAccess(&level));
        advise(*control, *sink);
        site = com::make<Container>(*control);
        ASSERT_EQ(site->activate(), S_OK);
        UpdateWindow(gridWindow());
        pump();
        sink->forget();
    }
    void show() { show(store.get()); }

    void TearDown() override {
        if (site) {
            site->close();
            site.reset();
        }
        sink.reset();
        ControlWorld::TearDown();
    }

    [[nodiscard]] HWND gridWindow() const { return gridIn(site->window()); }
    [[nodiscard]] HWND host() const { return GetAncestor(site->window(), GA_ROOT); }
    void doubleClick() const { doubleClickIn(gridWindow()); }

    [[nodiscard]] std::string frequencyShownFor(LONG channel) const { return cell(channel, 1); }
    [[nodiscard]] std::int32_t storedHertz(std::int16_t channel) {
        const Variant record = call(*store, "ChannelTable", {Variant(static_cast<std::int16_t>(channel - 1))});
        return base::toInt32(com::valueOf(get(*V_DISPATCH(&record.get()), "TxFreq")));
    }

    // The host lets go of everything.
    void letGo() {
        grid.reset();
        if (const auto left = std::exchange(site, {})) {
            left->close();
        }
        control.reset();
    }

    short level = 5;
    ComPointer<Container> site;
    std::function<void(DISPID)> duringEvent;
    ComPointer<RecordingSink> sink = com::make<RecordingSink>([this](DISPID event, DISPPARAMS&) {
        if (duringEvent) {
            duringEvent(event);
        }
        return S_OK;
    });
};

}  // namespace telvar::tests
