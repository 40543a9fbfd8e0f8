// vexpanel-view FILE.vxp... [--grid COLUMNS] [--size WxH] [--screenshot FILE.png]
// Shows saved panels live on one form. --screenshot saves the window once the panels have run for
// a moment, and quits.
#include <QApplication>
#include <QRegularExpression>
#include <QTextStream>
#include <QTimer>

#include <cmath>

#include "viewer_window.h"

namespace {

constexpr const char* kUsage = "usage: vexpanel-view FILE.vxp... [--grid COLUMNS] [--size WxH] [--screenshot FILE.png]\n";

int Fail(const QString& message)
{
    QTextStream(stderr) << "vexpanel-view: " << message << "\n" << kUsage;
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QStringList files;
    int columns = 0;
    QSize size(220, 80);
    QString screenshot;
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (argument == QStringLiteral("--help") || argument == QStringLiteral("-h")) {
            QTextStream(stdout) << kUsage;
            return 0;
        } else if (argument == QStringLiteral("--grid")) {
            bool number = false;
            columns = hasValue ? arguments[++i].toInt(&number) : 0;
            if (!number || columns < 1 || columns > 100)
                return Fail(QStringLiteral("--grid wants a number of columns from 1 to 100"));
        } else if (argument == QStringLiteral("--size")) {
            const QRegularExpressionMatch match
                = QRegularExpression(QStringLiteral("^(\\d{1,4})x(\\d{1,4})$")).match(hasValue ? arguments[++i] : QString());
            if (!match.hasMatch() || match.captured(1).toInt() < 1 || match.captured(2).toInt() < 1)
                return Fail(QStringLiteral("--size wants WIDTHxHEIGHT in pixels"));
            size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
        } else if (argument == QStringLiteral("--screenshot")) {
            if (!hasValue)
                return Fail(QStringLiteral("--screenshot wants a file name"));
            screenshot = arguments[++i];
        } else if (argument.startsWith(QStringLiteral("--"))) {
            return Fail(QStringLiteral("unknown option ") + argument);
        } else {
            files << argument;
        }
    }
    if (files.isEmpty())
        return Fail(QStringLiteral("no .vxp file given"));
    if (columns == 0)
        columns = static_cast<int>(std::ceil(std::sqrt(static_cast<double>(files.size()))));

    QTextStream out(stdout);
    vex::qt::ViewerWindow window(files, columns, size, out);
    for (const QString& error : window.errors())
        QTextStream(stderr) << "vexpanel-view: " << error << "\n";
    if (window.panelCount() == 0)
        return 1;
    window.show();
    window.activateWindow(); // the form's activation starts animations and captures (needed without a window manager)
    if (!screenshot.isEmpty()) {
        QTimer::singleShot(600, &window, [&] {
            if (!window.grab().save(screenshot)) {
                QTextStream(stderr) << "vexpanel-view: cannot write " << screenshot << "\n";
                QCoreApplication::exit(1);
                return;
            }
            QCoreApplication::exit(window.errors().isEmpty() ? 0 : 1);
        });
    }
    const int status = QApplication::exec();
    return status != 0 ? status : window.errors().isEmpty() ? 0 : 1;
}
