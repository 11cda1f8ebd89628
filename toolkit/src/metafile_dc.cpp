#include <afxext.h>

IMPLEMENT_DYNAMIC(CMetaFileDC, CDC)

namespace
{

bool isEnhanced(HDC context)
{
    return ::GetObjectType(context) == OBJ_ENHMETADC;
}

} // namespace

CMetaFileDC::~CMetaFileDC()
{
    if (m_hDC == nullptr)
        return;
    if (isEnhanced(m_hDC))
        ::DeleteEnhMetaFile(CloseEnhanced());
    else
        ::DeleteMetaFile(Close());
}

BOOL CMetaFileDC::Create(LPCTSTR lpszFilename)
{
    if (!Attach(::CreateMetaFileW(lpszFilename)))
        return FALSE;
    ReleaseAttribDC();
    return TRUE;
}

BOOL CMetaFileDC::CreateEnhanced(CDC* pDCRef, LPCTSTR lpszFileName, LPCRECT lpBounds, LPCTSTR lpszDescription)
{
    const HDC reference = pDCRef == nullptr ? nullptr : pDCRef->m_hAttribDC;
    if (!Attach(::CreateEnhMetaFileW(reference, lpszFileName, lpBounds, lpszDescription)))
        return FALSE;
    ReleaseAttribDC();
    return TRUE;
}

HMETAFILE CMetaFileDC::Close()
{
    return ::CloseMetaFile(Detach());
}

HENHMETAFILE CMetaFileDC::CloseEnhanced()
{
    return ::CloseEnhMetaFile(Detach());
}
