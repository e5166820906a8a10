// A window that shows one page of a printed document: white paper with a shadow on grey, as a whole or in the window's
// width. The preview has one among its controls.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <utility>

#include "base/pinned.h"
#include "host/print/painter.h"

namespace telvar::host {

enum class PageZoom { WholePage, PageWidth };

class PageView : private base::Pinned {
public:
    static constexpr wchar_t className[] = L"TelvarPageView";

    // `turn` is asked for the page that lies that many behind the present one. Painter and document outlive the window.
    PageView(const PagePainter& painter, std::function<void(int pages)> turn)
        : painter_(painter), turn_(std::move(turn)) {}
    ~PageView() = default;

    // Before the first window of that class is made.
    static void registerClass();
    // Serves a window of that class, which has done nothing so far.
    void attach(HWND window);

    // Shows that page from its top.
    void show(const PrintDocument& document, std::size_t page);
    void setZoom(PageZoom zoom);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] int resolution() const;
    [[nodiscard]] SIZE clientSize() const;
    [[nodiscard]] SIZE sheetPixels(int dpi) const;
    [[nodiscard]] int gap() const;
    void update();
    void scrollBy(int code);
    void scrollTo(int top);
    void wheel(int delta);
    void paint();
    void draw(HDC context, SIZE client) const;

    const PagePainter& painter_;
    std::function<void(int)> turn_;
    HWND window_ = nullptr;
    const PrintDocument* document_ = nullptr;
    std::size_t page_ = 0;
    PageZoom zoom_ = PageZoom::WholePage;
    int top_ = 0;    // pixels that are scrolled out
    int wheel_ = 0;  // what the wheel has turned and did not come to a step yet
};

}  // namespace telvar::host
