#include <vek/data/app.h>
#include <vek/data/text.h>
#include <vek/dialogframe/icon.h>
#include <vek/dialogframe/stack.h>
#include <vek/dialogframe/window/dlg_env.h>

namespace VEK
{

DlgEnv_st::DlgEnv_st()
    : unit(static_cast<Vek::lUnit>(vekAppPtr()->defaultUnit())), country(msgLangSet(nullptr)), parent(dlgStackPop())
{
    if (parent)
        dlgStackPush(parent);
    else
        parent = ::GetActiveWindow();
}

CWnd* DlgEnv_st::parentWnd() const
{
    return parent ? CWnd::FromHandle(parent) : nullptr;
}

HICON appIcon()
{
    return ::LoadIconW(AfxGetStaticModuleState()->m_hCurrentResourceHandle, MAKEINTRESOURCEW(appIconId()));
}

} // namespace VEK
