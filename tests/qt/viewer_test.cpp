// The viewer's form: what a panel raises is printed, and the pages dialog saves the panel back.
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "qt/vex_panel_widget.h"
#include "viewer_window.h"

namespace vex::qt {
namespace {

TEST(QtViewer, PrintsWhatPanelsRaiseAndSavesAnEditedPanelBack)
{
    QTemporaryDir folder;
    const QString file = folder.filePath("3d-ridge.vxp");
    ASSERT_TRUE(QFile::copy(VEX_EXAMPLES_DIR "/3d-ridge.vxp", file));
    QString printed;
    QTextStream out(&printed);
    ViewerWindow window({ file, folder.filePath("missing.vxp") }, 2, QSize(120, 40), out);
    EXPECT_EQ(window.panelCount(), 1);
    EXPECT_EQ(window.errors().size(), 1);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    auto* panel = window.findChild<VexPanelWidget*>("3d-ridge");
    ASSERT_NE(panel, nullptr);
    QTest::mouseClick(panel, Qt::LeftButton);
    EXPECT_TRUE(printed.contains("3d-ridge: Click\n")) << printed.toStdString();

    // The dialog is modal: the edit is made once it is up.
    QTimer::singleShot(0, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        QLineEdit* caption = dialog->findChild<QLineEdit*>("txtCaption");
        caption->selectAll();
        QTest::keyClicks(caption, "Saved back");
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    window.editPanel(panel);
    EXPECT_TRUE(printed.contains("3d-ridge: saved")) << printed.toStdString();
    VexPanelWidget reloaded;
    ASSERT_TRUE(reloaded.loadVxp(file));
    EXPECT_EQ(reloaded.property("Caption").toString(), "Saved back");
}

} // namespace
} // namespace vex::qt
