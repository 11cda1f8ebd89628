/// @file
/// The label dialog. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/window/list_ctrl.h>
#include <vek/dialogframe/window/dlg.h>
#include <vek/dialogframe/window/dlg_env.h>
#include <vek/dialogs/label_rows.h>

/// The list of a label's texts, a row for each language. The user edits them in place and by the context menu, which
/// copies all of them to the registry and pastes them from there.
class VEK_API CVekLabelEditLst : public CVekListCtrl
{
    DECLARE_DYNAMIC(CVekLabelEditLst)

public:
    /// Shows a label.
    /// @param language of a label that is a plain text, and of the row that is selected; null for that of the selected
    /// row, or else the first one
    void setLabel(const wchar_t* label, const wchar_t* language);

    /// The label of what is shown.
    /// @param label receives it; unchanged when memory runs out
    /// @return false then
    bool getLabel(CVekString& label) const;

    void OnInitEditCtrl(LVHITTESTINFO* hit, CVekEdit* edit) override;
    int OnAllowEdit(LVHITTESTINFO* hit) override;
    int OnEndItemEdit(CVekEdit* edit) override;
    void DrawItem(LPDRAWITEMSTRUCT item) override;

    CVekArrayTempl<int> m_lineKinds; ///< 1 for a row of several lines
    CImageList m_images;
    bool m_multi = false; ///< whether rows may have several lines; set it before the first label

protected:
    void PreSubclassWindow() override;

    afx_msg void MeasureItem(LPMEASUREITEMSTRUCT item);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnContextMenu(CWnd* window, CPoint point);
    afx_msg void OnCustomDraw(NMHDR* header, LRESULT* result);
    afx_msg void OnLabelEditKillFocus();
    afx_msg void OnLines();
    afx_msg void OnPaste();
    afx_msg void OnCopy();
    DECLARE_MESSAGE_MAP()

private:
    void fitText(int width);
    VEK::LabelRow row(int index) const;
    VEK::LabelRows rows() const;
    void show(int index, const VEK::LabelRow& row);
    void measure();
};

/// Lets the user edit the texts of a label in all languages.
class VEK_API CVekLabelEdit : public CVekDlg
{
    DECLARE_DYNAMIC(CVekLabelEdit)

public:
    explicit CVekLabelEdit(CWnd* parent = nullptr);

    void addLangRsc() override;
    void addHlpRsc() override;
    bool updLang() override;
    BOOL OnInitDialog() override;

    CVekString m_label;    ///< in and, after OK, out
    CVekString m_language; ///< of the row that is selected first
    bool m_multi = false;  ///< whether texts may have several lines
    HICON m_icon;
    CVekLabelEditLst m_list;
    CVekString m_msgFile; ///< what the text application opens if it has to be started for an import; empty for none

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
    afx_msg void OnSysCommand(UINT id, LPARAM point);
    afx_msg void OnImport();
    DECLARE_MESSAGE_MAP()

private:
    void layOut();
};

namespace VEK
{

/// Lets the user edit a label.
/// @param label receives `text` at once, and after OK the new label
/// @param flags bit 0: texts may have several lines
/// @param text the label to edit
/// @param language of a label that is a plain text, and of the row that is selected first
/// @param msgFile what the text application opens if it has to be started; null for none
/// @return IDOK or IDCANCEL; -1 if the dialog cannot be opened
VEK_API int dlgLabelEdit(const DlgEnv_st& env, CVekString& label, unsigned long flags, const wchar_t* text,
                         const wchar_t* language, const wchar_t* msgFile);

} // namespace VEK

#endif
