/// @file
/// The outline dialog. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/window/combo_box.h>
#include <vek/controls/window/edit.h>
#include <vek/dialogframe/window/dlg.h>
#include <vek/dialogframe/window/dlg_env.h>
#include <vek/dialogs/outline.h>
#include <vek/pictures/window/vll_image.h>

#include <afxcmn.h>

/// Lets the user choose a standard outline, its parameters and its base point, and shows it meanwhile. A parameter that
/// can be negative has a button that turns its sign.
class VEK_API CVekOutlDlg : public CVekDlg
{
    DECLARE_DYNAMIC(CVekOutlDlg)

public:
    explicit CVekOutlDlg(CWnd* parent = nullptr);

    /// @return IDCANCEL, without a window, if there is no library. An empty one is filled with the standard outlines.
    INT_PTR DoModal() override;

    /// What is chosen, and the library. To be set before `DoModal`.
    VEK::OutlineChoice& choice() { return m_choice; }

    /// The key of the material; if it is empty when the dialog opens, materials are not offered.
    CVekString& material() { return m_material; }

    void addLangRsc() override;
    bool updLang() override;
    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;

    afx_msg void OnKind();
    afx_msg void OnBasePoint(UINT id);
    afx_msg void OnParameter(UINT id);
    afx_msg void OnSign(UINT id);
    afx_msg void OnRange(UINT id);
    afx_msg void OnFilter();
    afx_msg void OnMaterial();
    afx_msg void OnHelpButton();
    DECLARE_MESSAGE_MAP()

    CVekComboBox m_kinds;
    CVekEdit m_x, m_y; ///< base point
    CVekEdit m_parms[VEK::OutlineChoice::maxRows];
    CVekVllImage m_preview;
    HICON m_icon;
    CVekString m_material;
    CImageList m_images; ///< for derived classes; this one leaves it empty
    VEK::OutlineChoice m_choice;

private:
    CVekString m_labels[VEK::OutlineChoice::maxRows]; ///< text keys on the parameters' buttons

    const wchar_t* textOf(const CVekString& key);
    void setLengths(CVekEdit& field);
    void showBasePoint();
    void fillKinds();
    void loadKind();
    void showRow(int index, const VEK::OutlineChoice::Row& row);
    void showLabel(int index, const CVekString& key);
    void showMaterial();
    void updatePreview();
};

namespace VEK
{

/// Lets the user choose an outline.
/// @param data what to begin with; receives the choice if the dialog ends by OK
/// @param library directory of outlines, see `outlineInit`, with which an empty one is filled
/// @return IDOK or IDCANCEL, the latter also if `library` is no directory; 0 if it is null; -1 when memory runs out
VEK_API int dlgOutline(const DlgEnv_st& env, outlineData& data, CVekDataItem* library);

} // namespace VEK

#endif
