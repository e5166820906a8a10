// Pictures of the control, the host's editing commands, and what the control promises to hosts that check.
#include "com/control/channel_information_object.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "win32/panel_picture.h"

namespace telvar::com {

namespace {

constexpr DWORD safeOptions = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

// The host's editing commands by their published numbers; selecting everything is no command of the pop-up menu.
struct EditingCommand {
    DWORD number = 0;
    std::optional<control::GridCommand> command;
};

constexpr std::array<EditingCommand, 6> editingCommands{{
    {OLECMDID_COPY, control::GridCommand::Copy},
    {OLECMDID_PASTE, control::GridCommand::Paste},
    {OLECMDID_DELETE, control::GridCommand::Delete},
    {OLECMDID_UNDO, control::GridCommand::Undo},
    {OLECMDID_REDO, control::GridCommand::Redo},
    {OLECMDID_SELECTALL, std::nullopt},
}};

// Null for commands that are not the control's.
[[nodiscard]] const EditingCommand* editingCommand(DWORD number) noexcept {
    const auto* const found =
        std::find_if(editingCommands.begin(), editingCommands.end(),
                     [number](const EditingCommand& candidate) { return candidate.number == number; });
    return found == editingCommands.end() ? nullptr : found;
}

[[nodiscard]] bool isEnabled(const EditingCommand& editing, const control::ChannelInformation& control) noexcept {
    return !editing.command || control.commandEnabled(*editing.command);
}

[[nodiscard]] int resolutionOf(HDC context) noexcept {
    const int resolution = GetDeviceCaps(context, LOGPIXELSX);
    return resolution > 0 ? resolution : ui::standardDpi;
}

}  // namespace

HRESULT ChannelInformationObject::Draw(DWORD aspect, LONG index, void* /*reserved*/, DVTARGETDEVICE* /*device*/,
                                       HDC /*deviceContext*/, HDC target, LPCRECTL bounds, LPCRECTL /*windowBounds*/,
                                       BOOL(STDMETHODCALLTYPE* /*go*/)(ULONG_PTR), ULONG_PTR /*argument*/) noexcept {
    return call([&] {
        if (aspect != DVASPECT_CONTENT) {
            return DV_E_DVASPECT;
        }
        if (index != -1) {
            return DV_E_LINDEX;
        }
        const RECTL& at = deref(bounds);
        if (target == nullptr) {
            return E_INVALIDARG;
        }
        win32::drawPanel(control_.panel(), target, {at.left, at.top, at.right, at.bottom}, resolutionOf(target));
        return S_OK;
    });
}

HRESULT ChannelInformationObject::GetColorSet(DWORD /*aspect*/, LONG /*index*/, void* /*reserved*/,
                                              DVTARGETDEVICE* /*device*/, HDC /*deviceContext*/,
                                              LOGPALETTE** colours) noexcept {
    if (colours != nullptr) {
        *colours = nullptr;
    }
    return S_FALSE;
}

HRESULT ChannelInformationObject::Freeze(DWORD /*aspect*/, LONG /*index*/, void* /*reserved*/, DWORD* cookie) noexcept {
    if (cookie != nullptr) {
        *cookie = 0;
    }
    return E_NOTIMPL;
}

HRESULT ChannelInformationObject::Unfreeze(DWORD /*cookie*/) noexcept { return E_NOTIMPL; }

HRESULT ChannelInformationObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
    return call([&] {
        const auto former = std::exchange(viewSink_, ComPointer<IAdviseSink>(sink));
        viewAspects_ = aspects;
        viewFlags_ = flags;
        if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0) {
            pictureChanged();
        }
    });
}

HRESULT ChannelInformationObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
    return call([&] {
        if (aspects != nullptr) {
            *aspects = viewAspects_;
        }
        if (flags != nullptr) {
            *flags = viewFlags_;
        }
        if (sink != nullptr) {
            *sink = viewSink_.share();
        }
    });
}

// While there is a window the host has no picture to keep.
void ChannelInformationObject::pictureChanged() noexcept {
    const auto sink = viewSink_;
    if (!sink || inPlace_.active() || (viewAspects_ & DVASPECT_CONTENT) == 0) {
        return;
    }
    if ((viewFlags_ & ADVF_ONLYONCE) != 0) {
        viewSink_.reset();
    }
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

HRESULT ChannelInformationObject::GetExtent(DWORD aspect, LONG /*index*/, DVTARGETDEVICE* /*device*/,
                                            SIZEL* extent) noexcept {
    return GetExtent(aspect, extent);
}

HRESULT ChannelInformationObject::QueryStatus(const GUID* group, ULONG count, OLECMD* commands,
                                              OLECMDTEXT* text) noexcept {
    return call([&] {
        if (group != nullptr) {
            return OLECMDERR_E_UNKNOWNGROUP;
        }
        if (text != nullptr) {
            text->cwActual = 0;
        }
        for (ULONG at = 0; at < count; ++at) {
            OLECMD& command = (&deref(commands))[at];
            const EditingCommand* const known = editingCommand(command.cmdID);
            command.cmdf = known == nullptr ? 0 : static_cast<DWORD>(OLECMDF_SUPPORTED);
            if (known != nullptr && isEnabled(*known, control_)) {
                command.cmdf |= OLECMDF_ENABLED;
            }
        }
        return S_OK;
    });
}

HRESULT ChannelInformationObject::Exec(const GUID* group, DWORD command, DWORD /*option*/, VARIANT* /*in*/,
                                       VARIANT* /*out*/) noexcept {
    return method([&] {
        if (group != nullptr) {
            return OLECMDERR_E_UNKNOWNGROUP;
        }
        const EditingCommand* const known = editingCommand(command);
        if (known == nullptr) {
            return OLECMDERR_E_NOTSUPPORTED;
        }
        if (!isEnabled(*known, control_)) {
            return OLECMDERR_E_DISABLED;
        }
        if (known->command) {
            control_.run(*known->command);
        } else {
            control_.selectAll();
        }
        return S_OK;
    });
}

HRESULT ChannelInformationObject::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) noexcept {
    return call([&] {
        deref(supported) = 0;
        deref(enabled) = 0;
        ComPointer<IUnknown> known;
        if (FAILED(QueryInterface(iid, known.putVoid()))) {
            return E_NOINTERFACE;
        }
        *supported = safeOptions;
        *enabled = safeOptions;
        return S_OK;
    });
}

// Always safe: the control reaches no file of the caller's choice, and saved states are only two numbers and a flag.
HRESULT ChannelInformationObject::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD /*enabled*/) noexcept {
    return call([&] {
        ComPointer<IUnknown> known;
        if (FAILED(QueryInterface(iid, known.putVoid()))) {
            return E_NOINTERFACE;
        }
        return (mask & ~safeOptions) == 0 ? S_OK : E_FAIL;
    });
}

}  // namespace telvar::com
