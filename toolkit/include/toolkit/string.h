/// @file
/// Wide text. Searches return -1 if nothing is found.
#pragma once

#include <toolkit/base.h>

#include <oleauto.h>

#include <cstdarg>
#include <string>

class AFX_EXPORTED CString
{
public:
    using XCHAR = wchar_t;
    using PCXSTR = LPCWSTR;

    CString() = default;
    /// The text, or for MAKEINTRESOURCE(id) that of the resource; null gives an empty text.
    CString(LPCWSTR lpsz);
    CString(LPCWSTR pch, int nLength) : m_text(pch, static_cast<size_t>(nLength)) {}
    /// Text in the system's ANSI code page.
    CString(LPCSTR lpsz);
    explicit CString(wchar_t ch, int nLength = 1) : m_text(static_cast<size_t>(nLength), ch) {}
    CString& operator=(LPCWSTR lpsz);
    CString& operator=(LPCSTR lpsz) { return *this = CString(lpsz); }
    CString& operator=(wchar_t ch);

    int GetLength() const { return static_cast<int>(m_text.size()); }
    BOOL IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    wchar_t GetAt(int nIndex) const { return m_text[static_cast<size_t>(nIndex)]; }
    void SetAt(int nIndex, wchar_t ch) { m_text[static_cast<size_t>(nIndex)] = ch; }
    wchar_t operator[](int nIndex) const { return GetAt(nIndex); }
    operator LPCWSTR() const { return m_text.c_str(); }
    LPCWSTR GetString() const { return m_text.c_str(); }

    /// A buffer for at least so many characters and a terminator, valid until the next member call. ReleaseBuffer makes
    /// what was written the text, up to the first terminator if no length is given.
    LPWSTR GetBuffer(int nMinBufferLength = 0);
    LPWSTR GetBufferSetLength(int nLength);
    void ReleaseBuffer(int nNewLength = -1);
    void ReleaseBufferSetLength(int nNewLength) { ReleaseBuffer(nNewLength); }
    void FreeExtra() { m_text.shrink_to_fit(); }
    BSTR AllocSysString() const { return ::SysAllocStringLen(m_text.c_str(), static_cast<UINT>(m_text.size())); }
    BOOL LoadString(UINT nID);
    BOOL LoadString(HINSTANCE hInst, UINT nID);

    CString& operator+=(const CString& str) { return m_text += str.m_text, *this; }
    CString& operator+=(LPCWSTR lpsz);
    CString& operator+=(wchar_t ch) { return m_text += ch, *this; }
    void Append(LPCWSTR lpsz) { *this += lpsz; }
    void AppendChar(wchar_t ch) { m_text += ch; }

    int Compare(LPCWSTR lpsz) const;
    int CompareNoCase(LPCWSTR lpsz) const;
    int Collate(LPCWSTR lpsz) const;

    CString Mid(int nFirst) const { return Mid(nFirst, GetLength()); }
    CString Mid(int nFirst, int nCount) const;
    CString Left(int nCount) const { return Mid(0, nCount); }
    CString Right(int nCount) const;
    CString SpanIncluding(LPCWSTR lpszCharSet) const;
    CString SpanExcluding(LPCWSTR lpszCharSet) const;
    /// The next part between separators from iStart on, which is advanced past it; at the end empty, and iStart is -1.
    CString Tokenize(LPCWSTR pszTokens, int& iStart) const;

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    CString& Trim() { return TrimRight().TrimLeft(); }
    CString& Trim(wchar_t ch) { return TrimRight(ch).TrimLeft(ch); }
    CString& Trim(LPCWSTR lpszTargets) { return TrimRight(lpszTargets).TrimLeft(lpszTargets); }
    CString& TrimLeft();
    CString& TrimLeft(wchar_t ch) { return TrimLeft(CString(ch).GetString()); }
    CString& TrimLeft(LPCWSTR lpszTargets);
    CString& TrimRight();
    CString& TrimRight(wchar_t ch) { return TrimRight(CString(ch).GetString()); }
    CString& TrimRight(LPCWSTR lpszTargets);
    int Replace(wchar_t chOld, wchar_t chNew);
    int Replace(LPCWSTR lpszOld, LPCWSTR lpszNew);
    int Remove(wchar_t chRemove);
    int Insert(int nIndex, wchar_t ch) { return Insert(nIndex, CString(ch).GetString()); }
    int Insert(int nIndex, LPCWSTR lpsz);
    int Delete(int nIndex, int nCount = 1);

    int Find(wchar_t ch, int nStart = 0) const;
    int Find(LPCWSTR lpszSub, int nStart = 0) const;
    int ReverseFind(wchar_t ch) const;
    int FindOneOf(LPCWSTR lpszCharSet) const;

    /// Format a text as `wsprintf` does: `%s` takes wide text.
    void AFX_CDECL Format(LPCWSTR lpszFormat, ...);
    void AFX_CDECL Format(UINT nFormatID, ...);
    void FormatV(LPCWSTR lpszFormat, va_list argList);
    void AFX_CDECL AppendFormat(LPCWSTR lpszFormat, ...);

private:
    std::wstring m_text;
};

using CStringW = CString;

inline CString operator+(const CString& a, const CString& b)
{
    return CString(a) += b;
}
inline CString operator+(const CString& a, LPCWSTR b)
{
    return CString(a) += b;
}
inline CString operator+(LPCWSTR a, const CString& b)
{
    return CString(a) += b;
}
inline CString operator+(const CString& a, wchar_t b)
{
    return CString(a) += b;
}
inline CString operator+(wchar_t a, const CString& b)
{
    return CString(a) += b;
}
inline bool operator==(const CString& a, const CString& b)
{
    return a.Compare(b) == 0;
}
inline bool operator==(const CString& a, LPCWSTR b)
{
    return a.Compare(b) == 0;
}
inline bool operator!=(const CString& a, const CString& b)
{
    return a.Compare(b) != 0;
}
inline bool operator!=(const CString& a, LPCWSTR b)
{
    return a.Compare(b) != 0;
}
inline bool operator<(const CString& a, const CString& b)
{
    return a.Compare(b) < 0;
}
inline bool operator<(const CString& a, LPCWSTR b)
{
    return a.Compare(b) < 0;
}
inline bool operator>(const CString& a, const CString& b)
{
    return a.Compare(b) > 0;
}
inline bool operator>(const CString& a, LPCWSTR b)
{
    return a.Compare(b) > 0;
}
inline bool operator<=(const CString& a, const CString& b)
{
    return a.Compare(b) <= 0;
}
inline bool operator>=(const CString& a, const CString& b)
{
    return a.Compare(b) >= 0;
}
