#include "pages/image_page.h"

#include "base/runtime_error.h"
#include "pages/panel_access.h"
#include "render/colour.h"

namespace vex::pages {

namespace {

// The editors, in the order of the ImagePNG table.
enum : size_t { kTarget, kFileName, kTransparency, kAlpha, kOwnBackground, kBackground, kIconAsBitmap };

} // namespace

ImagePage::ImagePage(const PageSpec& spec)
    : PropertyPage(spec)
{
}

std::string_view ImagePage::TargetProperty() const
{
    int32_t index = Editor(kTarget).listIndex;
    const auto& items = spec().editors[kTarget].items;
    return index >= 0 && static_cast<size_t>(index) < items.size() ? items[static_cast<size_t>(index)] : items[0];
}

PngSettings ImagePage::Settings() const
{
    PngSettings settings;
    settings.transparency = Editor(kTransparency).check == 1;
    settings.alpha = Editor(kAlpha).check == 1;
    settings.ownBackground = Editor(kOwnBackground).check == 1;
    const std::string& colour = Editor(kBackground).text;
    settings.background = colour.empty() ? 0 : ColourFromText(colour) & 0x00FFFFFFu;
    return settings;
}

void ImagePage::ClearPicture()
{
    clearPending_ = true;
    Type(kFileName, ""); // marks the page changed
}

platform::PictureRef ImagePage::Preview() const
{
    const std::string& file = Editor(kFileName).text;
    if (!file.empty())
        return LoadPictureFile(file, Settings());
    if (!Target())
        return {};
    return control::AsPicture(GetProperty(*Target(), TargetProperty()));
}

void ImagePage::LoadSettings(control::VexPanel&)
{
    // A new selection starts with no file chosen; the target and the PNG settings stay.
    MutableEditor(kFileName).text.clear();
    if (MutableEditor(kTarget).listIndex < 0)
        MutableEditor(kTarget).listIndex = 0;
    if (MutableEditor(kBackground).text.empty())
        MutableEditor(kBackground).text = ColourText(0);
    clearPending_ = false;
}

void ImagePage::ApplySettings(control::VexPanel& panel)
{
    if (clearPending_) {
        SetProperty(panel, TargetProperty(), platform::PictureRef {});
        clearPending_ = false;
        return;
    }
    const std::string& file = Editor(kFileName).text;
    if (file.empty())
        return;
    platform::PictureRef picture = LoadPictureFile(file, Settings()); // before anything is set
    if (Editor(kIconAsBitmap).check == 1) {
        if (!reference_)
            Raise(ErrorCode::ObjectNotSet);
        picture = IconToBitmap(picture, render::TranslateColor(panel.BackColor(), *reference_), *reference_);
    }
    SetProperty(panel, TargetProperty(), picture);
}

} // namespace vex::pages
