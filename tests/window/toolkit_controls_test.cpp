#include <afxcmn.h>
#include <afxdlgs.h>

#include <afxtempl.h>

#include "window/modal_queue.h"

#include <memory>
#include <string>
#include <vector>

namespace
{

using Log = std::vector<std::string>;

/// A parent that writes down what its controls tell it.
class Parent : public CWnd
{
public:
    Parent() { CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 400, 300), nullptr, 0); }

    Log log;
    BOOL tipAsked = FALSE;

protected:
    afx_msg void OnSelect(NMHDR* header, LRESULT* result)
    {
        log.push_back("select " + std::to_string(header->idFrom));
        *result = 5;
    }
    BOOL OnTip(UINT id, NMHDR* header, LRESULT*)
    {
        const auto text = reinterpret_cast<NMTTDISPINFO*>(header);
        tipAsked = id == 0 && (text->uFlags & TTF_IDISHWND) != 0 &&
                   ::GetDlgCtrlID(reinterpret_cast<HWND>(header->idFrom)) == 7;
        text->lpszText = const_cast<LPTSTR>(L"tip");
        return TRUE;
    }
    afx_msg void OnVScroll(UINT code, UINT position, CScrollBar* bar)
    {
        log.push_back("scroll " + std::to_string(code) + " " + std::to_string(position) +
                      (bar == nullptr ? " own" : " " + std::to_string(bar->GetDlgCtrlID())));
        CWnd::OnVScroll(code, position, bar);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Parent, CWnd)
ON_NOTIFY(TVN_SELCHANGED, 3, &Parent::OnSelect)
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXT, 0, 0xFFFF, &Parent::OnTip)
ON_WM_VSCROLL()
END_MESSAGE_MAP()

class Tree : public CTreeCtrl
{
public:
    Log log;
    bool pass = false, deletes = false;

protected:
    BOOL OnSelect(NMHDR* header, LRESULT*)
    {
        log.push_back("own");
        if (std::exchange(deletes, false))
            DeleteItem(reinterpret_cast<NMTREEVIEWW*>(header)->itemNew.hItem);
        return !pass;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Tree, CTreeCtrl)
ON_NOTIFY_REFLECT_EX(TVN_SELCHANGED, &Tree::OnSelect)
END_MESSAGE_MAP()

/// A box that draws its own rows.
class Box : public CComboBox
{
public:
    int drawn = 0, deleted = 0;

    void MeasureItem(LPMEASUREITEMSTRUCT item) override { item->itemHeight = 31; }
    void DrawItem(LPDRAWITEMSTRUCT) override { ++drawn; }
    void DeleteItem(LPDELETEITEMSTRUCT) override { ++deleted; }
};

/// The tip window that belongs to another one.
HWND tipOf(HWND owner)
{
    for (HWND tip = nullptr; (tip = ::FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
        if (::GetWindow(tip, GW_OWNER) == owner)
            return tip;
    }
    return nullptr;
}

int CALLBACK backwards(LPARAM a, LPARAM b, LPARAM)
{
    return static_cast<int>(b - a);
}

class ToolkitControls : public testing::Test
{
protected:
    Parent parent;
    const CRect rect = CRect(0, 0, 200, 150);
};

} // namespace

TEST_F(ToolkitControls, ListsKeepRowsColumnsAndData)
{
    CListCtrl list;
    ASSERT_TRUE(list.Create(WS_CHILD | LVS_REPORT, rect, &parent, 1));
    EXPECT_EQ(list.InsertColumn(0, L"first", LVCFMT_LEFT, 100), 0);
    EXPECT_EQ(list.InsertColumn(1, L"second", LVCFMT_RIGHT, 60, 1), 1);
    EXPECT_EQ(list.InsertItem(0, L"a") + 10 * list.InsertItem(1, L"b"), 10);
    const CString wide(L'w', 1000);
    EXPECT_TRUE(list.SetItemText(1, 1, wide) && list.SetItemData(1, 77));
    EXPECT_EQ(list.GetItemText(0, 1) + list.GetItemText(1, 1), wide) << "of any length";
    HDITEM item = {};
    item.mask = HDI_FORMAT;
    EXPECT_TRUE(list.GetHeaderCtrl()->GetItem(1, &item));
    EXPECT_EQ(item.fmt & HDF_JUSTIFYMASK, HDF_RIGHT);
    const auto plain = static_cast<CListCtrl*>(CWnd::FromHandle(::CreateWindowExW(
        0, WC_LISTVIEWW, nullptr, WS_CHILD | LVS_REPORT, 0, 0, 90, 90, parent, nullptr, nullptr, nullptr)));
    EXPECT_EQ(plain->InsertColumn(0, L"only"), 0);
    EXPECT_EQ(plain->GetHeaderCtrl()->GetItemCount(), 1) << "a temporary object, used by cast";
    list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES);
    EXPECT_EQ(list.GetExtendedStyle(), DWORD(LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES));
    EXPECT_EQ(list.InsertItem(LVIF_TEXT | LVIF_PARAM | LVIF_STATE, 1, L"c", LVIS_SELECTED, LVIS_SELECTED, 0, 55), 1);
    EXPECT_EQ(list.GetItemText(1, 0), L"c");
    EXPECT_EQ(list.GetItemData(1) + list.GetItemData(2), 55u + 77);
    POSITION at = list.GetFirstSelectedItemPosition();
    EXPECT_TRUE(list.GetNextSelectedItem(at) == 1 && at == nullptr);
    EXPECT_TRUE(list.SetCheck(2) && list.GetCheck(2) && !list.GetCheck(1));
    EXPECT_TRUE(list.DeleteAllItems() && list.GetItemCount() == 0);
}

TEST_F(ToolkitControls, TreesSortAndTellOfSelection)
{
    Tree tree;
    ASSERT_TRUE(tree.Create(WS_CHILD, rect, &parent, 3));
    const HTREEITEM root = tree.InsertItem(L"root");
    HTREEITEM items[3];
    for (int i = 0; i < 3; ++i)
        items[i] = tree.InsertItem(std::to_wstring(i).c_str(), i, i, root);
    EXPECT_TRUE(tree.SetItem(items[1], TVIF_TEXT | TVIF_PARAM, L"1 one", 0, 0, 0, 0, 11));
    EXPECT_TRUE(tree.GetItemText(items[1]) == L"1 one" && tree.GetItemData(items[1]) == 11);
    EXPECT_TRUE(tree.SetItemData(items[0], 5) && tree.SetItemData(items[2], 33));
    TVSORTCB sort = {root, backwards, 0};
    EXPECT_TRUE(tree.SortChildrenCB(&sort));
    EXPECT_EQ(tree.GetChildItem(root), items[2]);
    EXPECT_TRUE(tree.SortChildren(root));
    EXPECT_EQ(tree.GetChildItem(root), items[0]);

    tree.log.clear();
    EXPECT_TRUE(tree.SelectItem(items[1]));
    EXPECT_EQ(tree.log, Log{"own"});
    EXPECT_TRUE(parent.log.empty()) << "the tree was content with its own";
    tree.pass = true;
    tree.SelectItem(items[2]);
    EXPECT_EQ(parent.log, Log{"select 3"});
    tree.pass = false;
    tree.deletes = true;
    EXPECT_TRUE(tree.SelectItem(items[0]));
    EXPECT_EQ(tree.GetCount(), 3u) << "the one selected has gone meanwhile";
    EXPECT_TRUE(tree.DeleteAllItems() && tree.GetCount() == 0);
}

TEST_F(ToolkitControls, TabsKnowTheirImages)
{
    CTabCtrl tabs;
    ASSERT_TRUE(tabs.Create(WS_CHILD, rect, &parent, 4));
    auto images = std::make_unique<CImageList>();
    ASSERT_TRUE(images->Create(16, 16, ILC_COLOR24 | ILC_MASK, 4, 4));
    EXPECT_EQ(images->Add(::LoadIconW(nullptr, IDI_APPLICATION)), 0);
    EXPECT_EQ(images->GetImageCount(), 1);
    EXPECT_EQ(tabs.SetImageList(images.get()), nullptr);
    EXPECT_EQ(tabs.GetImageList(), images.get());
    const HIMAGELIST handle = images->Detach();
    EXPECT_NE(tabs.GetImageList(), images.get());
    EXPECT_EQ(tabs.GetImageList()->GetSafeHandle(), handle);
    images->Attach(handle);
    tabs.SetImageList(nullptr);
}

TEST_F(ToolkitControls, BoxesMeasureDrawAndDeleteTheirRows)
{
    Box box;
    ASSERT_TRUE(box.Create(WS_CHILD | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, rect, &parent, 5));
    EXPECT_EQ(box.AddString(L"row"), 0);
    EXPECT_EQ(box.GetItemHeight(0), 31);
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_COMBOBOX;
    item.CtlID = 5;
    item.hwndItem = box;
    parent.SendMessage(WM_DRAWITEM, 5, reinterpret_cast<LPARAM>(&item));
    box.ResetContent();
    EXPECT_EQ(box.drawn + 10 * box.deleted, 11);
}

TEST_F(ToolkitControls, ScrollBarsReachTheParent)
{
    CScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | SBS_VERT, CRect(0, 0, 16, 100), &parent, 9));
    bar.SetScrollRange(0, 10);
    bar.SetScrollPos(4);
    EXPECT_EQ(bar.GetScrollPos(), 4);
    parent.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 4), reinterpret_cast<LPARAM>(bar.m_hWnd));
    parent.SendMessage(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(parent.log, (Log{"scroll 4 4 9", "scroll 1 0 own"}));
}

TEST_F(ToolkitControls, TipsAskTheWindowForTheirText)
{
    CButton field;
    ASSERT_TRUE(field.Create(L"", WS_CHILD | WS_VISIBLE, CRect(10, 10, 60, 30), &parent, 7));
    TOOLINFO part = {};
    EXPECT_EQ(parent.OnToolHitTest(CPoint(20, 20), &part), 7);
    EXPECT_EQ(reinterpret_cast<HWND>(part.uId), field.m_hWnd);
    EXPECT_EQ(parent.OnToolHitTest(CPoint(200, 200), &part), -1);

    parent.EnableToolTips();
    parent.ShowWindow(SW_SHOWNOACTIVATE);
    CPoint pointer(10, 5);
    field.ClientToScreen(&pointer);
    ::SetCursorPos(pointer.x, pointer.y);
    MSG move = {field, WM_MOUSEMOVE, 0, MAKELPARAM(10, 5), 0, pointer};
    EXPECT_FALSE(parent.PreTranslateMessage(&move));
    Parent other; // whose tips come in between
    other.EnableToolTips();
    EXPECT_FALSE(other.PreTranslateMessage(&move));
    EXPECT_NE(tipOf(other), nullptr);
    EXPECT_FALSE(parent.PreTranslateMessage(&move));
    const HWND tip = tipOf(parent);
    ASSERT_NE(tip, nullptr);
    // The tip comes when the pointer has rested there.
    for (const ULONGLONG end = ::GetTickCount64() + 5000; !parent.tipAsked && ::GetTickCount64() < end;) {
        MSG message;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageW(&message);
    }
    EXPECT_TRUE(parent.tipAsked);
    EXPECT_TRUE(::IsWindowVisible(tip));
    CWnd::CancelToolTips();
    EXPECT_FALSE(::IsWindowVisible(tip));
    parent.EnableToolTips(FALSE);
    EXPECT_FALSE(::IsWindow(tip));
}

TEST(ToolkitFileDialog, PreparesTheSystemsRecord)
{
    CFileDialog dialog(TRUE, L"txt", L"C:\\a.b\\some.file.txt", OFN_FILEMUSTEXIST, L"Texts (*.txt)|*.txt||");
    EXPECT_EQ(dialog.m_ofn.Flags & OFN_FILEMUSTEXIST, DWORD(OFN_FILEMUSTEXIST));
    const std::wstring filter(dialog.m_ofn.lpstrFilter, 21);
    EXPECT_EQ(filter, std::wstring(L"Texts (*.txt)\0*.txt\0\0", 21));
    EXPECT_EQ(dialog.GetFileName() + L" " + dialog.GetFileTitle() + L" " + dialog.GetFileExt(),
              L"some.file.txt some.file txt");
    ModalQueue user;
    user.file([](OPENFILENAMEW& request, bool) { return wcscpy(request.lpstrFile, L"D:\\other") != nullptr; });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), L"D:\\other");
}

TEST(ToolkitMap, FindsWalksAndRemoves)
{
    CMap<UINT, UINT, CString, LPCTSTR> map;
    CString text;
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    for (UINT i = 0; i < 100; ++i)
        map.SetAt(i, CString(L'x', static_cast<int>(i)));
    EXPECT_TRUE(map.RemoveKey(40));
    EXPECT_FALSE(map.RemoveKey(40) || map.Lookup(40, text) || map.PLookup(40) != nullptr);
    EXPECT_TRUE(map.Lookup(41, text) && text.GetLength() == 41);
    UINT sum = 0, key = 0;
    for (POSITION at = map.GetStartPosition(); at != nullptr; sum += key)
        map.GetNextAssoc(at, key, text);
    for (const auto* pair = map.PGetFirstAssoc(); pair != nullptr; pair = map.PGetNextAssoc(pair))
        sum += 10000;
    EXPECT_EQ(sum, 99u * 100 / 2 - 40 + 990000);
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    CMap<CString, LPCTSTR, double, double> byText;
    byText[L"one"] = 1.5;
    EXPECT_EQ(byText[CString(L"on") + L"e"], 1.5);
}
