#include "os/program.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

#include "os/folders.h"
#include "os/locale.h"
#include "support/temporary_folder.h"

namespace telvar::os {
namespace {

// Sets an environment variable and puts it back at the end.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        if (const char* before = std::getenv(name)) {
            before_ = before;
        }
        ::setenv(name, value.c_str(), 1);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    Variable(Variable&&) = delete;
    Variable& operator=(Variable&&) = delete;
    ~Variable() { ::setenv(name_, before_.c_str(), 1); }

private:
    const char* name_;
    std::string before_;
};

TEST(Program, ArgumentsComeWithoutTheProgramsName) {
    std::array<std::string, 3> texts{"telvar", "show", "Küste.telvar"};
    std::array<char*, 4> pointers{texts[0].data(), texts[1].data(), texts[2].data(), nullptr};
    EXPECT_EQ(programArguments(3, pointers.data()), (std::vector<std::string>{"show", "Küste.telvar"}));
    EXPECT_EQ(programArguments(0, pointers.data()), std::vector<std::string>{});
}

TEST(Environment, NamesTheStateFolder) {
    const tests::TemporaryFolder folder;
    {
        const Variable state("XDG_STATE_HOME", folder / "state");
        EXPECT_EQ(userStateFolder().value(), folder / "state/telvar");
    }
    const Variable state("XDG_STATE_HOME", "relative");
    const Variable home("HOME", folder / "home");
    EXPECT_EQ(userStateFolder().value(), folder / "home/.local/state/telvar");
}

TEST(Environment, WithoutAHomeThereIsNoStateFolder) {
    const Variable state("XDG_STATE_HOME", "");
    const Variable home("HOME", "");
    EXPECT_EQ(userStateFolder().error().sentence(), "HOME: Does not name a folder.");
}

TEST(Environment, ALocaleThatTheMachineDoesNotHaveCountsAsThePlainOne) {
    const Variable locale("LC_ALL", "xx_nowhere");
    EXPECT_EQ(userNumberFormat(), base::NumberFormat{});
}

TEST(Environment, ThePlainLocaleIsAlwaysThere) { EXPECT_EQ(numberFormatOf("C"), base::NumberFormat{}); }

}  // namespace
}  // namespace telvar::os
