// The control, the store and the link of this build, installed for as long as it lives.
#pragma once

#include <gtest/gtest.h>

#include "support/windows/loaded_server.h"

namespace telvar::tests {

class InstalledServers {
public:
    InstalledServers() {
        for (const char* file : {"VexloDataStore.dll", "VexloRadioLink.dll", "Tesslin.ocx"}) {
            com::check(LoadedServer(file).registerMachine());
        }
    }
    InstalledServers(const InstalledServers&) = delete;
    InstalledServers& operator=(const InstalledServers&) = delete;
    InstalledServers(InstalledServers&&) = delete;
    InstalledServers& operator=(InstalledServers&&) = delete;
    ~InstalledServers() {
        for (const char* file : {"Tesslin.ocx", "VexloRadioLink.dll", "VexloDataStore.dll"}) {
            EXPECT_EQ(LoadedServer(file).unregisterMachine(), S_OK) << file;
        }
    }
};

}  // namespace telvar::tests
