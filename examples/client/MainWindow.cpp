#include "MainWindow.hpp"

#include "FontDelegate.hpp"
#include "Look.hpp"
#include "Settings.hpp"
#include "Texts.hpp"
#include "showTags.hpp"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSettings>
#include <QShortcut>
#include <QtConcurrent>

namespace client {
namespace {

QString counted(std::integral auto count, const char* one, const char* more) {
    return QLocale().toString(static_cast<qlonglong>(count)) + " " + (count == 1 ? one : more);
}

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
    m_ui->fonts->setModel(&m_model);
    m_ui->fonts->setItemDelegate(new FontDelegate(this));
    QHeaderView& header = *m_ui->fonts->header();
    header.resizeSection(FontModel::name, 260);
    header.resizeSection(FontModel::family, 170);
    header.setSectionResizeMode(FontModel::file, QHeaderView::Stretch);
    m_ui->columns->setSizes({230, 770});
    m_ui->rows->setSizes({420, 250});
    m_panel = std::make_unique<FontPanel>(*m_ui, m_settings, [this] { saveSettings(); });
    m_ui->empty->setBackgroundRole(QPalette::Base);
    for (QLabel* const label :
         {m_ui->emptyText, m_ui->from, m_ui->fileCaption, m_ui->addressCaption,
          m_ui->previewFileCaption, m_ui->previewAddressCaption})
        label->setForegroundRole(QPalette::PlaceholderText);
    for (QLineEdit* const edit : {m_ui->search, m_ui->source, m_ui->previewText})
        edit->setTextMargins(gap / 2, 0, gap / 2, 0);
    m_ui->icon->setPixmap(QApplication::windowIcon().pixmap(64));
    connectParts();
    restoreLayout();
    showState();
    find();
}

MainWindow::~MainWindow() { m_ui->fonts->selectionModel()->disconnect(this); }

void MainWindow::connectParts() {
    const Ui::MainWindow& ui = *m_ui;
    connect(ui.search, &QLineEdit::textChanged, this, &MainWindow::find);
    connect(ui.characters, &QCheckBox::toggled, this, &MainWindow::find);
    connect(ui.retry, &QPushButton::clicked, this, [this] { open(m_retried); });
    connect(ui.cancel, &QPushButton::clicked, this, &MainWindow::cancel);
    connect(ui.untick, &QPushButton::clicked, this, &MainWindow::untickAll);
    connect(ui.emptyButton, &QPushButton::clicked, this, [this] { m_onEmptyButton(); });
    connect(ui.openAction, &QAction::triggered, this, &MainWindow::chooseFolder);
    connect(ui.againAction, &QAction::triggered, this, [this] { open(m_ui->source->text()); });
    connect(ui.darkAction, &QAction::triggered, this, &MainWindow::setDark);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this,
            [this] { m_isReading ? cancel() : m_ui->search->clear(); });
    ui.search->installEventFilter(this);
    ui.fonts->installEventFilter(this);
    connect(ui.tags, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* row) {
        m_catalogue->tick(tagOf(*row), row->checkState(0) == Qt::Checked);
        find();
    });
    connect(ui.fonts->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& font) {
                m_panel->showFont(font.isValid() ? FontModel::fontAt(font) : nullptr);
            });
    connect(&m_loading, &QFutureWatcherBase::finished, this, [this] {
        if (m_loading.future().resultCount() > 0)
            receive(m_loading.result());
    });
    connect(&m_explaining, &QFutureWatcherBase::finished, this, [this] {
        m_ignored = m_explaining.result();
        showState();
    });
}

void MainWindow::open(const QString& source) {
    cancel();
    m_ui->source->setText(source);
    m_opened = source;
    m_isReading = true;
    const QString progress = "Reading " + drawable(m_opened.toStdString());
    m_ui->progress->setText(progress + "\u2026");
    showState();
    showPage();
    m_replies.get(
        source, replyNames(),
        [this](std::vector<Reply> replies) {
            m_loading.setFuture(QtConcurrent::run(load, std::move(replies)));
        },
        [this, progress](qint64 received) {
            m_ui->progress->setText(progress + ": " + QLocale().formattedDataSize(received));
        });
}

void MainWindow::cancel() {
    m_replies.cancel();
    m_loading.setFuture({}); // a load that is running ends unheard
    m_isReading = false;
    showState();
    showPage();
}

void MainWindow::receive(Loaded loaded) {
    m_isReading = false;
    m_problems = loaded.problems;
    m_retried = m_opened;
    if (loaded.catalogue) {
        m_catalogue = std::move(loaded.catalogue);
        m_ui->from->setText("From " + drawable(m_opened.toStdString(), 80));
        showTags(*m_ui->tags, m_catalogue->tags());
        m_ignored.clear();
        m_explaining.setFuture(QtConcurrent::run(ignoredIn, std::move(loaded.replies)));
    } else {
        m_problems.prepend(drawable(m_opened.toStdString()) + " cannot be shown.");
    }
    showState();
    find();
}

void MainWindow::find() {
    const std::string key = m_ui->search->text().toStdString();
    Found found = m_catalogue ? m_catalogue->find(key, m_ui->characters->isChecked()) : Found{};
    const bool hasTicks = m_catalogue && m_catalogue->hasTicks();
    const bool isTree = key.empty() && !hasTicks;
    QString status = m_catalogue ? counted(m_catalogue->fontCount(), "font", "fonts") : QString();
    if (m_catalogue && !isTree)
        status = QLocale().toString(found.fonts.size()) + " of " + status;
    if (!found.byCharacter.empty())
        status +=
            ", " + counted(found.byCharacter.size(), "more", "more") + " by single characters";
    m_ui->status->setText(status);
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
    showTags(*m_ui->tags, m_catalogue->tags());
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
             [this] { open(m_retried); });
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

void MainWindow::showState() {
    // Without fonts, the page in their place tells the problems of reading.
    QStringList messages = m_settingsProblems + (m_catalogue ? m_problems : QStringList());
    const bool isError = !messages.isEmpty();
    if (!m_ignored.isEmpty())
        messages << "The replies hold values that are not used, of " +
                        counted(m_ignored.size(), "kind.", "kinds.");
    m_ui->progressLine->setVisible(m_isReading);
    m_ui->messageLine->setVisible(!m_isReading && !messages.isEmpty());
    m_ui->message->setText(messages.join('\n'));
    m_ui->retry->setVisible(!m_problems.isEmpty());
    m_ui->more->setVisible(!m_ignored.isEmpty());
    m_ui->details->setPlainText(m_ignored.join('\n'));
    m_ui->details->setVisible(m_ui->more->isChecked() && !m_ignored.isEmpty());
    QPalette palette; // colours that are seen through, so that they suit light and dark
    palette.setColor(QPalette::Window,
                     isError ? QColor(220, 40, 30, 36) : QColor(40, 110, 230, 40));
    m_ui->messageLine->setPalette(palette);
}

void MainWindow::saveSettings() {
    try {
        client::saveSettings(m_settingsFile, *m_settings);
        m_settingsProblems.clear();
    } catch (const std::exception& error) {
        m_settingsProblems = {m_settingsFile + ": " + drawable(error.what())};
    }
    showState();
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
    showState(); // the message line and the rows of tags have colours of their own
    if (m_catalogue)
        showTags(*m_ui->tags, m_catalogue->tags());
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto* const press =
        event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    if (press == nullptr || (press->modifiers() & ~Qt::KeypadModifier) != 0) // arrows may have it
        return false;
    if (watched == m_ui->fonts)
        return pressInFonts(press->key());
    if (press->key() != Qt::Key_Down || m_model.rowCount() == 0)
        return false;
    if (!m_ui->fonts->currentIndex().isValid())
        m_ui->fonts->setCurrentIndex(m_model.firstFont());
    m_ui->fonts->setFocus();
    return true;
}

bool MainWindow::pressInFonts(int key) {
    const QModelIndex current = m_ui->fonts->currentIndex();
    const auto switchMark = [&](FontModel::Column column) {
        const QModelIndex cell = current.siblingAtColumn(column);
        const bool isMarked = cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        m_model.setData(cell, isMarked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    };
    if (key == Qt::Key_Up && current.siblingAtColumn(0) == m_model.firstFont())
        m_ui->search->setFocus();
    else if (key == Qt::Key_Space)
        switchMark(FontModel::activated);
    else if (key == Qt::Key_F)
        switchMark(FontModel::favourite);
    else
        return false;
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
