// The program's window as the desk sees it, in three parts: the line at its foot, what the user is asked, and the
// window itself. Every question is modal; anything may happen inside.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/pinned.h"
#include "desk/access.h"
#include "desk/backups.h"
#include "desk/control.h"
#include "desk/page_setup.h"
#include "desk/printed_table.h"

namespace telvar::desk {

class StatusLine : private base::Pinned {
public:
    virtual ~StatusLine() = default;

    virtual void setMessage(const std::string& text) = 0;
    [[nodiscard]] virtual std::string message() const = 0;
    virtual void setLevel(std::string_view text) = 0;
    virtual void setChannels(const std::string& text) = 0;
    // What is known of the radio in two words, and as a sentence for the mouse that rests on it.
    virtual void setRadio(std::string_view text, const std::string& sentence) = 0;
    virtual void setModified(bool modified) = 0;
    // Of a refresh, which tells each of its 255 steps.
    virtual void stepProgress() = 0;
    // Of an exchange, 0 to 100.
    virtual void showPercent(int percent) = 0;
    virtual void endProgress() = 0;
    [[nodiscard]] virtual bool visible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

enum class SaveAnswer : std::uint8_t { Save, DontSave, Cancel };

struct Connection {
    std::string address;  // as the radio link has them
    std::string trace;    // the file that every frame goes to; empty for none
};

struct RestoreChoice {
    Backup backup;
    bool load = true;  // the restored table takes the place of the open one
};

// Nothing, or false, where the user cancels.
class Questions : private base::Pinned {
public:
    virtual ~Questions() = default;

    virtual void tell(const std::string& sentence) = 0;
    [[nodiscard]] virtual SaveAnswer askSave(const std::string& tableName) = 0;
    // Whether an exchange with the radio is to be cancelled, since the program is to end.
    [[nodiscard]] virtual bool askCancelExchange() = 0;
    [[nodiscard]] virtual std::optional<std::string> askOpenPath(const std::string& besides) = 0;
    [[nodiscard]] virtual std::optional<std::string> askSavePath(const std::string& suggested) = 0;
    [[nodiscard]] virtual std::optional<std::string> askHtmlPath(const std::string& suggested) = 0;

    // 1 to 255; `suggested` stands in the field first.
    [[nodiscard]] virtual std::optional<int> askChannel(int suggested) = 0;
    // `why` is one sentence above the fields, `suggested` the level that is chosen first; answers a level whose
    // password was right.
    [[nodiscard]] virtual std::optional<AccessLevel> askLogin(const Access& access, const std::string& why,
                                                              AccessLevel suggested) = 0;
    // Sets or takes away one level's password; answers which level's.
    [[nodiscard]] virtual std::optional<AccessLevel> askNewPassword(Access& access) = 0;
    // `note` is shown below the fields. `take` takes the user's choice, or throws with the sentence that says why it
    // cannot be taken, which is shown. Whether a choice was taken.
    [[nodiscard]] virtual bool askConnection(const Connection& present, const std::string& note,
                                             const std::function<void(const Connection&)>& take) = 0;
    [[nodiscard]] virtual bool askFaults(std::span<const std::string> known, const std::string& present,
                                         const std::function<void(const std::string&)>& take) = 0;
    // `folder` is told where there is nothing to choose.
    [[nodiscard]] virtual std::optional<RestoreChoice> askBackup(std::span<const Backup> backups,
                                                                 const std::string& folder) = 0;
    // Whether the radio's present table may be overwritten.
    [[nodiscard]] virtual bool askRestore(const Backup& backup) = 0;
    virtual void showAbout() = 0;

    // Each throws base::Failure with one sentence, and what reading the table throws. The user may change the set-up in
    // each; the table is read afterwards.
    using ReadTable = std::function<PrintedTable()>;
    virtual void previewPages(const ReadTable& read, PageSetup& setup) = 0;
    // Whether all was printed.
    [[nodiscard]] virtual bool print(const ReadTable& read, PageSetup& setup) = 0;
    virtual void setUpPage(PageSetup& setup) = 0;
};

class Window : private base::Pinned {
public:
    virtual ~Window() = default;

    [[nodiscard]] virtual StatusLine& status() = 0;
    [[nodiscard]] virtual Questions& questions() = 0;

    // False once it is closed: nothing is shown and nothing is asked any more.
    [[nodiscard]] virtual bool open() const = 0;
    virtual void setTitle(const std::string& title) = 0;
    virtual void setHourglass(bool hourglass) = 0;
    // After the status line came or went.
    virtual void layout() = 0;
    // Before and after something modal: the control's own windows are told, and the focus comes back.
    virtual void beginModal() = 0;
    virtual void endModal() = 0;
    // Calls Desk::goOn() from the message loop.
    virtual void later() = 0;
    virtual void closeLater() = 0;
    // Draws the user's eye to the modal window that stands open.
    virtual void showModal() = 0;

    // While the user types into a text box, what it does with the action; false where nobody does.
    [[nodiscard]] virtual bool textBoxHasFocus() const = 0;
    virtual void editText(EditAction action) = 0;
};

}  // namespace telvar::desk
