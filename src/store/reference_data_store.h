// The data store of this product: a table in memory that knows the file it belongs to and whether anything was changed
// since, whoever changed it. Its journal for edits that a killed program would lose hooks in at tableRevision() and
// snapshot(), which is why both exist apart from saving.
#pragma once

#include <cstdint>
#include <expected>
#include <string>

#include "model/memory_data_store.h"
#include "os/file_error.h"
#include "store/table_contents.h"

namespace telvar::store {

class ReferenceDataStore : public model::MemoryDataStore {
public:
    // Nothing is open: TableOpen is False, all channels are empty.
    ReferenceDataStore();

    // An empty table with the default radio and no file yet.
    void newTable();
    // A refused file leaves the open table, its file and its state as they are.
    [[nodiscard]] std::expected<void, os::FileError> open(const std::string& path);
    // Into the table's file; a table that has none yet is refused. After a failure the table still counts as modified.
    [[nodiscard]] std::expected<void, os::FileError> save();
    // Into another file, which becomes the table's own when it was written.
    [[nodiscard]] std::expected<void, os::FileError> saveAs(const std::string& path);
    // Nothing is open, as at the start; changes that were not saved are lost.
    void close();

    // UTF-8, as given to open() or saveAs(); empty where there is no file yet.
    [[nodiscard]] const std::string& path() const noexcept { return path_; }
    // As it stands in the file, and empty where the file names none: DatabaseTitle shows the file's name then. Whoever
    // puts another text into DatabaseTitle names the table so.
    [[nodiscard]] std::string title();
    // Something that belongs to the table was put since it was last opened, saved or created, equal values included.
    // Putting shared state (the selected channel, a busy flag) changes nothing.
    [[nodiscard]] bool modified();

    // Everything that save() would write.
    [[nodiscard]] TableContents snapshot();
    // Replaces radio, channels, title and unknown members in one step; the file stays the same, and the table counts as
    // modified.
    void restore(const TableContents& contents);

private:
    void adopt(const TableContents& contents, const std::string& path);
    void showTitle();
    void noteUnchanged();

    std::string path_;
    TableContents frame_;  // title and unknown members; its values are not looked at
    std::string shownTitle_;
    std::string savedTitle_;
    std::uint64_t savedRevision_ = 0;
};

}  // namespace telvar::store
