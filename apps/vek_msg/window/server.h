/// @file
/// The program as an automation server.
#pragma once

#include "msg_window.h"

#include <ole2.h>

/// The server's class, and the name by which clients know it.
inline constexpr CLSID kMsgClass = {0x8E0C2A61, 0x6B57, 0x4F7D, {0x9D, 0x3A, 0x3C, 0x5F, 0x1E, 0x7B, 0x94, 0xA2}};
inline constexpr wchar_t kMsgProgId[] = L"Vek_Msg.App";

/// The one automation object of the program, which its window belongs to. It is in the running object table, and the
/// system creates it for clients.
///
/// While the window is shown, the user has the program: it stays. A hidden one ends with the last client, or if no
/// client comes within a minute.
class MsgServer : public IDispatch, public IExternalConnection
{
public:
    explicit MsgServer(MsgWindow& window);
    MsgServer(const MsgServer&) = delete;
    MsgServer& operator=(const MsgServer&) = delete;
    ~MsgServer();

    /// Makes the server known to clients.
    /// @param hasUser whether to show the window
    /// @return false if the system refuses it
    bool start(bool hasUser);

    /// Shows the window to the user, or hides it.
    void show(bool isShown);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; } // lives as long as the program
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* result, EXCEPINFO*,
                                     UINT* wrong) override;

    DWORD STDMETHODCALLTYPE AddConnection(DWORD kind, DWORD) override;
    DWORD STDMETHODCALLTYPE ReleaseConnection(DWORD kind, DWORD, BOOL) override;

private:
    /// An object of its own, since its registration counts as a client of it.
    class Factory : public IClassFactory
    {
    public:
        explicit Factory(MsgServer& server) : m_server(server) {}

        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
        ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
        ULONG STDMETHODCALLTYPE Release() override { return 1; }
        HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
        HRESULT STDMETHODCALLTYPE LockServer(BOOL isLocked) override;

    private:
        MsgServer& m_server;
    };

    static void CALLBACK onTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
    bool enter(bool isStrong);
    void leave();
    void endIfUnused();

    MsgWindow& m_window;
    Factory m_factory{*this};
    DWORD m_class = 0; ///< the factory's registration
    DWORD m_entry = 0; ///< in the running object table
    DWORD m_clients = 0;
    DWORD m_locks = 0;
};
