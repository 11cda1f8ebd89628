/// @file
/// The information box. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/dialogframe/window/dlg.h>

/// Tells what this library is.
class VEK_API CAboutboxDlg : public CVekDlg
{
    DECLARE_DYNAMIC(CAboutboxDlg)

public:
    explicit CAboutboxDlg(CWnd* parent = nullptr);

    void addLangRsc() override;
    bool updLang() override;
};

#endif
