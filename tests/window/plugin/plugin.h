/// @file
/// A DLL with window code: a dialog class that programs derive from, and an entry function in the manner of a library.
#pragma once

#include <afxwin.h>

#if defined(toolkit_plugin_EXPORTS)
#define PLUGIN_API __declspec(dllexport)
#else
#define PLUGIN_API __declspec(dllimport)
#endif

class PLUGIN_API PluginDialog : public CDialog
{
    DECLARE_DYNAMIC(PluginDialog)

public:
    explicit PluginDialog(CWnd* parent = nullptr);

    virtual int answer() const { return 1; }

    HINSTANCE handledFor = nullptr; ///< whose resources were in force in the handler

protected:
    afx_msg LRESULT OnAsk(WPARAM, LPARAM);
    afx_msg LRESULT OnThrow(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()
};

constexpr UINT kAsk = WM_APP + 1, kThrow = WM_APP + 2;

/// Runs the dialog with the DLL's own resources. It ends itself: the length of a text of the DLL, 100 for each row of
/// its combo box, 1000 for each of its list.
PLUGIN_API INT_PTR runPlugin(CWnd* parent, HWND* owner = nullptr);
/// How many times InitInstance has run, less ExitInstance.
extern "C" PLUGIN_API int pluginRuns();
extern "C" PLUGIN_API HINSTANCE pluginInstance();
