#include <vek/values/system.h>

#include <gtest/gtest.h>
#include <windows.h>

TEST(SettingsWindows, GoBelowAVolatileKey)
{
    const wchar_t* key = L"Software\\OSTWERK\\VekTest\\Volatile";
    HKEY handle = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, key, 0, nullptr, REG_OPTION_VOLATILE, KEY_READ | KEY_WRITE, nullptr,
                              &handle, nullptr),
              ERROR_SUCCESS);
    unsigned long value = 0;
    EXPECT_TRUE(VEK::regWrite(key, L"Pos", 7ul));
    EXPECT_TRUE(VEK::regRead(key, L"Pos", value));
    EXPECT_EQ(value, 7u);
    const CVekString below = CVekString(key) + L"\\Below";
    EXPECT_TRUE(VEK::regWrite(below, L"Pos", 8ul));
    EXPECT_TRUE(VEK::regRead(below, L"Pos", value));
    EXPECT_EQ(value, 8u);
    RegCloseKey(handle);
    RegDeleteTreeW(HKEY_CURRENT_USER, key);
}

TEST(SettingsWindows, AreOrdinaryRegistryValues)
{
    const wchar_t* key = L"Software\\OSTWERK\\VekTest";
    EXPECT_TRUE(VEK::regWrite(key, L"Text", L"abc"));
    EXPECT_TRUE(VEK::regWrite(key, L"Number", 5ul));
    DWORD type = REG_NONE;
    DWORD size = 0;
    RegGetValueW(HKEY_CURRENT_USER, key, L"Text", RRF_RT_ANY, &type, nullptr, &size);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, 4 * sizeof(wchar_t));
    RegGetValueW(HKEY_CURRENT_USER, key, L"Number", RRF_RT_ANY, &type, nullptr, &size);
    EXPECT_EQ(type, static_cast<DWORD>(REG_DWORD));
    unsigned long number = 3;
    const BYTE bytes[8] = {1};
    RegSetKeyValueW(HKEY_CURRENT_USER, key, L"Wide", REG_QWORD, bytes, sizeof bytes);
    EXPECT_FALSE(VEK::regRead(key, L"Wide", number));
    EXPECT_EQ(number, 3u);
}
