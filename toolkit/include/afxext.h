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

    /// A context without one for questions: SetAttribDC gives it one.
    BOOL Create(LPCTSTR lpszFilename = nullptr);
    BOOL CreateEnhanced(CDC* pDCRef, LPCTSTR lpszFileName, LPCRECT lpBounds, LPCTSTR lpszDescription);
    /// The finished picture, owned by the caller. A context that is not closed is given up with what it drew.
    HMETAFILE Close();
    HENHMETAFILE CloseEnhanced();
};
