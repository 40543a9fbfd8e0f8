// VexPanelWidget against the headless host: the same pixels for every gallery example, the
// cursor polling's MouseEnter and MouseExit, an animation's frames on its timer.
#include <fstream>
#include <sstream>

#include <QMetaProperty>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include "control/vex_panel.h"
#include "control/vxp_format.h"
#include "headless/headless_surface.h"
#include "headless/headless_host.h"
#include "platform/soft/soft_device_context.h"
#include "png_io.h"
#include "qt/qt_colours.h"
#include "qt/qt_pictures.h"
#include "qt/vex_panel_widget.h"
#include "render/colour.h"
#include "render_job.h"

namespace vex::qt {
namespace {

// A form that paints a picture (the backdrop of a transparent panel) or nothing.
class Form : public QWidget {
public:
    QImage backdrop;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (!backdrop.isNull())
            painter.drawImage(0, 0, backdrop);
    }
};

void ShowActive(QWidget& form)
{
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}

platform::PictureRef PictureFor(const cli::RenderJob& job, control::VexPanel& panel, platform::DeviceContext& dc)
{
    return cli::ReadPngPicture(job.picture, render::TranslateColor(panel.BackColor(), dc));
}

// The headless host as a running program shows the panel: loaded, sized, shown, its form
// activated, then the job's animation ticks. Refresh only presents.
struct HeadlessRender {
    platform::Dib image;
    int16_t animFrame = 0;
};

HeadlessRender RenderHeadless(const cli::RenderJob& job)
{
    control::HeadlessHost host;
    control::HeadlessSurface surface(job.size);
    control::VexPanel panel(host, surface);
    if (!job.backdrop.empty()) {
        host.backdrop = cli::ReadImagePicture(job.backdrop);
        host.controlOffset = { (host.backdrop->pixelWidth() - job.size.width) / 2,
            (host.backdrop->pixelHeight() - job.size.height) / 2 };
    }
    control::MemoryPropertyBag bag = control::ReadVxpFile(job.file);
    panel.ReadProperties(bag);
    if (!job.picture.empty())
        panel.setPicture(PictureFor(job, panel, surface.Dc()));
    panel.OnResize();
    panel.OnShow();
    host.form.Activate();
    for (int frame = 0; frame < job.frames; ++frame)
        host.Advance(panel.PictureAnimDelay());
    return { surface.Dc().Snapshot(), panel.AnimFrame() };
}

std::vector<cli::RenderJob> GalleryJobs()
{
    std::vector<cli::RenderJob> jobs;
    std::ifstream list(VEX_EXAMPLES_DIR "/gallery.list");
    for (std::string line; std::getline(list, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        std::istringstream words(line.substr(0, line.find('|')));
        std::vector<std::string> texts;
        for (std::string word; words >> word;)
            texts.push_back(word);
        std::vector<std::string_view> views(texts.begin(), texts.end());
        cli::RenderJob job;
        EXPECT_EQ(cli::ParseRenderJob(views, job, VEX_EXAMPLES_DIR), "") << line;
        EXPECT_TRUE(job.settings.empty()) << "settings are not applied here: " << line;
        jobs.push_back(job);
    }
    return jobs;
}

TEST(QtWidget, ShowsEveryGalleryExampleAsTheHeadlessHostPaintsIt)
{
    const std::vector<cli::RenderJob> jobs = GalleryJobs();
    ASSERT_GE(jobs.size(), 10u);
    for (const cli::RenderJob& job : jobs) {
        SCOPED_TRACE(job.file);
        const HeadlessRender expected = RenderHeadless(job);

        Form form;
        QPoint offset(0, 0);
        QSize formSize(job.size.width, job.size.height);
        if (!job.backdrop.empty()) {
            form.backdrop = QImage(QString::fromStdString(job.backdrop)).convertToFormat(QImage::Format_RGB32);
            formSize = form.backdrop.size();
            offset = QPoint((formSize.width() - job.size.width) / 2, (formSize.height() - job.size.height) / 2);
        }
        form.resize(formSize);
        VexPanelWidget widget(&form);
        widget.setGeometry(QRect(offset, QSize(job.size.width, job.size.height)));
        ASSERT_TRUE(widget.loadVxp(QString::fromStdString(job.file)));
        if (!job.picture.empty()) {
            auto dc = platform::soft::CreateSurface(1, 1);
            widget.panel().setPicture(PictureFor(job, widget.panel(), *dc));
        }
        ShowActive(form);
        if (job.frames > 0) {
            ASSERT_TRUE(widget.panel().Timer2().Enabled());
            ASSERT_TRUE(QTest::qWaitFor([&] { return widget.panel().AnimFrame() == expected.animFrame; }, 5000));
        }
        const QImage shown = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QImage reference = ToQImage(expected.image);
        ASSERT_EQ(shown.size(), reference.size());
        int differing = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                differing += (shown.pixel(x, y) & 0xFFFFFF) != (reference.pixel(x, y) & 0xFFFFFF);
        EXPECT_EQ(differing, 0);
    }
}

TEST(QtWidget, CursorPollingRaisesMouseEnterThenMouseExit)
{
    Form form;
    form.resize(200, 100);
    VexPanelWidget widget(&form);
    widget.setGeometry(20, 20, 100, 40);
    std::vector<std::string> raised;
    QObject::connect(&widget, &VexPanelWidget::MouseEnter, [&](qint16&, qint16&, float&, float&) { raised.push_back("enter"); });
    QObject::connect(&widget, &VexPanelWidget::MouseExit, [&](qint16&, qint16&, float&, float&) { raised.push_back("exit"); });
    ShowActive(form);

    // The pointer moves, then Qt reports the move: the panel polls the pointer itself.
    auto moveTo = [](QWidget& over, QPoint point) {
        QCursor::setPos(over.mapToGlobal(point));
        QTest::mouseMove(&over, point);
    };
    // The poller runs from the panel's start: its first tick with the pointer outside raises a
    // MouseExit of its own, which is let pass here.
    moveTo(form, QPoint(180, 90));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !raised.empty(); }, 2000));
    raised.clear();
    moveTo(widget, QPoint(30, 10));
    moveTo(widget, QPoint(40, 12));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !raised.empty(); }, 2000));
    QTest::qWait(20);
    ASSERT_EQ(raised, std::vector<std::string> { "enter" });
    moveTo(form, QPoint(180, 90));
    EXPECT_TRUE(QTest::qWaitFor([&] { return raised.size() == 2; }, 2000));
    EXPECT_EQ(raised, (std::vector<std::string> { "enter", "exit" }));
}

TEST(QtWidget, AnimatedStripShowsItsFramesInTurnOnItsTimer)
{
    // Four 8x8 frames side by side, each one colour.
    const QRgb colours[] = { qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255), qRgb(255, 255, 0) };
    QImage strip(32, 8, QImage::Format_RGB32);
    for (int frame = 0; frame < 4; ++frame)
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                strip.setPixel(frame * 8 + x, y, colours[frame]);

    Form form;
    form.resize(120, 60);
    VexPanelWidget widget(&form);
    widget.setGeometry(0, 0, 120, 60);
    control::VexPanel& panel = widget.panel();
    panel.setPicture(platform::Picture::FromBitmap(ToDib(strip)));
    panel.setPictureFrames(4);
    panel.setPictureAnimDelay(30);
    ShowActive(form);
    panel.setPictureAnimEnabled(true);

    // Where frame 0 stands once painted.
    const QImage first = widget.grab().toImage();
    QPoint spot(-1, -1);
    for (int y = 0; y < first.height() && spot.x() < 0; ++y)
        for (int x = 0; x < first.width() && spot.x() < 0; ++x)
            if (first.pixel(x, y) == colours[0])
                spot = QPoint(x + 3, y + 3);
    ASSERT_GE(spot.x(), 0);

    std::vector<int> shown;
    for (int tick = 0; tick < 5; ++tick) {
        const int16_t before = panel.AnimFrame();
        ASSERT_TRUE(QTest::qWaitFor([&] { return panel.AnimFrame() != before; }, 2000));
        const QRgb pixel = widget.grab().toImage().pixel(spot);
        shown.push_back(static_cast<int>(std::find(std::begin(colours), std::end(colours), pixel) - std::begin(colours)));
    }
    EXPECT_EQ(shown, (std::vector<int> { 0, 1, 2, 3, 0 }));
}

TEST(QtWidget, PropertiesByNameGoThroughThePanelsSets)
{
    VexPanelWidget widget;
    std::vector<QString> boxes;
    widget.setMessageBoxHandler([&](const QString& text, const QString&, int) {
        boxes.push_back(text);
        return 1;
    });
    control::VexPanel& panel = widget.panel();
    QSignalSpy captionChanged(&widget, &VexPanelWidget::CaptionChanged);

    EXPECT_TRUE(widget.setProperty("Caption", QStringLiteral("Ready")));
    EXPECT_EQ(panel.Caption(), "Ready");
    EXPECT_EQ(captionChanged.count(), 1);
    // Enumerations by value and by member name.
    EXPECT_TRUE(widget.setProperty("Appearance", QVariant::fromValue(VexPanelWidget::TypeAppearance::Custom)));
    EXPECT_EQ(panel.Appearance(), model::TypeAppearance::Custom);
    EXPECT_TRUE(widget.setProperty("CaptionAlignment", QStringLiteral("RightBottom")));
    EXPECT_EQ(widget.property("CaptionAlignment").value<VexPanelWidget::TypeAlignment>(), VexPanelWidget::TypeAlignment::RightBottom);
    // The set rules: a clamp, and a rejected delay that leaves the value.
    widget.setProperty("CustomBorderRadio", -5);
    EXPECT_EQ(panel.CustomBorderRadio(), 0);
    widget.setProperty("PictureAnimDelay", 0);
    EXPECT_EQ(panel.PictureAnimDelay(), 100);
    EXPECT_EQ(boxes.size(), 1u);
    // Colours: plain ones as they are, a system colour shown as its colour and kept as itself.
    widget.setProperty("WinBackColor", QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(panel.WinBackColor(), 0x563412u);
    widget.setProperty("BackColor", widget.property("Panel3DHighLight"));
    EXPECT_EQ(panel.BackColor(), 0x80000014u);
    EXPECT_EQ(widget.property("BackColor").value<QColor>().rgb(), qRgb(255, 255, 255));

    // Every property reads, and writing back what it reads changes nothing.
    const QMetaObject& meta = *widget.metaObject();
    int count = 0;
    for (int i = VexPanelProperties::staticMetaObject.propertyOffset(); i < meta.propertyCount(); ++i, ++count) {
        const QMetaProperty property = meta.property(i);
        SCOPED_TRACE(property.name());
        const QVariant value = property.read(&widget);
        ASSERT_TRUE(value.isValid());
        if (property.isWritable()) {
            property.write(&widget, value);
            const QVariant again = property.read(&widget);
            if (value.metaType() == QMetaType::fromType<QPixmap>())
                EXPECT_EQ(again.value<QPixmap>().toImage(), value.value<QPixmap>().toImage());
            else
                EXPECT_EQ(again, value);
        }
    }
    EXPECT_GE(count, 60);
}

// A colour property holds any 32-bit value; as a QColor (and so in a .ui file) every value that
// can name a colour comes back as itself, and a named system colour shows its colour.
TEST(QtWidget, ColoursComeBackAsTheValueTheyWere)
{
    struct Case {
        OleColor value;
        OleColor back;
    };
    const Case cases[] = {
        { 0x00563412u, 0x00563412u }, // plain
        { 0x80000000u, 0x80000000u }, // the first and last system colours the host names
        { 0x8000001Eu, 0x8000001Eu },
        { 0x8000001Fu, 0x8000001Fu }, // system indices it does not name
        { 0x800000FFu, 0x800000FFu },
        { 0x80123456u, 0x80123456u },
        { 0x01000005u, 0x01000005u }, // a palette entry
        { 0x02563412u, 0x02563412u }, // palette-relative
        { 0xDF000001u, 0xDF000001u },
        { 0xE0563412u, 0x00563412u }, // high bytes that name nothing keep their colour only
        { 0xFFFFFFFFu, 0x00FFFFFFu },
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value);
        const QColor shown = ToQColor(c.value);
        EXPECT_EQ(ToOleColor(shown), c.back);
        const QColor saved(shown.red(), shown.green(), shown.blue(), shown.alpha()); // 8 bits each, as in a .ui file
        EXPECT_EQ(ToOleColor(saved), c.back);
    }
    EXPECT_EQ(ToQColor(SystemColor(syscolor::ButtonShadow)).rgb(), qRgb(128, 128, 128));
    EXPECT_EQ(ToOleColor(QColor(1, 2, 3)), 0x030201u); // what Designer's picker gives
}

} // namespace
} // namespace vex::qt
