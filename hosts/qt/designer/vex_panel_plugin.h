#pragma once
// The Designer plugin: VexPanelWidget in the widget box (group "VexPanel"), created at design
// time, and a task-menu entry "Property Pages..." that opens the pages dialog for it. What the
// dialog changes is set through the form window's cursor, so Designer records it (undo, the
// changed-property marks, the .ui file).

#include <QAction>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

namespace vex::qt {

class VexPanelWidget;

class VexPanelPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit VexPanelPlugin(QObject* parent = nullptr);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    QWidget* createWidget(QWidget* parent) override;
    bool isInitialized() const override { return initialized_; }
    void initialize(QDesignerFormEditorInterface* core) override;
    QString domXml() const override;

private:
    bool initialized_ = false;
};

// The task menu of one panel on a form.
class VexPanelTaskMenu : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    VexPanelTaskMenu(VexPanelWidget* widget, QObject* parent);
    QAction* preferredEditAction() const override { return pages_; }
    QList<QAction*> taskActions() const override { return { pages_ }; }

private:
    void OpenPages();

    VexPanelWidget* widget_;
    QAction* pages_;
};

class VexPanelTaskMenuFactory : public QExtensionFactory {
    Q_OBJECT

public:
    using QExtensionFactory::QExtensionFactory;

protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;
};

} // namespace vex::qt
