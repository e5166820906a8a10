#include "store/table_head.h"

#include "base/number_text.h"
#include "store/json_text.h"
#include "store/table_file.h"

namespace telvar::store {

namespace {

constexpr std::string_view noTable = "is no channel table";

class HeadListener : public JsonListener {
public:
    bool scalar(const JsonScalar& value) override {
        if (depth_ == 0) {
            problem_ = noTable;
        } else if (depth_ == 1 && name_ == "format") {
            takeFormat(value);
        } else if (depth_ == 1 && name_ == "version") {
            takeVersion(value);
        }
        return !problem_ && !(formatSeen_ && versionSeen_);
    }

    bool open(JsonType type) override {
        ++depth_;
        if (depth_ == 1 && type != JsonType::Object) {
            problem_ = noTable;
        } else if (depth_ == 2 && name_ == "format") {
            problem_ = noTable;
        } else if (depth_ == 2 && name_ == "version") {
            problem_ = "\"version\" must be a whole number";
        }
        return !problem_;
    }

    bool close(JsonType /*type*/) override {
        --depth_;
        return true;
    }

    bool name(std::string_view name) override {
        if (depth_ == 1) {
            name_ = name;
        }
        return true;
    }

    // Once everything, or enough, was heard. `whole` says that the text ended without a fault.
    [[nodiscard]] std::optional<std::string> problem(bool whole) const {
        if (problem_ || !whole) {
            return problem_;
        }
        if (!formatSeen_) {
            return std::string(noTable) + ": \"format\" is missing";
        }
        return versionSeen_ ? std::nullopt : std::optional<std::string>("\"version\" is missing");
    }

private:
    void takeFormat(const JsonScalar& value) {
        formatSeen_ = true;
        if (value.type != JsonType::Text || value.text != tableFormat) {
            problem_ = std::string(noTable) + ": \"format\" must be " + jsonQuoted(tableFormat);
        }
    }

    void takeVersion(const JsonScalar& value) {
        versionSeen_ = true;
        const auto version = value.type == JsonType::Number ? base::readDouble(value.text).value_or(0.0) : 0.0;
        if (version > tableVersion) {
            problem_ = "was written by a newer release: its version is " + std::string(value.text) +
                       ", and this release reads version " + std::to_string(tableVersion);
        } else if (version != tableVersion) {
            problem_ = "\"version\" must be " + std::to_string(tableVersion);
        }
    }

    int depth_ = 0;
    std::string name_;
    bool formatSeen_ = false;
    bool versionSeen_ = false;
    std::optional<std::string> problem_;
};

}  // namespace

std::optional<std::string> headProblem(std::string_view text) {
    HeadListener listener;
    const auto stopped = readJson(text, listener);
    return listener.problem(!stopped);
}

}  // namespace telvar::store
