#pragma once
// The control's property pages as COM classes: the seven pages ISpecifyPropertyPages names, in
// order. Five are the server's own (each its own class, registered with the server); the colour
// and font pages are the system's standard pages. The server and the tests read them here.

namespace vex::activex {

struct PageClass {
    const char* page;    // the page's name in the page tables (pages::Pages())
    const char* classId; // the server's class; nullptr for a standard page of the system
};

inline constexpr PageClass kPageClasses[] = {
    { "PanelGeneral", "7B03BC44-DB63-4840-983C-282B14262808" },
    { "Panel3D", "F990EDEB-90E9-49FC-887E-F8736CFA7FF2" },
    { "Custom", "7CC64EEF-96DC-49ED-8077-9FC72E57FBCF" },
    { "LongPicture", "16E18062-0121-4F79-B3AC-9F4D6D0B0DC9" },
    { "StandardColor", nullptr }, // CLSID_StockColorPage
    { "StandardFont", nullptr },  // CLSID_StockFontPage
    { "ImagePNG", "5BFAA797-9BC4-493A-BCF9-A26B0EBB78CF" },
};

// The child windows of a page: editor i of the page's table has the id kEditorId + i (a colour
// editor's list; its text box is kColourTextId + i). The Image page adds two buttons.
inline constexpr int kEditorId = 1000;
inline constexpr int kColourTextId = 1100;
inline constexpr int kBrowseId = 1200;       // the file-open dialog for txtFileName
inline constexpr int kClearPictureId = 1201; // the target becomes Nothing on Apply

} // namespace vex::activex
