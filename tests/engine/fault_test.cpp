#include "apps/engine/faultplan.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace pixmo {
namespace {

TEST(Fault, IsReadFromText) {
    const Fault delay{FaultKind::Delay, RequestKind::GetPage, 500, 3};
    EXPECT_EQ(parseFault("delay:GP=500@3"), delay);
    EXPECT_EQ(parseFault("stall:ALL"), (Fault{FaultKind::Stall, std::nullopt, 0, std::nullopt}));
    EXPECT_EQ(parseFault("http401:IC@1"), (Fault{FaultKind::Http, RequestKind::InitialContact, 401, 1}));
    EXPECT_EQ(parseFault("http:PC=503").value, 503);
    EXPECT_EQ(parseFault("garbage:GP").value, 1);
    EXPECT_EQ(parseFault("garbage:GP=7").value, 7);
}

TEST(Fault, MistakesAreRefused) {
    for (const char* text :
         {"",           "stall",         "stall:",      "stall:XX",   "nothing:GP",           "delay:GP",
          "delay:GP=",  "delay:GP=-1",   "delay:GP=1x", "drip:GP=0",  "http:GP=200",          "http:GP=600",
          "stall:GP=1", "stall:GP@0",    "stall:GP@",   "stall:GP@x", "delay:GP=99999999999", "STALL:GP",
          "stall:GP ",  "http500:GP=500"})
        EXPECT_THROW(parseFault(text), std::invalid_argument) << text;
    EXPECT_THROW(parseFaults("stall:GP\nwrong"), std::invalid_argument);
}

TEST(FaultPlan, TakesFaultsInOrderAsLongAsTheyLast) {
    FaultPlan plan;
    plan.replace(parseFaults("delay:ALL=1@3\r\n\nstall:GP@1\nhtml:GP\n"));
    const auto kinds = [&](RequestKind request) {
        std::string names;
        for (const Fault& fault : plan.take(request))
            names += std::string(faultName(fault.kind)) + ' ';
        return names;
    };
    EXPECT_EQ(kinds(RequestKind::GetPage), "delay stall html ");
    EXPECT_EQ(kinds(RequestKind::GetPage), "delay html ");
    EXPECT_EQ(kinds(RequestKind::Unknown), "delay ");
    EXPECT_EQ(kinds(RequestKind::InitialContact), "");
    EXPECT_EQ(kinds(RequestKind::GetPage), "html ");
    plan.replace(parseFaults("stall:GP@1"));
    EXPECT_EQ(kinds(RequestKind::GetPage), "stall ");
    plan.replace({});
    EXPECT_EQ(kinds(RequestKind::GetPage), "");
}

} // namespace
} // namespace pixmo
