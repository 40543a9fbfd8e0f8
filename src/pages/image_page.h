#pragma once
// The ImagePNG page: loads a picture file into Picture, PictureBackground or MouseIcon of the
// first selected control. Its editors are its own settings, not properties:
//   cboTarget            the property the picture goes to (list index 0, 1, 2)
//   txtFileName          the file (the host's file-open dialog fills it, PictureFilters())
//   chkPNGTransparency, chkPNGAlpha, chkPNGOwnBackground, clrPNGBackground
//                        LoadPNG's settings for PNG files (with chkPNGOwnBackground, alpha is
//                        composed onto clrPNGBackground instead of the file's colour)
//   chkIconAsBitmap      an icon or cursor becomes a bitmap, drawn on the control's BackColor
// ApplyChanges loads the file and sets the target through its public set; a file that cannot be
// loaded raises its error and leaves the property as it was. ClearPicture instead sets the
// target to Nothing on the next Apply.

#include "pages/picture_import.h"
#include "pages/property_page.h"

namespace vex::pages {

class ImagePage : public PropertyPage {
public:
    explicit ImagePage(const PageSpec& spec);

    void ClearPicture();
    // What Apply would set now: the file's picture with the current settings, or the target's
    // present picture when no file is chosen. Raises the load's errors.
    platform::PictureRef Preview() const;
    std::string_view TargetProperty() const;
    PngSettings Settings() const;
    // A device context of the surface the pictures are for: icons become bitmaps through it.
    void SetReferenceContext(platform::DeviceContext* reference) { reference_ = reference; }

protected:
    void LoadSettings(control::VexPanel& panel) override;
    void ApplySettings(control::VexPanel& panel) override;

private:
    bool clearPending_ = false;
    platform::DeviceContext* reference_ = nullptr;
};

} // namespace vex::pages
