#include "MainWindow.hpp"

#include "Look.hpp"
#include "Settings.hpp"
#include "Texts.hpp"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLocale>
#include <QtConcurrent>

namespace client {

MainWindow::MainWindow(QString settingsFile)
    : m_settingsFile(std::move(settingsFile)), m_settings(VelmoCloudEntity::ConfigItem::create()) {
    try {
        loadSettings(m_settingsFile, *m_settings);
    } catch (const std::exception& error) {
        m_settingsProblems << m_settingsFile + ": " + drawable(error.what(), 300);
    }
    makeWidgets();
    makeActions();
    connectParts();
    restoreLayout();
    m_message->showMessage(m_settingsProblems, {}, false);
    m_progress->hide();
    find();
}

MainWindow::~MainWindow() { m_fonts->selectionModel()->disconnect(this); }

void MainWindow::open(const QString& source) {
    cancel();
    m_source->setText(source);
    m_opened = source;
    setReading(true);
    m_replies.get(
        source, replyNames(),
        [this](std::vector<Reply> replies) {
            m_loading.setFuture(QtConcurrent::run(load, std::move(replies)));
        },
        [this](qint64 received) {
            m_progress->showProgress("Reading " + drawable(m_opened.toStdString()) + ": " +
                                     QLocale().formattedDataSize(received));
        });
}

void MainWindow::cancel() {
    m_replies.cancel();
    m_loading.setFuture({}); // a load that is running ends unheard
    m_explaining.setFuture({});
    setReading(false);
}

void MainWindow::setReading(bool isReading) {
    m_isReading = isReading;
    m_progress->showProgress("Reading " + drawable(m_opened.toStdString()) + "\u2026");
    m_progress->setVisible(isReading);
    if (isReading)
        m_message->showMessage({}, {}, false);
    showEmpty();
}

void MainWindow::receive(Loaded loaded) {
    m_problems = loaded.problems;
    if (loaded.catalogue) {
        m_catalogue = std::move(loaded.catalogue);
        m_shown = m_opened;
        m_tags->showTags(m_catalogue->tags());
        m_explaining.setFuture(QtConcurrent::run(ignoredIn, std::move(loaded.replies)));
    } else {
        m_problems.prepend(drawable(m_opened.toStdString()) + " cannot be shown.");
    }
    setReading(false);
    // Without fonts, the page in their place says it.
    m_message->showMessage(m_catalogue ? m_settingsProblems + m_problems : m_settingsProblems, {},
                           m_catalogue != nullptr);
    m_from->setText(m_catalogue ? "From " + drawable(m_shown.toStdString(), 80) : QString());
    find();
}

void MainWindow::find() {
    const std::string key = m_search->text().toStdString();
    Found found = m_catalogue ? m_catalogue->find(key, m_characters->isChecked()) : Found{};
    m_queryTime = found.duration;
    const bool isTree = key.empty() && m_catalogue && !m_catalogue->hasTicks();
    const auto number = [](auto count) {
        return QLocale().toString(static_cast<qlonglong>(count));
    };
    const auto all = m_catalogue ? m_catalogue->fontCount() : 0;
    QString status = number(all) + (all == 1 ? " font" : " fonts");
    if (!isTree)
        status = number(found.fonts.size()) + " of " + status;
    if (!found.byCharacter.empty())
        status += ", " + number(found.byCharacter.size()) + " more by single characters";
    m_status->setText(m_catalogue ? status : QString());
    m_untick->setEnabled(m_catalogue && m_catalogue->hasTicks());
    m_fonts->setRootIsDecorated(isTree); // else, no row has members
    m_model.setFound(std::move(found), key);
    showEmpty();
    showSelected();
}

void MainWindow::showEmpty() {
    const bool isEmpty = m_model.rowCount() == 0;
    m_list->setCurrentWidget(isEmpty ? static_cast<QWidget*>(m_empty) : m_fonts);
    if (!isEmpty)
        return;
    if (m_isReading)
        m_empty->showPage("Reading the fonts\u2026", drawable(m_opened.toStdString()), {}, {});
    else if (!m_catalogue && !m_problems.isEmpty())
        m_empty->showPage("The fonts could not be read", m_problems.join('\n'), "Try again",
                          [this] { open(m_opened); });
    else if (!m_catalogue)
        m_empty->showPage("No fonts yet",
                          "Open a folder of saved replies, or enter the address of a service.",
                          "Open folder\u2026", [this] { chooseFolder(); });
    else if (m_catalogue->fontCount() == 0)
        m_empty->showPage("No fonts", "The list of fonts is empty.", "Open folder\u2026",
                          [this] { chooseFolder(); });
    else
        m_empty->showPage("No font found",
                          m_catalogue->hasTicks() ? "No font has these tags and this name."
                                                  : "No font has this name.",
                          "Clear search and tags", [this] {
                              m_search->clear();
                              m_untick->click();
                              m_search->setFocus();
                          });
}

void MainWindow::showSelected() {
    const QModelIndex current = m_fonts->currentIndex();
    m_panel->showFont(current.isValid() ? FontModel::fontAt(current) : nullptr);
}

void MainWindow::saveSettings() {
    try {
        client::saveSettings(m_settingsFile, *m_settings);
    } catch (const std::exception& error) {
        m_message->showMessage({m_settingsFile + ": " + drawable(error.what())}, {}, false);
    }
}

void MainWindow::chooseFolder() {
    const QString folder = QFileDialog::getExistingDirectory(this, "Open saved replies", m_shown);
    if (!folder.isEmpty())
        open(folder);
}

void MainWindow::setDark(bool isDark) {
    QApplication::setPalette(paletteOf(isDark));
    m_dark->setChecked(isDark);
    if (m_catalogue)
        m_tags->showTags(m_catalogue->tags()); // whose rows have colours of their own
}

void MainWindow::closeEvent(QCloseEvent* event) {
    saveLayout();
    QMainWindow::closeEvent(event);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_search && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        if (m_model.rowCount() == 0)
            return true;
        if (!m_fonts->currentIndex().isValid())
            m_fonts->goToFirst();
        m_fonts->setFocus(Qt::TabFocusReason);
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace client
