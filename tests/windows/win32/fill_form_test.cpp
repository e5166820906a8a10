// The fill dialog in its window: OK pressed out of a field that is refused, by mouse, by Enter and by an access key.
#include "form_world.h"

#include <memory>
#include <string>
#include <vector>

#include "editing/frmFill.h"
#include "model/memory_data_store.h"
#include "ui/menu.h"

namespace telvar::win32 {
namespace {

class FillForm : public FormWorld {
protected:
    FillForm() {
        form.setCentralDataStore(std::make_shared<model::MemoryDataStore>());
        form.FillRequested.connect([this] { ++asked; });
        desktop.showModeless(form);
        pump();
        form.step_val.setFocus();
        pump();
        form.step_val.setText("abc");
    }

    // The box of the field comes first and the fill not before the next press.
    template <class Press>
    void expectRefusalThenFill(Press press) {
        EXPECT_EQ(focused(form), "step_val");
        {
            BoxAnswers answers(desktop, IDOK);
            press();
            until([&] { return form.step_val.text() == "0"; });
            EXPECT_EQ(answers.texts(), std::vector<std::string>{"Invalid step value.  Please re-enter value."});
        }
        pump();
        EXPECT_EQ(asked, 0);
        EXPECT_TRUE(desktop.isOpen(form));
        press();
        EXPECT_EQ(asked, 1);
    }

    ui::Grid grid{"fgdDatabase", 256, 27};
    session::Session session{desktop, {}};
    editing::GridRows rows{session, grid};
    ui::MenuItem undo{"mnuUndo", "&Undo"};
    ui::MenuItem redo{"mnuRedo", "&Redo"};
    editing::UndoHistory history{rows, undo, redo};
    editing::frmFill form{rows, history};
    int asked = 0;
};

TEST_F(FillForm, AClickOnOkOutOfARefusedFieldFillsOnlyTheNextTime) {
    expectRefusalThenFill([this] {
        click(windowOf(form.ok_but));
        pump();
    });
}

TEST_F(FillForm, EnterInARefusedFieldFillsOnlyTheNextTime) {
    expectRefusalThenFill([this] { key(VK_RETURN); });
}

TEST_F(FillForm, AnAccessKeyOutOfARefusedFieldFillsOnlyTheNextTime) {
    form.ok_but.setCaption("&OK");
    expectRefusalThenFill([this] { key('O', {VK_MENU}); });
}

TEST_F(FillForm, AFieldThatWasRefusedOnTheWayToOkDoesNotStopIt) {
    {
        BoxAnswers answers(desktop, IDOK);
        key(VK_TAB);
        until([&] { return form.step_val.text() == "0"; });
    }
    click(windowOf(form.ok_but));
    pump();
    EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace telvar::win32
