#include <vek/values/system.h>

#include "core/platform/outside.h"

#include <gtest/gtest.h>

namespace
{

using VEK::platform::OutsideCall;
using What = OutsideCall::What;

TEST(Outside, GoesToTheHookInThePlaceOfTheSystem)
{
    std::vector<OutsideCall> calls;
    bool answer = true;
    const auto before = VEK::platform::outsideHookSet([&](const OutsideCall& call) {
        calls.push_back(call);
        return answer;
    });
    EXPECT_FALSE(before);
    EXPECT_TRUE(VEK::execute(L"vek-no-such-program -x \"y z\"", 70, false));
    EXPECT_TRUE(VEK::execute(L"https://example.org/a b", 0, true));
    answer = false;
    EXPECT_FALSE(VEK::execute(L"\"vek no such program\" z", 0, true));
    EXPECT_FALSE(VEK::platform::outside({What::helpPopup, L"", L"text", 0, true, 3, -4}));
    EXPECT_FALSE(VEK::execute(L" ", 0, true)) << "nothing to ask for";
    EXPECT_TRUE(VEK::platform::outsideHookSet({}));
    EXPECT_EQ(calls, (std::vector<OutsideCall>{{What::program, L"vek-no-such-program", L"-x \"y z\"", 70, false},
                                               {What::document, L"https://example.org/a b", L"", 0, true},
                                               {What::program, L"vek no such program", L"z", 0, true},
                                               {What::helpPopup, L"", L"text", 0, true, 3, -4}}));
    EXPECT_FALSE(VEK::execute(L"vek-no-such-program", 1000, true)) << "the system again";
}

} // namespace
