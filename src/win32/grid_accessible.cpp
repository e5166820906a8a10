#include "win32/grid_accessible.h"

#include "com/kit/automation.h"
// Needs the types of the headers before it.
#include <oleacc.h>

#include <optional>
#include <string>
#include <vector>

#include "com/kit/bstr.h"
#include "com/kit/enumerator.h"
#include "com/kit/object.h"
#include "win32/convert.h"
#include "win32/grid_window.h"

namespace telvar::win32 {

namespace {

void setLong(VARIANT* answer, LONG value) noexcept {
    answer->vt = VT_I4;
    answer->lVal = value;
}

BSTR bstrOf(const std::string& text) { return com::Bstr(text).detach(); }

struct GivesNumber {
    [[nodiscard]] static VARIANT give(LONG id) noexcept {
        VARIANT given{};
        setLong(&given, id);
        return given;
    }
};
// The child numbers of several selected cells.
using CellList = com::Enumerator<IEnumVARIANT, LONG, VARIANT, GivesNumber>;

class GridAccessible final : public com::Object<IAccessible> {
public:
    explicit GridAccessible(std::weak_ptr<GridWindow> window) noexcept : window_(std::move(window)) {}

    // ---- IDispatch: screen readers use the interface itself
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) noexcept override {
        return E_NOTIMPL;
    }

    // ---- the tree
    STDMETHODIMP get_accParent(IDispatch** parent) noexcept override {
        *parent = nullptr;
        return asked({}, [&](GridWindow& window, ui::Grid&, std::optional<ui::Cell>) {
            return AccessibleObjectFromWindow(window.handle(), static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                              reinterpret_cast<void**>(parent));
        });
    }
    STDMETHODIMP get_accChildCount(LONG* count) noexcept override {
        *count = 0;
        return asked({}, [&](GridWindow&, ui::Grid& grid, std::optional<ui::Cell>) {
            *count = static_cast<LONG>(grid.rows() * grid.columns());
            return S_OK;
        });
    }
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) noexcept override {
        *object = nullptr;
        // Cells are simple elements of this object.
        return asked(
            child, [](GridWindow&, ui::Grid&, std::optional<ui::Cell> cell) { return cell ? S_FALSE : E_INVALIDARG; });
    }

    // ---- one element
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) noexcept override {
        *name = nullptr;
        return asked(child, [&](GridWindow&, ui::Grid& grid, std::optional<ui::Cell> cell) {
            *name = bstrOf(cell ? nameOf(grid, *cell) : grid.caption());
            return S_OK;
        });
    }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) noexcept override {
        *value = nullptr;
        return asked(child, [&](GridWindow&, ui::Grid& grid, std::optional<ui::Cell> cell) {
            *value = cell ? bstrOf(grid.text(cell->row, cell->column)) : nullptr;
            return cell ? S_OK : DISP_E_MEMBERNOTFOUND;
        });
    }
    STDMETHODIMP get_accDescription(VARIANT, BSTR* text) noexcept override { return none(text); }
    STDMETHODIMP get_accHelp(VARIANT, BSTR* text) noexcept override { return none(text); }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT, BSTR* text) noexcept override { return none(text); }
    STDMETHODIMP get_accDefaultAction(VARIANT, BSTR* text) noexcept override { return none(text); }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) noexcept override {
        *topic = 0;
        return none(file);
    }
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) noexcept override {
        return asked(child, [&](GridWindow&, ui::Grid&, std::optional<ui::Cell> cell) {
            setLong(role, cell ? roleOf(*cell) : ROLE_SYSTEM_TABLE);
            return S_OK;
        });
    }
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) noexcept override {
        return asked(child, [&](GridWindow& window, ui::Grid& grid, std::optional<ui::Cell> cell) {
            setLong(state, cell ? stateOf(window, grid, *cell) : ownState(window, grid));
            return S_OK;
        });
    }
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) noexcept override {
        return asked(child, [&](GridWindow& window, ui::Grid&, std::optional<ui::Cell> cell) {
            RECT rect{};
            GetClientRect(window.handle(), &rect);
            if (cell) {
                rect = rectOf(window.layout().cellRect(*cell));
            }
            MapWindowPoints(window.handle(), nullptr, reinterpret_cast<POINT*>(&rect), 2);
            *left = rect.left;
            *top = rect.top;
            *width = rect.right - rect.left;
            *height = rect.bottom - rect.top;
            return S_OK;
        });
    }

    // ---- focus and selection
    STDMETHODIMP get_accFocus(VARIANT* child) noexcept override {
        VariantInit(child);
        return asked({}, [&](GridWindow& window, ui::Grid& grid, std::optional<ui::Cell>) {
            if (GetFocus() != window.handle()) {
                return S_FALSE;
            }
            setLong(child, accessibleId(grid, {grid.row(), grid.column()}));
            return S_OK;
        });
    }
    STDMETHODIMP get_accSelection(VARIANT* children) noexcept override {
        VariantInit(children);
        return asked({}, [&](GridWindow&, ui::Grid& grid, std::optional<ui::Cell>) {
            const ui::CellRange selection = grid.selection();
            std::vector<LONG> ids;
            for (int row = selection.firstRow; row <= selection.lastRow; ++row) {
                for (int column = selection.firstColumn; column <= selection.lastColumn; ++column) {
                    ids.push_back(accessibleId(grid, {row, column}));
                }
            }
            if (ids.size() == 1) {
                setLong(children, ids.front());
            } else {
                children->punkVal = com::make<CellList>(std::move(ids)).detach();
                children->vt = VT_UNKNOWN;
            }
            return S_OK;
        });
    }
    STDMETHODIMP accSelect(LONG flags, VARIANT child) noexcept override {
        return asked(child, [&](GridWindow& window, ui::Grid& grid, std::optional<ui::Cell> cell) {
            if ((flags & SELFLAG_TAKEFOCUS) != 0) {
                SetFocus(window.handle());
            }
            if (cell && (flags & SELFLAG_EXTENDSELECTION) != 0) {
                grid.select({grid.row(), grid.column()}, *cell);
            } else if (cell && (flags & (SELFLAG_TAKESELECTION | SELFLAG_TAKEFOCUS)) != 0) {
                grid.setCurrent(*cell);
            }
            return S_OK;
        });
    }

    // ---- finding
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) noexcept override {
        VariantInit(end);
        return asked(start, [&](GridWindow&, ui::Grid& grid, std::optional<ui::Cell> cell) {
            const auto to = neighbour(grid, direction, cell);
            if (!to) {
                return S_FALSE;
            }
            setLong(end, accessibleId(grid, *to));
            return S_OK;
        });
    }
    STDMETHODIMP accHitTest(LONG x, LONG y, VARIANT* child) noexcept override {
        VariantInit(child);
        return asked({}, [&](GridWindow& window, ui::Grid& grid, std::optional<ui::Cell>) {
            POINT point{x, y};
            ScreenToClient(window.handle(), &point);
            RECT client{};
            GetClientRect(window.handle(), &client);
            if (PtInRect(&client, point) == FALSE) {
                return S_FALSE;
            }
            const auto cell = window.layout().hit({static_cast<int>(point.x), static_cast<int>(point.y)});
            setLong(child, cell ? accessibleId(grid, *cell) : CHILDID_SELF);
            return S_OK;
        });
    }
    STDMETHODIMP accDoDefaultAction(VARIANT) noexcept override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP put_accName(VARIANT, BSTR) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP put_accValue(VARIANT, BSTR) noexcept override { return E_NOTIMPL; }

private:
    // Runs the body with what is asked about: the grid itself, or one of its cells.
    template <class Body>
    HRESULT asked(const VARIANT& child, Body&& body) const noexcept {
        return com::guarded([&]() -> HRESULT {
            const auto window = window_.lock();
            if (!window || window->grid() == nullptr || window->handle() == nullptr) {
                return CO_E_OBJNOTCONNECTED;
            }
            ui::Grid& grid = *window->grid();
            const LONG id = child.vt == VT_I4 ? child.lVal : CHILDID_SELF;
            if (id < 0 || id > grid.rows() * grid.columns()) {
                return E_INVALIDARG;
            }
            const int place = static_cast<int>(id) - 1;
            const auto cell = id == CHILDID_SELF
                                  ? std::nullopt
                                  : std::optional(ui::Cell{place / grid.columns(), place % grid.columns()});
            return body(*window, grid, cell);
        });
    }

    static HRESULT none(BSTR* text) noexcept {
        *text = nullptr;
        return S_FALSE;
    }

    static std::string nameOf(const ui::Grid& grid, ui::Cell cell) {
        const std::string& header = grid.text(0, cell.column);
        const std::string& label = grid.text(cell.row, 0);
        if (cell.row == 0 || header.empty()) {
            return cell.row == 0 ? header : label;
        }
        return header + " " + label;
    }

    static LONG roleOf(ui::Cell cell) noexcept {
        if (cell.row == 0) {
            return ROLE_SYSTEM_COLUMNHEADER;
        }
        return cell.column == 0 ? ROLE_SYSTEM_ROWHEADER : ROLE_SYSTEM_CELL;
    }

    static LONG ownState(const GridWindow& window, const ui::Grid& grid) noexcept {
        LONG state = STATE_SYSTEM_FOCUSABLE;
        if (GetFocus() == window.handle()) {
            state |= STATE_SYSTEM_FOCUSED;
        }
        if (!grid.enabled()) {
            state |= STATE_SYSTEM_UNAVAILABLE;
        }
        return grid.visible() ? state : state | STATE_SYSTEM_INVISIBLE;
    }

    static LONG stateOf(const GridWindow& window, const ui::Grid& grid, ui::Cell cell) {
        LONG state = STATE_SYSTEM_READONLY;
        if (cell.row > 0 && cell.column > 0) {
            state |= STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_MULTISELECTABLE;
            if (grid.selection().contains(cell)) {
                state |= STATE_SYSTEM_SELECTED;
            }
            if (cell == ui::Cell{grid.row(), grid.column()} && GetFocus() == window.handle()) {
                state |= STATE_SYSTEM_FOCUSED;
            }
        }
        if (grid.columnWidth(cell.column) == 0) {
            return state | STATE_SYSTEM_INVISIBLE;
        }
        const ui::Rect view{0, 0, window.layout().view().width, window.layout().view().height};
        return window.layout().cellRect(cell).intersected(view).empty() ? state | STATE_SYSTEM_OFFSCREEN : state;
    }

    static std::optional<ui::Cell> neighbour(const ui::Grid& grid, LONG direction, std::optional<ui::Cell> from) {
        const ui::Cell last{grid.rows() - 1, grid.columns() - 1};
        if (!from) {
            if (direction == NAVDIR_FIRSTCHILD) {
                return ui::Cell{0, 0};
            }
            return direction == NAVDIR_LASTCHILD ? std::optional(last) : std::nullopt;
        }
        ui::Cell to = *from;
        switch (direction) {
        case NAVDIR_UP:
            --to.row;
            break;
        case NAVDIR_DOWN:
            ++to.row;
            break;
        case NAVDIR_LEFT:
            --to.column;
            break;
        case NAVDIR_RIGHT:
            ++to.column;
            break;
        case NAVDIR_NEXT:
        case NAVDIR_PREVIOUS: {
            const int place = (to.row * grid.columns()) + to.column + (direction == NAVDIR_NEXT ? 1 : -1);
            if (place < 0) {
                return std::nullopt;
            }
            to = {place / grid.columns(), place % grid.columns()};
            break;
        }
        default:
            return std::nullopt;
        }
        const bool inside = to.row >= 0 && to.row <= last.row && to.column >= 0 && to.column <= last.column;
        return inside ? std::optional(to) : std::nullopt;
    }

    std::weak_ptr<GridWindow> window_;
};

}  // namespace

// The identifier is the compiler's own: the import library of oleacc offers the name IID_IAccessible as if it were a
// function.
LRESULT accessibleAnswer(const std::shared_ptr<GridWindow>& window, WPARAM wParam) {
    return LresultFromObject(__uuidof(IAccessible), wParam, com::make<GridAccessible>(window).get());
}

}  // namespace telvar::win32
