// The control writes and reads numbers with the separator that the user has chosen in the system's settings.
#include <array>

#include <docobj.h>

#include "edit_form_world.h"

namespace telvar::tests {
namespace {

// The user's choice while it lives; the former one afterwards.
class ChosenSeparator {
public:
    explicit ChosenSeparator(const wchar_t* separator) {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, former_.data(), static_cast<int>(former_.size()));
        set(separator);
    }
    ChosenSeparator(const ChosenSeparator&) = delete;
    ChosenSeparator& operator=(const ChosenSeparator&) = delete;
    ChosenSeparator(ChosenSeparator&&) = delete;
    ChosenSeparator& operator=(ChosenSeparator&&) = delete;
    ~ChosenSeparator() { set(former_.data()); }

private:
    static void set(const wchar_t* separator) {
        EXPECT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator), FALSE);
    }
    std::array<wchar_t, 8> former_{};
};

struct BeforeTheControl {
    ChosenSeparator comma{L","};
};

// The choice is made before the control is.
class DecimalComma : private BeforeTheControl, public EditFormWorld {
protected:
    static std::wstring copied() {
        std::wstring text;
        if (OpenClipboard(nullptr) != FALSE) {
            if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT); memory != nullptr) {
                text = static_cast<const wchar_t*>(GlobalLock(memory));
                GlobalUnlock(memory);
            }
            CloseClipboard();
        }
        return text;
    }
    void run(DWORD command) {
        com::check(ComPointer<IOleCommandTarget>::from(control)->Exec(nullptr, command, 0, nullptr, nullptr));
    }
};

TEST_F(DecimalComma, IsInTheCellsAndInWhatIsCopiedFromThem) {
    show();
    EXPECT_EQ(cell(4, 1), "150,100000");
    com::check(grid->Select(4, 1, 4, 2));
    run(OLECMDID_COPY);
    EXPECT_EQ(copied(), L"150,100000\t150,100000");
}

TEST_F(DecimalComma, IsReadBackWhereACopiedCellIsPasted) {
    show();
    com::check(grid->Select(4, 1, 4, 2));
    run(OLECMDID_COPY);
    com::check(grid->Select(9, 1, 9, 1));
    run(OLECMDID_PASTE);
    EXPECT_EQ(boxes.texts(), Texts{});
    EXPECT_EQ(cell(9, 1), "150,100000");
    EXPECT_EQ(storedHertz(9), 150'100'000);
}

TEST_F(DecimalComma, IsShownAndTakenByTheEditForm) {
    show();
    com::check(grid->Select(4, 1, 4, 1));
    com::check(grid->EditChannel());
    ASSERT_NE(form(), nullptr);
    EXPECT_EQ(textOf(frequencyField()), "150,100000");
    type(frequencyField(), "151,5");
    press("Apply");
    EXPECT_EQ(boxes.texts(), Texts{});
    EXPECT_EQ(storedHertz(4), 151'500'000);
    EXPECT_EQ(cell(4, 1), "151,500000");
}

class DecimalPoint : public EditFormWorld {};

TEST_F(DecimalPoint, IsInTheCellsOfAControlThatIsMadeAfterwards) {
    show();
    EXPECT_EQ(cell(4, 1), "150.100000");
}

}  // namespace
}  // namespace telvar::tests
