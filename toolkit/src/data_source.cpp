#include <afxole.h>

#include <shlobj.h>

#include <algorithm>
#include <vector>

IMPLEMENT_DYNAMIC(COleDropSource, CCmdTarget)
IMPLEMENT_DYNAMIC(COleDataSource, CCmdTarget)

/// The data as the system gets it; the system may keep it longer than the source lives.
class COleDataSource::Data final : public IDataObject
{
public:
    Data() = default;
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;

    void add(const FORMATETC& format, const STGMEDIUM& medium) { m_list.push_back({format, medium}); }
    void clear()
    {
        for (Entry& each : m_list)
            ::ReleaseStgMedium(&each.medium);
        m_list.clear();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDataObject);
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(::InterlockedIncrement(&m_references)); }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const LONG left = ::InterlockedDecrement(&m_references);
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) override
    {
        const Entry* entry = find(*wanted);
        if (entry == nullptr)
            return DV_E_FORMATETC;
        *medium = entry->medium;
        medium->pUnkForRelease = nullptr;
        switch (entry->medium.tymed) {
        case TYMED_ISTREAM: medium->pstm->AddRef(); return S_OK;
        case TYMED_ISTORAGE: medium->pstg->AddRef(); return S_OK;
        default: medium->hGlobal = ::OleDuplicateData(entry->medium.hGlobal, entry->format.cfFormat, 0);
        }
        return medium->hGlobal == nullptr ? STG_E_MEDIUMFULL : S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) override
    {
        return find(*wanted) == nullptr ? DV_E_FORMATETC : S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override
    {
        if (direction != DATADIR_GET)
            return E_NOTIMPL;
        std::vector<FORMATETC> list;
        for (const Entry& each : m_list)
            list.push_back(each.format);
        return ::SHCreateStdEnumFmtEtc(static_cast<UINT>(list.size()), list.data(), formats);
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return DATA_E_FORMATETC; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return DATA_S_SAMEFORMATETC; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override
    {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

private:
    struct Entry {
        FORMATETC format;
        STGMEDIUM medium;
    };

    ~Data() { clear(); }
    const Entry* find(const FORMATETC& wanted) const
    {
        const auto it = std::find_if(m_list.begin(), m_list.end(), [&wanted](const Entry& each) {
            return each.format.cfFormat == wanted.cfFormat && (each.format.dwAspect & wanted.dwAspect) != 0 &&
                   (each.format.tymed & wanted.tymed) != 0;
        });
        return it == m_list.end() ? nullptr : &*it;
    }

    LONG m_references = 1;
    std::vector<Entry> m_list;
};

namespace
{

/// Calls the program's object, which lives at least as long as the drag.
class Asking final : public IDropSource
{
public:
    explicit Asking(COleDropSource& source) : m_source(source) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropSource);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override
    {
        return m_source.QueryContinueDrag(escape, keys);
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override { return m_source.GiveFeedback(effect); }

private:
    COleDropSource& m_source;
};

bool held(DWORD button)
{
    return ::GetAsyncKeyState(button == MK_LBUTTON ? VK_LBUTTON : VK_RBUTTON) < 0;
}

} // namespace

BOOL COleDropSource::OnBeginDrag(CWnd* pWnd)
{
    m_dwButtonDrop = held(MK_LBUTTON) ? MK_LBUTTON : held(MK_RBUTTON) ? MK_RBUTTON : 0;
    m_dwButtonCancel = (MK_LBUTTON | MK_RBUTTON) ^ m_dwButtonDrop;
    if (m_dwButtonDrop == 0)
        return FALSE;
    pWnd->SetCapture();
    const ULONGLONG start = ::GetTickCount64();
    bool begun = false, over = false;
    while (!begun && !over && CWnd::GetCapture() == pWnd) {
        MSG message;
        if (::PeekMessageW(&message, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE) ||
            ::PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
            over = message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
            begun = message.message == WM_MOUSEMOVE && !m_rectStartDrag.PtInRect(message.pt);
        } else {
            ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_INPUT);
        }
        over = over || !held(m_dwButtonDrop);
        begun = begun || ::GetTickCount64() - start >= DD_DEFDRAGDELAY;
    }
    ::ReleaseCapture();
    return begun && !over;
}

SCODE COleDropSource::QueryContinueDrag(BOOL bEscapePressed, DWORD dwKeyState)
{
    if (bEscapePressed || (dwKeyState & m_dwButtonCancel) != 0)
        return DRAGDROP_S_CANCEL;
    return (dwKeyState & m_dwButtonDrop) == 0 ? DRAGDROP_S_DROP : S_OK;
}

SCODE COleDropSource::GiveFeedback(DROPEFFECT)
{
    return DRAGDROP_S_USEDEFAULTCURSORS;
}

COleDataSource::COleDataSource() : m_data(new Data) {}

COleDataSource::~COleDataSource()
{
    m_data->Release();
}

void COleDataSource::CacheGlobalData(CLIPFORMAT cfFormat, HGLOBAL hGlobal, LPFORMATETC lpFormatEtc)
{
    STGMEDIUM medium = {};
    medium.tymed = TYMED_HGLOBAL;
    medium.hGlobal = hGlobal;
    CacheData(cfFormat, &medium, lpFormatEtc);
}

void COleDataSource::CacheData(CLIPFORMAT cfFormat, LPSTGMEDIUM lpStgMedium, LPFORMATETC lpFormatEtc)
{
    FORMATETC format = {cfFormat, nullptr, DVASPECT_CONTENT, -1, lpStgMedium->tymed};
    if (lpFormatEtc != nullptr) {
        format = *lpFormatEtc;
        format.cfFormat = cfFormat;
    }
    m_data->add(format, *lpStgMedium);
}

void COleDataSource::Empty()
{
    m_data->clear();
}

LPUNKNOWN COleDataSource::GetInterface(const void* iid)
{
    void* found = nullptr;
    if (FAILED(m_data->QueryInterface(*static_cast<const IID*>(iid), &found)))
        return nullptr;
    m_data->Release();
    return static_cast<IDataObject*>(found);
}

DROPEFFECT COleDataSource::DoDragDrop(DWORD dwEffects, LPCRECT lpRectStartDrag, COleDropSource* pDropSource)
{
    COleDropSource plain;
    COleDropSource& source = pDropSource == nullptr ? plain : *pDropSource;
    if (lpRectStartDrag != nullptr) {
        source.m_rectStartDrag = lpRectStartDrag;
    } else {
        CPoint pointer;
        ::GetCursorPos(&pointer);
        source.m_rectStartDrag = CRect(pointer, CSize(0, 0));
    }
    source.m_rectStartDrag.NormalizeRect();
    source.m_rectStartDrag.InflateRect(lpRectStartDrag == nullptr ? DD_DEFDRAGMINDIST : 0,
                                       lpRectStartDrag == nullptr ? DD_DEFDRAGMINDIST : 0);
    CWnd* window = CWnd::GetCapture();
    if (window == nullptr)
        window = AfxGetMainWnd() != nullptr ? AfxGetMainWnd() : CWnd::GetActiveWindow();
    if (window == nullptr || !source.OnBeginDrag(window))
        return DROPEFFECT_NONE;
    Asking asking(source);
    DWORD effect = DROPEFFECT_NONE;
    return ::DoDragDrop(m_data, &asking, dwEffects, &effect) == DRAGDROP_S_DROP ? effect : DROPEFFECT_NONE;
}
