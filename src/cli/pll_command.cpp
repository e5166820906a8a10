// telvar pll: whether the synthesizer can be programmed with a combination, and how the ratio is spread over its
// counters.
#include <CLI/CLI.hpp>

#include <optional>

#include "base/checked.h"
#include "base/failure.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/number_option.h"
#include "synth/clsPLLSetting.h"
#include "synth/divider.h"

namespace telvar::cli {

namespace {

struct Division {
    std::int32_t ratio;
    synth::DividerSplit split;
};

class PllCommand : public Command {
public:
    std::string name() const override { return "pll"; }
    std::string summary() const override { return "Say whether the synthesizer can be programmed with a combination"; }

    void declare(CLI::App& app) override {
        requireNumber(app, "--vco", vco_, "Frequency of the VCO", "HZ");
        requireNumber(app, "--modulo", modulo_, "Fractional modulo, 8 or 5 in this radio", "M");
        requireNumber(app, "--step", step_, "Step size", "HZ");
        requireNumber(app, "--reference", reference_, "Reference frequency", "HZ");
    }

    Outcome execute(const Console& console) override {
        synth::clsPLLSetting setting;
        setting.InitialiseSettings(vco_, modulo_, step_, reference_);
        const auto division = divide();
        if (console.json) {
            printJson(console, setting.IsValid(), division);
        } else {
            printText(console, setting.IsValid(), division);
        }
        return setting.IsValid() ? Outcome::Fine : Outcome::Findings;
    }

private:
    // Nothing where 32 bits do not hold a step of the calculation.
    [[nodiscard]] std::optional<Division> divide() const {
        try {
            const auto comparison = base::checkedMultiply<std::int32_t>(modulo_, step_);
            const auto ratio = synth::floorQuotient(vco_, comparison);
            return Division{.ratio = ratio, .split = synth::splitDivider(ratio)};
        } catch (const base::ArithmeticFault&) {
            return std::nullopt;
        }
    }

    static void printText(const Console& console, bool valid, const std::optional<Division>& division) {
        console.out << (valid ? "valid" : "not valid");
        if (division) {
            console.out << ": ratio " << division->ratio << ", main " << division->split.main << ", eights "
                        << division->split.eights << ", ones " << division->split.ones;
        }
        console.out << '\n';
    }

    static void printJson(const Console& console, bool valid, const std::optional<Division>& division) {
        Json json;
        json.add("valid", valid);
        if (division) {
            json.add("ratio", division->ratio)
                .add("main", division->split.main)
                .add("eights", division->split.eights)
                .add("ones", division->split.ones);
        }
        console.out << json.line();
    }

    std::int32_t vco_ = 0;
    std::int16_t modulo_ = 0;
    std::int32_t step_ = 0;
    std::int32_t reference_ = 0;
};

}  // namespace

std::unique_ptr<Command> pllCommand() { return std::make_unique<PllCommand>(); }

}  // namespace telvar::cli
