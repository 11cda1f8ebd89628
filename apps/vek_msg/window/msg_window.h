/// @file
/// The window of the text application.
#pragma once

#include "../catalogue.h"

#include <afxcmn.h>

#include <string>
#include <vector>

/// A search box and a language box on top, the keys with their texts beneath, the whole text of the selected key at the
/// bottom.
class MsgWindow : public CWnd
{
public:
    /// Creates the window, hidden.
    bool open();

    /// Opens a catalogue; the selected key stays selected if the new one has it.
    /// @return false, with the old one still open, if it cannot be read; `problem` receives the cause
    bool openFile(const wchar_t* path, CVekString& problem);

    const TextCatalogue& texts() const { return m_texts; }

    /// The selected key; empty if none is.
    std::wstring selectedKey() const;

    /// Selects a key, ending the search if that hides it.
    /// @return false, with the selection as it was, if there is no such key
    bool selectKey(const std::wstring& key);

    /// The id of the language shown, from `VEK::dlCountries`. An unknown one changes nothing.
    std::wstring language() const;
    void setLanguage(const std::wstring& id);

    /// Shows the window in front of all others, or hides it.
    void showToUser(bool isShown);

protected:
    BOOL PreTranslateMessage(MSG* message) override;

    afx_msg int OnCreate(LPCREATESTRUCT create);
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
    afx_msg void OnSetFocus(CWnd* before);
    afx_msg void OnActivate(UINT state, CWnd* other, BOOL isMinimised);
    afx_msg LRESULT OnDpiChanged(WPARAM dpi, LPARAM suggested);
    afx_msg LRESULT OnNextControl(WPARAM which, LPARAM isWindow);
    afx_msg void OnSearchChanged();
    afx_msg void OnLanguageChanged();
    afx_msg void OnItemText(NMHDR* header, LRESULT* result);
    afx_msg void OnItemChanged(NMHDR* header, LRESULT* result);
    afx_msg void OnFindItem(NMHDR* header, LRESULT* result);
    afx_msg void OnKey(NMHDR* header, LRESULT* result);
    afx_msg void OnOpen();
    afx_msg void OnSearch();
    afx_msg void OnEnter();
    afx_msg void OnEscape();
    DECLARE_MESSAGE_MAP()

private:
    int scaled(int pixels) const { return MulDiv(pixels, m_dpi, 96); }
    void setFonts();
    void layOut();
    void fillList();
    void select(int row);
    void showText();
    void copyKey();

    TextCatalogue m_texts;
    std::wstring m_path;
    std::vector<std::wstring> m_rows; ///< keys that the search leaves
    std::wstring m_language;
    CStatic m_searchLabel, m_languageLabel, m_listLabel, m_textLabel;
    CEdit m_search, m_text;
    CComboBox m_languages;
    CButton m_openButton;
    CListCtrl m_list;
    CStatusBarCtrl m_status;
    CFont m_font;
    HACCEL m_accelerators = nullptr;
    HWND m_focus = nullptr; ///< the child that gets the focus back
    int m_dpi = 96;
};
