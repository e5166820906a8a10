// The three components that the program is made of, as they are installed on this computer.
#pragma once

#include <string>

#include "Tesslin.h"
#include "VexloDataStore.h"
#include "VexloRadioLink.h"
#include "com/kit/pointer.h"

namespace telvar::host {

struct Components {
    com::ComPointer<IDataStore> store;
    com::ComPointer<IUnknown> control;
    com::ComPointer<IRadioLink> link;  // null where there is none; tables can be edited without it
    std::string linkFailure;           // why there is none, a sentence without its full stop
};

// Throws com::ComFailure where the store or the control cannot be created.
[[nodiscard]] Components installedComponents();

}  // namespace telvar::host
