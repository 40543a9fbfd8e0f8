// The Designer side: the plugin loads and makes the widget, and a form saved as a .ui file with
// changed properties loads back with the same settings.
#include <QBuffer>
#include <QDir>
#include <QMetaProperty>
#include <QPainter>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QAction>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>
#include <QtDesigner/QFormBuilder>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "control/memory_property_bag.h"
#include "control/vex_panel.h"
#include "control/vxp_format.h"
#include "qt/qt_colours.h"
#include "qt/vex_panel_widget.h"

namespace vex::qt {
namespace {

TEST(QtDesigner, ThePluginLoadsAndMakesThePanel)
{
    QPluginLoader loader(QStringLiteral(VEX_DESIGNER_PLUGIN));
    auto* plugin = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
    ASSERT_NE(plugin, nullptr) << loader.errorString().toStdString();
    EXPECT_EQ(plugin->name(), "vex::qt::VexPanelWidget");
    EXPECT_FALSE(plugin->icon().isNull());
    if (const QByteArray folder = qgetenv("VEX_QT_SHOTS"); !folder.isEmpty())
        plugin->icon().pixmap(22, 22).scaled(88, 88).save(QString::fromLocal8Bit(folder) + "/designer-icon.png");
    EXPECT_TRUE(plugin->domXml().contains(plugin->name()));
    std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
    ASSERT_NE(widget, nullptr);
    EXPECT_STREQ(widget->metaObject()->className(), "vex::qt::VexPanelWidget");
    EXPECT_TRUE(widget->setProperty("Caption", QStringLiteral("From the plugin")));
    EXPECT_EQ(widget->property("Caption").toString(), "From the plugin");

    // Initialised by Designer's core, it gives the panel its task menu.
    struct Core : QDesignerFormEditorInterface {
        Core() { setExtensionManager(new QExtensionManager(this)); }
    } core;
    plugin->initialize(&core);
    auto* menu = qt_extension<QDesignerTaskMenuExtension*>(core.extensionManager(), widget.get());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->taskActions().size(), 1);
    EXPECT_EQ(menu->taskActions()[0]->text(), "Property Pages...");
}

// A form builder that saves as Designer does: names and geometries, and the panel's stored
// properties that differ from a new panel's, in the order of its interface (pictures apart).
class FormBuilder : public QFormBuilder {
public:
    QMap<QString, QString> pictureFiles; // property -> file

protected:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        if (className != QStringLiteral("vex::qt::VexPanelWidget"))
            return QFormBuilder::createWidget(className, parent, name);
        auto* panel = new VexPanelWidget(parent);
        panel->setObjectName(name);
        return panel;
    }
    QList<DomProperty*> computeProperties(QObject* object) override
    {
        QList<DomProperty*> properties;
        VexPanelWidget fresh;
        const QMetaObject& meta = *object->metaObject();
        for (int i = 0; i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            const bool own = qobject_cast<VexPanelWidget*>(object) && i >= VexPanelProperties::staticMetaObject.propertyOffset();
            if (own ? !property.isStored() || property.metaType() == QMetaType::fromType<QPixmap>()
                        || property.read(object) == property.read(&fresh)
                    : qstrcmp(property.name(), "objectName") != 0 && qstrcmp(property.name(), "geometry") != 0)
                continue;
            QVariant value = property.read(object);
            if (property.isEnumType())
                value = value.toInt(); // an enumeration is written by its member's name
            if (DomProperty* saved = createProperty(object, QString::fromLatin1(property.name()), value))
                properties << saved;
        }
        return properties;
    }
};

// Pictures go into the .ui file as Designer writes a picture chosen from a file.
QString WithPictures(QString ui, const QMap<QString, QString>& files)
{
    QString properties;
    for (auto [name, file] : files.asKeyValueRange())
        properties += QStringLiteral("<property name=\"%1\"><pixmap>%2</pixmap></property>\n").arg(name, file);
    const qsizetype at = ui.indexOf(QStringLiteral("<property name=\"Picture")) >= 0
        ? ui.indexOf(QStringLiteral("<property name=\"Picture"))
        : ui.indexOf(QStringLiteral("</widget>"));
    return ui.insert(at, properties);
}

std::string SavedVxp(VexPanelWidget& widget, const QString& file)
{
    EXPECT_TRUE(widget.saveVxp(file));
    std::ifstream in(file.toStdString());
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(QtDesigner, AUiFileKeepsEverySetting)
{
    QTemporaryDir folder;
    QWidget form;
    form.setObjectName("Form");
    auto* panel = new VexPanelWidget(&form);
    panel->setObjectName("panel");
    panel->setGeometry(8, 8, 200, 70);

    // Every stored property changed from its default, as a designer would change it.
    const QMetaObject& meta = VexPanelProperties::staticMetaObject;
    QMap<QString, QString> pictures;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (!property.isWritable() || !property.isStored())
            continue;
        const QString name = QString::fromLatin1(property.name());
        const QVariant value = property.read(panel);
        QVariant changed;
        if (property.isEnumType()) {
            const QMetaEnum members = property.enumerator();
            changed = members.value(members.keyCount() - 1);
        } else if (value.metaType() == QMetaType::fromType<bool>())
            changed = !value.toBool();
        else if (value.metaType() == QMetaType::fromType<double>())
            changed = value.toDouble() + 1.5; // a size a .ui <font> cannot hold
        else if (value.metaType() == QMetaType::fromType<int>())
            changed = value.toInt() + 2;
        else if (value.metaType() == QMetaType::fromType<QString>())
            changed = name + QStringLiteral(" text");
        else if (value.metaType() == QMetaType::fromType<QColor>())
            changed = (i % 3 == 0) ? QColor((i * 37) & 255, (i * 59) & 255, (i * 83) & 255) // plain, a system colour, a palette entry
                : (i % 3 == 1)     ? panel->property("Panel3DShadow")
                                   : ToQColor(0x01000000u | static_cast<uint32_t>(i));
        else if (value.metaType() == QMetaType::fromType<QFont>())
            changed = QFont(QStringLiteral("DejaVu Sans"), 11, QFont::Bold, true);
        else if (value.metaType() == QMetaType::fromType<QPixmap>()) {
            QImage image(6 + i % 5, 5, QImage::Format_RGB32);
            image.fill(QColor(i, 100, 200));
            QPainter(&image).fillRect(1, 1, 2, 2, Qt::yellow);
            pictures[name] = folder.filePath(name + QStringLiteral(".png"));
            ASSERT_TRUE(image.save(pictures[name]));
            changed = QPixmap(pictures[name]);
        } else
            FAIL() << "no change for " << property.name();
        property.write(panel, changed);
    }
    const std::string designed = SavedVxp(*panel, folder.filePath("designed.vxp"));
    control::MemoryPropertyBag bag = control::ReadVxpFile(folder.filePath("designed.vxp").toStdString());
    EXPECT_GE(bag.Entries().size(), 55u); // nearly every setting differs from its default

    FormBuilder builder;
    QBuffer ui;
    ui.open(QIODevice::WriteOnly);
    builder.save(&ui, &form);
    QByteArray text = WithPictures(QString::fromUtf8(ui.data()), pictures).toUtf8();
    QBuffer saved(&text);
    saved.open(QIODevice::ReadOnly);
    std::unique_ptr<QWidget> loaded(builder.load(&saved));
    ASSERT_NE(loaded, nullptr) << builder.errorString().toStdString();
    auto* again = loaded->findChild<VexPanelWidget*>("panel");
    ASSERT_NE(again, nullptr) << text.toStdString();
    EXPECT_EQ(SavedVxp(*again, folder.filePath("loaded.vxp")), designed) << text.toStdString();
}

} // namespace
} // namespace vex::qt
