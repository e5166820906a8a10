#include "store/reference_data_store.h"

#include "base/conversion.h"
#include "os/files.h"
#include "store/table_file.h"

namespace telvar::store {

namespace {

constexpr const char* untitled = "Untitled";

}  // namespace

ReferenceDataStore::ReferenceDataStore() { noteUnchanged(); }

void ReferenceDataStore::newTable() { adopt(emptyTable(), ""); }

std::expected<void, os::FileError> ReferenceDataStore::open(const std::string& path) {
    const auto contents = loadTable(path);
    if (!contents) {
        return std::unexpected(contents.error());
    }
    adopt(*contents, path);
    return {};
}

std::expected<void, os::FileError> ReferenceDataStore::save() {
    if (path_.empty()) {
        return std::unexpected(os::FileError{untitled, "the table has no file yet"});
    }
    return saveAs(path_);
}

std::expected<void, os::FileError> ReferenceDataStore::saveAs(const std::string& path) {
    const auto contents = snapshot();
    if (auto done = saveTable(path, contents); !done) {
        return done;
    }
    path_ = path;
    frame_.title = contents.title;
    showTitle();
    put(model::StoreMember::TableOpen, true);
    noteUnchanged();
    return {};
}

void ReferenceDataStore::close() {
    adopt(emptyTable(), "");
    shownTitle_.clear();
    put(model::StoreMember::DatabaseTitle, base::textValue(""));
    put(model::StoreMember::TableOpen, false);
}

std::string ReferenceDataStore::title() {
    auto shown = base::toText(memberValue(model::StoreMember::DatabaseTitle));
    return shown == shownTitle_ ? frame_.title : shown;
}

bool ReferenceDataStore::modified() { return tableRevision() != savedRevision_ || title() != savedTitle_; }

TableContents ReferenceDataStore::snapshot() {
    auto contents = contentsOf(*this);
    contents.title = title();
    contents.unknown = frame_.unknown;
    contents.unknownOfRadio = frame_.unknownOfRadio;
    contents.unknownOfChannel = frame_.unknownOfChannel;
    return contents;
}

void ReferenceDataStore::restore(const TableContents& contents) {
    putInto(*this, contents);
    frame_.title = contents.title;
    frame_.unknown = contents.unknown;
    frame_.unknownOfRadio = contents.unknownOfRadio;
    frame_.unknownOfChannel = contents.unknownOfChannel;
    showTitle();
}

void ReferenceDataStore::adopt(const TableContents& contents, const std::string& path) {
    path_ = path;
    restore(contents);
    put(model::StoreMember::SelectedChannel, std::int16_t{1});
    put(model::StoreMember::GridLoaded, false);
    put(model::StoreMember::TableOpen, true);
    noteUnchanged();
}

void ReferenceDataStore::showTitle() {
    shownTitle_ = frame_.title;
    if (shownTitle_.empty()) {
        shownTitle_ = path_.empty() ? untitled : std::string(os::fileStem(path_));
    }
    put(model::StoreMember::DatabaseTitle, shownTitle_);
}

void ReferenceDataStore::noteUnchanged() {
    put(model::StoreMember::DataModified, false);
    put(model::StoreMember::ChannelDataModified, false);
    savedRevision_ = tableRevision();
    savedTitle_ = title();
}

}  // namespace telvar::store
