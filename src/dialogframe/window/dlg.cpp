#include <vek/data/text.h>
#include <vek/dialogframe/help.h>
#include <vek/dialogframe/language.h>
#include <vek/dialogframe/position.h>
#include <vek/dialogframe/replacement.h>
#include <vek/dialogframe/window/dlg.h>
#include <vek/dialogframe/window/dlg_env.h>
#include <vek/values/memory.h>

#include "core/platform/outside.h"
#include "dpi_layout.h"
#include "lives.h"

#include <afxcmn.h>

#include <vector>

IMPLEMENT_DYNAMIC(CVekDlg, CDialog)

BEGIN_MESSAGE_MAP(CVekDlg, CDialog)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_HELPINFO()
ON_WM_SHOWWINDOW()
ON_WM_SIZE()
ON_WM_PAINT()
ON_MESSAGE(WM_DPICHANGED, &CVekDlg::OnDpiChanged)
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXTW, 0, 0xFFFF, &CVekDlg::ToolTip)
END_MESSAGE_MAP()

CVekDlg::MsgFcn CVekDlg::m_pMsgFcn = nullptr;

namespace
{

using VEK::lives;

constexpr int kNameLabel = 0xFFFE; // of all labels that are only names

VEK::DlgRect rectOf(const RECT& rect)
{
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
            static_cast<int>(rect.bottom)};
}

/// Where a window is when it is neither minimised nor maximised.
VEK::DlgRect normalRect(const CWnd& window)
{
    WINDOWPLACEMENT placement = {};
    window.GetWindowPlacement(&placement);
    return rectOf(placement.rcNormalPosition);
}

/// The dialogs of this library within a window, at any depth, but not those within them.
void collectInner(HWND window, std::vector<HWND>& found)
{
    for (HWND child = ::GetWindow(window, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (DYNAMIC_DOWNCAST(CVekDlg, CWnd::FromHandlePermanent(child)))
            found.push_back(child);
        else
            collectInner(child, found);
    }
}

/// Tells the dialogs within a window of its resolution; the window gives them their size.
void scaleInner(HWND window, WPARAM dpi)
{
    std::vector<HWND> inner;
    collectInner(window, inner);
    for (const HWND dialog : inner) {
        CRect place;
        ::GetWindowRect(dialog, &place);
        ::MapWindowPoints(nullptr, ::GetParent(dialog), reinterpret_cast<POINT*>(&place), 2);
        ::SendMessageW(dialog, WM_DPICHANGED, dpi, reinterpret_cast<LPARAM>(&place));
    }
}

/// Draws into a window's lower right corner. A pen draws up to its last pixel without it, so both ends lie outside.
void drawGripper(CDC& dc, CPen& grey, CPen& white, int width, int height)
{
    int x = width - 3, y = height - 3;
    dc.SelectObject(&grey);
    for (int line = 0; line < 3; ++line, x -= 4, y -= 4) {
        dc.MoveTo(x, height);
        dc.LineTo(width, y);
        dc.MoveTo(x - 1, height);
        dc.LineTo(width, y - 1);
        dc.SelectObject(&white);
        dc.MoveTo(x - 2, height);
        dc.LineTo(width, y - 2);
        dc.SelectObject(&grey);
    }
}

} // namespace

class CVekDlg::Controls final : public VEK::TextControls
{
public:
    explicit Controls(CVekDlg& dialog) : m_dialog(dialog), m_window(dialog.m_hWnd) {}

    bool exists() override { return lives(m_window, &m_dialog); }
    bool has(unsigned id) override { return ::GetDlgItem(m_window, static_cast<int>(id)) != nullptr; }
    const wchar_t* message(const wchar_t* key, const wchar_t* builtIn) override
    {
        return exists() ? m_dialog.GetMsg(key, builtIn, nullptr) : nullptr;
    }
    void setText(unsigned id, const wchar_t* text) override { ::SetDlgItemTextW(m_window, static_cast<int>(id), text); }
    void showMissing(const wchar_t* text) override { m_dialog.MessageBoxW(text, nullptr, MB_ICONEXCLAMATION); }

private:
    CVekDlg& m_dialog;
    HWND m_window;
};

/// The initialisation of a dialog, which ends it unless it is whole. An exception goes on to whoever handles those of
/// messages.
class CVekDlg::Opening
{
public:
    explicit Opening(CVekDlg& dialog) : m_dialog(dialog), m_window(dialog.m_hWnd) {}
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
    ~Opening()
    {
        if ((!isDone || VEK::memoryShortages() != m_before) && lives(m_window, &m_dialog))
            m_dialog.EndDialog(-1);
    }

    bool isDone = false;

private:
    CVekDlg& m_dialog;
    HWND m_window;
    unsigned long m_before = VEK::memoryShortages();
};

class CVekDlg::Parents final : public VEK::DlgParents
{
public:
    explicit Parents(const CVekDlg& dialog) : m_class(dialog.GetRuntimeClass()), m_window(dialog.m_hWnd) {}

    bool up() override
    {
        m_window = ::GetParent(m_window);
        return m_window != nullptr;
    }
    const wchar_t* language() override
    {
        const CWnd* window = CWnd::FromHandle(m_window);
        return window->IsKindOf(m_class) ? static_cast<const CVekDlg*>(window)->country() : nullptr;
    }

private:
    const CRuntimeClass* m_class;
    HWND m_window;
};

class CVekDlg::Tabs final : public VEK::Siblings
{
public:
    const void* next(const void* window) const override { return ::GetWindow(handle(window), GW_HWNDNEXT); }
    const void* previous(const void* window) const override { return ::GetWindow(handle(window), GW_HWNDPREV); }
    bool isField(const void* window) const override { return isEdit(CWnd::FromHandle(handle(window))); }

    static HWND handle(const void* window) { return static_cast<HWND>(const_cast<void*>(window)); }
};

CVekDlg::CVekDlg(int nIDTemplate, CWnd* parent) : CDialog(static_cast<UINT>(nIDTemplate), parent)
{
    if (const HWND top = VEK::dlgStackPop()) {
        m_subDlg = true;
        VEK::dlgStackPush(top);
    }
}

CVekDlg::~CVekDlg()
{
    if (m_hWnd && FromHandlePermanent(m_hWnd) == this)
        CDialog::DestroyWindow(); // while this is still the object that handles its end
}

// Texts

CVekDlg::MsgFcn CVekDlg::SetMsgCallBack(MsgFcn callBack)
{
    return std::exchange(m_pMsgFcn, callBack);
}

const wchar_t* CVekDlg::GetMsg(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language)
{
    return m_pMsgFcn ? m_pMsgFcn(key, builtIn, language ? language : country()) : builtIn;
}

void CVekDlg::SetCountry(const wchar_t* language)
{
    if (m_country == language)
        return;
    m_country = language;
    if (m_hWnd)
        updLang();
}

void CVekDlg::addText(unsigned id, const wchar_t* key, const wchar_t* builtIn)
{
    m_mapLangKey[id] = key;
    m_mapLangDef[id] = builtIn;
}

/// Screen readers take the name from a label right before the control.
void CVekDlg::nameControl(int id, const wchar_t* name)
{
    const HWND control = ::GetDlgItem(m_hWnd, id);
    const HWND before = control ? ::GetWindow(control, GW_HWNDPREV) : nullptr;
    if (before && ::GetDlgCtrlID(before) == kNameLabel) {
        ::SetWindowTextW(before, name);
    } else if (control) {
        const HWND label = ::CreateWindowExW(0, L"STATIC", name, WS_CHILD, 0, 0, 0, 0, m_hWnd,
                                             reinterpret_cast<HMENU>(INT_PTR(kNameLabel)), nullptr, nullptr);
        ::SetWindowPos(label, before ? before : HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
}

bool CVekDlg::updLang()
{
    if (!m_hWnd || !m_pMsgFcn)
        return false;
    // A copy: a control tells the dialog that its text has changed, and the dialog may end then.
    const unsigned long shortages = VEK::memoryShortages();
    CVekArrayTempl<VEK::ControlText> texts;
    for (const TextMap::CPair* key = m_mapLangKey.PGetFirstAssoc(); key; key = m_mapLangKey.PGetNextAssoc(key)) {
        const TextMap::CPair* builtIn = m_mapLangDef.PLookup(key->key);
        texts.append({key->key, key->value, builtIn != nullptr, builtIn ? builtIn->value : CVekString()});
    }
    if (VEK::memoryShortages() != shortages)
        return false;
    Controls controls(*this);
    VEK::replaceTexts(texts, controls, ::IsDebuggerPresent());
    return true;
}

int CVekDlg::MessageBoxW(const wchar_t* text, const wchar_t*, unsigned type)
{
    return CDialog::MessageBoxW(text ? text : L"", VEK::msgBoxTitle(nullptr), type);
}

void CVekDlg::setLink(int id, const wchar_t* text, const wchar_t* target)
{
    CVekString shown(text);
    if (target)
        shown = CVekString(L"<a href=\"") + target + L"\">" + shown + L"</a>";
    SetDlgItemText(id, shown);
}

BOOL CVekDlg::ToolTip(UINT, NMHDR* header, LRESULT*)
{
    static CVekString shown; // the tip reads it after this call
    NMTTDISPINFOW& request = *reinterpret_cast<NMTTDISPINFOW*>(header);
    if ((request.uFlags & TTF_IDISHWND) == 0)
        return FALSE;
    const int id = ::GetDlgCtrlID(reinterpret_cast<HWND>(header->idFrom));
    const TextMap::CPair* key = id == 0 ? nullptr : m_mapToolTipKey.PLookup(static_cast<unsigned>(id));
    if (!key)
        return FALSE;
    shown = GetMsg(key->value, nullptr, nullptr);
    if (shown.isNull())
        return FALSE;
    request.lpszText = const_cast<wchar_t*>(static_cast<const wchar_t*>(shown));
    request.hinst = AfxGetResourceHandle();
    return TRUE;
}

// The window

LRESULT CVekDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_INITDIALOG)
        return CDialog::WindowProc(message, wParam, lParam);
    Opening opening(*this);
    const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
    opening.isDone = true;
    return result;
}

int CVekDlg::OnCreate(LPCREATESTRUCT create)
{
    const HWND window = m_hWnd;
    const unsigned long shortages = VEK::memoryShortages();
    if (CDialog::OnCreate(create) == -1)
        return -1;
    m_dlgName = create->lpszName;
    if (m_dlgName.isNull())
        m_savePos = false;
    RECT place = {};
    if (getSavedPos(place)) {
        const UINT flags = SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE;
        const bool isSizable = (GetStyle() & WS_THICKFRAME) != 0;
        SetWindowPos(nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                     isSizable ? flags : flags | SWP_NOSIZE);
    }
    if (!lives(window, this)) // a derived class may end itself when it is moved
        return 0;
    Parents parents(*this);
    m_country = VEK::dlgLanguage(m_country, parents);
    m_layout = std::make_shared<VekDpiLayout>(window);
    if (VEK::memoryShortages() == shortages)
        return 0;
    m_dlgName = nullptr; // its place may not have been found
    return -1;
}

BOOL CVekDlg::OnInitDialog()
{
    const HWND window = m_hWnd;
    CDialog::OnInitDialog();
    if (!lives(window, this))
        return TRUE;
    if ((GetStyle() & WS_CAPTION) != 0) {
        const HICON icon = VEK::appIcon();
        SetIcon(icon, FALSE);
        SetIcon(icon, TRUE);
        VEK::dlgStackPush(window);
        m_isOnStack = true;
    }
    addLangRsc();
    addHlpRsc();
    addToolTipRsc();
    if (!lives(window, this))
        return TRUE;
    if (!m_mapToolTipKey.IsEmpty())
        EnableToolTips(TRUE);
    updLang();
    return TRUE;
}

void CVekDlg::OnDestroy()
{
    if (remembersPlace())
        storePlace();
    CDialog::OnDestroy();
    if (std::exchange(m_isOnStack, false))
        VEK::dlgStackPop();
}

bool CVekDlg::getSavedPos(RECT& rect)
{
    VEK::DlgRect stored = rectOf(rect);
    const bool isKnown = remembersPlace() && VEK::dlgPositionRead(stored, m_dlgName);
    rect = {stored.left, stored.top, stored.right, stored.bottom};
    return isKnown;
}

/// A dialog that is minimised or maximised stores where it will return to. The key is volatile: a place is of use as
/// long as the user's desktop stays the same, and that is a session.
void CVekDlg::storePlace()
{
    const VEK::DlgRect desktop = normalRect(*GetDesktopWindow());
    const VEK::DlgPosition position = VEK::dlgPositionOf(normalRect(*this), desktop.right, desktop.bottom);
    HKEY key = nullptr;
    if (::RegCreateKeyExW(HKEY_CURRENT_USER, VEK::dlgPositionKey(m_dlgName), 0, nullptr, REG_OPTION_VOLATILE,
                          KEY_READ | KEY_WRITE, nullptr, &key, nullptr) != ERROR_SUCCESS)
        return;
    VEK::dlgPositionWrite(position, m_dlgName);
    ::RegCloseKey(key);
}

void CVekDlg::OnShowWindow(BOOL show, UINT status)
{
    const HWND window = m_hWnd;
    CDialog::OnShowWindow(show, status);
    if (show && lives(window, this))
        showHelpButton(true);
}

void CVekDlg::OnSize(UINT type, int width, int height)
{
    const HWND window = m_hWnd;
    CDialog::OnSize(type, width, height);
    ::InvalidateRect(window, nullptr, TRUE); // the gripper moves
}

void CVekDlg::OnPaint()
{
    CPen grey(PS_SOLID, 1, RGB(0x80, 0x80, 0x80));
    CPen white(PS_SOLID, 1, RGB(0xFF, 0xFF, 0xFF));
    CPaintDC dc(this); // after the pens: a pen that is selected cannot be deleted
    CRect area;
    GetClientRect(&area);
    if ((GetStyle() & WS_THICKFRAME) != 0)
        drawGripper(dc, grey, white, area.Width(), area.Height());
}

LRESULT CVekDlg::OnDpiChanged(WPARAM dpi, LPARAM suggested)
{
    const HWND window = m_hWnd;
    const CRect place(*reinterpret_cast<const RECT*>(suggested));
    const std::shared_ptr<VekDpiLayout> layout = m_layout; // which outlives a dialog that ends while it is moved
    const auto fontOf = [](HWND of) { return reinterpret_cast<HFONT>(::SendMessageW(of, WM_GETFONT, 0, 0)); };
    const HFONT font = fontOf(window);
    if (!lives(window, this) || !layout)
        return 0;
    layout->note(window);
    Default(); // scales the controls in a process that leaves that to the system
    const bool isScaled = fontOf(window) != font;
    if (!isScaled)
        scaleInner(window, dpi);
    if (!lives(window, this))
        return 0;
    SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(), SWP_NOZORDER | SWP_NOACTIVATE);
    if (!isScaled)
        layout->scale(window, font, HIWORD(dpi));
    return 0;
}

// The keyboard

BOOL CVekDlg::PreTranslateMessage(MSG* message)
{
    BOOL result = FALSE;
    if (message->message == WM_KEYDOWN && leadOn(GetParent(), *message, result))
        return result;
    return CDialog::PreTranslateMessage(message);
}

/// Whether the key was for the fields; what it does may end the dialog.
bool CVekDlg::leadOn(CWnd* parent, MSG& message, BOOL& result)
{
    CWnd* const tabs = DYNAMIC_DOWNCAST(CTabCtrl, parent);
    if (tabs && (::GetKeyState(VK_CONTROL) & ::GetKeyState(VK_TAB)) < 0) {
        result = tabs->PreTranslateMessage(&message);
        return true;
    }
    CWnd* focus = GetFocus();
    if (!focus || (focus->GetStyle() & ES_WANTRETURN) != 0)
        return false;
    // The focus of a combo box is in its edit field, which has no object of its own.
    if (CWnd* box = DYNAMIC_DOWNCAST(CComboBox, focus->GetParent()))
        focus = box;
    result = TRUE;
    if (message.wParam == VK_RETURN) {
        if (tabs) {
            result = tabs->PreTranslateMessage(&message);
            return true;
        }
        if (!isEdit(focus))
            return false;
        if (CWnd* next = nextEdit(focus)) {
            next->SetFocus();
            return true;
        }
        const HWND field = focus->m_hWnd; // a field checks itself when it loses the focus
        SetFocus();
        if (::IsWindow(field))
            ::SetFocus(field);
        return true;
    }
    if (message.wParam != VK_PRIOR || !isEdit(focus))
        return false;
    if (CWnd* first = firstEdit(focus))
        first->SetFocus();
    return true;
}

bool CVekDlg::isEdit(CWnd* window)
{
    return VEK::isField({window->IsWindowVisible() != FALSE, window->IsWindowEnabled() != FALSE,
                         window->IsKindOf(RUNTIME_CLASS(CEdit)) != FALSE,
                         window->IsKindOf(RUNTIME_CLASS(CComboBox)) != FALSE, window->GetStyle()});
}

CWnd* CVekDlg::nextEdit(CWnd* window)
{
    return FromHandle(Tabs::handle(VEK::nextField(Tabs(), window->m_hWnd)));
}

CWnd* CVekDlg::firstEdit(CWnd* window)
{
    return FromHandle(Tabs::handle(VEK::firstField(Tabs(), window->m_hWnd)));
}

// Help

BOOL CVekDlg::OnHelpInfo(HELPINFO* info)
{
    const TextMap::CPair* key = m_pMsgFcn ? m_mapHlpKey.PLookup(static_cast<unsigned>(info->iCtrlId)) : nullptr;
    const wchar_t* text = key ? GetMsg(key->value, nullptr, nullptr) : nullptr;
    if (!text || !*text)
        return TRUE; // handled nevertheless: the toolkit would open help of its own
    POINT place = info->MousePos;
    RECT area = {};
    if (const HWND control = ::GetDlgItem(m_hWnd, info->iCtrlId); control && ::GetWindowRect(control, &area))
        place = {(area.left + area.right) >> 1, (area.top + area.bottom) >> 1};
    VEK::platform::OutsideCall call;
    call.what = VEK::platform::OutsideCall::What::helpPopup;
    call.text = text;
    call.x = static_cast<int>(place.x);
    call.y = static_cast<int>(place.y);
    VEK::platform::outside(call);
    return TRUE;
}
