/// @file
/// A dialog that shows what lists can do.
#pragma once

#include <vek/controls.h>

class ListPage : public CVekDlg
{
    DECLARE_DYNAMIC(ListPage)

public:
    explicit ListPage(CWnd* parent);

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;

    afx_msg void OnOptions();
    DECLARE_MESSAGE_MAP()

private:
    class List : public CVekListCtrl
    {
    public:
        void OnInitEditCtrl(LVHITTESTINFO* hit, CVekEdit* edit) override;
        int OnAllowEdit(LVHITTESTINFO* hit) override;
        int OnEndItemEdit(CVekEdit* edit) override;

        bool isAllowed = true;
        bool isWanted = true;
    };

    List m_list;
    CImageList m_images;
};
