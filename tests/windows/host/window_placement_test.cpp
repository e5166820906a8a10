#include "host/shell/window_placement.h"

#include <gtest/gtest.h>

#include "host/shell/registry_settings.h"
#include "test_settings.h"

namespace telvar::tests {

using host::loadPlacement;

TEST(Placement, NothingOrNonsenseInTheSettingsIsNoPlace) {
    const TestSettings own;
    host::RegistrySettings settings(TestSettings::key);
    EXPECT_FALSE(loadPlacement(settings));
    settings.setNumber("Left", 10);
    settings.setNumber("Top", 10);
    settings.setNumber("Width", 0);
    settings.setNumber("Height", 500);
    EXPECT_FALSE(loadPlacement(settings));
    settings.setNumber("Width", 0x7FFFFFFF);
    EXPECT_FALSE(loadPlacement(settings));
    settings.setNumber("Width", 400);
    settings.setNumber("Height", 300);
    settings.setNumber("Maximised", 1);
    const auto place = loadPlacement(settings);
    ASSERT_TRUE(place);
    EXPECT_TRUE(place->maximised);
    EXPECT_EQ(place->rectangle.right - place->rectangle.left, 400);
}

}  // namespace telvar::tests
