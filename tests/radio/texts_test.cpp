// What users and hosts write: addresses and plans of faults.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "radio/address.h"
#include "radio/faults.h"

namespace telvar::tests {
namespace {

using namespace std::chrono_literals;
using radio::Address;
using radio::Fault;
using radio::FaultKind;
using radio::FaultPlan;
using radio::FaultSpan;

TEST(Address, IsReadFromItsText) {
    EXPECT_EQ(radio::parseAddress("simulated"), Address{});
    EXPECT_EQ(radio::parseAddress(" tcp:127.0.0.1:4711 "),
              (Address{.way = Address::Way::Tcp, .place = "127.0.0.1", .port = 4711}));
    EXPECT_EQ(radio::parseAddress("serial:COM3"),
              (Address{.way = Address::Way::Serial, .place = "COM3", .bitsPerSecond = 19200}));
    EXPECT_EQ(radio::parseAddress("serial:/dev/ttyUSB0,9600"),
              (Address{.way = Address::Way::Serial, .place = "/dev/ttyUSB0", .bitsPerSecond = 9600}));
}

TEST(Address, IsRefusedWhereItLeadsNowhere) {
    for (const char* text :
         {"", "tcp:", "tcp:4711", "tcp::4711", "tcp:localhost:0", "tcp:localhost:65536", "tcp:localhost:47x",
          "serial:", "serial:,9600", "serial:COM3,9601", "serial:COM3,", "Simulated", "usb:1"}) {
        EXPECT_FALSE(radio::parseAddress(text)) << text;
    }
    EXPECT_EQ(radio::parseAddress("usb:1").error(),
              "\"usb:1\" is no connection: write simulated, tcp:ADDRESS:PORT or serial:PORT,SPEED");
}

TEST(Address, IsWrittenAsItIsRead) {
    for (const char* text : {"simulated", "tcp:127.0.0.1:4711", "serial:COM3,9600"}) {
        EXPECT_EQ(radio::textOf(*radio::parseAddress(text)), text);
    }
    EXPECT_EQ(radio::textOf(*radio::parseAddress("serial:COM3")), "serial:COM3,19200");
}

TEST(Faults, ArePlannedByName) {
    EXPECT_EQ(radio::parseFaults(""), FaultPlan{});
    EXPECT_EQ(radio::parseFaults(" none "), FaultPlan{});
    EXPECT_EQ(radio::parseFaults("drop@12"), (FaultPlan{{.kind = FaultKind::Drop, .frame = 12}}));
    EXPECT_EQ(radio::parseFaults("cut@3+, noise/7"),
              (FaultPlan{{.kind = FaultKind::Cut, .frame = 3, .span = FaultSpan::FromThereOn},
                         {.kind = FaultKind::Noise, .frame = 7, .span = FaultSpan::Every}}));
    EXPECT_EQ(radio::parseFaults("delay:3000@4"), (FaultPlan{{.kind = FaultKind::Delay, .frame = 4, .delay = 3000ms}}));
}

TEST(Faults, HaveAUsualCourseEach) {
    for (const auto& info : radio::faultKinds) {
        const auto byName = radio::parseFaults(info.name);
        const auto byCourse = radio::parseFaults(std::string(info.name) + std::string(info.usual));
        ASSERT_TRUE(byName) << info.name;
        EXPECT_EQ(byName, byCourse);
        EXPECT_EQ(byName->front().kind, info.kind);
    }
}

TEST(Faults, AreRefusedWhereTheyMeanNothing) {
    for (const char* text : {"fire", "drop@", "drop@0", "drop@x", "drop/0", "drop/3+", "drop12", "drop,", ",drop",
                             "drop:5", "delay:0", "delay:60001", "delay:", "drop@1000001", "DROP"}) {
        EXPECT_FALSE(radio::parseFaults(text)) << text;
    }
    EXPECT_EQ(radio::parseFaults("drop,fire@3").error(), "\"fire@3\" is not a fault of the simulated radio");
}

}  // namespace
}  // namespace telvar::tests
