/// @file
/// A dialog that shows what the library's dialogs can do.
#pragma once

#include <vek/dialogframe.h>

class SampleDialog : public CVekDlg
{
    DECLARE_DYNAMIC(SampleDialog)

public:
    explicit SampleDialog(CWnd* parent);

    void addLangRsc() override;
    void addHlpRsc() override;
    void addToolTipRsc() override;
    bool updLang() override;
    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;

    afx_msg void OnLanguage();
    afx_msg void OnHelpButton();
    afx_msg void OnAbout();
    afx_msg void OnAnother();
    afx_msg void OnDrag();
    DECLARE_MESSAGE_MAP()

private:
    CEdit m_range, m_point; // fields for Return and Page Up
    CComboBox m_parameter;
    CVekString m_file; ///< that can be dragged
};
