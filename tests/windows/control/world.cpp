#include "world.h"

#include <algorithm>

namespace telvar::tests {

Variant get(IDispatch& object, const std::string& name) {
    return com::invoke(object, com::memberOf(object, name), com::getFlags);
}

void put(IDispatch& object, const std::string& name, const Variant& value) {
    com::putProperty(object, com::memberOf(object, name), value);
}

Variant call(IDispatch& object, const std::string& name, const std::vector<Variant>& arguments) {
    return com::invoke(object, com::memberOf(object, name), com::getOrCallFlags, arguments);
}

Answer tryCall(IDispatch& object, const std::string& name, std::vector<VARIANT> reversedArguments, WORD flags) {
    DISPPARAMS parameters{reversedArguments.data(), nullptr, static_cast<UINT>(reversedArguments.size()), 0};
    Answer answer;
    Variant result;
    answer.code = object.Invoke(numberOf(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result.put(),
                                nullptr, &answer.wrongArgument);
    return answer;
}

DISPID numberOf(IDispatch& object, const std::string& name) { return com::memberOf(object, name).id; }

void pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

int RecordingSink::count(const std::string& event) const {
    return static_cast<int>(std::count(events_.begin(), events_.end(), event));
}

HRESULT RecordingSink::QueryInterface(REFIID iid, void** object) noexcept {
    if (object != nullptr && IsEqualIID(iid, __uuidof(__ChannelInformation))) {
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    return Object::QueryInterface(iid, object);
}

HRESULT RecordingSink::GetTypeInfoCount(UINT* count) noexcept {
    *count = 0;
    return S_OK;
}

HRESULT RecordingSink::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) noexcept {
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT RecordingSink::GetIDsOfNames(REFIID /*iid*/, LPOLESTR* /*names*/, UINT /*count*/, LCID /*locale*/,
                                     DISPID* /*ids*/) noexcept {
    return E_NOTIMPL;
}

HRESULT RecordingSink::Invoke(DISPID event, REFIID /*iid*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* arguments,
                              VARIANT* /*result*/, EXCEPINFO* /*exception*/, UINT* /*wrongArgument*/) noexcept {
    const auto alive = com::keepAlive(this);
    std::string text = std::to_string(event);
    if (arguments->cArgs > 0) {
        text += " " + com::textOf(*V_BSTRREF(&arguments->rgvarg[0]));
    }
    events_.push_back(text);
    return reaction_ ? reaction_(event, *arguments) : S_OK;
}

ComPointer<IConnectionPoint> eventsOf(IUnknown& source) {
    ComPointer<IConnectionPoint> point;
    com::check(ComPointer<IConnectionPointContainer>::from(&source)->FindConnectionPoint(__uuidof(__ChannelInformation),
                                                                                         point.put()));
    return point;
}

DWORD advise(IUnknown& source, IUnknown& sink) {
    DWORD cookie = 0;
    com::check(eventsOf(source)->Advise(&sink, &cookie));
    return cookie;
}

void ControlWorld::TearDown() {
    grid.reset();
    control.reset();
    store.reset();
    pump();
    EXPECT_TRUE(server.canUnload());
    EXPECT_TRUE(storeServer.canUnload());
}

void ControlWorld::setUp(IDispatch* dataStore) {
    put(*control, "pCentralDataStore", Variant(dataStore));
    call(*control, "DistributeDataStoreLink");
    call(*control, "DistributeRadioCommsLink");
    call(*control, "Prepare");
}

void ControlWorld::fill(std::int16_t channel, std::int32_t hertz) {
    const Variant record = call(*store, "ChannelTable", {Variant(static_cast<std::int16_t>(channel - 1))});
    put(*V_DISPATCH(&record.get()), "TxFreq", Variant(hertz));
    put(*V_DISPATCH(&record.get()), "RxFreq", Variant(hertz));
}

std::string ControlWorld::cell(LONG row, LONG column) const {
    Bstr text;
    com::check(grid->get_Cell(row, column, text.put()));
    return text.text();
}

LONG ControlWorld::currentRow() const {
    LONG row = 0;
    com::check(grid->get_CurrentRow(&row));
    return row;
}

bool ControlWorld::redraws() const {
    VARIANT_BOOL redraw = VARIANT_FALSE;
    com::check(grid->get_Redraw(&redraw));
    return redraw != VARIANT_FALSE;
}

}  // namespace telvar::tests
