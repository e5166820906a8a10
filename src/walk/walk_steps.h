// The main job, step by step: open a table, scroll, change a value, save, reopen, compare.
#pragma once

#include <string>
#include <vector>

#include "walk/walk.h"
#include "walk/walked_program.h"

namespace telvar::walk {

// `sample` is the table to open, `folder` takes the copy that is saved.
[[nodiscard]] std::vector<WalkStep> mainJob(WalkedProgram& program, const std::wstring& sample,
                                            const std::wstring& folder);

}  // namespace telvar::walk
