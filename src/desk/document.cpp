#include "desk/document.h"

#include <optional>
#include <vector>

#include "desk/paths.h"

namespace telvar::desk {

void Document::create() {
    if (mayGo() && bench_.attempt([this] { bench_.store.newTable(); })) {
        view_.showOther();
    }
}

void Document::open() {
    if (!mayGo()) {
        return;
    }
    const std::string present = bench_.store.path();
    const auto path = bench_.ask([&](Questions& questions) { return questions.askOpenPath(present); });
    if (path) {
        openPath(*path);
    }
}

void Document::openRecent(std::size_t index) {
    const std::vector<std::string> paths = recent_.paths();
    if (index < paths.size() && mayGo()) {
        openPath(paths[index]);
    }
}

void Document::openDropped(const std::string& path) {
    if (!path.empty() && bench_.free() && mayGo()) {
        openPath(path);
    }
}

void Document::openPath(const std::string& path) {
    if (bench_.attempt([&] { bench_.store.open(path); })) {
        recent_.add(bench_.store.path());
        view_.showOther();
    } else if (!bench_.system.exists(path)) {
        recent_.remove(path);
    }
}

bool Document::save() { return leaveEdits() && write(); }

bool Document::saveAs() { return leaveEdits() && writeAs(); }

bool Document::write() {
    return bench_.store.path().empty() ? writeAs() : bench_.attempt([this] { bench_.store.save(); });
}

bool Document::writeAs() {
    const std::string present = bench_.store.path();
    const auto path = bench_.ask([&](Questions& questions) { return questions.askSavePath(present); });
    if (!path || !bench_.attempt([&] { bench_.store.saveAs(*path); })) {
        return false;
    }
    recent_.add(bench_.store.path());
    view_.showName();
    return true;
}

// They belong to the table that is open now, and applied they are changes of it.
bool Document::leaveEdits() {
    return bench_.call([](Control& control) { return control.leaveEdits(); });
}

bool Document::mayGo() {
    if (!leaveEdits()) {
        return false;
    }
    if (!bench_.store.modified()) {
        return true;
    }
    const std::string path = bench_.store.path();
    const std::string name = path.empty() ? "the new channel table" : std::string(fileNameOf(path));
    switch (bench_.ask([&](Questions& questions) { return questions.askSave(name); })) {
    case SaveAnswer::Save:
        return write();
    case SaveAnswer::DontSave:
        return true;
    case SaveAnswer::Cancel:
        break;
    }
    return false;
}

std::string Document::shownName() const {
    const std::string path = bench_.store.path();
    return path.empty() ? "New channel table" : path;
}

}  // namespace telvar::desk
