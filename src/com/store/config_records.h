// The radio's configuration records as a collection. There is one, number 0, with the scaling of the reference
// dividers.
#pragma once

#include "VexloDataStore.h"
#include "com/kit/class_info.h"
#include "com/kit/dispatch.h"
#include "com/kit/object.h"
#include "com/store/shared_table.h"

namespace telvar::com {

class ConfigRecord final : public Object<Dual<IConfigRecord>, SupportsErrorInfo<IConfigRecord>> {
public:
    explicit ConfigRecord(SharedTable& table) : table_(&table) {}

    STDMETHODIMP get_sm(long* value) noexcept override;
    STDMETHODIMP put_sm(long value) noexcept override;

private:
    ComPointer<SharedTable> table_;
};

class ConfigRecords final : public Object<Dual<IConfigRecords>, SupportsErrorInfo<IConfigRecords>> {
public:
    explicit ConfigRecords(SharedTable& table) : record_(make<ConfigRecord>(table)) {}

    // The enumerator is restricted, and type information refuses calls of restricted members.
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

    // Any other index than 0 is DISP_E_BADINDEX.
    STDMETHODIMP get_Item(VARIANT index, IConfigRecord** record) noexcept override;
    STDMETHODIMP get_Count(long* count) noexcept override;
    STDMETHODIMP get__NewEnum(IUnknown** enumerator) noexcept override;

private:
    ComPointer<ConfigRecord> record_;
};

}  // namespace telvar::com
