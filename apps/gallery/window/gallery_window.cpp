#include "gallery_window.h"

#include "chosen.h"
#include "list_page.h"
#include "material_tree_page.h"
#include "resource.h"
#include "sample_dialog.h"
#include "shared/failure.h"
#include "shared/input.h"
#include "tab_page.h"
#include "value_page.h"

#include <vek/dialogs.h>
#include <vek/surfaces.h>

#include <afxdlgs.h>
#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <filesystem>
#include <memory>

namespace
{

// At 96 dots per inch.
constexpr SIZE kStart = {1000, 700}, kSmallest = {480, 320};
constexpr int kGap = 6; // around the controls; between list and picture it is the splitter bar
constexpr int kSmallestPart = 120;
constexpr int kCountWidth = 110; // of the status bar's second pane
constexpr int kKeyPan = 40;

constexpr double kSameZoom = 1e-6;

constexpr unsigned kWhite = 0xFFFFFF;

} // namespace

BEGIN_MESSAGE_MAP(GalleryWindow, MainWindow)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_SETCURSOR()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_MESSAGE(IDC_PICTURE, &GalleryWindow::OnPick)
ON_NOTIFY(TVN_SELCHANGEDW, IDC_LIST, &GalleryWindow::OnSelect)
ON_COMMAND(ID_FILE_EXPORT_METAFILE, &GalleryWindow::OnExportMetafile)
ON_COMMAND(ID_FILE_EXPORT_SVG, &GalleryWindow::OnExportSvg)
ON_COMMAND(ID_FILE_EXIT, &GalleryWindow::OnExit)
ON_COMMAND(ID_EDIT_COPY_PICTURE, &GalleryWindow::OnCopy)
ON_COMMAND(ID_EDIT_CLEAR_HIGHLIGHT, &GalleryWindow::OnClearHighlight)
ON_COMMAND(ID_VIEW_EXTENTS, &GalleryWindow::OnExtents)
ON_COMMAND(ID_VIEW_ZOOM_IN, &GalleryWindow::OnZoomIn)
ON_COMMAND(ID_VIEW_ZOOM_OUT, &GalleryWindow::OnZoomOut)
ON_COMMAND_RANGE(ID_BACKGROUND_OWN, ID_BACKGROUND_BLACK, &GalleryWindow::OnBackground)
ON_COMMAND(ID_DIALOGS_SAMPLE, &GalleryWindow::OnSampleDialog)
ON_COMMAND(ID_DIALOGS_VALUES, &GalleryWindow::OnValuePage)
ON_COMMAND(ID_DIALOGS_MATERIAL_TREE, &GalleryWindow::OnMaterialTree)
ON_COMMAND(ID_DIALOGS_MATERIAL, &GalleryWindow::OnMaterialDialog)
ON_COMMAND(ID_DIALOGS_OUTLINE, &GalleryWindow::OnOutlineDialog)
ON_COMMAND_RANGE(ID_DIALOGS_LABEL, ID_DIALOGS_LABEL_LINES, &GalleryWindow::OnLabelDialog)
ON_COMMAND(ID_DIALOGS_HOLES, &GalleryWindow::OnHoleDialog)
ON_COMMAND(ID_DIALOGS_LIST, &GalleryWindow::OnListPage)
ON_COMMAND(ID_DIALOGS_TABS, &GalleryWindow::OnTabPage)
ON_COMMAND(ID_DIALOGS_UNITS, &GalleryWindow::OnUnitsDialog)
ON_COMMAND(ID_DIALOGS_FILTER, &GalleryWindow::OnFilterDialog)
END_MESSAGE_MAP()

void GalleryPicture::pan(int x, int y)
{
    zoomMtx[0][3] += x;
    zoomMtx[1][3] += y;
    dpList->zoomMtxSet(zoomMtx);
    Invalidate();
}

bool GalleryPicture::showsExtents() const
{
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 4; ++column) {
            if (std::fabs(zoomMtx[row][column] - (row == column)) > kSameZoom)
                return false;
        }
    }
    return true;
}

GalleryWindow::GalleryWindow(std::vector<CataloguePicture> pictures)
    : MainWindow(kStart, kSmallest), m_pictures(std::move(pictures))
{
}

bool GalleryWindow::open(const CVekString& name, const std::vector<std::string>& problems)
{
    if (!create(L"VEK Gallery", IDR_GALLERY))
        return false;
    const HTREEITEM item = find(name);
    if (item == nullptr)
        return false;
    m_list.SelectItem(item);
    m_list.EnsureVisible(item);
    std::string all;
    for (const std::string& problem : problems)
        all += (all.empty() ? "" : "; ") + problem;
    if (!all.empty())
        showStatus(wide(all));
    return true;
}

int GalleryWindow::OnCreate(LPCREATESTRUCT create)
{
    if (MainWindow::OnCreate(create) == -1)
        return -1;
    const CRect none(0, 0, 0, 0);
    const DWORD child = WS_CHILD | WS_VISIBLE;
    const bool made =
        m_label.Create(L"&Pictures", child | SS_LEFT, none, this, IDC_LIST_LABEL) &&
        m_list.CreateEx(WS_EX_CLIENTEDGE, WC_TREEVIEWW, L"Pictures",
                        child | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS, none,
                        this, IDC_LIST) &&
        m_picture.CreateEx(WS_EX_CLIENTEDGE, AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW), L"Picture",
                           child | WS_TABSTOP, none, this, IDC_PICTURE) &&
        m_status.Create(child | SBARS_SIZEGRIP, none, this, IDC_STATUS);
    if (!made)
        return -1;
    fillList();
    OnBackground(ID_BACKGROUND_OWN);
    return 0;
}

/// The wheel goes to the window beneath the pointer, wherever the focus is. A click on the picture removes the
/// highlight before the picture reports the hit, since it reports nothing if nothing is hit.
BOOL GalleryWindow::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_MOUSEWHEEL) {
        const HWND beneath = ::WindowFromPoint({GET_X_LPARAM(message->lParam), GET_Y_LPARAM(message->lParam)});
        if (beneath == m_picture.m_hWnd || beneath == m_list.m_hWnd)
            message->hwnd = beneath;
        return FALSE;
    }
    if (message->hwnd == m_picture.m_hWnd) {
        if (message->message == WM_LBUTTONDOWN)
            OnClearHighlight();
        else if (message->message == WM_KEYDOWN && panByKey(message->wParam))
            return TRUE;
    }
    return MainWindow::PreTranslateMessage(message);
}

// Layout

void GalleryWindow::layOut()
{
    m_status.SendMessage(WM_SIZE);
    CRect area, status;
    GetClientRect(&area);
    m_status.GetWindowRect(&status);
    int parts[] = {std::max(area.Width() - scaled(kCountWidth) - status.Height(), 0), -1};
    m_status.SetParts(2, parts);

    const int gap = scaled(kGap), bottom = area.bottom - status.Height();
    const int largest = area.Width() - scaled(kSmallestPart) - gap;
    const int width = std::max(std::min(scaled(m_listWidth), largest), 0);
    const int line = lineHeight();
    const int top = gap / 2 + line;
    m_label.MoveWindow(gap, gap / 2, width - gap, line);
    m_list.MoveWindow(0, top, width, std::max(bottom - top, 0));
    m_picture.MoveWindow(width + gap, 0, std::max(area.Width() - width - gap, 0), std::max(bottom, 0));
}

void GalleryWindow::OnSize(UINT type, int width, int height)
{
    MainWindow::OnSize(type, width, height);
    if (type != SIZE_MINIMIZED && m_picture.showsExtents()) // a zoomed picture keeps its position
        fit();
}

/// The splitter bar between list and picture.
CRect GalleryWindow::bar() const
{
    CRect list, picture;
    m_list.GetWindowRect(&list);
    m_picture.GetWindowRect(&picture);
    CRect area(list.right, list.top, picture.left, list.bottom);
    ScreenToClient(&area);
    return area;
}

BOOL GalleryWindow::OnSetCursor(CWnd* window, UINT hit, UINT message)
{
    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    if (hit != HTCLIENT || window->m_hWnd != m_hWnd || !bar().PtInRect(point))
        return CWnd::OnSetCursor(window, hit, message);
    ::SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    return TRUE;
}

void GalleryWindow::OnLButtonDown(UINT, CPoint point)
{
    if (bar().PtInRect(point))
        SetCapture();
}

void GalleryWindow::OnMouseMove(UINT flags, CPoint point)
{
    if ((flags & MK_LBUTTON) == 0 || ::GetCapture() != m_hWnd)
        return;
    CRect area;
    GetClientRect(&area);
    const int smallest = scaled(kSmallestPart);
    const int width =
        std::clamp(static_cast<int>(point.x) - scaled(kGap) / 2, smallest, std::max(area.Width() - smallest, smallest));
    m_listWidth = MulDiv(width, 96, m_dpi);
    OnSize(SIZE_RESTORED, area.Width(), area.Height());
}

void GalleryWindow::OnLButtonUp(UINT, CPoint)
{
    ReleaseCapture();
}

// The list and the picture

void GalleryWindow::fillList()
{
    HTREEITEM group = nullptr;
    for (std::size_t i = 0; i < m_pictures.size(); ++i) {
        const CataloguePicture& picture = m_pictures[i];
        if (i == 0 || !(picture.group == m_pictures[i - 1].group)) {
            group = m_list.InsertItem(picture.group);
            m_list.SetItemData(group, i);
        }
        const HTREEITEM item = m_list.InsertItem(picture.name, group);
        m_list.SetItemData(item, i);
        if (picture.group == m_pictures.front().group)
            m_list.Expand(group, TVE_EXPAND);
    }
    m_isFilled = true;
}

HTREEITEM GalleryWindow::find(const CVekString& name) const
{
    for (HTREEITEM group = m_list.GetRootItem(); group != nullptr; group = m_list.GetNextSiblingItem(group)) {
        for (HTREEITEM item = m_list.GetChildItem(group); item != nullptr; item = m_list.GetNextSiblingItem(item)) {
            if (name.len() == 0 || m_pictures[m_list.GetItemData(item)].name.compareNoCase(name) == 0)
                return item;
        }
    }
    return nullptr;
}

void GalleryWindow::OnSelect(NMHDR* header, LRESULT* result)
{
    const auto* change = reinterpret_cast<NMTREEVIEWW*>(header);
    if (m_isFilled) // a group's heading selects its first picture
        show(static_cast<std::size_t>(change->itemNew.lParam));
    *result = 0;
}

void GalleryWindow::show(std::size_t number)
{
    const CWaitCursor wait;
    m_current = number;
    const CataloguePicture& picture = m_pictures[number];
    CVekString problem;
    try {
        m_scene.show(picture);
    } catch (const Failure& failure) {
        problem = wide(failure.what());
    }
    const std::wstring name = static_cast<const wchar_t*>(picture.name);
    SetWindowText((name + L" - VEK Gallery").c_str());
    m_picture.SetWindowText((L"Picture " + name).c_str());
    m_picture.set_dpList(&m_scene.shown());
    fit();
    showStatus(problem);
    const int items = m_scene.picture().lenGet();
    m_status.SetText((std::to_wstring(items) + (items == 1 ? L" item" : L" items")).c_str(), 1, 0);
}

void GalleryWindow::showStatus(const CVekString& text)
{
    m_status.SetText(text, 0, 0);
}

void GalleryWindow::fit()
{
    m_picture.zoomExtents();
    m_picture.Invalidate();
}

LRESULT GalleryWindow::OnPick(WPARAM, LPARAM number)
{
    m_scene.highlight(static_cast<int>(number));
    m_picture.Invalidate();
    showStatus(m_scene.describe(static_cast<int>(number)));
    return 0;
}

// Commands

bool GalleryWindow::askPath(CString& path, LPCWSTR extension, LPCWSTR filter)
{
    std::wstring name = static_cast<const wchar_t*>(m_pictures[m_current].name);
    // With a character that is not allowed in file names, which a slide's name may contain, the dialog would not open.
    std::replace_if(
        name.begin(), name.end(), [](wchar_t sign) { return sign < 32 || std::wcschr(L"\\/:*?\"<>|", sign); }, L'_');
    CFileDialog dialog(FALSE, extension, name.c_str(), OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, filter, this);
    if (dialog.DoModal() != IDOK)
        return false;
    path = dialog.GetPathName();
    return true;
}

void GalleryWindow::showExported(const CString& path, bool isWritten)
{
    const std::wstring file = static_cast<LPCWSTR>(path);
    showStatus(isWritten ? (L"Exported " + file).c_str() : L"");
    if (!isWritten)
        AfxMessageBox((file + L" cannot be written").c_str(), MB_OK | MB_ICONERROR);
}

/// A metafile replaces an existing one only when it is complete.
bool GalleryWindow::writeMetafile(const CString& path)
{
    CRect area;
    m_picture.GetClientRect(&area);
    CVekGDX paper = m_scene.picture();
    const std::filesystem::path folder = std::filesystem::path(static_cast<LPCWSTR>(path)).parent_path();
    wchar_t scratch[MAX_PATH] = {};
    if (GetTempFileNameW(folder.c_str(), L"vek", 0, scratch) == 0)
        return false;
    refresh(&paper, scratch, area.Height(), area.Width());
    std::error_code error;
    const bool isWritten = std::filesystem::file_size(scratch, error) > 0 && !error &&
                           MoveFileExW(scratch, path, MOVEFILE_REPLACE_EXISTING | MOVEFILE_COPY_ALLOWED);
    if (!isWritten)
        DeleteFileW(scratch);
    return isWritten;
}

/// The picture is fitted into the size of the control, so that the export shows what the window shows at its extents.
void GalleryWindow::OnExportMetafile()
{
    CString path;
    if (askPath(path, L"emf", L"Enhanced metafiles (*.emf)|*.emf||"))
        showExported(path, writeMetafile(path));
}

void GalleryWindow::OnExportSvg()
{
    CString path;
    if (!askPath(path, L"svg", L"Scalable vector graphics (*.svg)|*.svg||"))
        return;
    CRect area;
    m_picture.GetClientRect(&area);
    CVekGDX paper = m_scene.picture();
    VEK::CFileSink sink(path);
    const auto surface = VEK::svgSurface(sink, area.Width(), area.Height());
    if (!surface) { // memory ran out
        showExported(path, false);
        return;
    }
    surface->solidRect(0.0, 0.0, area.Width(), area.Height(), kWhite); // a viewer may have a dark background
    VEK::gdxDraw(paper, *surface, area.Height(), area.Width(), VEK::scalableRules);
    showExported(path, surface->finish());
}

void GalleryWindow::OnExit()
{
    DestroyWindow();
}

void GalleryWindow::OnCopy()
{
    CRect area;
    m_picture.GetClientRect(&area);
    CVekGDX paper = m_scene.picture();
    const DWORD before = GetClipboardSequenceNumber();
    refresh(&paper, nullptr, area.Height(), area.Width());
    // Merely emptying the clipboard counts as a change, too.
    const bool isThere = GetClipboardSequenceNumber() != before && IsClipboardFormatAvailable(CF_ENHMETAFILE);
    showStatus(isThere ? L"Copied as an enhanced metafile" : L"The clipboard is in use");
}

void GalleryWindow::OnClearHighlight()
{
    m_scene.highlight(-1);
    m_picture.Invalidate();
    showStatus(L"");
}

void GalleryWindow::OnExtents()
{
    fit();
}

void GalleryWindow::OnZoomIn()
{
    wheel(WHEEL_DELTA);
}

void GalleryWindow::OnZoomOut()
{
    wheel(-WHEEL_DELTA);
}

/// An arrow key reveals more in its direction.
bool GalleryWindow::panByKey(WPARAM key)
{
    const int step = scaled(kKeyPan);
    switch (key) {
    case VK_LEFT: m_picture.pan(step, 0); return true;
    case VK_RIGHT: m_picture.pan(-step, 0); return true;
    case VK_UP: m_picture.pan(0, step); return true;
    case VK_DOWN: m_picture.pan(0, -step); return true;
    default: return false;
    }
}

/// Turns the wheel by one notch over the middle of the picture.
void GalleryWindow::wheel(int delta)
{
    CRect area;
    m_picture.GetWindowRect(&area);
    const CPoint middle = area.CenterPoint();
    m_picture.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(middle.x, middle.y));
}

void GalleryWindow::OnBackground(UINT id)
{
    CVekColor color;
    color.setColor(id == ID_BACKGROUND_WHITE ? kWhite : id == ID_BACKGROUND_GREY ? 0x808080 : 0x000000);
    m_scene.setBackground(id == ID_BACKGROUND_OWN ? nullptr : &color);
    ::CheckMenuRadioItem(::GetMenu(m_hWnd), ID_BACKGROUND_OWN, ID_BACKGROUND_BLACK, id, MF_BYCOMMAND);
    m_picture.Invalidate();
}

/// Shows a dialog in the language of the process.
/// @return whether it was confirmed
bool GalleryWindow::confirms(CVekDlg& dialog)
{
    dialog.SetCountry(VEK::DlgEnv_st().country);
    const bool isConfirmed = dialog.DoModal() == IDOK;
    m_picture.SetFocus();
    return isConfirmed;
}

void GalleryWindow::OnSampleDialog()
{
    SampleDialog dialog(this);
    confirms(dialog);
}

void GalleryWindow::OnListPage()
{
    ListPage dialog(this);
    confirms(dialog);
}

void GalleryWindow::OnTabPage()
{
    TabPage dialog(this);
    confirms(dialog);
}

void GalleryWindow::OnUnitsDialog()
{
    const VEK::DlgEnv_st environment;
    const Vek::lUnit unit = VEK::dlgUnits(environment, VEK::acad_unit_get());
    VEK::acad_unit_set(unit);
    showStatus(CVekString(L"Unit: ") + VEK::acad_units(environment.country)[unit]);
    m_picture.SetFocus();
}

void GalleryWindow::OnValuePage()
{
    ValuePage dialog(this);
    confirms(dialog);
}

void GalleryWindow::OnFilterDialog()
{
    CDlgFilterOutline dialog(this);
    dialog.m_mask = m_outlineFilter;
    if (!confirms(dialog))
        return;
    m_outlineFilter = dialog.m_mask;
    showStatus((L"Outline filter: " + std::to_wstring(m_outlineFilter)).c_str());
}

void GalleryWindow::OnMaterialTree()
{
    MaterialTreePage(VEK::DlgEnv_st().parentWnd()).DoModal();
    m_picture.SetFocus();
}

/// Opens the dialog with the last choice.
void GalleryWindow::OnMaterialDialog()
{
    VEK::DlgEnvMatTree_st environment;
    environment.options = {L"SYSTEM"};
    const int result = VEK::dlgMatTree(environment, m_material);
    showStatus(result == 1 ? L"Material " + m_material : CVekString(L"No material"));
    m_picture.SetFocus();
}

void GalleryWindow::OnOutlineDialog()
{
    showStatus(chooseOutline());
    m_picture.SetFocus();
}

void GalleryWindow::OnLabelDialog(UINT id)
{
    showStatus(editLabel(id == ID_DIALOGS_LABEL_LINES));
    m_picture.SetFocus();
}

void GalleryWindow::OnHoleDialog()
{
    showStatus(editHoles());
    m_picture.SetFocus();
}
