#pragma once

#include "FontModel.hpp"
#include "FontPanel.hpp"
#include "Load.hpp"
#include "Settings.hpp"
#include "TagPanel.hpp"

#include <QCheckBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QThreadPool>

namespace client {

/// The window: a search box, the tags, the fonts, and the selected font.
class MainWindow : public QMainWindow {
public:
    /// Reads the settings from this file, and keeps them there.
    explicit MainWindow(QString settingsFile);

    /// Reads the replies of a folder or an address, and shows them. Reports in the window what
    /// cannot be read. Without a list of fonts, goes on with what it had. Cancels what is under
    /// way.
    void open(const QString& source);

    /// Ends the reading, and keeps what the window had.
    void cancel();

    bool isReading() const noexcept { return m_isReading; }

    std::chrono::nanoseconds queryTime() const noexcept { return m_queryTime; }

private:
    void makeWidgets();
    void nameForReaders();
    void addShortcuts();
    bool eventFilter(QObject* watched, QEvent* event) override;
    void receive(const std::vector<Reply>& replies);
    void take(Loaded& loaded);
    void setReading(bool isReading);
    void find();
    void showSelected();
    void resizePreview(int points);
    void keepSettings();
    void report(const QStringList& messages, const QStringList& ignored = {});

    QString m_settingsFile;
    std::shared_ptr<Settings> m_settings;
    QStringList m_settingsProblems;
    Catalogue m_catalogue;
    FontModel m_model;
    std::chrono::nanoseconds m_queryTime{};
    QLineEdit* m_search = new QLineEdit;
    QCheckBox* m_characters = new QCheckBox("Also single characters");
    QLineEdit* m_source = new QLineEdit;
    QString m_opened;  // the source that is read, or was read last
    int m_reading = 0; // counts the readings, so that what a cancelled one gives is dropped
    bool m_isReading = false;
    QLabel* m_message = new QLabel;
    QPushButton* m_detailsButton = new QPushButton("Details");
    QLabel* m_ignored = new QLabel;
    QPushButton* m_untick = new QPushButton("Untick all");
    QPushButton* m_cancel = new QPushButton("Cancel");
    QLabel* m_status = new QLabel;
    TagPanel* m_tags = nullptr;
    QAbstractItemView* m_fonts = nullptr;
    FontPanel* m_panel = new FontPanel;
    Replies m_replies;
    QThreadPool m_worker{this}; // last, so that its thread ends before what it reads is destroyed
};

} // namespace client
