#pragma once

#include "FontModel.hpp"
#include "FontPanel.hpp"
#include "FontView.hpp"
#include "Messages.hpp"
#include "TagPanel.hpp"

#include <QCheckBox>
#include <QFutureWatcher>
#include <QMainWindow>
#include <QSplitter>
#include <QStackedWidget>

namespace client {

/// The window: a search box, the tags, the fonts, and the selected font.
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

    std::chrono::nanoseconds queryTime() const noexcept { return m_queryTime; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeWidgets();
    void makeActions();
    void connectParts();
    void restoreLayout();
    void saveLayout() const;
    void chooseFolder();
    void cancel();
    void receive(Loaded loaded);
    void find();
    void showEmpty();
    void showSelected();
    void saveSettings();
    void setReading(bool isReading);

    QString m_settingsFile;
    std::shared_ptr<VelmoCloudEntity::ConfigItem> m_settings;
    QStringList m_settingsProblems;
    QStringList m_problems; // of the last reading
    std::shared_ptr<Catalogue> m_catalogue;
    QString m_opened; // the source of the last reading
    QString m_shown;  // the source of the catalogue
    bool m_isReading = false;
    FontModel m_model;
    std::chrono::nanoseconds m_queryTime{};
    QLineEdit* m_search = new QLineEdit;
    QCheckBox* m_characters = new QCheckBox("Also match single &characters");
    QLineEdit* m_source = new QLineEdit;
    QPushButton* m_choose = new QPushButton("Open\u2026");
    ProgressLine* m_progress = new ProgressLine([this] { cancel(); });
    MessageLine* m_message = new MessageLine([this] { open(m_opened); });
    TagPanel* m_tags = nullptr;
    QPushButton* m_untick = new QPushButton("&Untick all");
    FontView* m_fonts = nullptr;
    EmptyPage* m_empty = new EmptyPage;
    QStackedWidget* m_list = new QStackedWidget; // the fonts, or why there are none
    FontPanel* m_panel = nullptr;
    QSplitter* m_columns = new QSplitter;
    QSplitter* m_rows = new QSplitter(Qt::Vertical);
    QLabel* m_status = new QLabel;
    QLabel* m_from = new QLabel;
    QAction* m_dark = nullptr;
    Replies m_replies;
    QFutureWatcher<Loaded> m_loading;
    QFutureWatcher<QStringList> m_explaining;
};

} // namespace client
