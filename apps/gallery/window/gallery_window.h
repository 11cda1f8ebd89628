/// @file
/// The gallery's window.
#pragma once

#include "../scene.h"
#include "shared/window/main_window.h"

#include <vek/dialogframe.h>
#include <vek/pictures.h>

#include <afxcmn.h>

#include <string>
#include <vector>

/// The picture control, which can also be panned by keys.
class GalleryPicture : public CVekDplistImage
{
public:
    /// Moves the picture by pixels.
    void pan(int x, int y);

    /// Whether the zoom equals that of the extents, up to the rounding errors of zooming in and out.
    bool showsExtents() const;
};

/// A list of pictures on the left, the selected one on the right, a status bar beneath; the bar between list and
/// picture can be dragged.
class GalleryWindow : public MainWindow
{
public:
    explicit GalleryWindow(std::vector<CataloguePicture> pictures);

    /// Opens the window and shows the picture of a name, ignoring case, or the first one.
    /// @return false if it cannot be opened or there is no picture of that name
    bool open(const CVekString& name, const std::vector<std::string>& problems);

protected:
    void layOut() override;
    BOOL PreTranslateMessage(MSG* message) override;

    afx_msg int OnCreate(LPCREATESTRUCT create);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnLButtonUp(UINT flags, CPoint point);
    afx_msg LRESULT OnPick(WPARAM, LPARAM number);
    afx_msg void OnSelect(NMHDR* header, LRESULT* result);
    afx_msg void OnExportMetafile();
    afx_msg void OnExportSvg();
    afx_msg void OnExit();
    afx_msg void OnCopy();
    afx_msg void OnClearHighlight();
    afx_msg void OnExtents();
    afx_msg void OnZoomIn();
    afx_msg void OnZoomOut();
    afx_msg void OnBackground(UINT id);
    afx_msg void OnSampleDialog();
    afx_msg void OnValuePage();
    afx_msg void OnListPage();
    afx_msg void OnTabPage();
    afx_msg void OnUnitsDialog();
    afx_msg void OnFilterDialog();
    afx_msg void OnMaterialTree();
    afx_msg void OnMaterialDialog();
    afx_msg void OnOutlineDialog();
    afx_msg void OnLabelDialog(UINT id);
    afx_msg void OnHoleDialog();
    DECLARE_MESSAGE_MAP()

private:
    void fillList();
    HTREEITEM find(const CVekString& name) const;
    void show(std::size_t number);
    void showStatus(const CVekString& text);
    void fit();
    void wheel(int delta);
    bool panByKey(WPARAM key);
    CRect bar() const;
    bool askPath(CString& path, LPCWSTR extension, LPCWSTR filter);
    void showExported(const CString& path, bool isWritten);
    bool writeMetafile(const CString& path);
    bool confirms(CVekDlg& dialog);

    std::vector<CataloguePicture> m_pictures;
    Scene m_scene;
    std::size_t m_current = 0;
    CStatic m_label;
    CTreeCtrl m_list;
    GalleryPicture m_picture;
    CStatusBarCtrl m_status;
    int m_listWidth = 230;    ///< at 96 dots per inch
    int m_outlineFilter = 15; ///< all groups
    bool m_isFilled = false;
    CVekString m_material{L"S235JR"}; ///< that was selected last
};
