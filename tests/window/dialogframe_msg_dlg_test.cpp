// The client of the text application, against the program itself.
#include "window/text_application.h"

namespace
{

using namespace text_application;

TEST_F(TextApplication, IsStartedAndAnswers)
{
    IDispatch* started = VEK::getRscAppDispatch();
    ASSERT_NE(started, nullptr);
    EXPECT_EQ(processes().size(), 1u);
    started->AddRef();
    IVekMsgDlg texts(started);
    EXPECT_EQ(VEK::getRscAppDispatch(), started) << "it runs already";
    EXPECT_TRUE(texts.GetVisible());
    EXPECT_FALSE(texts.OpenFile(L"C:\\no such file"));
    EXPECT_EQ(texts.GetSelectedKey(), L"");
    ASSERT_TRUE(texts.OpenFile(m_file.c_str()));

    const struct {
        const wchar_t *key, *language, *wide, *narrow;
    } cases[] = {
        {L"A", L"de", L"Höhe ≥", L"Höhe \\U+2265"},
        {L"A", L"PL", L"Wysokość", L"Wysoko\\U+015B\\U+0107"},
        {L"A", L"en", L"", L""},
        {L"D", L"en", L"own", L"own"},
        {L"B", L"0", L"M", L""},
        {L"A", L"0", L"", L""},
        {L"x", L"de", L"", L""},
        {nullptr, nullptr, L"", L""},
        {L"B", L"de", L"eins\nzwei", L"eins\nzwei"},
    };
    for (const auto& c : cases) {
        EXPECT_STREQ(texts.wGetMsg(c.key, c.language), c.wide);
        EXPECT_STREQ(texts.GetMsg(c.key, c.language), c.narrow);
    }
    for (const wchar_t* key : {L"B", L"D", L"A"}) {
        EXPECT_TRUE(texts.SearchKey(key));
        EXPECT_EQ(texts.GetSelectedKey(), key);
    }
    EXPECT_FALSE(texts.SearchKey(L"AB"));
    EXPECT_EQ(texts.GetSelectedKey(), L"A");
    texts.SetCountry(L"PL");
    EXPECT_EQ(texts.GetCountry(), L"pl");
    texts.SetCountry(L"none");
    EXPECT_EQ(texts.GetCountry(), L"pl");

    EXPECT_TRUE(run((L"--language fr \"" + m_file.wstring() + L"\"").c_str())) << "handed over to the one that runs";
    EXPECT_EQ(texts.GetCountry(), L"fr");
    EXPECT_EQ(processes().size(), 1u);
    const IVekMsgDlg second(texts);
    texts.Close();
    EXPECT_TRUE(within(30, [] { return processes().empty(); }));
    EXPECT_EQ(texts.GetSelectedKey(), L"") << "it is gone";
    EXPECT_FALSE(texts.OpenFile(m_file.c_str()));
}

TEST_F(TextApplication, EndsWithItsLastClientWhenNoUserIsThere)
{
    COleDispatchDriver created;
    // The system may still lead to the one that has just ended.
    ASSERT_TRUE(within(10, [&] { return created.CreateDispatch(kProgId); })) << "started by the system";
    IVekMsgDlg texts(created.DetachDispatch());
    EXPECT_FALSE(texts.GetVisible());
    {
        IVekMsgDlg second = running();
        second.SetVisible(TRUE);
    }
    EXPECT_TRUE(texts.GetVisible());
    texts.SetVisible(FALSE);
    EXPECT_FALSE(texts.GetVisible());
    EXPECT_EQ(processes().size(), 1u);
    texts.ReleaseDispatch();
    EXPECT_TRUE(within(30, [] { return processes().empty(); }));
}

TEST_F(TextApplication, MayHang)
{
    ASSERT_NE(VEK::getRscAppDispatch(), nullptr);
    IVekMsgDlg texts = running();
    suspend(processes().at(0));
    VEK::rscCallDeadlineSet(1000);
    const ULONGLONG begin = GetTickCount64();
    EXPECT_EQ(texts.wGetMsg(L"VEK001", L"de"), L"");
    EXPECT_GE(GetTickCount64() - begin, 1000u);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(texts.GetVisible(), 0);
    EXPECT_LT(GetTickCount64() - begin, 5000u) << "not asked again";
    IDispatch* other = nullptr;
    EXPECT_FALSE(VEK::dispatchFromProgID(kProgId, &other));
    EXPECT_LT(GetTickCount64() - begin, 20000u);
}

TEST_F(TextApplication, IsWaitedForFortyTimesIfItIsInstalled)
{
    std::vector<unsigned long> waits;
    std::vector<std::wstring> started;
    VEK::rscWaitHookSet([&](unsigned long time) {
        waits.push_back(time);
        unregister(); // or each try would take its time
    });
    VEK::platform::outsideHookSet([&](const VEK::platform::OutsideCall& call) {
        started.push_back(call.target);
        return true;
    });
    EXPECT_EQ(VEK::getRscAppDispatch(), nullptr);
    EXPECT_EQ(waits, std::vector<unsigned long>(40, 500));
    ASSERT_EQ(started.size(), 1u);
    EXPECT_TRUE(fs::equivalent(started[0], kProgram));

    EXPECT_EQ(VEK::getRscAppDispatch(), nullptr) << "not installed";
    EXPECT_EQ(waits.size(), 40u);
    EXPECT_EQ(started.size(), 1u);
}

} // namespace
