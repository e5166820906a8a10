// The ambient properties: how the container wants its controls to look and behave.
#include "host/embed/control_site.h"
#include "win/scaling.h"

namespace telvar::host {

namespace {

// A system colour as an OLE colour.
long systemColour(int index) noexcept { return static_cast<long>(0x80000000U | static_cast<unsigned>(index)); }

void setTruth(VARIANT& result, bool truth) noexcept {
    V_VT(&result) = VT_BOOL;
    V_BOOL(&result) = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

void setLong(VARIANT& result, long value) noexcept {
    V_VT(&result) = VT_I4;
    V_I4(&result) = value;
}

// The system's font for messages, in points, so that the control scales it to its own DPI.
HRESULT setFont(VARIANT& result) noexcept {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0)) {
        return E_FAIL;
    }
    const LOGFONTW& font = metrics.lfMessageFont;
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = metrics.lfMessageFont.lfFaceName;
    // In ten-thousandths of a point.
    description.cySize.int64 = MulDiv(font.lfHeight < 0 ? -font.lfHeight : font.lfHeight, 720'000, win::dpiOf(nullptr));
    description.sWeight = static_cast<SHORT>(font.lfWeight);
    description.sCharset = font.lfCharSet;
    V_VT(&result) = VT_DISPATCH;
    return OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(&V_DISPATCH(&result)));
}

}  // namespace

STDMETHODIMP ControlSite::GetTypeInfoCount(UINT* count) noexcept {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

STDMETHODIMP ControlSite::GetTypeInfo(UINT, LCID, ITypeInfo** information) noexcept {
    if (information != nullptr) {
        *information = nullptr;
    }
    return DISP_E_BADINDEX;
}

// Ambient properties are asked for by number.
STDMETHODIMP ControlSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept { return DISP_E_UNKNOWNNAME; }

STDMETHODIMP ControlSite::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                 UINT*) noexcept {
    if ((flags & DISPATCH_PROPERTYGET) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (result == nullptr) {
        return E_POINTER;
    }
    VariantInit(result);
    switch (member) {
    case DISPID_AMBIENT_USERMODE:
    case DISPID_AMBIENT_SUPPORTSMNEMONICS:
        setTruth(*result, true);
        return S_OK;
    case DISPID_AMBIENT_UIDEAD:
    case DISPID_AMBIENT_SHOWGRABHANDLES:
    case DISPID_AMBIENT_SHOWHATCHING:
    case DISPID_AMBIENT_MESSAGEREFLECT:
    case DISPID_AMBIENT_DISPLAYASDEFAULT:
        setTruth(*result, false);
        return S_OK;
    case DISPID_AMBIENT_BACKCOLOR:
        setLong(*result, systemColour(COLOR_BTNFACE));
        return S_OK;
    case DISPID_AMBIENT_FORECOLOR:
        setLong(*result, systemColour(COLOR_WINDOWTEXT));
        return S_OK;
    case DISPID_AMBIENT_LOCALEID:
        setLong(*result, static_cast<long>(GetUserDefaultLCID()));
        return S_OK;
    case DISPID_AMBIENT_FONT:
        return setFont(*result);
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

}  // namespace telvar::host
