#pragma once
// The viewer's window: one form that holds the saved panels in a grid, each running as in a
// program (animations on their timers, transparent panels over the form). What the panels raise
// is printed (MouseEnter, MouseExit, Click, DblClick); the Panel menu and each panel's context
// menu open the pages dialog for a panel and save it back to its file.

#include <QMainWindow>
#include <QSize>
#include <QStringList>
#include <QTextStream>

namespace vex::qt {

class VexPanelWidget;

class ViewerWindow : public QMainWindow {
    Q_OBJECT

public:
    // Panels that cannot be loaded are left out; errors() says why.
    ViewerWindow(const QStringList& files, int columns, QSize panelSize, QTextStream& out);

    const QStringList& errors() const { return errors_; }
    int panelCount() const { return static_cast<int>(panels_.size()); }

    // The pages dialog for a panel; on OK the panel is saved back to its file.
    void editPanel(VexPanelWidget* panel);

private:
    void Report(VexPanelWidget* panel, const QString& what);

    std::vector<VexPanelWidget*> panels_;
    VexPanelWidget* current_ = nullptr; // the panel last clicked
    QStringList errors_;
    QTextStream& out_;
};

} // namespace vex::qt
