#include <toolkit/object.h>

#include <cstdarg>
#include <cwchar>

CRuntimeClass* CObject::GetThisClass()
{
    static CRuntimeClass it = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr, nullptr};
    return &it;
}

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return GetThisClass();
}

CObject* CRuntimeClass::CreateObject()
{
    return m_pfnCreateObject == nullptr ? nullptr : m_pfnCreateObject();
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    for (const CRuntimeClass* it = this; it != nullptr;
         it = it->m_pfnGetBaseClass == nullptr ? nullptr : it->m_pfnGetBaseClass()) {
        if (it == pBaseClass)
            return TRUE;
    }
    return FALSE;
}

void AFX_CDECL AfxTrace(LPCTSTR lpszFormat, ...)
{
    wchar_t text[1024];
    va_list arguments;
    va_start(arguments, lpszFormat);
    const int length = _vsnwprintf(text, _countof(text) - 1, lpszFormat, arguments);
    va_end(arguments);
    text[length < 0 ? _countof(text) - 1 : static_cast<size_t>(length)] = L'\0';
    OutputDebugStringW(text);
}
