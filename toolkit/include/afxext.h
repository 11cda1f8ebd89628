/// @file
/// Contexts that draw into metafiles.
#pragma once

#include <afxwin.h>

class AFX_EXPORTED CMetaFileDC : public CDC
{
    DECLARE_DYNAMIC(CMetaFileDC)

public:
    CMetaFileDC() = default;
    ~CMetaFileDC() override;

    /// A context without an attribute context, which SetAttribDC sets.
    BOOL Create(LPCTSTR lpszFilename = nullptr);
    BOOL CreateEnhanced(CDC* pDCRef, LPCTSTR lpszFileName, LPCRECT lpBounds, LPCTSTR lpszDescription);
    /// The finished picture, owned by the caller. If a context is not closed, what it drew is discarded.
    HMETAFILE Close();
    HENHMETAFILE CloseEnhanced();
};
