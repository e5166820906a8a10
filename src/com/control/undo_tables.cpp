#include "com/control/undo_tables.h"

#include "com/adapters/foreign_data_store.h"
#include "com/kit/pointer.h"

namespace telvar::com {

namespace {

constexpr const wchar_t* storeClass = L"VexloDataStore.DataStore";

}  // namespace

model::DataStorePointer makeUndoTable() {
    CLSID classId{};
    ComPointer<IDispatch> table;
    if (FAILED(CLSIDFromProgID(storeClass, &classId)) ||
        FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDispatch), table.putVoid()))) {
        return nullptr;
    }
    return adaptDataStore(table.get());
}

}  // namespace telvar::com
