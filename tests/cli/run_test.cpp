// What all commands share: help, version, mistakes in the arguments, and results that nobody receives.
#include <gtest/gtest.h>

#include <fstream>

#include "cli/table_files.h"
#include "cli/version.h"
#include "command_line.h"
#include "support/build_paths.h"
#include "support/temporary_folder.h"

namespace telvar::cli {
namespace {

using tests::telvar;
using tests::TemporaryFolder;

constexpr std::string_view hint = "Run 'telvar --help' or 'telvar COMMAND --help' to see what can be said.\n";

TEST(Telvar, ExplainsItself) {
    const auto help = telvar({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    for (const auto* command : {"new", "show", "set", "validate", "paste", "fill", "convert"}) {
        EXPECT_NE(help.out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
        const auto own = telvar({command, "--help"});
        EXPECT_EQ(own.status, 0);
        EXPECT_NE(own.out.find(std::string("Usage: telvar ") + command), std::string::npos) << own.out;
    }
}

TEST(Telvar, TellsItsVersionWhichIsTheProjects) {
    EXPECT_EQ(telvar({"--version"}).out, "telvar " + std::string(version) + "\n");
    const auto project = TemporaryFolder::read(TELVAR_SOURCE_DIR "/CMakeLists.txt");
    EXPECT_NE(project.find("project(Telvar VERSION " + std::string(version) + " "), std::string::npos);
}

TEST(Telvar, RefusesArgumentsThatMeanNothing) {
    const auto refusal = [](const std::vector<std::string>& arguments) {
        const auto ran = telvar(arguments);
        EXPECT_EQ(ran.status, 2);
        EXPECT_EQ(ran.out, "");
        EXPECT_TRUE(ran.err.ends_with(hint)) << ran.err;
        return ran.err.substr(0, ran.err.find('\n'));
    };
    EXPECT_EQ(refusal({}), "telvar: A subcommand is required.");
    EXPECT_EQ(refusal({"shwo", "a.telvar"}), "telvar: there is no command \"shwo\".");
    EXPECT_EQ(refusal({"show"}), "telvar: FILE is required.");
    EXPECT_EQ(refusal({"show", "a.telvar", "b.telvar"}), "telvar: \"b.telvar\" was not expected.");
    EXPECT_EQ(refusal({"show", "a.telvar", "--loud"}), "telvar: \"--loud\" was not expected.");
    EXPECT_EQ(refusal({"convert", "a.telvar", "-", "--to", "xml"}), "telvar: --to: xml not in {telvar,csv}.");
}

TEST(Telvar, RefusesInJsonWhereResultsAreJson) {
    const auto ran = telvar({"--json", "shwo"});
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.out, "{\"error\": \"telvar: there is no command \\\"shwo\\\".\"}\n");
    EXPECT_EQ(telvar({"show", "missing.telvar", "--json"}).out,
              "{\"file\": \"missing.telvar\", \"error\": \"missing.telvar: No such file or directory.\"}\n");
}

TEST(Telvar, RefusesALocaleThatIsNotInstalled) {
    const auto ran = telvar({"show", "a.telvar", "--locale", "xx_nowhere"});
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.err, "telvar: the locale \"xx_nowhere\" is not installed here; \"--locale ,\" names the separator "
                       "itself.\n");
}

TEST(Telvar, SaysThatItsResultsWereNotReceived) {
    std::istringstream in;
    std::ofstream full("/dev/full");
    std::ostringstream err;
    EXPECT_EQ(run({"new", "-"}, in, full, err), 2);
    EXPECT_EQ(err.str(), "telvar: standard output cannot be written to.\n");
}

TEST(ChannelList, HoldsNumbersAndRanges) {
    using Numbers = std::vector<std::int16_t>;
    EXPECT_EQ(channelList("7"), (Numbers{7}));
    EXPECT_EQ(channelList("20-22,3,21,255"), (Numbers{3, 20, 21, 22, 255}));
    EXPECT_EQ(channelList("1-255").value().size(), 255U);
    for (const auto* bad :
         {"", "0", "256", "-1", "+1", "1-", "-", "5-4", "1,,2", "1,", "a", "1 2", "1-2-3", "99999", "1.5"}) {
        EXPECT_FALSE(channelList(bad)) << bad;
    }
}

TEST(Format, IsToldByTheExtension) {
    EXPECT_EQ(formatOf("a/Marine.TELVAR"), FileFormat::Table);
    EXPECT_EQ(formatOf("marine.csv"), FileFormat::Csv);
    EXPECT_EQ(formatOf("-"), FileFormat::Table);
    EXPECT_EQ(formatOf("marine.txt"), std::nullopt);
    EXPECT_EQ(formatOf("marine"), std::nullopt);
    EXPECT_EQ(formatOf(".telvar"), std::nullopt);
}

}  // namespace
}  // namespace telvar::cli
