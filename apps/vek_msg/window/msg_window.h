/// @file
/// The window of the text application.
#pragma once

#include "../catalogue.h"
#include "shared/window/main_window.h"

#include <afxcmn.h>

#include <string>
#include <vector>

/// A search box and a language box on top, the keys with their texts beneath, the whole text of the selected key at the
/// bottom.
class MsgWindow : public MainWindow
{
public:
    MsgWindow();

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
    void layOut() override;
    void followDpi(int before) override;

    afx_msg int OnCreate(LPCREATESTRUCT create);
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
};
