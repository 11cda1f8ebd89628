#include <vek/dialogframe/window/msg_dlg.h>
#include <vek/dialogs/window/label_edit.h>
#include <vek/values/system.h>

#include "resizing.h"

IMPLEMENT_DYNAMIC(CVekLabelEdit, CVekDlg)

namespace
{

constexpr int kTemplate = 204, kIcon = 2000;
constexpr int kList = 1091, kImport = 1086;
constexpr POINT kSmallest = {500, 250};

class Application final : public VEK::LabelServer
{
public:
    /// Takes the reference over.
    explicit Application(IDispatch* dispatch) : m_application(dispatch) {}

    CVekString selectedKey() override { return CVekString(m_application.GetSelectedKey()); }
    CVekString text(const wchar_t* key, const wchar_t* language) override
    {
        return CVekString(m_application.wGetMsg(key, language));
    }
    bool isLost() const override { return m_application.m_lpDispatch == nullptr; }
    void open(const wchar_t* language, const wchar_t* file)
    {
        m_application.SetCountry(language);
        m_application.OpenFile(file);
    }

private:
    IVekMsgDlg m_application;
};

} // namespace

BEGIN_MESSAGE_MAP(CVekLabelEdit, CVekDlg)
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_SYSCOMMAND()
ON_BN_CLICKED(kImport, &CVekLabelEdit::OnImport)
END_MESSAGE_MAP()

CVekLabelEdit::CVekLabelEdit(CWnd* parent)
    : CVekDlg(kTemplate, parent),
      m_icon(::LoadIconW(AfxGetStaticModuleState()->m_hCurrentResourceHandle, MAKEINTRESOURCEW(kIcon)))
{
}

void CVekLabelEdit::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, kList, m_list);
}

void CVekLabelEdit::addLangRsc()
{
    addText(kImport, L"VEK_MFC_0008", L"Import");
    addText(IDOK, L"DLG_001", L"Ok");
    addText(IDCANCEL, L"DLG_002", L"Abbrechen");
}

void CVekLabelEdit::addHlpRsc()
{
    m_mapHlpKey[0] = L"";
}

bool CVekLabelEdit::updLang()
{
    const wchar_t* title = GetMsg(L"VEK_MFC_0009", L"Bezeichnung", nullptr);
    SetWindowText(title);
    nameControl(kList, title);
    return CVekDlg::updLang();
}

BOOL CVekLabelEdit::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    VEK::addInfoCommand(*this);
    layOut();
    SetIcon(m_icon, TRUE);
    SetIcon(m_icon, FALSE);
    m_list.m_multi = m_multi;
    m_list.setLabel(m_label, m_language.isNull() ? nullptr : static_cast<const wchar_t*>(m_language));
    m_list.SetFocus();
    return FALSE;
}

void CVekLabelEdit::OnOK()
{
    m_list.getLabel(m_label);
    CVekDlg::OnOK();
    EndDialog(IDOK);
}

void CVekLabelEdit::layOut()
{
    VEK::layOutRow(*this, {IDHELP, IDCANCEL, IDOK, kImport}, kList);
}

void CVekLabelEdit::OnSize(UINT type, int width, int height)
{
    CVekDlg::OnSize(type, width, height);
    layOut();
}

void CVekLabelEdit::OnGetMinMaxInfo(MINMAXINFO* info)
{
    info->ptMinTrackSize = kSmallest;
    CVekDlg::OnGetMinMaxInfo(info);
}

void CVekLabelEdit::OnSysCommand(UINT id, LPARAM point)
{
    if (!VEK::infoCommand(*this, id))
        CVekDlg::OnSysCommand(id, point);
}

/// An application that had to be started has no key selected yet: the user selects one there and imports once more.
void CVekLabelEdit::OnImport()
{
    IDispatch* dispatch = nullptr;
    const bool runs = VEK::dispatchFromProgID(L"Vek_Msg.App", &dispatch);
    if (!runs) {
        dispatch = VEK::getRscAppDispatch();
        if (dispatch)
            dispatch->AddRef();
    }
    Application application(dispatch);
    const bool isThere = dispatch && (runs || !m_msgFile.isNull());
    if (isThere && !runs)
        application.open(country(), m_msgFile);
    const VEK::LabelRefusal refusal = VEK::labelImport(isThere ? &application : nullptr, m_multi, m_label);
    if (refusal.key)
        MessageBoxW(GetMsg(refusal.key, refusal.builtIn, nullptr), nullptr, MB_ICONEXCLAMATION);
    else
        m_list.setLabel(m_label, country());
}

int VEK::dlgLabelEdit(const DlgEnv_st& env, CVekString& label, unsigned long flags, const wchar_t* text,
                      const wchar_t* language, const wchar_t* msgFile)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    label = text;
    CVekLabelEdit dialog(env.parentWnd());
    if (msgFile)
        dialog.m_msgFile = msgFile;
    dialog.SetCountry(env.country);
    dialog.m_language = language;
    dialog.m_label = label;
    dialog.m_multi = (flags & 1) != 0;
    const int result = static_cast<int>(dialog.DoModal());
    if (result == IDOK)
        label = dialog.m_label;
    return result;
}
