#include "msg_window.h"

#include "resource.h"

#include <vek/data/text.h>
#include <vek/values/country.h>

#include <afxdlgs.h>

#include <algorithm>
#include <cstring>

namespace
{

// At 96 dots per inch.
constexpr SIZE kStart = {760, 540}, kSmallest = {420, 320};
constexpr int kGap = 8;
constexpr int kControl = 24; // height of a box or button
constexpr int kLanguageWidth = 170, kButtonWidth = 90, kKeyWidth = 170;
constexpr int kTextHeight = 66;
constexpr int kDropped = 320;

std::wstring lower(std::wstring text)
{
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

} // namespace

BEGIN_MESSAGE_MAP(MsgWindow, MainWindow)
ON_WM_CREATE()
ON_EN_CHANGE(IDC_SEARCH, &MsgWindow::OnSearchChanged)
ON_CBN_SELCHANGE(IDC_LANGUAGE, &MsgWindow::OnLanguageChanged)
ON_NOTIFY(LVN_GETDISPINFOW, IDC_LIST, &MsgWindow::OnItemText)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_LIST, &MsgWindow::OnItemChanged)
ON_NOTIFY(LVN_ODFINDITEMW, IDC_LIST, &MsgWindow::OnFindItem)
ON_NOTIFY(LVN_KEYDOWN, IDC_LIST, &MsgWindow::OnKey)
ON_COMMAND(ID_FILE_OPEN, &MsgWindow::OnOpen)
ON_BN_CLICKED(ID_FILE_OPEN, &MsgWindow::OnOpen)
ON_COMMAND(ID_EDIT_SEARCH, &MsgWindow::OnSearch)
ON_COMMAND(IDOK, &MsgWindow::OnEnter)
ON_COMMAND(IDCANCEL, &MsgWindow::OnEscape)
END_MESSAGE_MAP()

MsgWindow::MsgWindow() : MainWindow(kStart, kSmallest) {}

bool MsgWindow::open()
{
    if (!create(L"VEK Texts", IDR_VEK_MSG))
        return false;
    setLanguage(VEK::msgLangSet(nullptr));
    return true;
}

int MsgWindow::OnCreate(LPCREATESTRUCT create)
{
    if (MainWindow::OnCreate(create) == -1)
        return -1;
    const CRect none(0, 0, 0, 0);
    // In the order of the tab key; a screen reader takes the label before a control as its name.
    const DWORD child = WS_CHILD | WS_VISIBLE, stop = child | WS_TABSTOP;
    const bool isMade =
        m_searchLabel.Create(L"&Search keys and texts", child | SS_LEFT, none, this, IDC_SEARCH_LABEL) &&
        m_search.CreateEx(WS_EX_CLIENTEDGE, WC_EDITW, L"", stop | ES_AUTOHSCROLL, none, this, IDC_SEARCH) &&
        m_languageLabel.Create(L"&Language", child | SS_LEFT, none, this, IDC_LANGUAGE_LABEL) &&
        m_languages.Create(stop | WS_VSCROLL | CBS_DROPDOWNLIST, none, this, IDC_LANGUAGE) &&
        m_openButton.Create(L"&Open...", stop | BS_PUSHBUTTON, none, this, ID_FILE_OPEN) &&
        m_listLabel.Create(L"&Keys", child | SS_LEFT, none, this, IDC_LIST_LABEL) &&
        m_list.CreateEx(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"Keys",
                        stop | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS, none, this, IDC_LIST) &&
        m_textLabel.Create(L"&Text of the selected key", child | SS_LEFT, none, this, IDC_TEXT_LABEL) &&
        m_text.CreateEx(WS_EX_CLIENTEDGE, WC_EDITW, L"", stop | WS_VSCROLL | ES_MULTILINE | ES_READONLY, none, this,
                        IDC_TEXT) &&
        m_status.Create(child | SBARS_SIZEGRIP, none, this, IDC_STATUS);
    if (!isMade)
        return -1;
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    m_list.InsertColumn(0, L"Key", LVCFMT_LEFT, scaled(kKeyWidth));
    m_list.InsertColumn(1, L"Text");
    for (const vek_country_st* country = VEK::dlCountries(); country->id != nullptr; ++country)
        m_languages.AddString((std::wstring(country->name) + L" (" + country->id + L")").c_str());
    return 0;
}

// Layout

void MsgWindow::followDpi(int before)
{
    m_list.SetColumnWidth(0, MulDiv(m_list.GetColumnWidth(0), m_dpi, before));
}

void MsgWindow::layOut()
{
    m_status.SendMessage(WM_SIZE);
    CRect area, status;
    GetClientRect(&area);
    m_status.GetWindowRect(&status);
    const int gap = scaled(kGap), control = scaled(kControl), line = lineHeight();
    const int right = area.right - gap, button = right - scaled(kButtonWidth);
    const int language = button - gap - scaled(kLanguageWidth);
    const auto place = [](CWnd& label, CWnd& box, const CRect& where, int lineHeight) {
        label.MoveWindow(where.left, where.top - lineHeight, where.Width(), lineHeight);
        box.MoveWindow(where);
    };
    const int row = gap + line, list = row + control + gap + line;
    const int bottom = area.bottom - status.Height() - gap, text = bottom - scaled(kTextHeight);
    place(m_searchLabel, m_search, {gap, row, std::max(language - gap, gap), row + control}, line);
    place(m_languageLabel, m_languages, {language, row, button - gap, row + scaled(kDropped)}, line);
    m_openButton.MoveWindow(button, row, scaled(kButtonWidth), control);
    place(m_listLabel, m_list, {gap, list, right, std::max(text - line - gap, list)}, line);
    place(m_textLabel, m_text, {gap, text, right, bottom}, line);
    CRect inside;
    m_list.GetClientRect(&inside);
    m_list.SetColumnWidth(1, std::max(inside.Width() - m_list.GetColumnWidth(0), scaled(kKeyWidth)));
}

void MsgWindow::showToUser(bool isShown)
{
    ShowWindow(!isShown ? SW_HIDE : IsIconic() ? SW_RESTORE : SW_SHOW);
    if (isShown)
        SetForegroundWindow();
}

// Texts

bool MsgWindow::openFile(const wchar_t* path, CVekString& problem)
{
    if (!m_texts.load(path, problem))
        return false;
    m_path = path;
    SetWindowText((m_path.substr(m_path.find_last_of(L"/\\") + 1) + L" - VEK Texts").c_str());
    fillList();
    return true;
}

void MsgWindow::fillList()
{
    const std::wstring before = selectedKey();
    CString part;
    m_search.GetWindowText(part);
    m_rows = m_texts.find(static_cast<LPCWSTR>(part), m_language);
    m_list.SetItemState(-1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    m_list.SendMessage(LVM_SETITEMCOUNT, m_rows.size());
    const auto place = std::find(m_rows.begin(), m_rows.end(), before);
    if (place != m_rows.end())
        select(static_cast<int>(place - m_rows.begin()));
    m_list.Invalidate();
    showText();
    const std::wstring all = std::to_wstring(m_texts.keys().size()) + L" keys";
    const std::wstring some = std::to_wstring(m_rows.size()) + L" of ";
    m_status.SetText(((m_rows.size() == m_texts.keys().size() ? L"" : some) + all + L"   " + m_path).c_str(), 0, 0);
}

std::wstring MsgWindow::selectedKey() const
{
    const int row = m_list.GetNextItem(-1, LVNI_SELECTED);
    return row >= 0 && row < static_cast<int>(m_rows.size()) ? m_rows[static_cast<std::size_t>(row)] : std::wstring();
}

void MsgWindow::select(int row)
{
    m_list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    m_list.EnsureVisible(row, FALSE);
}

bool MsgWindow::selectKey(const std::wstring& key)
{
    const auto& keys = m_texts.keys();
    if (!std::binary_search(keys.begin(), keys.end(), key))
        return false;
    if (std::find(m_rows.begin(), m_rows.end(), key) == m_rows.end())
        m_search.SetWindowText(L""); // fills the list
    select(static_cast<int>(std::find(m_rows.begin(), m_rows.end(), key) - m_rows.begin()));
    return true;
}

void MsgWindow::showText()
{
    std::wstring text = m_texts.text(selectedKey(), m_language);
    for (std::size_t at = text.find(L'\n'); at != text.npos; at = text.find(L'\n', at + 2)) {
        if (at == 0 || text[at - 1] != L'\r')
            text.insert(at, 1, L'\r');
    }
    m_text.SetWindowText(text.c_str());
}

std::wstring MsgWindow::language() const
{
    return m_language;
}

void MsgWindow::setLanguage(const std::wstring& id)
{
    const vek_country_st* countries = VEK::dlCountries();
    for (int i = 0; countries[i].id != nullptr; ++i) {
        if (lower(id) != countries[i].id)
            continue;
        m_language = countries[i].id;
        m_languages.SetCurSel(i);
        fillList();
        return;
    }
}

// Notifications and commands

void MsgWindow::OnSearchChanged()
{
    fillList();
}

void MsgWindow::OnLanguageChanged()
{
    setLanguage(VEK::dlCountries()[m_languages.GetCurSel()].id);
}

void MsgWindow::OnItemText(NMHDR* header, LRESULT* result)
{
    LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
    if ((item.mask & LVIF_TEXT) != 0 && item.iItem >= 0 && item.iItem < static_cast<int>(m_rows.size())) {
        const std::wstring& key = m_rows[static_cast<std::size_t>(item.iItem)];
        const std::wstring text = item.iSubItem == 0 ? key : inOneLine(m_texts.text(key, m_language));
        lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
    }
    *result = 0;
}

void MsgWindow::OnItemChanged(NMHDR*, LRESULT* result)
{
    showText();
    *result = 0;
}

/// The next key that begins with what the user has typed into the list.
void MsgWindow::OnFindItem(NMHDR* header, LRESULT* result)
{
    const auto* wanted = reinterpret_cast<NMLVFINDITEMW*>(header);
    *result = -1;
    if ((wanted->lvfi.flags & LVFI_STRING) == 0)
        return;
    const std::wstring beginning = lower(wanted->lvfi.psz);
    const int count = static_cast<int>(m_rows.size());
    for (int i = 0; i < count; ++i) {
        const int row = (std::max(wanted->iStart, 0) + i) % count;
        if (lower(m_rows[static_cast<std::size_t>(row)]).compare(0, beginning.size(), beginning) == 0) {
            *result = row;
            return;
        }
    }
}

void MsgWindow::OnKey(NMHDR* header, LRESULT* result)
{
    if (reinterpret_cast<NMLVKEYDOWN*>(header)->wVKey == 'C' && ::GetKeyState(VK_CONTROL) < 0)
        copyKey();
    *result = 0;
}

void MsgWindow::copyKey()
{
    const std::wstring key = selectedKey();
    const std::size_t size = (key.size() + 1) * sizeof(wchar_t);
    if (key.empty() || !OpenClipboard())
        return;
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (memory != nullptr) {
        std::memcpy(GlobalLock(memory), key.c_str(), size);
        GlobalUnlock(memory);
        if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr)
            GlobalFree(memory);
    }
    CloseClipboard();
}

void MsgWindow::OnOpen()
{
    CFileDialog dialog(TRUE, L"json", nullptr, OFN_FILEMUSTEXIST | OFN_HIDEREADONLY,
                       L"Text catalogues (*.json)|*.json|All files (*.*)|*.*||", this);
    CVekString problem;
    if (dialog.DoModal() == IDOK && !openFile(dialog.GetPathName(), problem))
        AfxMessageBox(problem, MB_OK | MB_ICONERROR);
}

void MsgWindow::OnSearch()
{
    m_search.SetFocus();
    m_search.SetSel(0, -1);
}

void MsgWindow::OnEnter()
{
    if (::GetFocus() != m_search.m_hWnd)
        return;
    if (selectedKey().empty() && !m_rows.empty())
        select(0);
    m_list.SetFocus();
}

void MsgWindow::OnEscape()
{
    m_search.SetWindowText(L"");
    m_search.SetFocus();
}
