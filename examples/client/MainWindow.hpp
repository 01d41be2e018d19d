#pragma once

#include "FontModel.hpp"
#include "FontPanel.hpp"
#include "Replies.hpp"
#include "TagPanel.hpp"

#include <QLineEdit>
#include <QMainWindow>

namespace client {

/// The window: a search box, the tags, the fonts, and the selected font.
class MainWindow : public QMainWindow {
public:
    /// Reads the settings from this file, and keeps them there.
    explicit MainWindow(QString settingsFile);

    /// Reads the replies of a folder or an address, and shows them. Reports in the window what
    /// cannot be read, and goes on with what it had. Does nothing while it is reading.
    void open(const QString& source);
    bool isReading() const noexcept { return m_replies.isReading(); }

    std::chrono::nanoseconds queryTime() const noexcept { return m_queryTime; }

private:
    void makeWidgets();
    void receive(const std::vector<Reply>& replies);
    void find();
    void showSelected();
    void resizePreview(int points);
    void report(const QStringList& messages);

    QString m_settingsFile;
    std::shared_ptr<VelmoCloudEntity::ConfigItem> m_settings;
    QStringList m_settingsProblems;
    Catalogue m_catalogue;
    FontModel m_model;
    std::chrono::nanoseconds m_queryTime{};
    QLineEdit* m_search = new QLineEdit;
    QLineEdit* m_source = new QLineEdit;
    QLabel* m_message = new QLabel;
    QLabel* m_status = new QLabel;
    TagPanel* m_tags = nullptr;
    QAbstractItemView* m_fonts = nullptr;
    FontPanel* m_panel = new FontPanel;
    Replies m_replies;
};

} // namespace client
