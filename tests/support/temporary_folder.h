// A folder for one test, removed with everything in it at the test's end.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace telvar::tests {

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() / ("telvar-test-" + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    TemporaryFolder(TemporaryFolder&&) = delete;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }

    // The name of a file inside, in UTF-8.
    [[nodiscard]] std::string operator/(std::string_view name) const { return utf8(path_ / pathOf(name)); }
    [[nodiscard]] std::string name() const { return utf8(path_); }

    // The names of what lies inside, sorted.
    [[nodiscard]] std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(utf8(entry.path().filename()));
        }
        std::ranges::sort(names);
        return names;
    }

    // Both for paths in UTF-8 as operator/ gives them, bytes as they are.
    static void write(const std::string& path, std::string_view contents) {
        std::ofstream file(pathOf(path), std::ios::binary | std::ios::trunc);
        file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    }
    [[nodiscard]] static std::string read(const std::string& path) {
        std::ifstream file(pathOf(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] static std::filesystem::path pathOf(std::string_view text) {
        return {std::u8string(text.begin(), text.end())};
    }

private:
    [[nodiscard]] static std::string utf8(const std::filesystem::path& path) {
        const auto text = path.u8string();
        return {text.begin(), text.end()};
    }

    std::filesystem::path path_;
};

}  // namespace telvar::tests
