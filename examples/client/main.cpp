// A client with a window, the longest example of the library.
#include "MainWindow.hpp"

#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>

namespace {

/// Shows the window, or draws it into a file. Returns the exit status of the process.
int run(client::MainWindow& window, const QCommandLineParser& options) {
    window.resize(1000, 700);
    window.findChild<QLineEdit*>("search")->setText(options.value("search"));
    window.open(options.positionalArguments().value(0, VELMO_SAMPLES));
    if (!options.isSet("screenshot")) {
        window.show();
        return QApplication::exec();
    }
    while (window.isReading())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    auto& tags = *window.findChild<QTreeWidget*>("tags");
    for (const QString& tag : options.values("tag"))
        for (auto* const row : tags.findItems(tag + " (", Qt::MatchStartsWith | Qt::MatchRecursive))
            row->setCheckState(0, Qt::Checked);
    auto& fonts = *window.findChild<QAbstractItemView*>("fonts");
    fonts.setCurrentIndex(fonts.model()->index(0, 0));
    if (window.grab().save(options.value("screenshot")))
        return EXIT_SUCCESS;
    qWarning("%s cannot be written", qPrintable(options.value("screenshot")));
    return EXIT_FAILURE;
}

/// Without a display, Qt would abort.
bool hasDisplay() {
#ifdef Q_OS_LINUX
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
    return true;
#endif
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        if (QString(argv[i]).startsWith("--screenshot") || QString(argv[i]) == "--help")
            qputenv("QT_QPA_PLATFORM", "offscreen"); // needs no display
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !hasDisplay()) {
        qWarning("There is no display. To draw the window into a file, use --screenshot FILE.");
        return EXIT_FAILURE;
    }
    const QApplication application(argc, argv);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QCommandLineParser options;
    options.addHelpOption();
    options.addPositionalArgument("source", "Folder of saved replies, or http:// address of them.");
    options.addOptions({{"search", "Search for a text.", "text"},
                        {"tag", "Tick a tag of the screenshot; may be repeated.", "name"},
                        {"screenshot", "Draw the window into a PNG file, and end.", "file"},
                        {"settings", "File of the settings.", "file", folder + "/settings.json"}});
    options.process(application);
    client::MainWindow window(options.value("settings"));
    return run(window, options);
}
