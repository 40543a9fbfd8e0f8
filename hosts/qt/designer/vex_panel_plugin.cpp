#include "vex_panel_plugin.h"

#include <QMetaProperty>
#include <QPixmap>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QExtensionManager>

#include "control/vex_panel.h"
#include "qt/pages_dialog.h"
#include "qt/vex_panel_widget.h"

namespace vex::qt {

namespace {

const char* const kClassName = "vex::qt::VexPanelWidget";

// Whether a property's value is unchanged. Pixmaps compare by their pixels (a QVariant of a
// QPixmap never equals another).
bool Same(const QVariant& before, const QVariant& now)
{
    if (now.metaType() == QMetaType::fromType<QPixmap>())
        return before.value<QPixmap>().toImage() == now.value<QPixmap>().toImage();
    return before == now;
}

} // namespace

VexPanelPlugin::VexPanelPlugin(QObject* parent)
    : QObject(parent)
{
}

QString VexPanelPlugin::name() const { return QString::fromLatin1(kClassName); }
QString VexPanelPlugin::group() const { return QStringLiteral("VexPanel"); }
QString VexPanelPlugin::toolTip() const { return QStringLiteral("VexPanel: a panel with Windows, 3D and Custom looks"); }
QString VexPanelPlugin::whatsThis() const
{
    return QStringLiteral("A panel that paints a background, a border, pictures and a caption; "
                          "right-click it for its Property Pages.");
}
QString VexPanelPlugin::includeFile() const { return QStringLiteral("vexpanel/qt/vex_panel_widget.h"); }

// The panel itself, small: a raised 3D ring with a caption.
QIcon VexPanelPlugin::icon() const
{
    VexPanelWidget panel;
    panel.setUserMode(false);
    panel.resize(22, 22);
    control::VexPanel& control = panel.panel();
    control.setPanel3DBorderStyle(model::TypePanel3DStyle::Raised3D);
    control.setPanel3DBorderWidth(2);
    control.setCaption("V");
    control.setBackColor(0x8AA8E4);
    return QIcon(panel.grab());
}

QWidget* VexPanelPlugin::createWidget(QWidget* parent)
{
    auto* panel = new VexPanelWidget(parent);
    panel->setUserMode(false); // design time: no timers, no animation
    return panel;
}

void VexPanelPlugin::initialize(QDesignerFormEditorInterface* core)
{
    if (initialized_)
        return;
    if (QExtensionManager* manager = core ? core->extensionManager() : nullptr)
        manager->registerExtensions(new VexPanelTaskMenuFactory(manager), Q_TYPEID(QDesignerTaskMenuExtension));
    initialized_ = true;
}

QString VexPanelPlugin::domXml() const
{
    return QStringLiteral("<ui language=\"c++\">\n"
                          " <widget class=\"%1\" name=\"vexPanel\">\n"
                          "  <property name=\"geometry\"><rect><x>0</x><y>0</y><width>160</width><height>60</height></rect></property>\n"
                          " </widget>\n"
                          "</ui>\n")
        .arg(QString::fromLatin1(kClassName));
}

// ---- The task menu ---------------------------------------------------------------------------------

VexPanelTaskMenu::VexPanelTaskMenu(VexPanelWidget* widget, QObject* parent)
    : QObject(parent)
    , widget_(widget)
    , pages_(new QAction(QStringLiteral("Property Pages..."), this))
{
    connect(pages_, &QAction::triggered, this, &VexPanelTaskMenu::OpenPages);
}

// The dialog edits the panel directly; what it changed is then set again through the form's
// cursor, property by property, which is how Designer learns of a change.
void VexPanelTaskMenu::OpenPages()
{
    const QMetaObject& meta = VexPanelProperties::staticMetaObject;
    QVariantList before;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        before << meta.property(i).read(widget_);
    PagesDialog dialog({ &widget_->panel() }, widget_->window());
    dialog.exec();
    QDesignerFormWindowInterface* form = QDesignerFormWindowInterface::findFormWindow(widget_);
    if (!form)
        return;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        const QVariant now = property.read(widget_);
        if (property.isWritable() && property.isStored() && !Same(before[i - meta.propertyOffset()], now))
            form->cursor()->setWidgetProperty(widget_, QString::fromLatin1(property.name()), now);
    }
}

QObject* VexPanelTaskMenuFactory::createExtension(QObject* object, const QString& iid, QObject* parent) const
{
    if (iid != Q_TYPEID(QDesignerTaskMenuExtension))
        return nullptr;
    if (auto* widget = qobject_cast<VexPanelWidget*>(object))
        return new VexPanelTaskMenu(widget, parent);
    return nullptr;
}

} // namespace vex::qt
