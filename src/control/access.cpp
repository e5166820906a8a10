// What the user may see and change: columns by access level, the marking of locked columns, and the host's switch for
// the radio's command.
#include <array>
#include <exception>

#include "base/conversion.h"
#include "control/channel_information.h"
#include "editing/columns.h"
#include "ui/redraw_off.h"

namespace telvar::control {

namespace {

constexpr std::int16_t fullAccess = 5;
constexpr std::int16_t p25Access = 3;

// The only group of commands that the control knows: what needs the serial link. Compared exactly.
constexpr std::string_view serialLink = "RS232";

enum class LockMode : std::int16_t { Off, Pots, ChannelSettings };
constexpr std::array<const char*, 3> lockModeCaptions{"Lock Off", "Lock Pots", "Lock Channel Settings"};

// Columns whose header is marked in a mode; none where the last is before the first.
struct Marked {
    int first;
    int last;
};

[[nodiscard]] constexpr Marked markedColumns(LockMode mode) noexcept {
    switch (mode) {
    case LockMode::Pots:
        return {editing::firstHiddenColumn, editing::firstP25Column - 1};
    case LockMode::ChannelSettings:
        return {5, editing::lastColumn};
    case LockMode::Off:
        break;
    }
    return {0, -1};
}

// Full widths are set in this order.
constexpr std::array<std::int16_t, 18> widthOrder{9,  10, 11, 12, 13, 14, 15, 16, 17,
                                                  19, 20, 22, 18, 21, 23, 24, 25, 26};

void showColumn(ui::Grid& grid, std::int16_t column, bool shown) {
    grid.setColumnWidth(column, shown ? editing::columns[static_cast<std::size_t>(column)].fullAccessWidth : 0);
}

}  // namespace

void ChannelInformation::UpdateAccess(std::int16_t intAccessLvl) {
    session_.trap("UpdateAccess", [&] {
        accessLevel_ = intAccessLvl;
        frmCE.UpdateAccess(intAccessLvl);
        const auto failure = showColumnsOf(intAccessLvl);
        for (std::int16_t column = editing::firstHiddenColumn; column <= editing::lastColumn; ++column) {
            fgdDatabase.setColumnAlignment(column, ui::Alignment::Centre);
        }
        if (failure) {
            std::rethrow_exception(failure);
        }
    });
}

// Answers what went wrong: a board that the store cannot tell of is not fitted, so that nothing stays shown that was
// shown before.
std::exception_ptr ChannelInformation::showColumnsOf(std::int16_t level) {
    if (level >= fullAccess) {
        for (const auto column : widthOrder) {
            showColumn(fgdDatabase, column, true);
        }
        return nullptr;
    }
    for (std::int16_t column = editing::firstHiddenColumn; column < editing::firstP25Column; ++column) {
        showColumn(fgdDatabase, column, false);
    }
    bool board = false;
    std::exception_ptr failure;
    try {
        board = base::isTrue(session_.store()->get(model::StoreMember::P25BoardFitted));
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    for (std::int16_t column = editing::firstP25Column; column <= editing::lastColumn; ++column) {
        showColumn(fgdDatabase, column, board && level >= p25Access);
    }
    return failure;
}

void ChannelInformation::setUpLockModes() {
    for (std::size_t index = 0; index < optLockMode.size(); ++index) {
        optLockMode[index].setCaption(lockModeCaptions[index]);
        lockModes.add(optLockMode[index]);
    }
    optLockMode[0].loadValue(true);
}

void ChannelInformation::optLockMode_Click(std::int16_t Index) {
    session_.trap("optLockMode_Click", [&] {
        if (Index < 0 || Index >= static_cast<std::int16_t>(optLockMode.size())) {
            return;
        }
        markHeaders(Index);
        frmCE.setLockDataMode(Index);
    });
}

void ChannelInformation::markHeaders(std::int16_t mode) {
    const ui::RedrawOff off(fgdDatabase);
    const ui::Cell current{fgdDatabase.row(), fgdDatabase.column()};
    const ui::Cell end{fgdDatabase.rowSel(), fgdDatabase.columnSel()};
    const auto paint = [&](int column, ui::Colour colour) {
        fgdDatabase.setCurrent({0, column});
        fgdDatabase.setCellBackColor(0, column, colour);
    };
    for (int column = 0; column < fgdDatabase.columns(); ++column) {
        paint(column, 0);
    }
    const Marked marked = markedColumns(static_cast<LockMode>(mode));
    for (int column = marked.first; column <= marked.last; ++column) {
        paint(column, ui::green);
    }
    fgdDatabase.select(current, end);
}

void ChannelInformation::DisableMyCommands(const std::string& sCommands) {
    session_.trap("DisableMyCommands", [&] {
        if (sCommands == serialLink) {
            cmdChannelSelect.setEnabled(false);
        }
    });
}

void ChannelInformation::EnableMyCommands(const std::string& sCommands) {
    session_.trap("EnableMyCommands", [&] {
        if (sCommands == serialLink) {
            cmdChannelSelect.setEnabled(true);
        }
    });
}

}  // namespace telvar::control
