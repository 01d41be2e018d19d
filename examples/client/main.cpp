// A client with a window, the longest example of the library.
#include "Look.hpp"
#include "MainWindow.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QCommandLineParser>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTreeWidget>

#include <cstdio>

namespace {

/// Reads the source, ticks the tags, selects the first font, and draws the window into a file.
/// Returns the exit status of the process.
int drawInto(const QString& file, client::MainWindow& window, const QStringList& tags) {
    while (window.isReading() || window.isExplaining())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (const QString& tag : tags)
        for (auto* const row : window.findChild<QTreeWidget*>("tags")->findItems(
                 tag, Qt::MatchFixedString | Qt::MatchRecursive))
            row->setCheckState(0, Qt::Checked);
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(window.findChild<QLineEdit*>("search"), &down);
    QApplication::processEvents();
    if (window.grab().save(file))
        return EXIT_SUCCESS;
    std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
    return EXIT_FAILURE;
}

/// Chooses the plugins for a display. Returns whether a missing one is to be told: Qt takes the
/// first plugin that works, and would end the process with an abort if none did.
bool chooseDisplay() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    const bool isWayland = qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    return !qEnvironmentVariableIsSet("QT_QPA_PLATFORM") &&
           qputenv("QT_QPA_PLATFORM", isWayland ? "wayland;xcb;offscreen" : "xcb;offscreen");
#else
    return false;
#endif
}

} // namespace

int main(int argc, char** argv) {
    QApplication::setApplicationName("velmo-client");
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QCommandLineParser options;
    options.addHelpOption();
    options.addPositionalArgument("source", "Folder of saved replies, or http:// address of them.");
    options.addOptions({{"search", "Search for a text.", "text"},
                        {"characters", "Also match single characters."},
                        {"dark", "Use dark colours."},
                        {"tag", "Tick a tag of the screenshot; may be repeated.", "name"},
                        {"screenshot", "Draw the window into a PNG file, and end.", "file"},
                        {"settings", "File of the settings.", "file", folder + "/settings.json"}});
    options.parse(QStringList(argv, argv + argc));
    const bool isShown = !options.isSet("screenshot") && !options.isSet("help");
    if (!isShown)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const bool needsDisplay = isShown && chooseDisplay();
    if (needsDisplay)
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    if (needsDisplay && QApplication::platformName() == "offscreen") {
        std::fputs("There is no display. Draw the window into a file: --screenshot FILE\n", stderr);
        return EXIT_FAILURE;
    }
    options.process(application);
    QApplication::setStyle(new client::Style);
    QApplication::setWindowIcon(QIcon(":/velmo-client.svg"));
    client::MainWindow window(options.value("settings"));
    if (options.isSet("dark"))
        window.setDark(true);
    if (options.isSet("characters"))
        window.findChild<QCheckBox*>("characters")->setChecked(true);
    window.findChild<QLineEdit*>("search")->setText(options.value("search"));
    const QString source = options.positionalArguments().value(0, VELMO_SAMPLES);
    if (!source.isEmpty())
        window.open(source);
    if (options.isSet("screenshot"))
        return drawInto(options.value("screenshot"), window, options.values("tag"));
    window.show();
    return QApplication::exec();
}
