// The DLL as a host program knows it: loaded at run time, and given back without a trace.
#include "free_handles.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <psapi.h>

#include <string>

namespace
{

const std::wstring kModule = L"Vek_2018_20_64_Mfc.dll";

SIZE_T memoryInUse()
{
    PROCESS_MEMORY_COUNTERS_EX counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters);
    return counters.PrivateUsage;
}

TEST(Module, LoadsAndUnloadsWithoutLoss)
{
    const auto once = [] {
        const HMODULE module = LoadLibraryW(kModule.c_str());
        ASSERT_NE(module, nullptr);
        EXPECT_NE(GetProcAddress(module, "_Z12gdxMapKeyNewv"), nullptr);
        EXPECT_TRUE(FreeLibrary(module));
        EXPECT_EQ(GetModuleHandleW(kModule.c_str()), nullptr);
    };
    for (int i = 0; i < 20; ++i) // until the system has its own tables
        once();
    const int handles = control_test::freeHandles();
    const SIZE_T memory = memoryInUse();
    for (int i = 0; i < 100 && !HasFatalFailure(); ++i)
        once();
    EXPECT_EQ(control_test::freeHandles(), handles);
    const SIZE_T after = memoryInUse();
    RecordProperty("bytes", std::to_string(after - memory));
    EXPECT_LT(after, memory + 100 * 1024) << "more than 1 KB for each time";
}

TEST(Module, OffersItsResourcesWhileItIsLoaded)
{
    const HMODULE module = LoadLibraryW(kModule.c_str());
    ASSERT_NE(module, nullptr);
    const HMODULE toolkit = LoadLibraryW(L"vek_toolkit.dll"); // stays when the module goes
    const auto find = reinterpret_cast<HINSTANCE (*)(LPCWSTR, LPCWSTR)>(
        reinterpret_cast<void*>(GetProcAddress(toolkit, "_Z21AfxFindResourceHandlePKwS0_")));
    ASSERT_NE(find, nullptr);
    EXPECT_EQ(find(MAKEINTRESOURCEW(2000), RT_GROUP_ICON), module);
    FreeLibrary(module);
    EXPECT_NE(find(MAKEINTRESOURCEW(2000), RT_GROUP_ICON), module);
    FreeLibrary(toolkit);
}

TEST(Module, HasItsIconsItsCursorAndItsVersion)
{
    const HMODULE module = LoadLibraryExW(kModule.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(module, nullptr);
    for (int id = 2000; id <= 2007; ++id)
        EXPECT_NE(FindResourceW(module, MAKEINTRESOURCEW(id), RT_GROUP_ICON), nullptr) << id;
    EXPECT_NE(FindResourceW(module, MAKEINTRESOURCEW(4006), RT_GROUP_CURSOR), nullptr);
    EXPECT_NE(FindResourceW(module, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION), nullptr);
    FreeLibrary(module);
}

} // namespace
