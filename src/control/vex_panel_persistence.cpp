// InitProperties, ReadProperties and WriteProperties, over one table of the 59 persisted keys.
// Each key has the default that both reading and writing pass to the bag (its type is the type
// the key is persisted against), a reader that puts a loaded value in place, and a writer that
// gives the value to save.
//
// Several Booleans are persisted against a 16-bit integer 0 rather than False, and
// CaptionFontShadow (a colour) against a 16-bit 0: black is never written and reads back black.
#include "control/persisted_keys.h"
#include "control/vex_panel.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "model/property_store.h"
#include "render/colour.h"

namespace vex::control {

struct PanelPersistence {
    struct Key {
        std::string_view name;
        PropertyValue defaultValue; // the Font key's default is the ambient font instead
        void (*load)(VexPanel&, const PropertyValue&);
        PropertyValue (*save)(const VexPanel&);
    };

    static const std::array<Key, kPersistedKeyCount>& Keys();
    static const Key& Find(std::string_view name);
    static PropertyValue DefaultOf(VexPanel& panel, const Key& key);
};

namespace {

using P = VexPanel;
using V = PropertyValue;

OleColor AsColour(const V& value) { return static_cast<OleColor>(AsInt32(value)); }
V Colour(OleColor colour) { return static_cast<int32_t>(colour); }

} // namespace

// The fields are reached through the store (props_) since loading bypasses the set rules:
// no clamps, no range check, no notifications, no redraw.
#define VEX_FIELD(NAME) panel.props_.NAME
#define VEX_COLOUR_KEY(NAME, DEFAULT)                                                                 \
    Key { #NAME, V(int32_t(DEFAULT)), [](P& panel, const V& v) { VEX_FIELD(NAME) = AsColour(v); },      \
        [](const P& panel) { return Colour(VEX_FIELD(NAME)); } }
#define VEX_INT16_KEY(NAME, DEFAULT)                                                                  \
    Key { #NAME, V(int16_t(DEFAULT)),                                                                 \
        [](P& panel, const V& v) { VEX_FIELD(NAME) = decltype(VEX_FIELD(NAME))(AsInt16(v)); },        \
        [](const P& panel) { return V(static_cast<int16_t>(VEX_FIELD(NAME))); } }
// A Boolean, persisted against a Boolean default or (for several keys) a 16-bit integer 0.
#define VEX_BOOL_KEY(NAME, DEFAULT)                                                                   \
    Key { #NAME, V(DEFAULT), [](P& panel, const V& v) { VEX_FIELD(NAME) = AsBoolean(v); },              \
        [](const P& panel) { return V(VEX_FIELD(NAME)); } }

const std::array<PanelPersistence::Key, kPersistedKeyCount>& PanelPersistence::Keys()
{
    static const std::array<Key, kPersistedKeyCount> keys = {
        VEX_COLOUR_KEY(ForeColor, 0x80000012),
        VEX_BOOL_KEY(Enabled, true),
        VEX_INT16_KEY(Appearance, 1),
        VEX_INT16_KEY(BackStyle, 1),
        VEX_INT16_KEY(CustomBorderLeftTopStyle, 0),
        VEX_INT16_KEY(CustomBorderRightTopStyle, 0),
        VEX_INT16_KEY(CustomBorderLeftBottomStyle, 0),
        VEX_INT16_KEY(CustomBorderRightBottomStyle, 0),
        VEX_INT16_KEY(CustomBorderRadio, 20),
        VEX_COLOUR_KEY(WinBackColor, 0xC0E0FF),
        VEX_INT16_KEY(WinGradientDirection, 0),
        VEX_INT16_KEY(WinOptionColor, 0),
        VEX_INT16_KEY(WinContrast, 1),
        VEX_INT16_KEY(WinBorderTopStyle, 1),
        VEX_INT16_KEY(WinBorderBottomStyle, 1),
        VEX_INT16_KEY(WinBorderLeftStyle, 1),
        VEX_INT16_KEY(WinBorderRightStyle, 1),
        Key { "Caption", V(std::string()), [](P& panel, const V& v) { panel.props_.Caption = AsText(v); },
            [](const P& panel) { return V(panel.props_.Caption); } },
        VEX_INT16_KEY(CaptionAlignment, 7),
        Key { "Font", V(platform::FontDesc()), [](P& panel, const V& v) { panel.surface_.SetFont(AsFont(v)); },
            [](const P& panel) { return V(panel.surface_.Font()); } },
        VEX_BOOL_KEY(CaptionEfect, int16_t(0)),
        VEX_COLOUR_KEY(CaptionFontIn, 0xFFC0C0),
        VEX_COLOUR_KEY(CaptionFontOut, 0),
        Key { "CaptionFontShadow", V(int16_t(0)), [](P& panel, const V& v) { panel.props_.CaptionFontShadow = AsColour(v); },
            [](const P& panel) { return Colour(panel.props_.CaptionFontShadow); } },
        VEX_BOOL_KEY(CaptionGetShadow, false),
        Key { "Picture", V(platform::PictureRef()), [](P& panel, const V& v) { panel.props_.Picture = AsPicture(v); },
            [](const P& panel) { return V(panel.props_.Picture); } },
        VEX_INT16_KEY(PictureAlignment, 0),
        VEX_BOOL_KEY(PictureAnimEnabled, int16_t(0)),
        VEX_INT16_KEY(PictureAnimDelay, 100),
        VEX_COLOUR_KEY(PictureMaskColor, 0xFF00FF),
        VEX_BOOL_KEY(PictureUseMask, int16_t(0)),
        VEX_INT16_KEY(PictureFrames, 1),
        Key { "PictureBackground", V(platform::PictureRef()),
            [](P& panel, const V& v) { panel.props_.PictureBackground = AsPicture(v); },
            [](const P& panel) { return V(panel.props_.PictureBackground); } },
        VEX_INT16_KEY(PictureBackgroundStyle, 0),
        VEX_BOOL_KEY(PictureBackgroundUseMask, int16_t(0)),
        VEX_INT16_KEY(CaptionStyle, 0),
        VEX_INT16_KEY(Panel3DBorderStyle, 0),
        VEX_INT16_KEY(Panel3DBorderWidth, 1),
        VEX_INT16_KEY(Panel3DBorderOffset, 3),
        VEX_COLOUR_KEY(Panel3DHighLight, 0x80000014),
        VEX_COLOUR_KEY(Panel3DShadow, 0x80000010),
        VEX_COLOUR_KEY(Panel3DOffsetColor, 0x8000000F),
        VEX_INT16_KEY(CustomBorderWidth, 1),
        VEX_COLOUR_KEY(CustomBorderColor, 0xA88562),
        VEX_COLOUR_KEY(CustomGradientStart, 0xE4A88A),
        VEX_COLOUR_KEY(CustomGradientEnds, 0xF7E5DC),
        VEX_INT16_KEY(CustomGradientDirection, 4),
        VEX_INT16_KEY(CustomGradientStyle, 1),
        VEX_INT16_KEY(PanelFont3D, 0),
        VEX_COLOUR_KEY(PanelFont3DHighLight, 0x80000014),
        VEX_COLOUR_KEY(PanelFont3DShadow, 0x80000010),
        // Loading MouseIcon goes through its set, which also reports "MouseIcon" as changed.
        Key { "MouseIcon", V(platform::PictureRef()), [](P& panel, const V& v) { panel.setMouseIcon(AsPicture(v)); },
            [](const P& panel) { return V(panel.surface_.MouseIcon()); } },
        Key { "MousePointer", V(int16_t(0)), [](P& panel, const V& v) { panel.surface_.SetMousePointer(AsInt16(v)); },
            [](const P& panel) { return V(panel.surface_.MousePointer()); } },
        Key { "CaptionText", V(std::string()), [](P& panel, const V& v) { panel.props_.CaptionText = AsText(v); },
            [](const P& panel) { return V(panel.props_.CaptionText); } },
        VEX_BOOL_KEY(Panel3DBorderOption, int16_t(0)),
        VEX_COLOUR_KEY(Panel3DBorderColor, 0xA88562),
        VEX_BOOL_KEY(OptionPic, int16_t(0)),
        VEX_BOOL_KEY(OptionPicBackGround, int16_t(0)),
        Key { "BackColor", V(int32_t(0x8000000F)), [](P& panel, const V& v) { panel.surface_.SetBackColor(AsColour(v)); },
            [](const P& panel) { return Colour(panel.surface_.BackColor()); } },
    };
    return keys;
}

#undef VEX_BOOL_KEY
#undef VEX_INT16_KEY
#undef VEX_COLOUR_KEY
#undef VEX_FIELD

const PanelPersistence::Key& PanelPersistence::Find(std::string_view name)
{
    const auto& keys = Keys();
    auto found = std::find_if(keys.begin(), keys.end(), [&](const Key& key) { return key.name == name; });
    if (found == keys.end())
        Raise(ErrorCode::InvalidProcedureCall);
    return *found;
}

PropertyValue PanelPersistence::DefaultOf(VexPanel& panel, const Key& key)
{
    if (key.name == "Font")
        return panel.host_.AmbientFont();
    return key.defaultValue;
}

const std::array<std::string_view, kPersistedKeyCount>& ReadOrder()
{
    static const auto order = [] {
        std::array<std::string_view, kPersistedKeyCount> names;
        std::transform(PanelPersistence::Keys().begin(), PanelPersistence::Keys().end(), names.begin(),
            [](const PanelPersistence::Key& key) { return key.name; });
        return names;
    }();
    return order;
}

const std::array<std::string_view, kPersistedKeyCount>& WriteOrder()
{
    static const auto order = [] {
        std::array<std::string_view, kPersistedKeyCount> names;
        auto last = std::copy_if(ReadOrder().begin(), ReadOrder().end(), names.begin(), [](std::string_view name) {
            return name != "Caption" && name != "Picture" && name != "CaptionText";
        });
        *last++ = "Picture";
        *last++ = "Caption";
        *last = "CaptionText";
        return names;
    }();
    return order;
}

// ---- The host's three persistence notifications --------------------------------------------------

void VexPanel::InitProperties()
{
    paint_.SysColors = render::PrepareSysColors(surface_.Dc());
    setCaption(host_.AmbientDisplayName());

    // Every persisted field takes its default, the store only (ForeColor's surface colour is left
    // alone); the few the table marks are kept or computed below.
    const model::PanelProperties defaults;
#define VEX_INIT_Field(Name, Flags, Persist)                                                             \
    if constexpr (model::PersistAs::Persist != model::PersistAs::None                                    \
        && ((Flags) & (model::InitKeeps | model::InitComputed)) == 0)                                    \
        props_.Name = defaults.Name;
#define VEX_INIT_Facet(Name, Flags, Persist)
#define VEX_INIT_Window(Name, Flags, Persist)
#define VEX_INIT(Name, Store, Type, Default, Rule, Dispid, Flags, Persist, ...) VEX_INIT_##Store(Name, Flags, Persist)
    {
        using namespace model;
        VEX_PROPERTIES(VEX_INIT)
    }
#undef VEX_INIT
#undef VEX_INIT_Window
#undef VEX_INIT_Facet
#undef VEX_INIT_Field

    surface_.SetFont(host_.AmbientFont());
    // The one computed default: the button shadow of this system, brightened by 15.
    props_.CaptionFontShadow = render::ShiftColour(paint_.SysColors.ButtonShadow, 15, false);
}

// Loads every key as it stands: the set rules' clamps and checks do not apply, nothing is drawn
// and no animation starts. At run time the parent form is captured first (a parent that is not a
// form fails with Type mismatch before any key is read).
void VexPanel::ReadProperties(PropertyBag& bag)
{
    if (host_.UserMode()) {
        HoldParent(host_.Parent());
    }
    for (const PanelPersistence::Key& key : PanelPersistence::Keys()) {
        PropertyValue value = bag.ReadProperty(std::string(key.name), PanelPersistence::DefaultOf(*this, key));
        key.load(*this, value);
    }
}

PropertyValue VexPanel::PersistedValue(std::string_view key) const { return PanelPersistence::Find(key).save(*this); }

void VexPanel::WriteProperties(PropertyBag& bag)
{
    for (std::string_view name : WriteOrder()) {
        const PanelPersistence::Key& key = PanelPersistence::Find(name);
        bag.WriteProperty(std::string(name), key.save(*this), PanelPersistence::DefaultOf(*this, key));
    }
}

} // namespace vex::control
