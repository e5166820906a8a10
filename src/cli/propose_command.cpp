// telvar propose: the step size and the modulo that the edit form would choose for a frequency.
#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/number_option.h"
#include "synth/proposal.h"

namespace telvar::cli {

namespace {

class ProposeCommand : public Command {
public:
    std::string name() const override { return "propose"; }
    std::string summary() const override { return "Propose a step size and a modulo for a frequency"; }

    void declare(CLI::App& app) override {
        requireNumber(app, "--vco", vco_, "Frequency of the VCO", "HZ");
        requireNumber(app, "--reference", reference_, "Reference frequency", "HZ");
        app.add_option("--current-step", currentStep_,
                       "The step size in kHz that the channel has now, as its text; 2.5 is kept where it fits")
            ->type_name("TEXT");
    }

    Outcome execute(const Console& console) override {
        const auto proposal = synth::proposeSetting(vco_, reference_, currentStep_);
        if (console.json) {
            if (proposal) {
                console.out << Json().add("step", proposal->step).add("modulo", proposal->modulo).line();
            } else {
                console.out << Json().add("step", std::optional<int>()).line();
            }
        } else if (proposal) {
            console.out << "step " << proposal->step << " Hz, modulo " << proposal->modulo << '\n';
        } else {
            console.err << "telvar: no step size and modulo fit this frequency.\n";
        }
        return proposal ? Outcome::Fine : Outcome::Findings;
    }

private:
    std::int32_t vco_ = 0;
    std::int32_t reference_ = 0;
    std::string currentStep_;
};

}  // namespace

std::unique_ptr<Command> proposeCommand() { return std::make_unique<ProposeCommand>(); }

}  // namespace telvar::cli
