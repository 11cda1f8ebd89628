#include <afxole.h>

#include <gtest/gtest.h>

#include <string>

namespace
{

/// An object that writes its calls down and answers what it is told.
class Server : public IDispatch
{
public:
    Server() { ::VariantInit(&answer); }
    ~Server() { ::VariantClear(&answer); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    std::wstring call;
    VARIANT answer;
    HRESULT status = S_OK;
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                                     EXCEPINFO* failure, UINT*) override
    {
        call = std::to_wstring(id) + L"/" + std::to_wstring(flags);
        for (UINT i = given->cArgs; i-- > 0;) {
            VARIANT text;
            ::VariantInit(&text);
            ::VariantChangeType(&text, &given->rgvarg[i], 0, VT_BSTR);
            call += L" " + std::to_wstring(given->rgvarg[i].vt) + L":" + text.bstrVal;
            ::VariantClear(&text);
        }
        for (UINT i = 0; i < given->cNamedArgs; ++i)
            call += L" named " + std::to_wstring(given->rgdispidNamedArgs[i]);
        if (status == DISP_E_EXCEPTION) {
            failure->bstrDescription = ::SysAllocString(L"out of ink");
            failure->wCode = 17;
        }
        return result == nullptr || FAILED(status) ? status : ::VariantCopy(result, &answer);
    }
};

} // namespace

TEST(ToolkitAutomation, PassesParametersAndResults)
{
    Server server;
    server.answer.vt = VT_BSTR;
    server.answer.bstrVal = ::SysAllocString(L"Antwort");
    COleDispatchDriver driver(&server, FALSE);
    CString text;
    static const BYTE parameters[] = VTS_BSTR VTS_I4 VTS_BOOL VTS_R8;
    driver.InvokeHelper(5, DISPATCH_METHOD, VT_BSTR, &text, parameters, L"key", 12l, TRUE, 0.5);
    EXPECT_EQ(text, L"Antwort");
    EXPECT_EQ(server.call.substr(0, 27), L"5/1 8:key 3:12 11:-1 5:0.5") << "in their order";

    driver.SetProperty(7, VT_BOOL, 1);
    EXPECT_EQ(server.call, L"7/4 11:-1 named -3");
    ::VariantClear(&server.answer);
    server.answer.vt = VT_BOOL;
    server.answer.boolVal = VARIANT_TRUE;
    BOOL visible = FALSE;
    driver.GetProperty(7, VT_BOOL, &visible);
    EXPECT_EQ(visible, TRUE);
    EXPECT_EQ(server.call, L"7/2");
    driver.InvokeHelper(6, DISPATCH_METHOD, VT_EMPTY, nullptr, nullptr);
    EXPECT_EQ(server.call, L"6/1");
}

TEST(ToolkitAutomation, ThrowsWhatTheObjectTells)
{
    Server server;
    COleDispatchDriver driver(&server, FALSE);
    for (const HRESULT status : {DISP_E_EXCEPTION, DISP_E_MEMBERNOTFOUND}) {
        server.status = status;
        try {
            driver.InvokeHelper(1, DISPATCH_METHOD, VT_EMPTY, nullptr, nullptr);
            FAIL();
        } catch (COleDispatchException* exception) {
            EXPECT_EQ(exception->m_strDescription, L"out of ink");
            EXPECT_EQ(exception->m_wCode, 17);
            exception->Delete();
        } catch (COleException* exception) {
            EXPECT_EQ(exception->m_sc, DISP_E_MEMBERNOTFOUND);
            exception->Delete();
        }
    }
}

TEST(ToolkitAutomation, CountsReferences)
{
    Server server;
    {
        server.AddRef();
        COleDispatchDriver driver(&server);
        COleDispatchDriver copy(driver);
        EXPECT_EQ(server.references, 3u);
        COleDispatchDriver assigned;
        assigned = copy;
        EXPECT_EQ(server.references, 4u);
        EXPECT_EQ(assigned.DetachDispatch(), &server);
        server.Release();
    }
    EXPECT_EQ(server.references, 1u);
    COleDispatchDriver nothing;
    COleException error;
    EXPECT_FALSE(nothing.CreateDispatch(L"Vek_Test.NobodyHasThis", &error));
    EXPECT_EQ(error.m_sc, CO_E_CLASSSTRING);
}

TEST(ToolkitDataSource, HandsItsDataOut)
{
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 16);
    COleDataSource source;
    source.CacheGlobalData(CF_UNICODETEXT, memory);
    const auto data = static_cast<IDataObject*>(source.GetInterface(&IID_IDataObject));
    ASSERT_TRUE(data && !source.GetInterface(&IID_IDispatch));
    FORMATETC format = {CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, first = {};
    EXPECT_EQ(data->QueryGetData(&format), S_OK);
    for (int i = 0; i < 2; ++i) { // each taker gets data of its own
        STGMEDIUM medium = {};
        ASSERT_EQ(data->GetData(&format, &medium), S_OK);
        EXPECT_NE(medium.hGlobal, memory);
        ::ReleaseStgMedium(&medium);
    }
    IEnumFORMATETC* formats = nullptr;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, &formats), S_OK);
    EXPECT_EQ(formats->Next(1, &first, nullptr), S_OK);
    EXPECT_EQ(first.cfFormat, CF_UNICODETEXT);
    formats->Release();
    format.cfFormat = CF_HDROP;
    EXPECT_EQ(data->QueryGetData(&format), DV_E_FORMATETC);
    EXPECT_EQ(source.DoDragDrop(), DWORD(DROPEFFECT_NONE)) << "no button is held";
}

TEST(ToolkitDataSource, DropsWhereTheButtonEnds)
{
    COleDropSource source;
    source.m_dwButtonDrop = MK_LBUTTON;
    source.m_dwButtonCancel = MK_RBUTTON;
    EXPECT_EQ(source.QueryContinueDrag(FALSE, MK_LBUTTON), S_OK);
    EXPECT_EQ(source.QueryContinueDrag(FALSE, 0), DRAGDROP_S_DROP);
    EXPECT_EQ(source.QueryContinueDrag(TRUE, MK_LBUTTON), DRAGDROP_S_CANCEL);
    EXPECT_EQ(source.QueryContinueDrag(FALSE, MK_LBUTTON | MK_RBUTTON), DRAGDROP_S_CANCEL);
}
