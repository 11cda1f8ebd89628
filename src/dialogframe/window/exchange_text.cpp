#include "exchange_text.h"

#include <vek/dialogframe.h>

namespace VEK
{

LPCWSTR exchangeText(UINT id, LPCWSTR)
{
    struct Row {
        UINT id;
        LPCWSTR key;
        LPCWSTR builtIn;
    };
    const Row rows[] = {
        {AFX_IDP_PARSE_INT, L"\\VEK_DDX_0001\\.", L"Bitte geben Sie eine ganze Zahl ein"},
        {AFX_IDP_PARSE_REAL, L"\\VEK_DDX_0002\\.", L"Bitte geben Sie eine Zahl ein"},
        {AFX_IDP_PARSE_INT_RANGE, L"\\VEK_DDX_0003\\.", L"Bitte geben Sie eine ganze Zahl zwischen %1 und %2 ein"},
        {AFX_IDP_PARSE_REAL_RANGE, L"\\VEK_DDX_0004\\.", L"Bitte geben Sie eine Zahl zwischen %1 und %2 ein"},
        {AFX_IDP_PARSE_STRING_SIZE, L"\\VEK_DDX_0005\\.", L"Bitte geben Sie höchstens %1 Zeichen ein"},
        {AFX_IDP_PARSE_BYTE, L"\\VEK_DDX_0006\\.", L"Bitte geben Sie eine ganze Zahl zwischen 0 und 255 ein"},
        {AFX_IDP_PARSE_UINT, L"\\VEK_DDX_0007\\.", L"Bitte geben Sie eine positive ganze Zahl ein"},
    };
    for (const Row& row : rows) {
        if (row.id == id)
            return CVekDlg::m_pMsgFcn ? CVekDlg::m_pMsgFcn(row.key, row.builtIn, nullptr) : nullptr;
    }
    return nullptr;
}

} // namespace VEK
