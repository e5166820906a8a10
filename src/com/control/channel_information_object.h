// The control ChannelInformation as a COM object: the portable control with a desktop of its own inside, and around it
// the interfaces of automation and of embedding, one source file for each family. It works without a site and without a
// window, and lives to the end of every call and event, whoever releases it meanwhile.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "Tesslin.h"
#include "base/pinned.h"
#include "com/control/in_place.h"
#include "com/control/saved_state.h"
#include "com/control/site.h"
#include "com/kit/class_info.h"
#include "com/kit/connection_point.h"
#include "com/kit/dispatch.h"
#include "com/kit/object.h"
#include "com/kit/object_safety.h"
#include "control/channel_information.h"
#include "win32/windows_desktop.h"

#include <docobj.h>

namespace telvar::com {

// As the host asks for it and as the registry has it: shown while visible, activated by itself when the focus comes,
// arranged anew when its size changes.
inline constexpr DWORD miscStatus = OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_INSIDEOUT | OLEMISC_RECOMPOSEONRESIZE |
                                    OLEMISC_CANTLINKINSIDE | OLEMISC_SETCLIENTSITEFIRST;

// The default interface. Its two object properties are answered by hand, because the type information accepts objects
// of their own libraries only, and none where those are not registered. A class of its own, so that IChannelGrid's
// calls do not come here too.
class DefaultDispatch : public Dual<_ChannelInformation> {
public:
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

protected:
    ~DefaultDispatch() = default;
    static constexpr DISPID storeMember = 1;
    static constexpr DISPID linkMember = 2;

    [[nodiscard]] virtual HRESULT invokeLink(DISPID member, WORD flags, const DISPPARAMS& arguments,
                                             VARIANT* result) noexcept = 0;
};

class ChannelInformationObject final
    : public Object<DefaultDispatch, Dual<IChannelGrid>, SourceOf<__ChannelInformation>,
                    ProvidesClassInfo<::ChannelInformation, __ChannelInformation>,
                    SupportsErrorInfo<_ChannelInformation, IChannelGrid>, IOleObject, IOleInPlaceObject,
                    IOleInPlaceActiveObject, IOleControl, IPersistStreamInit, IPersistStorage, IPersistPropertyBag,
                    IViewObject2, IOleCommandTarget, IObjectSafety> {
public:
    ChannelInformationObject();

    // What is served.
    [[nodiscard]] control::ChannelInformation& portable() noexcept { return control_; }

    // ---- _ChannelInformation, see channel_information_members.cpp
    STDMETHODIMP get_pCentralDataStore(IDataStore** store) noexcept override;
    STDMETHODIMP put_pCentralDataStore(IDataStore* store) noexcept override;
    STDMETHODIMP putref_pCentralDataStore(IDataStore* store) noexcept override;
    STDMETHODIMP get_plibRadioComms(IRadioLink** link) noexcept override;
    STDMETHODIMP put_plibRadioComms(IRadioLink* link) noexcept override;
    STDMETHODIMP putref_plibRadioComms(IRadioLink* link) noexcept override;
    STDMETHODIMP get_bHidden(VARIANT_BOOL* hidden) noexcept override;
    STDMETHODIMP put_bHidden(VARIANT_BOOL hidden) noexcept override;
    STDMETHODIMP get_intPrevChannel(short* channel) noexcept override;
    STDMETHODIMP put_intPrevChannel(short channel) noexcept override;
    STDMETHODIMP Prepare() noexcept override;
    STDMETHODIMP DistributeDataStoreLink() noexcept override;
    STDMETHODIMP DistributeRadioCommsLink() noexcept override;
    STDMETHODIMP HideAdvancedButton() noexcept override;
    STDMETHODIMP DisplayFill() noexcept override;
    STDMETHODIMP ChannelFillDown() noexcept override;
    STDMETHODIMP ChannelFillSeries() noexcept override;
    STDMETHODIMP check_Frequencies(VARIANT_BOOL* result) noexcept override;
    STDMETHODIMP LoadFromTelvar() noexcept override;
    STDMETHODIMP SendToTelvar() noexcept override;
    STDMETHODIMP LoadChannelInfoFromTelvar() noexcept override;
    STDMETHODIMP SendChannelInfoToTelvar() noexcept override;
    STDMETHODIMP CheckTotalNoOfChannelScan(BSTR* result) noexcept override;
    STDMETHODIMP SetRowBackColour(short* index, LONG* rgbBackColour) noexcept override;
    STDMETHODIMP HighLightChannel(short* nChannelNum) noexcept override;
    STDMETHODIMP UpdateChannelSelection() noexcept override;
    STDMETHODIMP UpdateControlsFromMemory() noexcept override;
    STDMETHODIMP UpdateRowData(short* i) noexcept override;
    STDMETHODIMP UpdateAccess(short* intAccessLvl) noexcept override;
    STDMETHODIMP DisableMyCommands(BSTR* sCommands) noexcept override;
    STDMETHODIMP EnableMyCommands(BSTR* sCommands) noexcept override;
    STDMETHODIMP PrintInfo() noexcept override;
    STDMETHODIMP RefreshEditForm() noexcept override;
    STDMETHODIMP ChannelKeyUp() noexcept override;
    STDMETHODIMP ChannelKeyDown() noexcept override;
    STDMETHODIMP logMessage(BSTR* txtMessage) noexcept override;

    // ---- IChannelGrid, see channel_information_grid.cpp
    STDMETHODIMP get_RowCount(LONG* rows) noexcept override;
    STDMETHODIMP get_ColumnCount(LONG* columns) noexcept override;
    STDMETHODIMP get_Cell(LONG row, LONG column, BSTR* text) noexcept override;
    STDMETHODIMP get_Header(LONG column, BSTR* text) noexcept override;
    STDMETHODIMP get_ColumnVisible(LONG column, VARIANT_BOOL* visible) noexcept override;
    STDMETHODIMP get_ColumnWidth(LONG column, LONG* twips) noexcept override;
    STDMETHODIMP get_CurrentRow(LONG* row) noexcept override;
    STDMETHODIMP get_CurrentColumn(LONG* column) noexcept override;
    STDMETHODIMP get_SelectionEndRow(LONG* row) noexcept override;
    STDMETHODIMP get_SelectionEndColumn(LONG* column) noexcept override;
    STDMETHODIMP Select(LONG row, LONG column, LONG endRow, LONG endColumn) noexcept override;
    STDMETHODIMP get_TopRow(LONG* row) noexcept override;
    STDMETHODIMP put_TopRow(LONG row) noexcept override;
    STDMETHODIMP get_CellBackColour(LONG row, LONG column, LONG* rgb) noexcept override;
    STDMETHODIMP get_LeftColumn(LONG* column) noexcept override;
    STDMETHODIMP put_LeftColumn(LONG column) noexcept override;
    STDMETHODIMP get_Redraw(VARIANT_BOOL* redraw) noexcept override;
    STDMETHODIMP LeaveEdits(VARIANT_BOOL* left) noexcept override;
    STDMETHODIMP EditChannel() noexcept override;
    STDMETHODIMP FocusGrid() noexcept override;
    STDMETHODIMP get_RefusedRow(LONG* row) noexcept override;
    STDMETHODIMP get_RefusedColumn(LONG* column) noexcept override;
    STDMETHODIMP get_RefusedPastes(LONG* count) noexcept override;
    STDMETHODIMP get_DataLocked(VARIANT_BOOL* locked) noexcept override;

    // ---- IOleObject, see channel_information_embedding.cpp
    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR document) noexcept override;
    STDMETHODIMP Close(DWORD save) noexcept override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) noexcept override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) noexcept override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) noexcept override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    STDMETHODIMP Update() noexcept override;
    STDMETHODIMP IsUpToDate() noexcept override;
    STDMETHODIMP GetUserClassID(CLSID* classId) noexcept override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) noexcept override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* extent) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* extent) noexcept override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** advises) noexcept override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) noexcept override;

    // ---- IOleInPlaceObject, IOleInPlaceActiveObject and IOleControl, see channel_information_activation.cpp
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override;
    STDMETHODIMP InPlaceDeactivate() noexcept override;
    STDMETHODIMP UIDeactivate() noexcept override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override;
    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL active) noexcept override;
    STDMETHODIMP OnDocWindowActivate(BOOL active) noexcept override;
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frame) noexcept override;
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override;
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
    STDMETHODIMP OnMnemonic(LPMSG message) noexcept override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override;
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override;

    // ---- IPersistStreamInit, IPersistStorage and IPersistPropertyBag, see channel_information_persistence.cpp
    STDMETHODIMP GetClassID(CLSID* classId) noexcept override;
    STDMETHODIMP IsDirty() noexcept override;
    STDMETHODIMP InitNew() noexcept override;
    STDMETHODIMP Load(IStream* stream) noexcept override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) noexcept override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override;
    STDMETHODIMP InitNew(IStorage* storage) noexcept override;
    STDMETHODIMP Load(IStorage* storage) noexcept override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) noexcept override;
    STDMETHODIMP SaveCompleted(IStorage* storage) noexcept override;
    STDMETHODIMP HandsOffStorage() noexcept override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept override;

    // ---- IViewObject2, IOleCommandTarget and IObjectSafety, see channel_information_view.cpp
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* reserved, DVTARGETDEVICE* device, HDC deviceContext, HDC target,
                      LPCRECTL bounds, LPCRECTL windowBounds, BOOL(STDMETHODCALLTYPE* go)(ULONG_PTR),
                      ULONG_PTR argument) noexcept override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* reserved, DVTARGETDEVICE* device, HDC deviceContext,
                             LOGPALETTE** colours) noexcept override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* reserved, DWORD* cookie) noexcept override;
    STDMETHODIMP Unfreeze(DWORD cookie) noexcept override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, SIZEL* extent) noexcept override;
    STDMETHODIMP QueryStatus(const GUID* group, ULONG count, OLECMD* commands, OLECMDTEXT* text) noexcept override;
    STDMETHODIMP Exec(const GUID* group, DWORD command, DWORD option, VARIANT* in, VARIANT* out) noexcept override;
    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) noexcept override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) noexcept override;

protected:
    ~ChannelInformationObject() override;
    void referenceLost(ULONG left) noexcept override;

private:
    // Keeps the object for the length of one call, and tells its own references from those of the host.
    class Held : private base::Pinned {
    public:
        explicit Held(ChannelInformationObject& object) noexcept : object_(object) {
            object_.AddRef();
            ++object_.held_;
        }
        ~Held() {
            --object_.held_;
            object_.Release();
        }

    private:
        ChannelInformationObject& object_;
    };

    template <class Body>
    [[nodiscard]] HRESULT call(Body&& body) noexcept {
        const Held held(*this);
        return guarded(body);
    }
    // A published method: what it changed may be seen in pictures that hosts keep.
    template <class Body>
    [[nodiscard]] HRESULT method(Body&& body) noexcept {
        const Held held(*this);
        const HRESULT answer = guarded(body);
        pictureChanged();
        return answer;
    }

    // ---- events, see channel_information_events.cpp
    void wireEvents();
    void fire(DISPID event, std::span<const Variant> arguments = {}) noexcept;
    void fireText(DISPID event, std::string& text);

    // ---- the two object properties, which are any object that dispatches
    [[nodiscard]] HRESULT invokeLink(DISPID member, WORD flags, const DISPPARAMS& arguments,
                                     VARIANT* result) noexcept override;
    void setLink(DISPID member, IDispatch* object);
    [[nodiscard]] ComPointer<IDispatch>& link(DISPID member) noexcept;

    // ---- activation
    void perform(LONG verb, const MSG* message, const RECT* position);
    void activate(const RECT* position);
    void activateForInput(const MSG* message, const RECT* position);
    void focusEntered() noexcept;
    void readAmbients() noexcept;
    [[nodiscard]] win32::WindowsDesktop::Site desktopSite();
    // For the length of one message of a window.
    [[nodiscard]] std::shared_ptr<void> hold();

    // ---- state that hosts keep
    [[nodiscard]] SavedState state() const noexcept { return {.extent = extent_, .hidden = control_.bHidden}; }
    void setState(const SavedState& state) noexcept;
    void pictureChanged() noexcept;

    win32::WindowsDesktop desktop_;
    control::ChannelInformation control_;
    Site site_;
    InPlace inPlace_;
    ComPointer<IDispatch> storeObject_;
    ComPointer<IDispatch> linkObject_;
    ComPointer<IOleAdviseHolder> advises_;
    ComPointer<IAdviseSink> viewSink_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
    SIZEL extent_{};
    HACCEL accelerators_ = nullptr;
    ULONG held_ = 0;
    int frozen_ = 0;
    bool dirty_ = false;
    bool ending_ = false;
};

}  // namespace telvar::com
