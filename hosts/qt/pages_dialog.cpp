#include "qt/pages_dialog.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QPixmap>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "base/runtime_error.h"
#include "pages/image_page.h"
#include "pages/page_tables.h"
#include "pages/picture_import.h"
#include "pages/property_page.h"
#include "platform/soft/soft_device_context.h"
#include "qt/qt_colours.h"

namespace vex::qt {

namespace {

QString ErrorText(const RuntimeError& error)
{
    return QStringLiteral("Run-time error '%1':\n\n%2").arg(error.number()).arg(QString::fromStdString(error.what()));
}

QString ToQString(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

// A colour editor's text as a small square of its colour (empty when the text names none).
QIcon Swatch(const std::string& text)
{
    QPixmap square(16, 16);
    square.fill(Qt::transparent);
    try {
        QColor colour = ToQColor(pages::ColourFromText(text));
        colour.setAlpha(255);
        square.fill(colour);
    } catch (const RuntimeError&) {
    }
    return QIcon(square);
}

// The file-open dialog's filter text: "All pictures (*.png *.bmp ...);;PNG (*.png);;..."
QString FilterText()
{
    QStringList filters;
    for (const pages::PictureFilter& filter : pages::PictureFilters())
        filters << QStringLiteral("%1 (%2)").arg(ToQString(filter.label), ToQString(filter.patterns).replace(';', ' '));
    return filters.join(QStringLiteral(";;"));
}

} // namespace

// One tab: the page's model and a Qt editor for each of its editors.
class PagesDialog::Page {
public:
    Page(const pages::PageSpec& spec, std::span<control::VexPanel* const> selection, PagesDialog& dialog)
        : model_(pages::CreatePage(spec))
        , dialog_(dialog)
    {
        model_->Initialize();
        if (auto* image = dynamic_cast<pages::ImagePage*>(model_.get())) {
            reference_ = platform::soft::CreateSurface(1, 1);
            image->SetReferenceContext(reference_.get());
        }
        Build();
        model_->SelectionChanged(selection);
        Show();
    }

    QWidget* widget() const { return widget_; }
    pages::PropertyPage& model() { return *model_; }

    // The editors as the model holds them now.
    void Show()
    {
        for (size_t i = 0; i < model_->EditorCount(); ++i) {
            const pages::EditorState& state = model_->Editor(i);
            Editor& editor = editors_[i];
            const QSignalBlocker blockCheck(editor.check), blockText(editor.text), blockList(editor.list);
            if (editor.check) {
                editor.check->setTristate(state.check == 2);
                editor.check->setCheckState(state.check == 2 ? Qt::PartiallyChecked : state.check == 1 ? Qt::Checked : Qt::Unchecked);
            }
            if (editor.text)
                editor.text->setText(QString::fromStdString(state.text));
            if (editor.list)
                editor.list->setCurrentIndex(state.listIndex);
            if (editor.swatch)
                editor.swatch->setIcon(Swatch(state.text));
        }
    }

private:
    struct Editor {
        QCheckBox* check = nullptr;
        QLineEdit* text = nullptr;
        QComboBox* list = nullptr;
        QToolButton* swatch = nullptr; // a colour's button shows the colour
    };

    // A user's edit: the model takes it (and marks the page changed); a value it refuses is shown.
    template <typename Step>
    void Edit(Step step)
    {
        try {
            step();
        } catch (const RuntimeError& error) {
            dialog_.ShowError(ErrorText(error));
        }
        Show();
        dialog_.UpdateApply();
    }

    void Build()
    {
        widget_ = new QWidget;
        auto* form = new QFormLayout(widget_);
        const pages::PageSpec& spec = model_->spec();
        editors_.resize(spec.editors.size());
        for (size_t i = 0; i < spec.editors.size(); ++i) {
            const pages::EditorSpec& editorSpec = spec.editors[i];
            const QString name = ToQString(editorSpec.name);
            const QString label = editorSpec.property.empty() ? name.mid(3) : ToQString(editorSpec.property);
            Editor& editor = editors_[i];
            switch (editorSpec.kind) {
            case pages::EditorKind::CheckBox:
                editor.check = new QCheckBox(label);
                editor.check->setObjectName(name);
                QObject::connect(editor.check, &QCheckBox::clicked, [this, i] {
                    const bool checked = editors_[i].check->checkState() == Qt::Checked;
                    Edit([&] { model_->Check(i, checked ? 1 : 0); });
                });
                form->addRow(editor.check);
                break;
            case pages::EditorKind::TextBox:
                editor.text = new QLineEdit;
                editor.text->setObjectName(name);
                QObject::connect(editor.text, &QLineEdit::textEdited,
                    [this, i](const QString& text) { Edit([&] { model_->Type(i, text.toStdString()); }); });
                form->addRow(label, WithExtras(editor.text, name));
                break;
            case pages::EditorKind::ComboBox:
                editor.list = NewList(i, name);
                form->addRow(label, editor.list);
                break;
            case pages::EditorKind::ColorBox: {
                editor.list = NewList(i, name);
                editor.text = new QLineEdit;
                editor.text->setObjectName(name + QStringLiteral("Text"));
                editor.text->setMinimumWidth(editor.text->fontMetrics().horizontalAdvance(QStringLiteral("&H8000000F&")) + 12);
                QObject::connect(editor.text, &QLineEdit::textEdited,
                    [this, i](const QString& text) { Edit([&] { model_->Type(i, text.toStdString()); }); });
                auto* pick = new QToolButton;
                pick->setObjectName(name + QStringLiteral("Pick"));
                pick->setToolTip(QStringLiteral("Any colour"));
                editor.swatch = pick;
                QObject::connect(pick, &QToolButton::clicked, [this, i] { PickColour(i); });
                auto* row = new QHBoxLayout;
                row->addWidget(editor.list, 1);
                row->addWidget(editor.text);
                row->addWidget(pick);
                form->addRow(label, row);
                break;
            }
            }
        }
        if (spec.name == "StandardFont") {
            auto* choose = new QPushButton(QStringLiteral("Choose font..."));
            choose->setObjectName(QStringLiteral("cmdChooseFont"));
            QObject::connect(choose, &QPushButton::clicked, [this] { ChooseFont(); });
            form->addRow(QString(), choose);
        }
        if (auto* image = dynamic_cast<pages::ImagePage*>(model_.get())) {
            auto* clear = new QPushButton(QStringLiteral("Clear picture"));
            clear->setObjectName(QStringLiteral("cmdClearPicture"));
            QObject::connect(clear, &QPushButton::clicked, [this, image] { Edit([&] { image->ClearPicture(); }); });
            form->addRow(QString(), clear);
        }
    }

    QComboBox* NewList(size_t index, const QString& name)
    {
        auto* list = new QComboBox;
        list->setObjectName(name);
        for (const std::string& item : model_->Editor(index).list)
            list->addItem(QString::fromStdString(item));
        QObject::connect(list, &QComboBox::activated, [this, index](int chosen) { Edit([&] { model_->Choose(index, chosen); }); });
        return list;
    }

    // The file name gets a button that opens the file-open dialog with the picture filters.
    QWidget* WithExtras(QLineEdit* text, const QString& name)
    {
        if (name != QStringLiteral("txtFileName"))
            return text;
        auto* box = new QWidget;
        auto* row = new QHBoxLayout(box);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(text, 1);
        auto* browse = new QToolButton;
        browse->setObjectName(QStringLiteral("cmdBrowse"));
        browse->setText(QStringLiteral("..."));
        const size_t index = *model_->Find("txtFileName");
        QObject::connect(browse, &QToolButton::clicked, [this, index] {
            const QString file = QFileDialog::getOpenFileName(widget_, QStringLiteral("Load Picture"), QString(), FilterText());
            if (!file.isEmpty())
                Edit([&] { model_->Type(index, file.toStdString()); });
        });
        row->addWidget(browse);
        return box;
    }

    // The font dialog fills the font page's editors (the page still writes them on Apply).
    void ChooseFont()
    {
        const auto text = [this](const char* editor) { return QString::fromStdString(model_->Editor(*model_->Find(editor)).text); };
        const auto checked = [this](const char* editor) { return model_->Editor(*model_->Find(editor)).check == 1; };
        QFont start(text("txtFontName"));
        start.setPointSizeF(std::max(1.0, text("txtFontSize").toDouble()));
        start.setBold(checked("chkFontBold"));
        start.setItalic(checked("chkFontItalic"));
        start.setUnderline(checked("chkFontUnderline"));
        start.setStrikeOut(checked("chkFontStrikethru"));
        bool chosen = false;
        const QFont font = QFontDialog::getFont(&chosen, start, widget_, QStringLiteral("Font"));
        if (!chosen)
            return;
        Edit([&] {
            model_->Type(*model_->Find("txtFontName"), font.family().toStdString());
            model_->Type(*model_->Find("txtFontSize"), QString::number(font.pointSizeF()).toStdString());
            model_->Check(*model_->Find("chkFontBold"), font.bold() ? 1 : 0);
            model_->Check(*model_->Find("chkFontItalic"), font.italic() ? 1 : 0);
            model_->Check(*model_->Find("chkFontUnderline"), font.underline() ? 1 : 0);
            model_->Check(*model_->Find("chkFontStrikethru"), font.strikeOut() ? 1 : 0);
        });
    }

    void PickColour(size_t index)
    {
        QColor start;
        try {
            start = ToQColor(pages::ColourFromText(model_->Editor(index).text));
        } catch (const RuntimeError&) {
        }
        const QColor chosen = QColorDialog::getColor(start, widget_, QStringLiteral("Color"));
        if (chosen.isValid()) {
            const QColor opaque(chosen.red(), chosen.green(), chosen.blue()); // a plain colour
            Edit([&] { model_->Type(index, pages::ColourText(ToOleColor(opaque))); });
        }
    }

    std::unique_ptr<pages::PropertyPage> model_;
    PagesDialog& dialog_;
    std::unique_ptr<platform::soft::SoftDeviceContext> reference_;
    QWidget* widget_ = nullptr;
    std::vector<Editor> editors_;
};

PagesDialog::PagesDialog(std::vector<control::VexPanel*> selection, QWidget* parent)
    : QDialog(parent)
    , selection_(std::move(selection))
{
    setWindowTitle(QStringLiteral("Property Pages"));
    tabs_ = new QTabWidget;
    for (const pages::PageSpec& spec : pages::Pages()) {
        pages_.push_back(std::make_unique<Page>(spec, selection_, *this));
        auto* scroll = new QScrollArea;
        scroll->setWidget(pages_.back()->widget());
        scroll->setWidgetResizable(true);
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setObjectName(ToQString(spec.name));
        tabs_->addTab(scroll, ToQString(spec.caption));
    }
    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply);
    connect(buttons_, &QDialogButtonBox::accepted, this, &PagesDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &PagesDialog::reject);
    connect(buttons_->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, [this] { apply(); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(buttons_);
    UpdateApply();
    resize(540, 440);
}

PagesDialog::~PagesDialog() = default;

bool PagesDialog::apply()
{
    for (const std::unique_ptr<Page>& page : pages_) {
        if (!page->model().Changed())
            continue;
        try {
            page->model().ApplyChanges();
        } catch (const RuntimeError& error) {
            ShowError(ErrorText(error));
            UpdateApply();
            return false;
        }
    }
    UpdateApply();
    return true;
}

void PagesDialog::accept()
{
    if (apply())
        QDialog::accept();
}

void PagesDialog::UpdateApply()
{
    bool changed = false;
    for (const std::unique_ptr<Page>& page : pages_)
        changed = changed || page->model().Changed();
    buttons_->button(QDialogButtonBox::Apply)->setEnabled(changed);
}

void PagesDialog::ShowError(const QString& text)
{
    if (errorHandler_)
        errorHandler_(text);
    else
        QMessageBox::critical(this, QStringLiteral("Property Pages"), text);
}

} // namespace vex::qt
