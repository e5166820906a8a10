#include "walk/screenshot.h"

#include <wincodec.h>

#include "com/kit/failure.h"
#include "com/kit/pointer.h"
#include "win/gdi.h"

namespace telvar::walk {

namespace {

// A window and what it owns.
struct Covered {
    HWND window;
    RECT area;
};

BOOL CALLBACK addOwned(HWND window, LPARAM data) noexcept {
    auto& covered = *reinterpret_cast<Covered*>(data);
    HWND owner = GetWindow(window, GW_OWNER);
    while (owner != nullptr && owner != covered.window) {
        owner = GetWindow(owner, GW_OWNER);
    }
    RECT own{};
    if (owner != nullptr && IsWindowVisible(window) != FALSE && GetWindowRect(window, &own) != FALSE) {
        const RECT before = covered.area;
        UnionRect(&covered.area, &before, &own);
    }
    return TRUE;
}

win::Bitmap pictureOf(const RECT& area) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    const win::WindowContext screen(nullptr);
    const win::MemoryContext memory(screen.get());
    win::Bitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    if (!memory || !bitmap) {
        throw com::ComFailure(E_FAIL, "There is no screen to take a picture of");
    }
    const win::Selected selected(memory.get(), bitmap.get());
    if (BitBlt(memory.get(), 0, 0, width, height, screen.get(), area.left, area.top, SRCCOPY | CAPTUREBLT) == FALSE) {
        throw com::ComFailure(E_FAIL, "The screen could not be read");
    }
    return bitmap;
}

void writePng(HBITMAP bitmap, const std::wstring& path) {
    com::ComPointer<IWICImagingFactory> factory;
    com::check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IWICImagingFactory),
                                factory.putVoid()));
    com::ComPointer<IWICBitmap> source;
    com::check(factory->CreateBitmapFromHBITMAP(bitmap, nullptr, WICBitmapIgnoreAlpha, source.put()));
    com::ComPointer<IWICStream> stream;
    com::check(factory->CreateStream(stream.put()));
    com::check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
    com::ComPointer<IWICBitmapEncoder> encoder;
    com::check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()));
    com::check(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache));
    com::ComPointer<IWICBitmapFrameEncode> frame;
    com::check(encoder->CreateNewFrame(frame.put(), nullptr));
    com::check(frame->Initialize(nullptr));
    UINT width = 0;
    UINT height = 0;
    com::check(source->GetSize(&width, &height));
    com::check(frame->SetSize(width, height));
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    com::check(frame->SetPixelFormat(&format));
    com::ComPointer<IWICFormatConverter> converted;
    com::check(factory->CreateFormatConverter(converted.put()));
    com::check(
        converted->Initialize(source.get(), format, WICBitmapDitherTypeNone, nullptr, 0.0, WICBitmapPaletteTypeCustom));
    com::check(frame->WriteSource(converted.get(), nullptr));
    com::check(frame->Commit());
    com::check(encoder->Commit());
}

}  // namespace

void savePicture(HWND window, const std::wstring& path) {
    Covered covered{.window = window, .area = {}};
    GetWindowRect(window, &covered.area);
    EnumThreadWindows(GetWindowThreadProcessId(window, nullptr), addOwned, reinterpret_cast<LPARAM>(&covered));
    writePng(pictureOf(covered.area).get(), path);
}

}  // namespace telvar::walk
