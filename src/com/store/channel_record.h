// One record of the channel table as an automation object: one property per key. The plain forms of names and calls
// are answered here; whatever else arrives goes through the type library.
#pragma once

#include <cstdint>

#include "VexloDataStore.h"
#include "base/pinned.h"
#include "com/kit/dispatch.h"
#include "model/channel_key.h"

namespace telvar::com {

class SharedTable;

class ChannelRecord final : public Dual<IChannelRecord>, public ISupportErrorInfo, private base::Pinned {
public:
    // Lives in `table`, whose count of references is also its own.
    ChannelRecord(SharedTable& table, std::int16_t index) noexcept : table_(table), index_(index) {}
    virtual ~ChannelRecord() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

#define TELVAR_KEY(name)                                                                                               \
    STDMETHODIMP get_##name(VARIANT* value) noexcept override { return get(model::ChannelKey::name, value); }          \
    STDMETHODIMP put_##name(VARIANT value) noexcept override { return put(model::ChannelKey::name, value); }

    TELVAR_KEY(TxFreq)
    TELVAR_KEY(RxFreq)
    TELVAR_KEY(TxCTCSSDCS)
    TELVAR_KEY(TxDCSIndex)
    TELVAR_KEY(TxSub)
    TELVAR_KEY(RxCTCSSDCS)
    TELVAR_KEY(RxDCSIndex)
    TELVAR_KEY(RxSub)
    TELVAR_KEY(ModeBits)
    TELVAR_KEY(scan)
    TELVAR_KEY(TxLevel)
    TELVAR_KEY(SynthStep)
    TELVAR_KEY(AccelInt)
    TELVAR_KEY(BinMain)
    TELVAR_KEY(Modulo)
    TELVAR_KEY(AccelProp)
    TELVAR_KEY(RxSynthStep)
    TELVAR_KEY(RxAccelInt)
    TELVAR_KEY(RxBinMain)
    TELVAR_KEY(RxModulo)
    TELVAR_KEY(RxAccelProp)
    TELVAR_KEY(TxPower)
    TELVAR_KEY(RefOscFreq)
    TELVAR_KEY(VCODev)
    TELVAR_KEY(RefOscDev)
    TELVAR_KEY(NBRefOscFreq)
    TELVAR_KEY(NBVCODev)
    TELVAR_KEY(NBRefOscDev)
    TELVAR_KEY(P25TransmitMode)
    TELVAR_KEY(p25RepeaterEnable)
    TELVAR_KEY(TTRAnalogDataMode)
    TELVAR_KEY(P25TxNetworkAccessCode)
    TELVAR_KEY(P25RxNetworkAccessCode)
    TELVAR_KEY(P25TalkgroupID)

#undef TELVAR_KEY

private:
    [[nodiscard]] HRESULT get(model::ChannelKey key, VARIANT* value) noexcept;
    [[nodiscard]] HRESULT put(model::ChannelKey key, const VARIANT& value) noexcept;

    SharedTable& table_;
    std::int16_t index_;
};

}  // namespace telvar::com
