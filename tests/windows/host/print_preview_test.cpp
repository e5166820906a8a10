// The preview: paged, zoomed and left by the keyboard alone, and what its buttons do.
#include "host/shell/print_preview.h"

#include "picture.h"
#include "print_program.h"

namespace telvar::tests {

struct PrintPreview : PrintProgram {
    static std::function<void()> key(WORD code) {
        return [code] { walk::press({code}); };
    }
    static std::function<void()> chord(WORD first, WORD second) {
        return [first, second] { walk::press({first, second}); };
    }
    [[nodiscard]] std::function<void()> cancel() {
        return [this] { PostMessageW(previewed, WM_COMMAND, IDCANCEL, 0); };
    }
    [[nodiscard]] TimedSteps::Step numberIs(std::wstring text) {
        return [this, text = std::move(text)] { return textOf(GetDlgItem(previewed, PREVIEW_NUMBER)) == text; };
    }
    [[nodiscard]] int pages() {
        const std::wstring number = textOf(GetDlgItem(previewed, PREVIEW_NUMBER));
        return std::stoi(number.substr(number.rfind(L' ')));
    }
    [[nodiscard]] bool enabled(int control) { return IsWindowEnabled(GetDlgItem(previewed, control)) != FALSE; }
    [[nodiscard]] SCROLLINFO scrollBar() {
        SCROLLINFO bar{};
        bar.cbSize = sizeof bar;
        bar.fMask = SIF_ALL;
        GetScrollInfo(GetDlgItem(previewed, PREVIEW_PAGE), SB_VERT, &bar);
        return bar;
    }
    void expectOver() {
        EXPECT_EQ(FindWindowW(nullptr, L"Print Preview"), nullptr);
        EXPECT_TRUE(IsWindowEnabled(program->window()));
        EXPECT_TRUE(offered(fileMenu, desk::Command::PrintPreview));
    }
};

TEST_F(PrintPreview, BeginsAtTheFirstPageWithTheFocusOnIt) {
    startWith("maritime.telvar");
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .until(pageIs(1))
        .act([this] {
            EXPECT_GT(pages(), 1);
            EXPECT_FALSE(enabled(PREVIEW_PREVIOUS));
            EXPECT_TRUE(enabled(PREVIEW_NEXT));
            EXPECT_FALSE(IsWindowEnabled(program->window()));
            EXPECT_EQ(textOf(GetDlgItem(previewed, PREVIEW_PAGE)), textOf(GetDlgItem(previewed, PREVIEW_NUMBER)));
        })
        .act(cancel());
    preview(steps);
    expectOver();
}

TEST_F(PrintPreview, IsPagedByTheKeyboardAlone) {
    startWith("maritime.telvar");
    int last = 0;
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act([&] { last = pages(); })
        .act(key(VK_NEXT))
        .until(pageIs(2))
        .act([this] { EXPECT_TRUE(enabled(PREVIEW_PREVIOUS)); })
        .act(key(VK_PRIOR))
        .until(pageIs(1))
        .act(key(VK_PRIOR))
        .act(key(VK_END))
        .until([&] { return pageIs(last)(); })
        .act([this] { EXPECT_FALSE(enabled(PREVIEW_NEXT)); })
        .act(key(VK_NEXT))
        .act(key(VK_HOME))
        .until(pageIs(1))
        .act(key(VK_RIGHT))
        .until(pageIs(2))
        .act(key(VK_LEFT))
        .until(pageIs(1))
        .act(key(VK_ESCAPE));
    preview(steps);
    expectOver();
    EXPECT_TRUE(pumpUntil([this] { return IsChild(program->window(), GetFocus()) != FALSE; }));
}

TEST_F(PrintPreview, AccessKeysPressTheButtons) {
    startWith("maritime.telvar");
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act(chord(VK_MENU, 'N'))
        .until(pageIs(2))
        .act(chord(VK_MENU, 'V'))
        .until(pageIs(1))
        .act(chord(VK_MENU, 'Z'))
        .until(focusIs(PREVIEW_ZOOM))
        .act(key(VK_NEXT))
        .until(pageIs(2))
        .act(chord(VK_MENU, 'C'));
    preview(steps);
    expectOver();
}

TEST_F(PrintPreview, TheFocusNeverStaysOnAButtonThatIsDisabled) {
    startWith("maritime.telvar");
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act([this] { SetFocus(GetDlgItem(previewed, PREVIEW_NEXT)); })
        .act(key(VK_END))
        .until(focusIs(PREVIEW_PAGE))
        .act(key(VK_ESCAPE));
    preview(steps);
    expectOver();
}

TEST_F(PrintPreview, ThePageWidthScrollsAndAnotherPageBeginsAtItsTop) {
    startWith("maritime.telvar");
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act([this] { EXPECT_EQ(scrollBar().nMax, 0); })
        .act(chord(VK_MENU, 'Z'))
        .until(focusIs(PREVIEW_ZOOM))
        .act(key(VK_DOWN))
        .until([this] { return scrollBar().nMax > static_cast<int>(scrollBar().nPage); })
        .act([this] { SetFocus(GetDlgItem(previewed, PREVIEW_PAGE)); })
        .act(key(VK_DOWN))
        .until([this] { return scrollBar().nPos > 0; })
        .act([this] { takePicture(previewed, "print_preview_width"); })
        .act(key(VK_NEXT))
        .until(pageIs(2))
        .until([this] { return scrollBar().nPos == 0; })
        .act(key(VK_ESCAPE));
    preview(steps);
    expectOver();
}

TEST_F(PrintPreview, TheWheelScrollsAndTurnsThePageAtItsEnd) {
    startWith("maritime.telvar");
    const auto turn = [this](int delta) {
        return [this, delta] {
            SendMessageW(GetDlgItem(previewed, PREVIEW_PAGE), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)),
                         0);
        };
    };
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act(turn(-WHEEL_DELTA))
        .until(pageIs(2))
        .act(turn(WHEEL_DELTA / 2))
        .until(pageIs(2))
        .act(turn(WHEEL_DELTA / 2))
        .until(pageIs(1))
        .act(cancel());
    preview(steps);
}

TEST_F(PrintPreview, CtrlPPrintsWhatIsShownAndThePreviewStays) {
    startWith("pmr446.telvar");
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act(chord(VK_CONTROL, 'P'))
        .until([this] { return !record.calls.empty() && record.calls.back() == L"end"; })
        .act([this] {
            EXPECT_EQ(record.pages.size(), static_cast<std::size_t>(pages()));
            EXPECT_TRUE(IsWindowEnabled(previewed));
        })
        .act(key(VK_ESCAPE));
    preview(steps);
    expectOver();
}

TEST_F(PrintPreview, AFailureOfThePrinterIsToldOverThePreview) {
    startWith("pmr446.telvar");
    record.begin = host::DeviceAnswer::Refused;
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE)).act([this] {
        dialogs.expect([this](HWND box) {
            EXPECT_EQ(GetWindow(box, GW_OWNER), previewed);
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
        dialogs.expect([](HWND again) { PostMessageW(again, WM_COMMAND, IDCANCEL, 0); });
        PostMessageW(previewed, WM_COMMAND, PREVIEW_PRINT, 0);
    });
    preview(steps);
    ASSERT_EQ(dialogs.shown().size(), 3U);
    EXPECT_EQ(dialogs.shown()[1], L"Telvar: The printer did not take the document.");
    expectOver();
}

TEST_F(PrintPreview, AChangedPageSetupIsShownAtOnce) {
    startWith("pmr446.telvar");
    printers->setUp = [](desk::PageSetup& setup) {
        setup.onlyInUse = true;
        return true;
    };
    int before = 0;
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act(key(VK_END))
        .until([this] { return !enabled(PREVIEW_NEXT); })
        .act([&] { before = pages(); })
        .act(chord(VK_MENU, 'S'))
        .until([&] { return pages() < before; })
        .act([this] { EXPECT_TRUE(pageIs(pages())()); })
        .act(key(VK_ESCAPE));
    preview(steps);
    expectOver();
}

TEST_F(PrintPreview, ASmallWindowStillHoldsItsButtons) {
    startWith("pmr446.telvar");
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act([this] {
            SetWindowPos(previewed, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
            RECT client{};
            GetClientRect(previewed, &client);
            RECT before{};
            for (const int control : {PREVIEW_PRINT, PREVIEW_SETUP, PREVIEW_PREVIOUS, PREVIEW_NUMBER, PREVIEW_NEXT,
                                      PREVIEW_ZOOM, IDCANCEL}) {
                RECT place{};
                GetWindowRect(GetDlgItem(previewed, control), &place);
                MapWindowPoints(nullptr, previewed, reinterpret_cast<POINT*>(&place), 2);
                EXPECT_GE(place.left, before.right) << control;
                EXPECT_LE(place.right, client.right) << control;
                before = place;
            }
        })
        .act(cancel());
    preview(steps);
}

TEST_F(PrintPreview, TheMainWindowStaysWhileItIsOpen) {
    startWith("pmr446.telvar");
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE))
        .act([this] {
            SendMessageW(program->window(), WM_CLOSE, 0, 0);
            EXPECT_TRUE(isOpen());
            EXPECT_TRUE(IsWindowVisible(previewed));
        })
        .act(cancel());
    preview(steps);
    expectOver();
}

TEST_F(PrintPreview, TheSessionEndsOverIt) {
    startWith("pmr446.telvar");
    dialogs.expect([this](HWND) {
        SendMessageW(program->window(), WM_ENDSESSION, TRUE, 0);
        EXPECT_FALSE(isOpen());
    });
    command(desk::Command::PrintPreview);
    end();
    pump();
    for (const char* file : {"Tesslin.ocx", "VexloRadioLink.dll", "VexloDataStore.dll"}) {
        EXPECT_TRUE(LoadedServer(file).canUnload()) << file;
    }
}

TEST_F(PrintPreview, LooksGood) {
    startWith("maritime.telvar");
    command(desk::Command::LogOut);
    TimedSteps steps;
    steps.until(focusIs(PREVIEW_PAGE)).act([this] { takePicture(previewed, "print_preview"); }).act(cancel());
    preview(steps);
}

}  // namespace telvar::tests
