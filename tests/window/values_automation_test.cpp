#include <vek/values/system.h>

#include <gtest/gtest.h>
#include <windows.h>

#include <olectl.h>

namespace
{

// No program has this identifier.
constexpr wchar_t kClass[] = L"{5B2C8F3E-90D1-4D4B-8C7E-2F0A6D9B7E51}";
constexpr wchar_t kProgId[] = L"Vek_Test.App";

/// Enters an automation server with a program of its own and takes it out again: for the user, and for the machine
/// where one may, since Wine looks there only.
class Registration
{
public:
    explicit Registration(const CVekString& command, DWORD type = REG_SZ)
    {
        for (const HKEY root : kRoots) {
            set(root, m_progId + L"\\CLSID", kClass);
            set(root, m_class + L"\\LocalServer32", command, type);
        }
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration()
    {
        for (const HKEY root : kRoots) {
            RegDeleteTreeW(root, m_progId);
            RegDeleteTreeW(root, m_class);
        }
    }

private:
    static void set(HKEY root, const CVekString& key, const CVekString& value, DWORD type = REG_SZ)
    {
        const DWORD size = static_cast<DWORD>((value.len() + 1) * sizeof(wchar_t));
        RegSetKeyValueW(root, key, nullptr, type, static_cast<const wchar_t*>(value), size);
    }

    static inline const HKEY kRoots[] = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};

    CVekString m_progId = CVekString(L"Software\\Classes\\") + kProgId;
    CVekString m_class = CVekString(L"Software\\Classes\\CLSID\\") + kClass;
};

} // namespace

TEST(Automation, FindsTheServersProgram)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"\"C:\\Program Files\\Suite\\Server.exe\" /Automation", L"C:\\Program Files\\Suite\\Server.exe"},
        {L"C:\\Suite\\Server.exe -Embedding", L"C:\\Suite\\Server.exe"},
        {L"C:\\Suite\\Server.exe", L"C:\\Suite\\Server.exe"},
    };
    CVekString path;
    for (const auto& [command, program] : cases) {
        const Registration registration(command);
        EXPECT_TRUE(VEK::serverFromProgID(kProgId, path));
        EXPECT_STREQ(path, program);
    }
    {
        const Registration registration(L"%SystemRoot%\\Server.exe -x", REG_EXPAND_SZ);
        EXPECT_TRUE(VEK::serverFromProgID(kProgId, path));
        EXPECT_TRUE(path.find(L'%') < 0 && path.right(11) == L"\\Server.exe");
    }
    path = L"before";
    EXPECT_FALSE(VEK::serverFromProgID(kProgId, path) || VEK::serverFromProgID(nullptr, path));
    EXPECT_STREQ(path, L"before");
}

TEST(Automation, ConnectsToARunningServerOnly)
{
    ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
    {
        const Registration registration(L"C:\\Suite\\Server.exe");
        IDispatch* server = nullptr;
        EXPECT_FALSE(VEK::dispatchFromProgID(kProgId, &server));
        EXPECT_EQ(server, nullptr);
        EXPECT_FALSE(VEK::dispatchFromProgID(kProgId, nullptr));
        EXPECT_FALSE(VEK::dispatchFromProgID(nullptr, &server));

        IDispatch* object = nullptr; // a picture, as the system can make one
        ASSERT_TRUE(
            SUCCEEDED(OleCreatePictureIndirect(nullptr, IID_IDispatch, TRUE, reinterpret_cast<void**>(&object))));
        CLSID id{};
        DWORD entry = 0;
        ASSERT_TRUE(SUCCEEDED(CLSIDFromString(kClass, &id)));
        HRESULT entered = E_FAIL;
        for (int tries = 0; tries < 5 && FAILED(entered); ++tries) // the system's service may still be on its way
            entered = RegisterActiveObject(object, id, ACTIVEOBJECT_STRONG, &entry);
        ASSERT_TRUE(SUCCEEDED(entered));
        bool isFound = false;
        for (int tries = 0; tries < 5 && !isFound; ++tries)
            isFound = VEK::dispatchFromProgID(kProgId, &server);
        EXPECT_TRUE(isFound);
        ASSERT_NE(server, nullptr);
        server->Release();
        RevokeActiveObject(entry, nullptr);
        EXPECT_EQ(object->Release(), 0u) << "only the caller's own reference came with it";
    }
    OleUninitialize();
}
