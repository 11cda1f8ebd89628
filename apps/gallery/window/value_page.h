/// @file
/// A dialog with the library's controls for values, whose rules can be switched.
#pragma once

#include <vek/controls.h>
#include <vek/dialogframe.h>

class ValuePage : public CVekDlg
{
    DECLARE_DYNAMIC(ValuePage)

public:
    explicit ValuePage(CWnd* parent);

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;

    afx_msg void OnRule(UINT id);
    afx_msg void OnRuleLeft(UINT id);
    afx_msg void OnLeave(UINT id);
    afx_msg void OnSet();
    afx_msg void OnLanguage();
    DECLARE_MESSAGE_MAP()

private:
    int chosen(int id) const;
    unsigned short flags() const;
    void apply();
    void fillBox();
    void tell();

    CVekEdit m_edit, m_other; // two, so that one can refuse to give the focus to the other
    CVekComboBox m_box;
    CVekComboCountryBox m_languages;
    CVekEdit m_precision, m_min, m_max;
};
