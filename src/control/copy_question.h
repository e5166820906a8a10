// The question whether changes of one channel shall go to the others that are selected, with the channels that it is
// about: the answer counts for those and for no others.
#pragma once

#include <cstdint>
#include <string>

namespace telvar::control {

// `edited` lies between the first and the last selected channel, of which there are two or more.
[[nodiscard]] std::string copyQuestion(std::int16_t first, std::int16_t last, std::int16_t edited);

}  // namespace telvar::control
