// The system's own script engines in this process, so that stores and links can be written in a script.
#pragma once

#include <string>
#include <string_view>

#include "com/kit/automation.h"
#include "com/kit/pointer.h"

#include <activscp.h>

namespace telvar::com::test {

class ScriptEngine {
public:
    enum class Language { VisualBasic, Java };

    explicit ScriptEngine(Language language = Language::VisualBasic);
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    ScriptEngine(ScriptEngine&&) = delete;
    ScriptEngine& operator=(ScriptEngine&&) = delete;
    ~ScriptEngine();

    // Statements that are run at once. False where they cannot be read or fail.
    [[nodiscard]] bool run(std::wstring_view code);
    // What a function of the script without arguments answers; null where that is no object.
    [[nodiscard]] ComPointer<IDispatch> object(std::string_view function);
    [[nodiscard]] ComPointer<IDispatch> global() const;

private:
    ComPointer<IActiveScriptSite> site_;
    ComPointer<IActiveScript> engine_;
};

}  // namespace telvar::com::test
