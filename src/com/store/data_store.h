// The data store as an automation object, one table each. The plain forms of names and calls are answered here,
// whatever else arrives goes through the type library. Files are out of reach of callers that the host distrusts.
#pragma once

#include "VexloDataStore.h"
#include "com/kit/class_info.h"
#include "com/kit/dispatch.h"
#include "com/kit/object.h"
#include "com/kit/object_safety.h"
#include "com/store/config_records.h"
#include "com/store/shared_table.h"
#include "model/store_member.h"

namespace telvar::com {

class DataStore final : public Object<Dual<IDataStore>, SupportsErrorInfo<IDataStore, IChannelRecords>, IChannelRecords,
                                      IProvideClassInfo, ObjectSafety<IDataStore>> {
public:
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

    // A new array at each question, which the caller owns: a reference to one of ours would dangle behind typed callers
    // and be freed by the stub of another apartment. Who wants one record asks with its index, or through
    // IChannelRecords.
    STDMETHODIMP get_ChannelTable(VARIANT* table) noexcept override;
    STDMETHODIMP Record(short index, IChannelRecord** record) noexcept override;
    STDMETHODIMP get_ConfigRecords(IConfigRecords** records) noexcept override;

// NOLINTBEGIN(bugprone-macro-parentheses): a type cannot stand in parentheses
#define TELVAR_MEMBER(name, type)                                                                                      \
    STDMETHODIMP get_##name(type* value) noexcept override { return get(model::StoreMember::name, value); }            \
    STDMETHODIMP put_##name(type value) noexcept override { return put(model::StoreMember::name, value); }

    TELVAR_MEMBER(BandwidthSwitchable, VARIANT_BOOL)
    TELVAR_MEMBER(FCCNarrowBandRadio, VARIANT_BOOL)
    TELVAR_MEMBER(HardwareRevision, float)
    TELVAR_MEMBER(P25BoardFitted, VARIANT_BOOL)
    TELVAR_MEMBER(RadioConfigurationCode, long)
    TELVAR_MEMBER(TxReferenceFrequency, long)
    TELVAR_MEMBER(RxReferenceFrequency, long)
    TELVAR_MEMBER(LocalOscOffset, long)
    TELVAR_MEMBER(TxSynthChipInfo, BSTR)
    TELVAR_MEMBER(RxSynthChipInfo, BSTR)
    TELVAR_MEMBER(DCSOptionFitted, VARIANT_BOOL)
    TELVAR_MEMBER(ChannelSpacing, long)
    TELVAR_MEMBER(MessageTitle, BSTR)
    TELVAR_MEMBER(DatabaseTitle, BSTR)
    TELVAR_MEMBER(TableOpen, VARIANT_BOOL)
    TELVAR_MEMBER(SelectedChannel, short)
    TELVAR_MEMBER(GridLoaded, VARIANT_BOOL)
    TELVAR_MEMBER(DataModified, VARIANT_BOOL)
    TELVAR_MEMBER(ChannelDataModified, VARIANT_BOOL)
    TELVAR_MEMBER(CommsBusy, VARIANT_BOOL)
    TELVAR_MEMBER(CommsTask, short)
    TELVAR_MEMBER(ProgressCount, short)
    TELVAR_MEMBER(ShowSendWarning, VARIANT_BOOL)
    TELVAR_MEMBER(SendInProgress, VARIANT_BOOL)
    TELVAR_MEMBER(ChannelChangeAllowed, VARIANT_BOOL)

#undef TELVAR_MEMBER
    // NOLINTEND(bugprone-macro-parentheses)

    STDMETHODIMP SetPotValue(short* index, unsigned char level) noexcept override;
    STDMETHODIMP get_PotValue(short index, short* level) noexcept override;
    STDMETHODIMP EnterChannelSelect() noexcept override;
    STDMETHODIMP AutomaticSelect(short* query, VARIANT_BOOL* select) noexcept override;
    STDMETHODIMP CheckKey(short code, VARIANT_BOOL* accepted) noexcept override;
    STDMETHODIMP CtcssTone(short index, float* tone) noexcept override;
    STDMETHODIMP get_SendPermitted(VARIANT_BOOL* permitted) noexcept override;
    STDMETHODIMP put_SendPermitted(VARIANT_BOOL permitted) noexcept override;
    STDMETHODIMP get_FollowSteps(VARIANT_BOOL* follow) noexcept override;
    STDMETHODIMP put_FollowSteps(VARIANT_BOOL follow) noexcept override;

    STDMETHODIMP NewTable() noexcept override;
    // A path that is not absolute counts from the present folder.
    STDMETHODIMP Open(BSTR path) noexcept override;
    STDMETHODIMP Save() noexcept override;
    STDMETHODIMP SaveAs(BSTR path) noexcept override;
    STDMETHODIMP Close() noexcept override;
    STDMETHODIMP get_FilePath(BSTR* path) noexcept override;
    STDMETHODIMP get_Revision(long* revision) noexcept override;
    STDMETHODIMP get_Modified(VARIANT_BOOL* modified) noexcept override;

    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;

private:
    [[nodiscard]] store::ReferenceDataStore& store() const noexcept { return table_->store(); }
    [[nodiscard]] ConfigRecords& configRecords();
    void refuseToTheDistrusted() const;

    [[nodiscard]] HRESULT element(const VARIANT& index, VARIANT* record, UINT* wrongArgument) noexcept;
    [[nodiscard]] HRESULT get(model::StoreMember member, VARIANT* value) noexcept;
    [[nodiscard]] HRESULT put(model::StoreMember member, const VARIANT& value) noexcept;

    // Truths are 16-bit integers too, -1 and 0.
    [[nodiscard]] HRESULT get(model::StoreMember member, short* value) noexcept;
    [[nodiscard]] HRESULT get(model::StoreMember member, long* value) noexcept;
    [[nodiscard]] HRESULT get(model::StoreMember member, float* value) noexcept;
    [[nodiscard]] HRESULT get(model::StoreMember member, BSTR* value) noexcept;
    [[nodiscard]] HRESULT put(model::StoreMember member, short value) noexcept;
    [[nodiscard]] HRESULT put(model::StoreMember member, long value) noexcept;
    [[nodiscard]] HRESULT put(model::StoreMember member, float value) noexcept;
    [[nodiscard]] HRESULT put(model::StoreMember member, BSTR value) noexcept;

    ComPointer<SharedTable> table_ = make<SharedTable>();
    ComPointer<ConfigRecords> configRecords_;  // made when first asked for
};

}  // namespace telvar::com
