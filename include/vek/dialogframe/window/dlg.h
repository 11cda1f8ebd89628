/// @file
/// The base class of dialogs. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/dialogframe/field_chain.h>
#include <vek/dialogframe/stack.h>
#include <vek/values/string.h>

#include <afxole.h>
#include <afxtempl.h>
#include <afxwin.h>

#include <memory>

class VekDpiLayout;

/// A dialog whose texts follow a language, that remembers its place, shows help, leads Return and Page Up through its
/// value fields and follows the resolution of its monitor.
///
/// A derived class fills the maps in `addLangRsc`, `addHlpRsc` and `addToolTipRsc`. docs/dialogs.md shows how.
///
/// A dialog with a caption stands on the stack of dialogs while it is open. One for which the memory does not suffice
/// does not open: `DoModal` gives -1, `Create` FALSE. All of it is for the user-interface thread.
class VEK_API CVekDlg : public CDialog
{
    DECLARE_DYNAMIC(CVekDlg)

public:
    /// The text of a key in a language: what all dialogs call.
    using MsgFcn = const wchar_t* (*)(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language);

    /// @param nIDTemplate of the dialog; 0 for one that is set by `InitModalIndirect`
    CVekDlg(int nIDTemplate, CWnd* parent);

    /// Destroys the window if it is open.
    ~CVekDlg() override;

    /// @name Language
    /// @{

    /// The dialog's language; empty before the window exists, unless it has been set.
    const wchar_t* country() const { return m_country; }

    /// Sets the language and, if it is another one, replaces the texts of the open window. Child dialogs have a
    /// language of their own.
    void SetCountry(const wchar_t* language);

    /// Replaces the texts of the controls in `m_mapLangKey`. One that overrides it calls this and then sets what is not
    /// the text of a control, such as the title.
    /// @return false without a window or callback: the texts stay
    virtual bool updLang();

    /// Fill the maps; called once for each window.
    virtual void addLangRsc() {}
    virtual void addHlpRsc() {}
    virtual void addToolTipRsc() {}

    /// The text of a key. Without a callback the built-in text.
    /// @param language null for the dialog's
    /// @return valid until the eighth such call from now in any dialog
    virtual const wchar_t* GetMsg(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language);

    /// Sets the callback of all dialogs, null for none; loading the library sets `VEK::msgCallBack`.
    /// @return the previous one
    static MsgFcn SetMsgCallBack(MsgFcn callBack);
    /// @}

    /// Shows a message box. The caption is always the program's, so that all messages of a suite look alike.
    virtual int MessageBoxW(const wchar_t* text, const wchar_t* caption, unsigned type);

    /// Answers the request for a tool tip, of the notification `TTN_NEEDTEXTW`.
    /// @return whether there is one
    virtual BOOL ToolTip(UINT id, NMHDR* header, LRESULT* result);

    /// @name Place
    /// @{

    /// Whether the dialog is opened where it was last, and remembers where it is closed; initially it does. Without a
    /// title it never does. What is set counts when the window is created and again when it is destroyed.
    void SavePosition(bool save) { m_savePos = save; }

    /// Where the dialog was, in screen pixels.
    /// @return false if that is not known; left and top may have been set nevertheless
    bool getSavedPos(RECT& rect);
    /// @}

    /// Whether another dialog was open when this object was made.
    bool isSubDlg() const { return m_subDlg; }

    /// Sets the text of a link control.
    /// @param target address; null makes it plain text
    void setLink(int id, const wchar_t* text, const wchar_t* target);

    /// @name Help
    /// The button `IDHELP` is grey without a help file.
    /// @{

    /// Sets the help file: the path of a compiled one, or an address with "<topic>" where the topic goes, see
    /// `HelpKind`. Null is none and hides the button.
    void SetHelpFile(const wchar_t* path);
    void GetHelpFile(CString& path) const;

    /// Sets the topic that is shown by default.
    void SetHelpTopic(const wchar_t* topic);
    void GetHelpTopic(CString& topic) const;

    /// Opens help. Asks for a compiled help file that is missing, which then counts until the dialog is closed.
    /// @param topic null for the default topic
    void Help(const wchar_t* topic);
    /// @}

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;

    /// The callback of all dialogs, null for none.
    static MsgFcn m_pMsgFcn;

protected:
    /// Texts by control.
    using TextMap = CMap<unsigned, unsigned, CVekString, const CVekString&>;

    /// Enters a control's text, in `addLangRsc`.
    void addText(unsigned id, const wchar_t* key, const wchar_t* builtIn);

    /// Gives a control that has neither a text nor a label a name for screen readers, by a label that is not seen. To
    /// be called again in `updLang` and whenever the name is another one.
    void nameControl(int id, const wchar_t* name);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    TextMap m_mapLangKey;    ///< key of the control's text
    TextMap m_mapHlpKey;     ///< key of its control help, the text that F1 pops up
    TextMap m_mapLangDef;    ///< built-in text, in German
    TextMap m_mapToolTipKey; ///< key of its tool tip
    CVekString m_helpName;   ///< help file without its folder
    CVekString m_helpDir;    ///< folder of the help file, with a separator at its end
    CVekString m_helpTopic;
    CVekString m_dlgName; ///< title in the template, which names the stored place in every language
    CVekString m_country;
    bool m_savePos = true;
    bool m_subDlg = false;

    afx_msg int OnCreate(LPCREATESTRUCT create);
    afx_msg void OnDestroy();
    afx_msg BOOL OnHelpInfo(HELPINFO* info);
    afx_msg void OnShowWindow(BOOL show, UINT status);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnPaint();
    afx_msg LRESULT OnDpiChanged(WPARAM dpi, LPARAM suggested);
    DECLARE_MESSAGE_MAP()

private:
    class Controls;
    class Opening;
    class Parents;
    class Tabs;

    static bool isEdit(CWnd* window);
    static CWnd* nextEdit(CWnd* window);
    static CWnd* firstEdit(CWnd* window);

    bool remembersPlace() const { return m_savePos && !m_dlgName.isNull(); }
    bool leadOn(CWnd* parent, MSG& message, BOOL& result);
    void storePlace();
    void showHelpButton(bool show);

    bool m_isOnStack = false;
    std::shared_ptr<VekDpiLayout> m_layout; ///< of the controls at other resolutions
};

namespace VEK
{

/// Drags a file. The thread has initialised OLE.
/// @param start screen rectangle that the pointer leaves when the drag begins; null for the pointer's surroundings
/// @param source decides how the drag goes on; null for the usual way
/// @return whether the file was dropped and taken; false if it does not exist
VEK_API bool DoDragDrop(const wchar_t* path, DROPEFFECT allowed, const RECT* start, COleDropSource* source);

} // namespace VEK

#endif
