#pragma once

#include "FontModel.hpp"
#include "FontPanel.hpp"

#include <QFutureWatcher>
#include <QMainWindow>

namespace client {

/// The window: a search box, the tags, the fonts, and the selected font. MainWindow.ui lays it out.
class MainWindow : public QMainWindow {
public:
    /// Reads the settings from this file, and keeps them there. What belongs to the window, such as
    /// the widths of columns, is in `window.ini` beside it.
    explicit MainWindow(QString settingsFile);
    ~MainWindow() override;

    /// Reads the replies of a folder or an address, and shows them. If the fonts cannot be read,
    /// says why, and keeps what is shown. Cancels a reading that is under way.
    void open(const QString& source);
    bool isReading() const noexcept { return m_isReading; }

    /// Whether what the replies hold beyond what is shown is still being looked for.
    bool isExplaining() const { return m_explaining.isRunning(); }

    void setDark(bool isDark);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void connectParts();
    void restoreLayout();
    void chooseFolder();
    void cancel();
    void receive(Loaded loaded);
    void find();
    void untickAll();
    void showState();
    void showPage();
    void saveSettings();
    bool pressInFonts(int key);

    std::unique_ptr<Ui::MainWindow> m_ui;
    QString m_settingsFile;
    std::shared_ptr<VelmoCloudEntity::ConfigItem> m_settings;
    QStringList m_settingsProblems;
    QStringList m_problems; // of the last reading that ended
    QString m_retried;      // its source
    std::shared_ptr<Catalogue> m_catalogue;
    QStringList m_ignored; // what its replies hold that is not used
    QString m_opened;      // the source of the last reading
    bool m_isReading = false;
    std::function<void()> m_onEmptyButton; // what the button in place of the fonts does
    FontModel m_model;
    std::unique_ptr<FontPanel> m_panel;
    Replies m_replies;
    QFutureWatcher<Loaded> m_loading;
    QFutureWatcher<QStringList> m_explaining;
};

} // namespace client
