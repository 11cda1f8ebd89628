/// @file
/// A dialog with the material tree, its flags to switch.
#pragma once

#include <vek/controls.h>
#include <vek/dialogframe.h>
#include <vek/host.h>

class MaterialTreePage : public CVekDlg
{
    DECLARE_DYNAMIC(MaterialTreePage)

public:
    explicit MaterialTreePage(CWnd* parent);
    ~MaterialTreePage() override;

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;

    afx_msg void OnFlag(UINT id);
    afx_msg void OnSelect(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    CVekMatTreeCtrl m_tree;
    CVekLocalApp m_host; ///< whose drawing has materials of its own
    CVekApp* m_before;
};
