// The control's COM interfaces as the desk sees a control: its own methods, its grid, and the standard commands through
// the container. Until it is attached, and after it was let go, it does nothing.
#pragma once

#include "Tesslin.h"
#include "com/kit/pointer.h"
#include "desk/control.h"
#include "host/embed/embedded_control.h"

namespace telvar::host {

class ControlAdapter final : public desk::Control {
public:
    // `container` outlives the attachment.
    void attach(com::ComPointer<_ChannelInformation> control, EmbeddedControl& container);
    void detach() noexcept;

    void refresh() override;
    void showTop() override;
    void updateAccess(desk::AccessLevel level) override;
    void followRadioChannel() override;
    void focus() override;
    [[nodiscard]] bool enabled(desk::EditAction action) const override;
    void edit(desk::EditAction action) override;
    void fillDown() override { run(&_ChannelInformation::ChannelFillDown); }
    void fillSeries() override { run(&_ChannelInformation::ChannelFillSeries); }
    void fill() override { run(&_ChannelInformation::DisplayFill); }
    void editChannel() override;
    [[nodiscard]] int currentChannel() const override;
    void goTo(int channel) override;
    [[nodiscard]] bool leaveEdits() override;
    [[nodiscard]] bool dataLocked() const override;
    [[nodiscard]] desk::PasteRefusal refusedPaste() const override;
    void send() override { run(&_ChannelInformation::SendChannelInfoToTelvar); }
    void load() override { run(&_ChannelInformation::LoadChannelInfoFromTelvar); }
    void disableCommands() override;
    void enableCommands() override;
    void print() override { run(&_ChannelInformation::PrintInfo); }
    [[nodiscard]] desk::PrintedTable shownTable() const override;

private:
    using Method = HRESULT (STDMETHODCALLTYPE _ChannelInformation::*)();
    void run(Method method);

    com::ComPointer<_ChannelInformation> control_;
    com::ComPointer<IChannelGrid> grid_;
    EmbeddedControl* container_ = nullptr;
};

}  // namespace telvar::host
