#include <QApplication>
#include <cstdio>
#include <vexpanel/qt/vex_panel_widget.h>
#include <vexpanel/vex_panel.h>

// The widget presents the panel it owns: a pixel inside the border has the panel's back colour.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    vex::qt::VexPanelWidget widget;
    widget.resize(60, 30);
    widget.panel().setBackColor(0x00336699);
    widget.panel().setCaption("");
    const QRgb pixel = widget.grab().toImage().pixel(30, 15);
    if (pixel != qRgb(0x99, 0x66, 0x33)) {
        std::printf("unexpected colour %06x\n", pixel & 0xFFFFFF);
        return 1;
    }
    std::puts("consumer ok");
    return 0;
}
