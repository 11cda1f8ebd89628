#include <toolkit/string.h>

#include "thread_state.h"

#include <algorithm>
#include <cwctype>

namespace
{

constexpr wchar_t kBlanks[] = L" \t\n\v\f\r";

const wchar_t* textOf(LPCWSTR text)
{
    return text == nullptr ? L"" : text;
}

int position(size_t found)
{
    return found == std::wstring::npos ? -1 : static_cast<int>(found);
}

} // namespace

CString::CString(LPCWSTR lpsz)
{
    if (IS_INTRESOURCE(lpsz))
        LoadString(static_cast<UINT>(reinterpret_cast<ULONG_PTR>(lpsz)));
    else
        m_text = lpsz;
}

CString::CString(LPCSTR lpsz)
{
    const int count = lpsz == nullptr ? 0 : MultiByteToWideChar(CP_ACP, 0, lpsz, -1, nullptr, 0);
    if (count > 1) {
        m_text.resize(static_cast<size_t>(count) - 1);
        MultiByteToWideChar(CP_ACP, 0, lpsz, -1, m_text.data(), count);
    }
}

CString& CString::operator=(LPCWSTR lpsz)
{
    m_text = std::wstring(textOf(lpsz)); // a copy first: the text may be a part of this one
    return *this;
}

CString& CString::operator=(wchar_t ch)
{
    m_text.assign(1, ch);
    return *this;
}

CString& CString::operator+=(LPCWSTR lpsz)
{
    m_text += textOf(lpsz);
    return *this;
}

LPWSTR CString::GetBuffer(int nMinBufferLength)
{
    if (nMinBufferLength > GetLength())
        m_text.resize(static_cast<size_t>(nMinBufferLength));
    return m_text.data();
}

LPWSTR CString::GetBufferSetLength(int nLength)
{
    m_text.resize(static_cast<size_t>(std::max(nLength, 0)));
    return m_text.data();
}

void CString::ReleaseBuffer(int nNewLength)
{
    m_text.resize(nNewLength < 0 ? wcslen(m_text.c_str()) : static_cast<size_t>(nNewLength));
}

BOOL CString::LoadString(UINT nID)
{
    // String resources are in blocks of 16, so an existing block may lack this one.
    return nID != 0 && findModule([=, this](HINSTANCE module) { return LoadString(module, nID); }) != nullptr;
}

BOOL CString::LoadString(HINSTANCE hInst, UINT nID)
{
    const wchar_t* text = nullptr; // the system returns its own text, which has no terminator
    const int length = ::LoadStringW(hInst, nID, reinterpret_cast<LPWSTR>(&text), 0);
    m_text.assign(length > 0 ? text : L"", static_cast<size_t>(std::max(length, 0)));
    return length > 0;
}

int CString::Compare(LPCWSTR lpsz) const
{
    return wcscmp(m_text.c_str(), textOf(lpsz));
}

int CString::CompareNoCase(LPCWSTR lpsz) const
{
    return _wcsicmp(m_text.c_str(), textOf(lpsz));
}

int CString::Collate(LPCWSTR lpsz) const
{
    return wcscoll(m_text.c_str(), textOf(lpsz));
}

CString CString::Mid(int nFirst, int nCount) const
{
    const int first = std::clamp(nFirst, 0, GetLength());
    const int count = std::clamp(nCount, 0, GetLength() - first);
    return CString(m_text.c_str() + first, count);
}

CString CString::Right(int nCount) const
{
    return Mid(GetLength() - std::clamp(nCount, 0, GetLength()));
}

CString CString::SpanIncluding(LPCWSTR lpszCharSet) const
{
    return Left(static_cast<int>(std::min(m_text.find_first_not_of(lpszCharSet), m_text.size())));
}

CString CString::SpanExcluding(LPCWSTR lpszCharSet) const
{
    return Left(static_cast<int>(std::min(m_text.find_first_of(lpszCharSet), m_text.size())));
}

CString CString::Tokenize(LPCWSTR pszTokens, int& iStart) const
{
    const size_t first =
        iStart < 0 ? std::wstring::npos : m_text.find_first_not_of(textOf(pszTokens), static_cast<size_t>(iStart));
    if (first == std::wstring::npos) {
        iStart = -1;
        return CString();
    }
    const size_t end = std::min(m_text.find_first_of(textOf(pszTokens), first), m_text.size());
    iStart = static_cast<int>(end) + (end < m_text.size() ? 1 : 0);
    return Mid(static_cast<int>(first), static_cast<int>(end - first));
}

CString& CString::MakeUpper()
{
    CharUpperBuffW(m_text.data(), static_cast<DWORD>(m_text.size()));
    return *this;
}

CString& CString::MakeLower()
{
    CharLowerBuffW(m_text.data(), static_cast<DWORD>(m_text.size()));
    return *this;
}

CString& CString::MakeReverse()
{
    std::reverse(m_text.begin(), m_text.end());
    return *this;
}

CString& CString::TrimLeft()
{
    return TrimLeft(kBlanks);
}

CString& CString::TrimLeft(LPCWSTR lpszTargets)
{
    m_text.erase(0, std::min(m_text.find_first_not_of(lpszTargets), m_text.size()));
    return *this;
}

CString& CString::TrimRight()
{
    return TrimRight(kBlanks);
}

CString& CString::TrimRight(LPCWSTR lpszTargets)
{
    m_text.resize(m_text.find_last_not_of(lpszTargets) + 1);
    return *this;
}

int CString::Replace(wchar_t chOld, wchar_t chNew)
{
    const auto count = std::count(m_text.begin(), m_text.end(), chOld);
    std::replace(m_text.begin(), m_text.end(), chOld, chNew);
    return chOld == chNew ? 0 : static_cast<int>(count);
}

int CString::Replace(LPCWSTR lpszOld, LPCWSTR lpszNew)
{
    const std::wstring from = textOf(lpszOld), to = textOf(lpszNew);
    if (from.empty())
        return 0;
    int count = 0;
    std::wstring replaced;
    size_t at = 0;
    for (size_t next; (next = m_text.find(from, at)) != std::wstring::npos; ++count) {
        replaced.append(m_text, at, next - at).append(to);
        at = next + from.size();
    }
    m_text = replaced.append(m_text, at);
    return count;
}

int CString::Remove(wchar_t chRemove)
{
    const size_t before = m_text.size();
    m_text.erase(std::remove(m_text.begin(), m_text.end(), chRemove), m_text.end());
    return static_cast<int>(before - m_text.size());
}

int CString::Insert(int nIndex, LPCWSTR lpsz)
{
    m_text.insert(static_cast<size_t>(std::clamp(nIndex, 0, GetLength())), std::wstring(textOf(lpsz)));
    return GetLength();
}

int CString::Delete(int nIndex, int nCount)
{
    const int first = std::max(nIndex, 0);
    if (first < GetLength() && nCount > 0)
        m_text.erase(static_cast<size_t>(first), static_cast<size_t>(nCount));
    return GetLength();
}

int CString::Find(wchar_t ch, int nStart) const
{
    return nStart < 0 ? -1 : position(m_text.find(ch, static_cast<size_t>(nStart)));
}

int CString::Find(LPCWSTR lpszSub, int nStart) const
{
    return nStart < 0 || lpszSub == nullptr ? -1 : position(m_text.find(lpszSub, static_cast<size_t>(nStart)));
}

int CString::ReverseFind(wchar_t ch) const
{
    return position(m_text.rfind(ch));
}

int CString::FindOneOf(LPCWSTR lpszCharSet) const
{
    return position(m_text.find_first_of(lpszCharSet));
}

void CString::FormatV(LPCWSTR lpszFormat, va_list argList)
{
    va_list again;
    va_copy(again, argList);
    const int length = _vscwprintf(lpszFormat, argList);
    std::wstring text(static_cast<size_t>(std::max(length, 0)), L'\0');
    // The system's own function, not the C standard's, whose %s takes narrow text.
    _vsnwprintf(text.data(), text.size() + 1, lpszFormat, again);
    va_end(again);
    m_text = std::move(text);
}

void AFX_CDECL CString::Format(LPCWSTR lpszFormat, ...)
{
    va_list arguments;
    va_start(arguments, lpszFormat);
    FormatV(lpszFormat, arguments);
    va_end(arguments);
}

void AFX_CDECL CString::Format(UINT nFormatID, ...)
{
    CString format;
    format.LoadString(nFormatID);
    va_list arguments;
    va_start(arguments, nFormatID);
    FormatV(format, arguments);
    va_end(arguments);
}

void AFX_CDECL CString::AppendFormat(LPCWSTR lpszFormat, ...)
{
    CString text;
    va_list arguments;
    va_start(arguments, lpszFormat);
    text.FormatV(lpszFormat, arguments);
    va_end(arguments);
    *this += text;
}
