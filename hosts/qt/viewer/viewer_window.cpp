#include "viewer_window.h"

#include <QAction>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QStatusBar>

#include "qt/pages_dialog.h"
#include "qt/vex_panel_widget.h"

namespace vex::qt {

namespace {

// The form the panels sit on: a soft gradient, so that a transparent panel shows it.
class Form : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        QLinearGradient shade(0, 0, width(), height());
        shade.setColorAt(0, QColor(0xF4, 0xF1, 0xE8));
        shade.setColorAt(1, QColor(0xC9, 0xD6, 0xE3));
        painter.fillRect(rect(), shade);
    }
};

} // namespace

ViewerWindow::ViewerWindow(const QStringList& files, int columns, QSize panelSize, QTextStream& out)
    : out_(out)
{
    setWindowTitle(QStringLiteral("VexPanel viewer"));
    auto* form = new Form;
    auto* grid = new QGridLayout(form);
    grid->setSpacing(12);
    grid->setContentsMargins(16, 16, 16, 16);
    for (const QString& file : files) {
        auto* panel = new VexPanelWidget(form);
        panel->setObjectName(QFileInfo(file).completeBaseName());
        panel->setFixedSize(panelSize);
        panel->setProperty("file", file);
        QString error;
        if (!panel->loadVxp(file, &error)) {
            errors_ << QStringLiteral("%1: %2").arg(file, error);
            delete panel;
            continue;
        }
        auto* label = new QLabel(panel->objectName());
        label->setAlignment(Qt::AlignHCenter);
        const int cell = static_cast<int>(panels_.size());
        grid->addWidget(panel, (cell / columns) * 2, cell % columns);
        grid->addWidget(label, (cell / columns) * 2 + 1, cell % columns);
        panels_.push_back(panel);

        using Mouse = void (VexPanelWidget::*)(qint16&, qint16&, float&, float&);
        auto mouse = [this, panel](const char* name) {
            return [this, panel, name](qint16& button, qint16&, float& x, float& y) {
                Report(panel, QStringLiteral("%1 %2 %3 %4").arg(QLatin1String(name)).arg(button).arg(x).arg(y));
            };
        };
        connect(panel, static_cast<Mouse>(&VexPanelWidget::MouseEnter), this, mouse("MouseEnter"));
        connect(panel, static_cast<Mouse>(&VexPanelWidget::MouseExit), this, mouse("MouseExit"));
        connect(panel, &VexPanelWidget::Click, this, [this, panel] {
            current_ = panel;
            Report(panel, QStringLiteral("Click"));
        });
        connect(panel, &VexPanelWidget::DblClick, this, [this, panel] { Report(panel, QStringLiteral("DblClick")); });
        panel->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(panel, &QWidget::customContextMenuRequested, this, [this, panel](const QPoint& at) {
            QMenu menu;
            menu.addAction(QStringLiteral("Property Pages..."), this, [this, panel] { editPanel(panel); });
            menu.exec(panel->mapToGlobal(at));
        });
    }
    setCentralWidget(form);

    QMenu* fileMenu = menuBar()->addMenu(QStringLiteral("&File"));
    fileMenu->addAction(QStringLiteral("&Quit"), QKeySequence::Quit, this, &QWidget::close);
    QMenu* panelMenu = menuBar()->addMenu(QStringLiteral("&Panel"));
    QAction* pages = panelMenu->addAction(QStringLiteral("&Property Pages..."), this, [this] {
        editPanel(current_ ? current_ : panels_.empty() ? nullptr : panels_.front());
    });
    pages->setObjectName(QStringLiteral("actionPropertyPages"));
    pages->setShortcut(QKeySequence(Qt::Key_F4));
    statusBar()->showMessage(QStringLiteral("Click a panel, then Panel > Property Pages (F4), or right-click it"));
}

void ViewerWindow::Report(VexPanelWidget* panel, const QString& what)
{
    out_ << panel->objectName() << ": " << what << Qt::endl;
    statusBar()->showMessage(panel->objectName() + QStringLiteral(": ") + what, 3000);
}

void ViewerWindow::editPanel(VexPanelWidget* panel)
{
    if (!panel)
        return;
    PagesDialog dialog({ &panel->panel() }, this);
    dialog.setWindowTitle(QStringLiteral("Property Pages - %1").arg(panel->objectName()));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString file = panel->property("file").toString();
    QString error;
    if (panel->saveVxp(file, &error))
        out_ << panel->objectName() << ": saved " << file << Qt::endl;
    else
        QMessageBox::warning(this, QStringLiteral("Save"), QStringLiteral("%1: %2").arg(file, error));
}

} // namespace vex::qt
