#include "radio/image_file.h"

#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <filesystem>
#include <iterator>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <string>

#include "support/temporary_folder.h"
#include "tables.h"

namespace telvar::tests {
namespace {

struct ImageFile : testing::Test {
    TemporaryFolder folder;
};

[[nodiscard]] std::string refusalOf(const std::string& text) {
    const auto image = radio::parseImage(text);
    return image ? "no refusal" : image.error();
}

[[nodiscard]] std::string replaced(std::string text, const std::string& what, const std::string& with) {
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos);
    return text.replace(at, what.size(), with);
}

TEST_F(ImageFile, GivesBackWhatItWasGiven) {
    const auto path = folder / "radio.telvar-radio";
    ASSERT_TRUE(radio::saveImage(path, sampleImage(1)));
    EXPECT_EQ(radio::loadImage(path), sampleImage(1));
}

TEST_F(ImageFile, IsRefusedWhereAnythingIsWrong) {
    const auto text = radio::imageText(sampleImage(1));
    EXPECT_EQ(refusalOf(text), "no refusal");
    EXPECT_EQ(refusalOf(""), "Is not a table of a radio");
    EXPECT_EQ(refusalOf(replaced(text, "table 1", "table 2")), "Is not a table of a radio");
    EXPECT_EQ(refusalOf(text.substr(0, text.size() - 1)), "Does not hold 255 channels");
    EXPECT_EQ(refusalOf(text + "\n"), "Does not hold 255 channels");
    EXPECT_EQ(refusalOf(replaced(text, "\n17 ", "\n18 ")), "Is damaged at channel 17");
    EXPECT_EQ(refusalOf(replaced(text, "\n17 0", "\n17 x")), "Is damaged at channel 17");
    EXPECT_EQ(refusalOf(replaced(text, "\n17 0", "\n17 ")), "Is damaged at channel 17");
    EXPECT_EQ(refusalOf(replaced(text, "\n17 0", "\n17 1")), "Does not match its checksum");
    EXPECT_EQ(refusalOf(replaced(text, "checksum ", "checksum  ")), "Does not match its checksum");
}

TEST_F(ImageFile, EveryCutIsFound) {
    const auto text = radio::imageText(radio::emptyImage());
    for (std::size_t length = 0; length < text.size(); length += 97) {
        EXPECT_NE(refusalOf(text.substr(0, length)), "no refusal") << length;
    }
}

TEST_F(ImageFile, TellsThePathOfWhatItRefuses) {
    const auto path = folder / "other.txt";
    TemporaryFolder::write(path, "something else");
    const auto image = radio::loadImage(path);
    ASSERT_FALSE(image);
    EXPECT_EQ(image.error().sentence(), path + ": Is not a table of a radio.");
}

TEST_F(ImageFile, IsKeptUnderItsDateInAFolderThatIsMade) {
    const auto place = folder / "kept/here";
    const auto first = radio::saveDated(place, sampleImage(1));
    const auto second = radio::saveDated(place, sampleImage(2));
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_TRUE(first->starts_with(place + "/radio 20")) << *first;
    EXPECT_TRUE(first->ends_with(".telvar-radio")) << *first;
    EXPECT_EQ(radio::loadImage(*first), sampleImage(1));
    EXPECT_EQ(radio::loadImage(*second), sampleImage(2));
}

// As two programs that send at the same moment: none takes the other's name.
TEST_F(ImageFile, IsKeptUnderANameOfItsOwnHoweverManyAreSavedAtOnce) {
    constexpr int savers = 4;
    constexpr int saves = 12;
    const auto place = folder / "kept";
    std::barrier together(savers);
    std::array<std::vector<std::string>, savers> names;
    std::vector<std::jthread> threads;
    for (int saver = 0; saver < savers; ++saver) {
        threads.emplace_back([&, saver] {
            for (int save = 0; save < saves; ++save) {
                together.arrive_and_wait();
                names[static_cast<std::size_t>(saver)].push_back(
                    radio::saveDated(place, sampleImage(1 + saver % 2)).value_or("not saved"));
            }
        });
    }
    threads.clear();
    std::set<std::string> different;
    for (std::size_t saver = 0; saver < names.size(); ++saver) {
        for (const std::string& name : names[saver]) {
            EXPECT_TRUE(radio::loadImage(name) == sampleImage(1 + static_cast<int>(saver % 2))) << name;
            different.insert(name);
        }
    }
    EXPECT_EQ(different.size(), std::size_t{savers * saves});
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(place), {}), savers * saves);
}

TEST_F(ImageFile, IsNotKeptWhereNoFolderCanBe) {
    const auto file = folder / "a file";
    TemporaryFolder::write(file, "");
    EXPECT_FALSE(radio::saveDated(file + "/below", sampleImage(1)));
}

}  // namespace
}  // namespace telvar::tests
