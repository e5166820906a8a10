// Random tables, random radios and random blocks, copied, typed and pasted at random places, against a second statement
// of the rules that shares nothing with the first but the list of DCS codes: what a channel shows, what a cell may
// hold, what it writes, and what a paste makes of a text.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "editing_world.h"
#include "model/subtones.h"

namespace telvar::tests {
namespace {

using Cells = std::array<std::string, 27>;
using Texts = std::vector<std::string>;

// -- the rules once more ---------------------------------------------------------------------------------------------

struct Radio {
    bool switchable = true;
    bool narrowOnly = false;
    bool board = false;
    int code = 0;
    double revision = 3.0;
};

struct Channel {
    std::array<double, 2> hertz{};  // transmit, receive, as in the pairs below
    std::array<bool, 2> dcs{};
    std::array<int, 2> dcsIndex{};
    std::array<double, 2> tone{};
    std::array<double, 2> step{12'500, 12'500};
    std::array<int, 2> modulo{1, 1};
    int bits = 0;
    bool scan = false;
    bool digital = false;
    bool repeatsP25 = false;
    std::array<int, 27> level{};  // by column
    std::array<std::string, 3> code{"0000", "0000", "0000"};
    bool operator==(const Channel&) const = default;
};

[[nodiscard]] std::string printed(const char* format, double value) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

[[nodiscard]] std::string subtoneOf(const Channel& channel, std::size_t side) {
    if (channel.dcs[side]) {
        const int index = channel.dcsIndex[side];
        return index >= 0 && index <= 82 ? std::string(model::dcsCodes[static_cast<std::size_t>(index)]) : "Invalid";
    }
    if (side == 1 && (channel.bits & 4) != 0) {
        return "Multiple";
    }
    return channel.tone[side] == 0 ? "Disabled" : printed("%.1f Hz", std::round(channel.tone[side] * 10) / 10);
}

[[nodiscard]] Cells shown(const Channel& channel, const Radio& radio) {
    Cells cells;
    if (channel.hertz[0] == 0 && channel.hertz[1] == 0) {
        std::fill(cells.begin() + 1, cells.end(), "X");
        return cells;
    }
    for (const std::size_t side : {0U, 1U}) {
        cells[1 + side] = channel.hertz[side] == 0 ? "X" : printed("%.6f", channel.hertz[side] / 1e6);
        cells[3 + side] = subtoneOf(channel, side);
        cells[17 + 3 * side] = printed("%.15g", channel.step[side] / 1000);
        cells[19 + 3 * side] = channel.modulo[side] == 1 ? "8" : "5";
    }
    const bool repeater = (channel.bits & 2) != 0;
    cells[5] = repeater             ? channel.repeatsP25 ? "Mixed Mode" : "Repeater"
               : channel.repeatsP25 ? "P25 Repeater"
               : channel.bits & 1   ? "Simplex"
                                    : "Duplex";
    cells[6] = channel.scan ? "Yes" : "No";
    const bool narrow = (channel.bits & 128) != 0;
    cells[7] = !radio.switchable ? "N/A" : narrow || radio.narrowOnly ? "Narrow" : "Wide";
    cells[8] = narrow && channel.digital ? "P25 Digital" : "Analogue";
    for (const std::size_t column : {9U, 11U, 12U, 14U, 15U, 16U, 18U, 21U}) {
        cells[column] = std::to_string(channel.level[column]);
    }
    cells[10] = std::to_string(255 - channel.level[10]);
    cells[13] = std::to_string(255 - channel.level[radio.revision >= 2.9 ? 13 : 10]);
    if (!radio.switchable) {
        cells[13] = cells[14] = cells[15] = "X";
    }
    cells[23] = channel.repeatsP25 ? "Yes" : "No";
    std::copy(channel.code.begin(), channel.code.end(), cells.begin() + 24);
    return cells;
}

[[nodiscard]] std::string lower(std::string text) {
    for (char& letter : text) {
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    }
    return text;
}
[[nodiscard]] std::string stripped(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}
[[nodiscard]] std::optional<double> number(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    return text.empty() || *end != '\0' || text.find_first_of("\t\r\nxXnN") != std::string::npos ? std::nullopt
                                                                                                 : std::optional(value);
}
[[nodiscard]] bool oneOf(const std::string& text, const Texts& all) {
    return std::ranges::find(all, text) != all.end();
}
[[nodiscard]] std::optional<float> toneIn(std::string text) {
    for (auto at = text.find("Hz"); at != std::string::npos; at = text.find("Hz")) {
        text.erase(at, 2);
    }
    const auto value = number(stripped(text));
    return value ? std::optional(static_cast<float>(*value)) : std::nullopt;
}
[[nodiscard]] int dcsIndexIn(const std::string& text) {
    const auto* const found = std::ranges::find(model::dcsCodes, text);
    return found == model::dcsCodes.end() ? -1 : static_cast<int>(found - model::dcsCodes.begin());
}
[[nodiscard]] std::string zeros(const std::string& text) {
    return text.size() < 4 ? std::string(4 - text.size(), '0') + text : text;
}

const std::array<const char*, 27> names{"",
                                        "RX Freq",
                                        "RX Freq",
                                        "TX Subtone",
                                        "RX Subtone",
                                        "RF Mode",
                                        "Scan",
                                        "WB/NB",
                                        "External PTT Mode",
                                        "TX Power",
                                        "Ref Osc Freq WB",
                                        "VCO Lvl WB",
                                        "Ref Osc Lvl WB",
                                        "Ref Osc Freq NB",
                                        "VCO Lvl NB",
                                        "Ref Osc Lvl NB",
                                        "Subtone Level",
                                        "TX Synth Step Size",
                                        "TX Binary Main",
                                        "TX Modulo",
                                        "RX Synth Step Size",
                                        "RX Binary Main",
                                        "RX Modulo",
                                        "P25 Repeater Enable",
                                        "P25 Talkgroup ID",
                                        "P25 TX NAC",
                                        "P25 RX NAC"};

[[nodiscard]] std::string wholeNumber(const std::string& text, double highest, const char* what, const char* range) {
    const auto value = number(text);
    if (!value) {
        return std::string("Error in validating ") + what + " (Type mismatch)";
    }
    // Half a step below 0 rounds to 0; half a step above an odd number leaves it.
    const double limit = static_cast<int>(highest) % 2 == 0 ? highest + 0.5 : std::nextafter(highest + 0.5, 0.0);
    return *value >= -0.5 && *value <= limit ? "" : range;
}

[[nodiscard]] std::string bandwidthVerdict(const std::string& word, const Radio& radio) {
    if (!oneOf(word, {"wide", "narrow", "n/a"})) {
        return "Unknown value for Wide/Narrow band setting";
    }
    if (word == "n/a") {
        return radio.switchable ? "Invalid value for Wide/Narrow band (must be Wide or Narrow)" : "";
    }
    if (!radio.switchable) {
        return "Invalid value for Wide/Narrow band (Wide or Narrow band are not available for fixed bandwidth radio)";
    }
    return word == "wide" && radio.narrowOnly ? "Invalid value, this radio cannot be set to Wide band (FCC NB)" : "";
}

[[nodiscard]] std::string subtoneVerdict(const std::string& text, bool transmit) {
    const auto word = lower(text);
    if (word == "disabled" || (word == "multiple" && !transmit)) {
        return "";
    }
    if (text.size() >= 2 && text.substr(text.size() - 2) == "Hz") {
        const auto tone = toneIn(text);
        return !tone                                               ? "Error in validating subtone (Type mismatch)"
               : *tone == 0.0F || (*tone >= 65 && *tone <= 257.0F) ? ""
                                                                   : "Invalid CTCSS value (out of range, must be 65Hz "
                                                                     "to 257Hz)";
    }
    return dcsIndexIn(text) >= 0 ? "" : "Invalid DCS value (not found in the table)";
}

// Of a stripped text; without the column's name.
[[nodiscard]] std::string plainVerdict(std::size_t column, const std::string& text, const Radio& radio) {
    const auto word = lower(text);
    const auto value = number(text);
    switch (column) {
    case 1:
    case 2:
        return text == "X" ? ""
               : !value    ? "Error in validating channel frequency (Type mismatch)"
               : *value == 0 || (*value >= 10 && *value <= 1000) ? ""
                                                                 : "Invalid channel frequency value (out of range)";
    case 3:
    case 4:
        return subtoneVerdict(text, column == 3);
    case 5:
        return oneOf(word, {"duplex", "simplex", "repeater"}) ? ""
               : !oneOf(word, {"p25 repeater", "mixed mode"}) ? "Unknown RF Mode value"
               : radio.board || radio.code == 7               ? ""
                                                : "Invalid value, there is no P25 board fitted for this mode";
    case 6:
        return oneOf(word, {"yes", "no"}) ? "" : "Invalid scan data value";
    case 7:
        return bandwidthVerdict(word, radio);
    case 8:
        return oneOf(word, {"analogue", "p25 digital"}) ? "" : "Invalid External PTT Mode value";
    case 16:
        return wholeNumber(text, 6, "Subtone Level Value", "Invalid subtone level value (out of range)");
    case 17:
    case 20:
        return !value ? "Error in validating Synthesizer step size (Type mismatch)"
               : static_cast<float>(*value) > 0 && static_cast<float>(*value) <= 25.5F
                   ? ""
                   : "Invalid Synthesizer Step size value (out of range)";
    case 19:
    case 22:
        return oneOf(text, {"5", "8"}) ? "" : "Invalid modulo value";
    case 23:
        return oneOf(word, {"yes", "no"}) ? "" : "Invalid P25 Repeater enable value";
    case 24:
    case 25:
    case 26: {
        const auto code = zeros(text);
        return code.size() == 4 && code.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos ? ""
               : column == 24 ? "Invalid P25 Talkgroup value"
                              : "Invalid P25 NAC value";
    }
    default:
        return wholeNumber(text, 255, "Pot Value", "Invalid pot value (out of range)");
    }
}

[[nodiscard]] std::string verdict(std::size_t column, const std::string& text, const Radio& radio) {
    if (column > 26) {
        return "Unknown Column type";
    }
    const auto error = plainVerdict(column, text, radio);
    return error.empty() ? "" : error + " " + names.at(column);
}

void writeSubtone(Channel& channel, std::size_t side, const std::string& text) {
    const auto word = lower(text);
    const int index = dcsIndexIn(text);
    if (word == "multiple") {
        channel.dcs[side] = false;
    } else if (index >= 0) {
        channel.dcs[side] = true;
        channel.dcsIndex[side] = index;
    } else {
        channel.dcs[side] = false;
        channel.dcsIndex[side] = 0;
        channel.tone[side] = word == "disabled" ? 0.0 : static_cast<double>(toneIn(text).value_or(-1.0F));
    }
    if (side == 1) {
        channel.bits = index >= 0           ? (channel.bits | 16) & ~4
                       : word == "multiple" ? channel.bits | 4
                                            : channel.bits & ~4;
    }
}

void writeRfMode(Channel& channel, const std::string& word) {
    const int kept = channel.bits & ~3;
    channel.repeatsP25 = word == "p25 repeater" || word == "mixed mode";
    channel.bits = kept | (word == "simplex" ? 1 : 0) | (word == "repeater" || word == "mixed mode" ? 2 : 0) |
                   (channel.repeatsP25 ? 128 : 0);
}

// An accepted, stripped text.
void write(Channel& channel, std::size_t column, const std::string& text) {
    const auto word = lower(text);
    const double value = number(text).value_or(0);
    switch (column) {
    case 1:
    case 2:
        channel.hertz[column - 1] = value * 1'000'000;
        break;
    case 3:
    case 4:
        writeSubtone(channel, column - 3, text);
        break;
    case 5:
        writeRfMode(channel, word);
        break;
    case 6:
        channel.scan = word == "yes";
        break;
    case 7:
        channel.bits = word == "narrow" ? channel.bits | 128 : channel.bits & ~128;
        break;
    case 8:
        channel.digital = word == "p25 digital";
        channel.bits |= channel.digital ? 128 : 0;
        break;
    case 17:
    case 20:
        channel.step[column == 17 ? 0 : 1] = static_cast<double>(static_cast<float>(value) * 1000.0F);
        break;
    case 19:
    case 22:
        channel.modulo[column == 19 ? 0 : 1] = text == "5" ? 0 : 1;
        break;
    case 23:
        channel.repeatsP25 = word == "yes";
        channel.bits = channel.repeatsP25 ? (channel.bits & ~3) | 128 : channel.bits;
        break;
    case 24:
        channel.code[0] = zeros(text);
        break;
    case 25:
    case 26:
        channel.code.at(column - 24) = text;
        break;
    default:
        channel.level.at(column) = static_cast<int>(std::nearbyint(value));
        break;
    }
}

[[nodiscard]] Texts split(const std::string& text, char separator) {
    Texts parts(1);
    for (const char each : text) {
        if (each == separator) {
            parts.emplace_back();
        } else {
            parts.back() += each;
        }
    }
    return parts;
}

// One kind of line break: every CR, LF and CR LF is one.
[[nodiscard]] Texts linesOf(const std::string& text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool pair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        plain += text[at] == '\n' ? '\r' : text[at];
        at += pair ? 1 : 0;
    }
    return split(plain, '\r');
}

// The table, its backup and the grid.
class Sheet {
public:
    std::vector<Channel> channels{256};
    std::vector<Cells> cells{256};
    Radio radio;
    bool canUndo = false;
    bool canRedo = false;

    void show(std::size_t row) { cells.at(row) = shown(channels.at(row), radio); }
    void showAll() {
        for (std::size_t row = 1; row <= 255; ++row) {
            show(row);
        }
    }
    [[nodiscard]] std::string block(const ui::CellRange& range) const {
        std::string text;
        for (int row = range.firstRow; row <= range.lastRow; ++row) {
            text += row > range.firstRow ? "\r" : "";
            for (int column = range.firstColumn; column <= range.lastColumn; ++column) {
                text += column > range.firstColumn ? "\t" : "";
                text += cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
            }
        }
        return text;
    }
    Boxes paste(const std::string& text, ui::Cell current, ui::Cell end) {
        backup_ = channels;
        canUndo = true;
        auto lines = linesOf(text);
        const int rows = std::abs(current.row - end.row) + 1;
        if (lines.size() == 1) {
            lines.resize(static_cast<std::size_t>(rows), lines.front());
        }
        auto row = static_cast<std::size_t>(std::min(current.row, end.row));
        for (const auto& line : lines) {
            auto column = static_cast<std::size_t>(current.column);
            for (const auto& cell : line.empty() ? Texts{} : split(line, '\t')) {
                const auto plain = stripped(cell);
                const auto error = verdict(column, plain, radio);
                if (!error.empty()) {
                    undo();
                    return {{.text = "Error during pasting data. " + error + ". Unable to continue."}};
                }
                if (row > 255) {
                    return {errorIn("PasteToCells")};
                }
                write(channels.at(row), column++, plain);
                show(row);
            }
            ++row;
        }
        return {};
    }
    void undo() {
        redone_ = channels;
        putBack(backup_);
        canUndo = false;
        canRedo = true;
    }
    void redo() {
        putBack(redone_);
        canUndo = true;
        canRedo = false;
    }

private:
    // The codes and the two P25 flags are not part of what is put back.
    void putBack(const std::vector<Channel>& former) {
        for (std::size_t row = 1; row <= 255; ++row) {
            auto channel = former.at(row);
            channel.digital = channels.at(row).digital;
            channel.repeatsP25 = channels.at(row).repeatsP25;
            channel.code = channels.at(row).code;
            channels.at(row) = channel;
        }
        showAll();
    }
    std::vector<Channel> backup_;
    std::vector<Channel> redone_{256};
};

// -- both, side by side ----------------------------------------------------------------------------------------------

class PasteProperty : public EditingWorld {
protected:
    PasteProperty() {
        history.forget();
        for (int row = 1; row <= 255; ++row) {
            put(row, {});
        }
    }

    [[nodiscard]] int any(int from, int to) { return std::uniform_int_distribution(from, to)(random); }
    [[nodiscard]] bool chance(int percent) { return any(1, 100) <= percent; }
    template <class Value>
    [[nodiscard]] Value oneOf(const std::vector<Value>& all) {
        return all.at(static_cast<std::size_t>(any(0, static_cast<int>(all.size()) - 1)));
    }

    // Near the top, or at the end of the table.
    [[nodiscard]] int anyRow() { return chance(85) ? any(1, 14) : any(249, 255); }

    [[nodiscard]] Channel anyChannel() {
        Channel channel;
        for (const std::size_t side : {0U, 1U}) {
            channel.hertz.at(side) = oneOf<double>({0, 10e6, 145.5e6, 450.0125e6, 999.999999e6, 1000e6, 5000e6});
            channel.dcs.at(side) = chance(40);
            channel.dcsIndex.at(side) = any(-1, 84);
            channel.tone.at(side) = oneOf<double>({0, 67, 88.5, 250.25, 300});
            channel.step.at(side) = oneOf<double>({0, 1, 5000, 6250, 12500, 25500, 26000});
            channel.modulo.at(side) = any(0, 2);
        }
        channel.bits = any(0, 255);
        channel.scan = chance(50);
        channel.digital = chance(50);
        channel.repeatsP25 = chance(30);
        for (const std::size_t column : {9U, 10U, 11U, 12U, 13U, 14U, 15U, 16U, 18U, 21U}) {
            channel.level.at(column) = column == 16 ? any(0, 8) : any(0, 260);
        }
        for (auto& code : channel.code) {
            code = oneOf<std::string>({"0000", "293", "FfFf", "1A2B", "12345", "", "zz"});
        }
        return channel;
    }

    void put(int row, const Channel& channel) {
        sheet.channels.at(static_cast<std::size_t>(row)) = channel;
        const auto number = static_cast<std::int16_t>(row);
        fill(*table, number,
             {{ChannelKey::TxFreq, channel.hertz[0]},
              {ChannelKey::RxFreq, channel.hertz[1]},
              {ChannelKey::TxCTCSSDCS, channel.dcs[0]},
              {ChannelKey::RxCTCSSDCS, channel.dcs[1]},
              {ChannelKey::TxDCSIndex, channel.dcsIndex[0]},
              {ChannelKey::RxDCSIndex, channel.dcsIndex[1]},
              {ChannelKey::TxSub, channel.tone[0]},
              {ChannelKey::RxSub, channel.tone[1]},
              {ChannelKey::SynthStep, channel.step[0]},
              {ChannelKey::RxSynthStep, channel.step[1]},
              {ChannelKey::Modulo, channel.modulo[0]},
              {ChannelKey::RxModulo, channel.modulo[1]},
              {ChannelKey::ModeBits, channel.bits},
              {ChannelKey::scan, channel.scan},
              {ChannelKey::P25TransmitMode, channel.digital},
              {ChannelKey::p25RepeaterEnable, channel.repeatsP25},
              {ChannelKey::TxPower, channel.level[9]},
              {ChannelKey::RefOscFreq, channel.level[10]},
              {ChannelKey::VCODev, channel.level[11]},
              {ChannelKey::RefOscDev, channel.level[12]},
              {ChannelKey::NBRefOscFreq, channel.level[13]},
              {ChannelKey::NBVCODev, channel.level[14]},
              {ChannelKey::NBRefOscDev, channel.level[15]},
              {ChannelKey::TxLevel, channel.level[16]},
              {ChannelKey::BinMain, channel.level[18]},
              {ChannelKey::RxBinMain, channel.level[21]},
              {ChannelKey::P25TalkgroupID, base::textValue(channel.code[0])},
              {ChannelKey::P25TxNetworkAccessCode, base::textValue(channel.code[1])},
              {ChannelKey::P25RxNetworkAccessCode, base::textValue(channel.code[2])}});
    }
    [[nodiscard]] Channel stored(int row) {
        const auto number = [&](ChannelKey key) { return base::toDouble(at(static_cast<std::int16_t>(row), key)); };
        const auto whole = [&](ChannelKey key) { return static_cast<int>(number(key)); };
        const auto truth = [&](ChannelKey key) { return base::isTrue(at(static_cast<std::int16_t>(row), key)); };
        const auto text = [&](ChannelKey key) { return base::toText(at(static_cast<std::int16_t>(row), key)); };
        using enum ChannelKey;
        Channel channel{.hertz = {number(TxFreq), number(RxFreq)},
                        .dcs = {truth(TxCTCSSDCS), truth(RxCTCSSDCS)},
                        .dcsIndex = {whole(TxDCSIndex), whole(RxDCSIndex)},
                        .tone = {number(TxSub), number(RxSub)},
                        .step = {number(SynthStep), number(RxSynthStep)},
                        .modulo = {whole(Modulo), whole(RxModulo)},
                        .bits = whole(ModeBits),
                        .scan = truth(scan),
                        .digital = truth(P25TransmitMode),
                        .repeatsP25 = truth(p25RepeaterEnable),
                        .level = {},
                        .code = {text(P25TalkgroupID), text(P25TxNetworkAccessCode), text(P25RxNetworkAccessCode)}};
        channel.level = {0,
                         0,
                         0,
                         0,
                         0,
                         0,
                         0,
                         0,
                         0,
                         whole(TxPower),
                         whole(RefOscFreq),
                         whole(VCODev),
                         whole(RefOscDev),
                         whole(NBRefOscFreq),
                         whole(NBVCODev),
                         whole(NBRefOscDev),
                         whole(TxLevel),
                         0,
                         whole(BinMain),
                         0,
                         0,
                         whole(RxBinMain)};
        return channel;
    }

    // Another radio and other channels, shown afresh.
    void change() {
        sheet.radio = {.switchable = chance(75),
                       .narrowOnly = chance(25),
                       .board = chance(40),
                       .code = chance(30) ? 7 : 1,
                       .revision = chance(50) ? 3.0 : 2.5};
        table->put(StoreMember::BandwidthSwitchable, sheet.radio.switchable);
        table->put(StoreMember::FCCNarrowBandRadio, sheet.radio.narrowOnly);
        table->put(StoreMember::P25BoardFitted, sheet.radio.board);
        table->put(StoreMember::RadioConfigurationCode, sheet.radio.code);
        table->put(StoreMember::HardwareRevision, sheet.radio.revision);
        for (int row = 1; row <= 255; ++row) {
            if (row <= 16 || row >= 247) {
                put(row, chance(20) ? Channel{} : anyChannel());
            }
        }
        renderAll();
        sheet.showAll();
    }

    // Mostly something that the column takes, as people write it.
    [[nodiscard]] std::string anyCell(int column) {
        static const std::array<Texts, 27> pools{Texts{},
                                                 {"X", "0", "10", "145.5", "1000", "450.0125"},
                                                 {"X", "0", "10", "145.5", "1000", "450.0125"},
                                                 {"Disabled", "67.0 Hz", "88.5Hz", "0Hz", "023", "754", "DISABLED"},
                                                 {"Disabled", "67.0 Hz", "88.5Hz", "0Hz", "023", "754", "multiple"},
                                                 {"Duplex", "simplex", "REPEATER", "P25 Repeater", "Mixed Mode"},
                                                 {"Yes", "no"},
                                                 {"Wide", "narrow", "N/A"},
                                                 {"Analogue", "p25 digital"},
                                                 {},
                                                 {},
                                                 {},
                                                 {},
                                                 {},
                                                 {},
                                                 {},
                                                 {"0", "6", "6.5", "3"},
                                                 {"12.5", "25.5", "5", "6.25", "0.127"},
                                                 {},
                                                 {"5", "8"},
                                                 {"12.5", "25.5", "5", "6.25"},
                                                 {},
                                                 {"5", "8"},
                                                 {"Yes", "NO"},
                                                 {"1", "1A2B", "ffff", ""},
                                                 {"1", "1A2B", "ffff", ""},
                                                 {"1", "1A2B", "ffff", ""}};
        static const Texts levels{"0", "255", "128", "2.5", "254.5", "-0.5"};
        static const Texts wrong{"nonsense", "", "256", "-1", "9.5", "1001", "64Hz", "x", "12345", "30", "\t", "Hz"};
        if (column > 26 || chance(1)) {
            return oneOf(wrong);
        }
        const auto& pool = pools.at(static_cast<std::size_t>(column));
        const auto text = oneOf(pool.empty() ? levels : pool);
        return chance(10) ? "  " + text + " " : text;
    }
    [[nodiscard]] std::string anyBlock(int firstColumn) {
        std::string text;
        const int lines = any(1, 4);
        const int columns = chance(90) ? any(1, std::min(6, 27 - firstColumn)) : any(1, 6);
        for (int line = 0; line < lines; ++line) {
            for (int column = 0; column < columns && !chance(3); ++column) {
                text += column > 0 ? "\t" : "";
                text += anyCell(firstColumn + column);
            }
            if (line + 1 < lines || chance(20)) {
                text += oneOf<std::string>({"\r\n", "\n", "\r"});
            }
        }
        return text;
    }
    [[nodiscard]] std::string copied() {
        const int row = anyRow();
        const int column = any(1, 26);
        select({row, column}, {std::min(row + any(0, 3), 255), std::min(column + any(0, 25), 26)});
        commands.CopySelection();
        EXPECT_EQ(desktop.clipboard, sheet.block(grid.selection()));
        return desktop.clipboard.value_or("");
    }
    void pasteSomething() {
        const ui::Cell current{anyRow(), chance(50) ? any(1, 8) : any(1, 26)};
        const ui::Cell end{chance(70) ? current.row : std::clamp(current.row + any(-3, 3), 1, 255), any(1, 26)};
        const auto text = chance(50) ? copied() : anyBlock(current.column);
        trace = text + " at " + std::to_string(current.row) + "," + std::to_string(current.column) + " to row " +
                std::to_string(end.row);
        select(current, end);
        pasteHere(text);
        const auto wanted = sheet.paste(text, current, end);
        refused += sheet.canUndo ? 0 : 1;
        EXPECT_EQ(boxes(), wanted) << trace;
    }
    void expectSame() {
        EXPECT_EQ(undo.enabled(), sheet.canUndo);
        EXPECT_EQ(redo.enabled(), sheet.canRedo);
        for (int row = 1; row <= 255; ++row) {
            if (row > 22 && row < 240) {
                continue;
            }
            for (int column = 1; column <= 26; ++column) {
                ASSERT_EQ(grid.text(row, column),
                          sheet.cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)))
                    << row << "," << column << " after " << trace;
            }
            ASSERT_TRUE(stored(row) == sheet.channels.at(static_cast<std::size_t>(row))) << row << " after " << trace;
        }
    }

    std::mt19937 random{26};
    Sheet sheet;
    int refused = 0;
    std::string trace;
};

TEST_F(PasteProperty, RandomBlocksOnRandomTablesFollowTheRules) {
    constexpr int tables = 40;
    constexpr int pastes = 25;
    for (int number = 0; number < tables; ++number) {
        ASSERT_NO_FATAL_FAILURE(change());
        for (int paste = 0; paste < pastes; ++paste) {
            pasteSomething();
            ASSERT_NO_FATAL_FAILURE(expectSame());
            if (chance(15)) {
                history.UndoChanges();
                sheet.undo();
                ASSERT_NO_FATAL_FAILURE(expectSame());
                history.RedoChanges();
                sheet.redo();
                ASSERT_NO_FATAL_FAILURE(expectSame());
            }
            ASSERT_FALSE(HasFailure());
        }
    }
    // Both outcomes were met, and often.
    EXPECT_GT(refused, tables * pastes / 10);
    EXPECT_LT(refused, tables * pastes * 8 / 10);
}

}  // namespace
}  // namespace telvar::tests
