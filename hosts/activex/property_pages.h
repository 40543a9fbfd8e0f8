#pragma once
// The control's property pages as COM objects (IPropertyPage). Each of the server's own pages
// shows one page model (src/pages) with Win32 controls: a check box, an edit box or a drop-down
// list per editor, laid out from the page's table, with the property's name beside it. The model
// loads the editors from the first selected control and writes them back on Apply, so the rules
// are the same as in every other host; this file only relays between the controls and the model.
//
//   SetObjects   the selection: the controls of this server among the objects (others ignored)
//   Activate     the page's window, a child of the frame's, at the frame's rectangle
//   an edit      the model takes it; the page site hears PROPPAGESTATUS_DIRTY (Apply enabled)
//   Apply        the model writes every editor; a run-time error is shown as a message box with
//                the host's text ("Run-time error '13':" and its description) and returned

#include <windows.h>
#include <ocidl.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "pages/property_page.h"
#include "platform/device_context.h"

namespace vex::activex {

class PropertyPageObject final : public IPropertyPage {
public:
    // The page of the server's own page class classId, or CLASS_E_CLASSNOTAVAILABLE.
    static HRESULT CreateFor(REFCLSID classId, REFIID iid, void** object);

    // ---- IUnknown ------------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // ---- IPropertyPage -------------------------------------------------------------------------
    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override;
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT rect, BOOL modal) override;
    HRESULT STDMETHODCALLTYPE Deactivate() override;
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override;
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override;
    HRESULT STDMETHODCALLTYPE Show(UINT command) override;
    HRESULT STDMETHODCALLTYPE Move(LPCRECT rect) override;
    HRESULT STDMETHODCALLTYPE IsPageDirty() override;
    HRESULT STDMETHODCALLTYPE Apply() override;
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;

private:
    explicit PropertyPageObject(const pages::PageSpec& spec);
    ~PropertyPageObject();

    // ---- The page's window (property_page_window.cpp) -----------------------------------------
    static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Build();
    void ShowModel();  // every control as the model holds it now
    void OnCommand(int id, int code, HWND control);
    template <typename Step>
    void Edit(Step step); // a user's edit: the model takes it, the site hears that the page changed
    void Browse();
    void ShowError(int32_t number, const std::string& description);
    SIZE PageSize() const;

    void ReleaseObjects();

    std::atomic<ULONG> references_ { 1 };
    std::unique_ptr<pages::PropertyPage> model_;
    std::unique_ptr<platform::DeviceContext> reference_; // the Image page's icons become bitmaps here
    IPropertyPageSite* site_ = nullptr;
    std::vector<IUnknown*> objects_; // the selection, kept while the page edits it
    HWND window_ = nullptr;
    bool showing_ = false; // the controls are being filled: their notifications are not edits
};

// ISpecifyPropertyPages::GetPages: the seven pages in order.
HRESULT SpecifyPages(CAUUID* pages);

// The system's frame with the seven pages for control, modal over owner (the properties verb).
HRESULT ShowPropertyPages(IUnknown* control, HWND owner, const std::wstring& caption);

// The class factory of one of the server's page classes, or CLASS_E_CLASSNOTAVAILABLE.
HRESULT GetPageClassObject(REFCLSID classId, REFIID iid, void** object);

// The page classes under HKEY_CLASSES_ROOT\CLSID (InprocServer32 with the apartment model).
bool RegisterPages(const std::wstring& modulePath);
void UnregisterPages();

// The interface a control of this server answers so that its pages find the panel behind an
// IUnknown of the selection (in-process only; a proxy does not answer it).
// {B188F1EF-FEB1-4199-BC23-1EB5FDFEE0B6}
inline constexpr GUID kPanelObjectId = { 0xB188F1EF, 0xFEB1, 0x4199, { 0xBC, 0x23, 0x1E, 0xB5, 0xFD, 0xFE, 0xE0, 0xB6 } };

} // namespace vex::activex
