/// @file
/// A dialog that shows what tabs can do.
#pragma once

#include <vek/controls.h>

class TabPage : public CVekDlg
{
    DECLARE_DYNAMIC(TabPage)

public:
    explicit TabPage(CWnd* parent);

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

    afx_msg void OnEnable();
    afx_msg void OnInsert();
    afx_msg void OnDelete();
    DECLARE_MESSAGE_MAP()

private:
    CVekTabPage m_glass, m_frame, m_notes, m_more; // before the tabs, which use them
    CVekTabCtrl m_tabs;
};
