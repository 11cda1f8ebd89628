#include <toolkit/dc.h>

#include "thread_state.h"

#include <cstdlib>

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNCREATE(CPen, CGdiObject)
IMPLEMENT_DYNCREATE(CBrush, CGdiObject)
IMPLEMENT_DYNCREATE(CFont, CGdiObject)
IMPLEMENT_DYNCREATE(CBitmap, CGdiObject)
IMPLEMENT_DYNCREATE(CPalette, CGdiObject)
IMPLEMENT_DYNCREATE(CRgn, CGdiObject)

namespace
{

std::unique_ptr<CGdiObject> objectFor(HGDIOBJ handle)
{
    switch (::GetObjectType(handle)) {
    case OBJ_PEN:
    case OBJ_EXTPEN: return std::make_unique<CPen>();
    case OBJ_BRUSH: return std::make_unique<CBrush>();
    case OBJ_FONT: return std::make_unique<CFont>();
    case OBJ_BITMAP: return std::make_unique<CBitmap>();
    case OBJ_PAL: return std::make_unique<CPalette>();
    case OBJ_REGION: return std::make_unique<CRgn>();
    default: return std::make_unique<CGdiObject>();
    }
}

} // namespace

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ hObject)
{
    return objectOf<CGdiObject>(hObject, [hObject] { return objectFor(hObject); });
}

void CGdiObject::DeleteTempMap()
{
    threadState().forgetTemporary();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    return attachHandle(*this, m_hObject, hObject);
}

HGDIOBJ CGdiObject::Detach()
{
    return detachHandle(*this, m_hObject);
}

BOOL CGdiObject::DeleteObject()
{
    return m_hObject != nullptr && ::DeleteObject(Detach());
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName)
{
    return Attach(::LoadBitmapW(AfxFindResourceHandle(lpszResourceName, RT_BITMAP), lpszResourceName));
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap)
{
    return Attach(::CreatePatternBrush(*pBitmap));
}

BOOL CBrush::CreateSysColorBrush(int nIndex)
{
    return Attach(::GetSysColorBrush(nIndex));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    const HDC screen = pDC == nullptr ? ::GetDC(nullptr) : nullptr;
    const HDC device = pDC == nullptr ? screen : pDC->m_hAttribDC;
    POINT height[] = {{0, 0}, {0, ::MulDiv(nPointSize, ::GetDeviceCaps(device, LOGPIXELSY), 720)}};
    ::DPtoLP(device, height, 2);
    LOGFONTW font = {};
    font.lfHeight = -std::abs(height[1].y - height[0].y);
    font.lfCharSet = DEFAULT_CHARSET;
    wcsncpy(font.lfFaceName, lpszFaceName, LF_FACESIZE - 1);
    if (screen != nullptr)
        ::ReleaseDC(nullptr, screen);
    return CreateFontIndirect(&font);
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateCompatibleBitmap(pDC->m_hDC, nWidth, nHeight));
}

BOOL CBitmap::CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateDiscardableBitmap(pDC->m_hDC, nWidth, nHeight));
}

BOOL CPalette::CreateHalftonePalette(CDC* pDC)
{
    return Attach(::CreateHalftonePalette(pDC == nullptr ? nullptr : pDC->m_hDC));
}

BOOL CRgn::CreateFromPath(CDC* pDC)
{
    return Attach(::PathToRegion(pDC->m_hDC));
}
