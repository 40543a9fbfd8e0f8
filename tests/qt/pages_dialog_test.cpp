// The pages dialog driven as a user drives it, by object name: edits enable Apply, Apply writes
// the editors in table order and stops at a failure, combos store their item's index, Cancel
// writes nothing. With VEX_QT_SHOTS set to a folder, the dialog's tabs are saved there as PNGs.
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

#include "control/vex_panel.h"
#include "qt/pages_dialog.h"
#include "qt/vex_panel_widget.h"

namespace vex::qt {
namespace {

class PagesDialogTest : public ::testing::Test {
protected:
    PagesDialogTest()
    {
        widget.setMessageBoxHandler([this](const QString& text, const QString&, int) {
            errors << text;
            return 1;
        });
        dialog.setErrorHandler([this](const QString& text) { errors << text; });
        dialog.show();
    }

    template <typename T>
    T* Editor(const char* name)
    {
        T* editor = dialog.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(editor, nullptr) << name;
        // Its tab in front, as a user sees it.
        auto* tabs = dialog.findChild<QTabWidget*>();
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->widget(i)->isAncestorOf(editor))
                tabs->setCurrentIndex(i);
        QCoreApplication::processEvents(); // laid out
        EXPECT_TRUE(editor->isVisible()) << name;
        return editor;
    }
    void Click(const char* name)
    {
        QCheckBox* box = Editor<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2)); // on the box itself
    }
    void Type(const char* name, const QString& text)
    {
        QLineEdit* edit = Editor<QLineEdit>(name);
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    void Choose(const char* name, int index)
    {
        QComboBox* list = Editor<QComboBox>(name);
        QTest::keyClick(list, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            QTest::keyClick(list, Qt::Key_Down);
    }
    // Clicks a button that opens a modal dialog of type D, which `answer` fills in and accepts.
    template <typename D>
    void ClickAndAnswer(const QString& button, std::function<void(D&)> answer)
    {
        bool answered = false;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (auto* open = qobject_cast<D*>(QApplication::activeModalWidget())) {
                answered = true;
                answer(*open);
                open->accept();
            }
        });
        poll.start(10);
        auto* opener = dialog.findChild<QAbstractButton*>(button);
        ASSERT_NE(opener, nullptr) << button.toStdString();
        QTest::mouseClick(opener, Qt::LeftButton);
        EXPECT_TRUE(answered) << button.toStdString();
    }
    QPushButton* Button(QDialogButtonBox::StandardButton which)
    {
        return dialog.findChild<QDialogButtonBox*>()->button(which);
    }

    VexPanelWidget widget;
    control::VexPanel& panel = widget.panel();
    PagesDialog dialog { { &panel } };
    QStringList errors;
};

TEST_F(PagesDialogTest, ApplyWritesInTableOrderAndStopsAtTheFirstFailure)
{
    EXPECT_FALSE(Button(QDialogButtonBox::Apply)->isEnabled());
    Click("chkPictureBackgroundUseMask");
    EXPECT_TRUE(Button(QDialogButtonBox::Apply)->isEnabled());
    Type("txtPictureFrames", "abc");
    Click("chkPictureUseMask");
    Choose("cboPictureBackgroundStyle", 2);

    QTest::mouseClick(Button(QDialogButtonBox::Apply), Qt::LeftButton);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors[0].startsWith("Run-time error '13'")) << errors[0].toStdString();
    EXPECT_TRUE(panel.PictureBackgroundUseMask()); // before the failing editor
    EXPECT_FALSE(panel.PictureUseMask());          // after it
    EXPECT_EQ(panel.PictureBackgroundStyle(), model::TypePictureBackgroundStyle::CenteredPicture);
    EXPECT_TRUE(Button(QDialogButtonBox::Apply)->isEnabled());

    // OK with the failure still there keeps the dialog open; mended, it writes the rest.
    QTest::mouseClick(Button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    Type("txtPictureFrames", "0"); // below 1 becomes 1
    Type("txtPictureAnimDelay", "0"); // out of range: the panel's own message box, the value stays
    QTest::mouseClick(Button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(panel.PictureFrames(), 1);
    EXPECT_EQ(panel.PictureAnimDelay(), 100);
    EXPECT_EQ(errors.size(), 3);
    EXPECT_TRUE(panel.PictureUseMask());
    EXPECT_EQ(panel.PictureBackgroundStyle(), model::TypePictureBackgroundStyle::TiledPicture);
}

// A combo stores its item's index, whatever the item's label says.
TEST_F(PagesDialogTest, CombosStoreTheirItemsIndexAndCancelWritesNothing)
{
    struct Case {
        const char* editor;
        int index;
        const char* property;
    };
    const Case cases[] = {
        { "cboCaptionStyle", 1, "CaptionStyle" },          // "0 - Wrapped"
        { "cboWinOptionColor", 1, "WinOptionColor" },      // "0 - BackColor"
        { "cboWinGradientDirection", 7, "WinGradientDirection" }, // beyond the enumeration's names
        { "cboAppearance", 2, "Appearance" },
    };
    for (const Case& c : cases)
        Choose(c.editor, c.index);
    Type("txtCaption", "Edited");
    Type("clrBackColorText", "&H00123456&");

    if (const QByteArray folder = qgetenv("VEX_QT_SHOTS"); !folder.isEmpty()) {
        auto* tabs = dialog.findChild<QTabWidget*>();
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            dialog.grab().save(QStringLiteral("%1/pages-%2.png").arg(QString::fromLocal8Bit(folder)).arg(i));
        }
    }

    const std::string caption = panel.Caption();
    PagesDialog cancelled { { &panel } };
    cancelled.show();
    QTest::keyClicks(cancelled.findChild<QLineEdit*>("txtCaption"), "Not this");
    QTest::mouseClick(cancelled.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    EXPECT_FALSE(cancelled.isVisible());
    EXPECT_EQ(panel.Caption(), caption);

    QTest::mouseClick(Button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_TRUE(errors.isEmpty()) << errors.join('\n').toStdString();
    for (const Case& c : cases)
        EXPECT_EQ(widget.property(c.property).toInt(), c.index) << c.property;
    EXPECT_EQ(panel.Caption(), "Edited");
    EXPECT_EQ(panel.BackColor(), 0x123456u);
}

// The colour and font dialogs fill their pages' editors; Apply writes them.
TEST_F(PagesDialogTest, ThePickersFillTheEditorsThatApplyWrites)
{
    Editor<QLineEdit>("clrWinBackColorText");
    ClickAndAnswer<QColorDialog>(QStringLiteral("clrWinBackColorPick"),
        [](QColorDialog& colours) { colours.setCurrentColor(QColor(0x12, 0x34, 0x56, 200)); });
    EXPECT_EQ(dialog.findChild<QLineEdit*>("clrWinBackColorText")->text(), QStringLiteral("&H00563412&")); // plain, opaque

    Editor<QLineEdit>("txtFontName");
    ClickAndAnswer<QFontDialog>(QStringLiteral("cmdChooseFont"), [](QFontDialog& fonts) {
        QFont chosen(QStringLiteral("DejaVu Sans"), 14);
        chosen.setBold(true);
        chosen.setStrikeOut(true);
        fonts.setCurrentFont(chosen);
    });
    EXPECT_EQ(dialog.findChild<QLineEdit*>("txtFontName")->text(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(dialog.findChild<QLineEdit*>("txtFontSize")->text(), QStringLiteral("14"));
    EXPECT_TRUE(dialog.findChild<QCheckBox*>("chkFontBold")->isChecked());
    EXPECT_FALSE(dialog.findChild<QCheckBox*>("chkFontItalic")->isChecked());

    QTest::mouseClick(Button(QDialogButtonBox::Apply), Qt::LeftButton);
    EXPECT_TRUE(errors.isEmpty()) << errors.join('\n').toStdString();
    EXPECT_EQ(panel.WinBackColor(), 0x563412u);
    EXPECT_EQ(panel.Font().name, "DejaVu Sans");
    EXPECT_EQ(panel.Font().size, 14.0f);
    EXPECT_TRUE(panel.Font().bold);
    EXPECT_TRUE(panel.Font().strikethrough);
}

} // namespace
} // namespace vex::qt
