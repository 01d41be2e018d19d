#include "MainWindow.hpp"

#include "FontView.hpp"
#include "Look.hpp"
#include "Settings.hpp"
#include "TagPanel.hpp"
#include "Texts.hpp"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QSettings>
#include <QShortcut>
#include <QtConcurrent>

namespace client {
namespace {

QString numberText(auto count) { return QLocale().toString(static_cast<qlonglong>(count)); }

/// Returns the settings of the window, in a file beside that of the client's settings.
QSettings windowSettings(const QString& settingsFile) {
    return QSettings(QFileInfo(settingsFile).path() + "/window.ini", QSettings::IniFormat);
}

} // namespace

MainWindow::MainWindow(QString settingsFile)
    : m_ui(std::make_unique<Ui::MainWindow>()),
      m_settingsFile(std::move(settingsFile)),
      m_settings(VelmoCloudEntity::ConfigItem::create()) {
    try {
        loadSettings(m_settingsFile, *m_settings);
    } catch (const std::exception& error) {
        m_settingsProblems << m_settingsFile + ": " + drawable(error.what(), 300);
    }
    m_ui->setupUi(this);
    m_ui->fonts->showModel(m_model);
    m_panel = std::make_unique<FontPanel>(*m_ui, m_settings, [this] { saveSettings(); });
    QFont large(font());
    large.setPointSizeF(large.pointSizeF() * 1.5);
    m_ui->emptyTitle->setFont(large);
    m_ui->empty->setBackgroundRole(QPalette::Base);
    for (QLabel* const label : {m_ui->emptyText, m_ui->from})
        label->setForegroundRole(QPalette::PlaceholderText);
    for (QLineEdit* const edit : {m_ui->search, m_ui->source, m_ui->previewText})
        edit->setTextMargins(gap / 2, 0, gap / 2, 0);
    m_ui->icon->setPixmap(QApplication::windowIcon().pixmap(64));
    m_ui->columns->setSizes({230, 770});
    m_ui->rows->setSizes({420, 250});
    connectParts();
    restoreLayout();
    setReading(false);
    showMessage({});
    find();
}

MainWindow::~MainWindow() { m_ui->fonts->selectionModel()->disconnect(this); }

void MainWindow::connectParts() {
    const Ui::MainWindow& ui = *m_ui;
    connect(ui.search, &QLineEdit::textChanged, this, &MainWindow::find);
    connect(ui.characters, &QCheckBox::toggled, this, &MainWindow::find);
    connect(ui.source, &QLineEdit::returnPressed, ui.againAction, &QAction::trigger);
    connect(ui.open, &QPushButton::clicked, ui.openAction, &QAction::trigger);
    connect(ui.retry, &QPushButton::clicked, this, [this] { open(m_opened); });
    connect(ui.more, &QPushButton::toggled, ui.details, &QWidget::setVisible);
    connect(ui.cancel, &QPushButton::clicked, this, &MainWindow::cancel);
    connect(ui.untick, &QPushButton::clicked, this, &MainWindow::untickAll);
    connect(ui.emptyButton, &QPushButton::clicked, this, [this] { m_onEmptyButton(); });
    connect(ui.openAction, &QAction::triggered, this, &MainWindow::chooseFolder);
    connect(ui.againAction, &QAction::triggered, this, [this] { open(m_ui->source->text()); });
    connect(ui.quitAction, &QAction::triggered, this, &QWidget::close);
    connect(ui.darkAction, &QAction::triggered, this, &MainWindow::setDark);
    connect(ui.findAction, &QAction::triggered, this, [this] {
        m_ui->search->setFocus(Qt::ShortcutFocusReason);
        m_ui->search->selectAll();
    });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this,
            [this] { m_isReading ? cancel() : m_ui->search->clear(); });
    ui.search->installEventFilter(this);
    ui.fonts->onLeave = [this] { m_ui->search->setFocus(Qt::TabFocusReason); };
    ui.tags->onTick = [this](FontTagItem& tag, bool isTicked) {
        m_catalogue->tick(tag, isTicked);
        find();
    };
    connect(ui.fonts->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& font) {
                m_panel->showFont(font.isValid() ? FontModel::fontAt(font) : nullptr);
            });
    connect(&m_loading, &QFutureWatcherBase::finished, this, [this] {
        if (m_loading.future().resultCount() > 0)
            receive(m_loading.result());
    });
    connect(&m_explaining, &QFutureWatcherBase::finished, this, [this] {
        if (m_explaining.future().resultCount() > 0)
            showMessage(m_explaining.result());
    });
}

void MainWindow::open(const QString& source) {
    cancel();
    m_ui->source->setText(source);
    m_opened = source;
    setReading(true);
    m_replies.get(
        source, replyNames(),
        [this](std::vector<Reply> replies) {
            m_loading.setFuture(QtConcurrent::run(load, std::move(replies)));
        },
        [this](qint64 received) {
            m_ui->progress->setText("Reading " + drawable(m_opened.toStdString()) + ": " +
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
    m_ui->progress->setText("Reading " + drawable(m_opened.toStdString()) + "\u2026");
    m_ui->progressLine->setVisible(isReading);
    if (isReading)
        m_ui->messageLine->hide();
    showPage();
}

void MainWindow::receive(Loaded loaded) {
    m_problems = loaded.problems;
    if (loaded.catalogue) {
        m_catalogue = std::move(loaded.catalogue);
        m_ui->from->setText("From " + drawable(m_opened.toStdString(), 80));
        m_ui->tags->showTags(m_catalogue->tags());
        m_explaining.setFuture(QtConcurrent::run(ignoredIn, std::move(loaded.replies)));
    } else {
        m_problems.prepend(drawable(m_opened.toStdString()) + " cannot be shown.");
    }
    setReading(false);
    showMessage({});
    find();
}

void MainWindow::find() {
    const std::string key = m_ui->search->text().toStdString();
    Found found = m_catalogue ? m_catalogue->find(key, m_ui->characters->isChecked()) : Found{};
    m_queryTime = found.duration;
    const bool hasTicks = m_catalogue && m_catalogue->hasTicks();
    const bool isTree = key.empty() && !hasTicks;
    const auto all = m_catalogue ? m_catalogue->fontCount() : 0;
    QString status = numberText(all) + (all == 1 ? " font" : " fonts");
    if (!isTree)
        status = numberText(found.fonts.size()) + " of " + status;
    if (!found.byCharacter.empty())
        status += ", " + numberText(found.byCharacter.size()) + " more by single characters";
    m_ui->status->setText(m_catalogue ? status : QString());
    m_ui->untick->setEnabled(hasTicks);
    m_ui->fonts->setRootIsDecorated(isTree); // else, no row has members
    m_model.setFound(std::move(found), key);
    showPage();
    m_panel->showFont(nullptr); // the model has no current row now
}

void MainWindow::untickAll() {
    if (!m_catalogue)
        return;
    m_catalogue->untickAll();
    m_ui->tags->showTags(m_catalogue->tags());
    find();
}

void MainWindow::showPage() {
    const bool isEmpty = m_model.rowCount() == 0;
    m_ui->list->setCurrentWidget(isEmpty ? static_cast<QWidget*>(m_ui->empty) : m_ui->fonts);
    const auto show = [this](const char* title, const QString& text, const char* button,
                             std::function<void()> onButton) {
        m_ui->emptyTitle->setText(title);
        m_ui->emptyText->setText(text);
        m_ui->emptyButton->setText(button);
        m_ui->emptyButton->setVisible(*button != '\0');
        m_onEmptyButton = std::move(onButton);
    };
    const auto choose = [this] { chooseFolder(); };
    if (m_isReading)
        show("Reading the fonts\u2026", drawable(m_opened.toStdString()), "", {});
    else if (!m_catalogue && !m_problems.isEmpty())
        show("The fonts could not be read", m_problems.join('\n'), "Try again",
             [this] { open(m_opened); });
    else if (!m_catalogue)
        show("No fonts yet", "Open a folder of saved replies, or enter the address of a service.",
             "Open folder\u2026", choose);
    else if (m_catalogue->fontCount() == 0)
        show("No fonts", "The list of fonts is empty.", "Open folder\u2026", choose);
    else
        show("No font found", "No font has this name and the ticked tags.", "Clear search and tags",
             [this] {
                 m_ui->search->clear();
                 untickAll();
                 m_ui->search->setFocus();
             });
}

void MainWindow::showMessage(const QStringList& details) {
    // Without fonts, the page in their place tells the problems of reading.
    const QStringList problems = m_settingsProblems + (m_catalogue ? m_problems : QStringList());
    m_details = details;
    m_ui->details->setPlainText(details.join('\n'));
    m_ui->details->setVisible(m_ui->more->isChecked() && !details.isEmpty());
    const QString ignored = QString("The replies hold values that are not used, of %1 %2.")
                                .arg(details.size())
                                .arg(details.size() == 1 ? "kind" : "kinds");
    m_ui->message->setText(problems.isEmpty() ? ignored : problems.join('\n'));
    m_ui->more->setVisible(!details.isEmpty());
    m_ui->retry->setVisible(!m_problems.isEmpty());
    m_ui->messageLine->setVisible(!problems.isEmpty() || !details.isEmpty());
    const Colours colours = messageColours(isDark(QApplication::palette()), !problems.isEmpty());
    QPalette palette;
    palette.setColor(QPalette::Window, colours.background);
    m_ui->messageLine->setPalette(palette);
    palette.setColor(QPalette::WindowText, colours.text);
    m_ui->message->setPalette(palette);
}

void MainWindow::saveSettings() {
    try {
        client::saveSettings(m_settingsFile, *m_settings);
        m_settingsProblems.clear();
    } catch (const std::exception& error) {
        m_settingsProblems = {m_settingsFile + ": " + drawable(error.what())};
    }
    showMessage(m_details);
}

void MainWindow::chooseFolder() {
    const QString folder =
        QFileDialog::getExistingDirectory(this, "Open saved replies", m_ui->source->text());
    if (!folder.isEmpty())
        open(folder);
}

void MainWindow::setDark(bool isDark) {
    QApplication::setPalette(paletteOf(isDark));
    m_ui->darkAction->setChecked(isDark);
    showMessage(m_details); // which has colours of its own, like the rows of tags
    if (m_catalogue)
        m_ui->tags->showTags(m_catalogue->tags());
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool isDown =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down;
    if (!isDown || m_model.rowCount() == 0)
        return QMainWindow::eventFilter(watched, event);
    if (!m_ui->fonts->currentIndex().isValid())
        m_ui->fonts->goToFirst();
    m_ui->fonts->setFocus(Qt::TabFocusReason);
    return true;
}

void MainWindow::restoreLayout() {
    const QSettings saved = windowSettings(m_settingsFile);
    restoreGeometry(saved.value("geometry").toByteArray());
    m_ui->columns->restoreState(saved.value("columns").toByteArray());
    m_ui->rows->restoreState(saved.value("rows").toByteArray());
    m_ui->fonts->header()->restoreState(saved.value("header").toByteArray());
    m_ui->characters->setChecked(saved.value("characters", false).toBool());
    setDark(saved.value("dark", isDark(QApplication::palette())).toBool());
}

void MainWindow::closeEvent(QCloseEvent* event) {
    QSettings saved = windowSettings(m_settingsFile);
    saved.setValue("geometry", saveGeometry());
    saved.setValue("columns", m_ui->columns->saveState());
    saved.setValue("rows", m_ui->rows->saveState());
    saved.setValue("header", m_ui->fonts->header()->saveState());
    saved.setValue("characters", m_ui->characters->isChecked());
    saved.setValue("dark", m_ui->darkAction->isChecked());
    QMainWindow::closeEvent(event);
}

} // namespace client
