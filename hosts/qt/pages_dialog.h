#pragma once
// The panel's property pages as one Qt dialog: the seven pages the control declares, as tabs in
// their order (General, 3D, Custom, Picture, Color, Font, Image). Each editor is a Qt widget
// whose object name is the editor's name in the page tables (chkCaptionEfect, txtPictureFrames,
// cboAppearance, ...); a colour editor is a list of system colours (clrBackColor) with its text
// beside it (clrBackColorText) and a button that picks any colour (clrBackColorPick).
//
// The pages edit the first panel of the selection. A user's edit marks its page changed and
// enables Apply; Apply and OK write every changed page back through the panel's public sets, in
// table order. A run-time error of a write stops there (the editors before it are written) and is
// shown as a message box; OK then leaves the dialog open. Cancel writes nothing.

#include <functional>
#include <memory>
#include <vector>

#include <QDialog>

class QDialogButtonBox;
class QTabWidget;

namespace vex::control {
class VexPanel;
}

namespace vex::qt {

class PagesDialog : public QDialog {
    Q_OBJECT

public:
    explicit PagesDialog(std::vector<control::VexPanel*> selection, QWidget* parent = nullptr);
    ~PagesDialog() override;

    // Errors go to handler instead of a message box (tests, tools).
    void setErrorHandler(std::function<void(const QString& text)> handler) { errorHandler_ = std::move(handler); }

    // Writes every changed page; false when a write failed (its error has been shown).
    bool apply();

    void accept() override;

private:
    class Page;
    void UpdateApply();
    void ShowError(const QString& text);

    std::vector<control::VexPanel*> selection_;
    std::vector<std::unique_ptr<Page>> pages_;
    QTabWidget* tabs_ = nullptr;
    QDialogButtonBox* buttons_ = nullptr;
    std::function<void(const QString&)> errorHandler_;
};

} // namespace vex::qt
