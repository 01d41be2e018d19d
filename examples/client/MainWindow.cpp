#include "MainWindow.hpp"

#include "FontView.hpp"
#include <QKeyEvent>
#include <QShortcut>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

namespace client {
namespace {

/// Returns a widget with these in a row or column.
QWidget* boxOf(QBoxLayout::Direction direction, std::initializer_list<QWidget*> widgets) {
    auto* const box = new QWidget;
    auto* const layout = new QBoxLayout(direction, box);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* const widget : widgets)
        layout->addWidget(widget);
    return box;
}

} // namespace

MainWindow::MainWindow(QString settingsFile)
    : m_settingsFile(std::move(settingsFile)), m_settings(Settings::create()) {
    setWindowTitle("Velmo Client");
    m_search->setObjectName("search");
    m_search->setPlaceholderText("Search names, in any script");
    m_source->setObjectName("source");
    m_message->setObjectName("message");
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setStyleSheet("background: #ffdad6; color: black; padding: 6px");
    m_detailsButton->setObjectName("details-button");
    m_detailsButton->setCheckable(true);
    m_ignored->setObjectName("ignored");
    m_ignored->setTextFormat(Qt::PlainText);
    m_ignored->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_cancel->setObjectName("cancel");
    m_cancel->hide();
    m_status->setObjectName("status");
    m_worker.setMaxThreadCount(1);
    try {
        loadSettings(m_settingsFile, *m_settings);
    } catch (const std::exception& error) {
        m_settingsProblems << m_settingsFile + ": " + error.what();
    }
    report(m_settingsProblems);
    makeWidgets();
    connect(m_search, &QLineEdit::textChanged, this, &MainWindow::find);
    connect(m_source, &QLineEdit::returnPressed, this, [this] { open(m_source->text()); });
    connect(m_cancel, &QPushButton::clicked, this, &MainWindow::cancel);
    connect(m_detailsButton, &QPushButton::toggled, m_ignored, &QWidget::setVisible);
    connect(m_fonts->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::showSelected);
}

void MainWindow::makeWidgets() {
    auto* const size = new QSpinBox;
    size->setRange(6, 96);
    size->setValue(static_cast<int>(m_settings->PreviewFontSize()));
    m_settings->setPreviewFontSize(size->value()); // in the range
    size->setSuffix(" pt");
    connect(size, &QSpinBox::valueChanged, this, &MainWindow::resizePreview);
    m_characters->setObjectName("characters");
    m_characters->setChecked(m_settings->MatchesCharacters());
    connect(m_characters, &QCheckBox::toggled, this, [this](bool isOn) {
        m_settings->setMatchesCharacters(isOn);
        keepSettings();
        find();
    });
    m_tags = new TagPanel(m_catalogue, [this] { find(); });
    m_untick->setObjectName("untick");
    connect(m_untick, &QPushButton::clicked, this, [this] {
        m_catalogue.untickAll();
        m_tags->showTags();
        find();
    });
    m_fonts = new FontView(m_model);
    auto* const fonts = new QSplitter(Qt::Vertical);
    fonts->addWidget(m_fonts);
    fonts->addWidget(m_panel);
    fonts->setStretchFactor(0, 1);
    auto* const columns = new QSplitter;
    columns->addWidget(boxOf(QBoxLayout::TopToBottom, {m_tags, m_untick}));
    columns->addWidget(fonts);
    columns->setSizes({220, 780});
    auto* const top =
        boxOf(QBoxLayout::LeftToRight, {m_search, m_characters, m_source, m_cancel, size});
    auto* const message = boxOf(QBoxLayout::LeftToRight, {m_message, m_detailsButton});
    columns->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setCentralWidget(boxOf(QBoxLayout::TopToBottom, {top, message, m_ignored, columns}));
    centralWidget()->layout()->setContentsMargins(8, 8, 8, 0);
    statusBar()->setContentsMargins(6, 0, 8, 4); // it has 2 pixels of its own
    statusBar()->addWidget(m_status);
    size->setAccessibleName("Size of the preview");
    nameForReaders();
    addShortcuts();
}

void MainWindow::nameForReaders() {
    m_search->setAccessibleName("Search");
    m_source->setAccessibleName("Folder or address of the replies");
    m_fonts->setAccessibleName("Fonts");
    m_message->setAccessibleName("Problems");
    m_ignored->setAccessibleName("What was not understood");
    m_status->setAccessibleName("Numbers of fonts");
}

void MainWindow::addShortcuts() {
    const auto focus = [](QLineEdit* edit) {
        return [edit] {
            edit->setFocus(Qt::ShortcutFocusReason);
            edit->selectAll();
        };
    };
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, focus(m_search));
    connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, this, focus(m_source));
    connect(new QShortcut(QKeySequence("Ctrl+Q"), this), &QShortcut::activated, this,
            &QWidget::close);
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_fonts->installEventFilter(this);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (watched == m_search && key == Qt::Key_Escape) {
        m_search->clear();
    } else if (watched == m_search && key == Qt::Key_Down) {
        m_fonts->setFocus();
        if (!m_fonts->currentIndex().isValid())
            m_fonts->setCurrentIndex(m_model.index(0, 0));
    } else if (watched == m_fonts && key == Qt::Key_Up &&
               m_fonts->currentIndex() == m_model.index(0, m_fonts->currentIndex().column())) {
        m_search->setFocus();
    } else {
        return QMainWindow::eventFilter(watched, event);
    }
    return true;
}

void MainWindow::open(const QString& source) {
    cancel();
    m_opened = source;
    m_source->setText(source);
    QStringList names;
    for (const Document& document : documents)
        names << document.name;
    setReading(true);
    m_replies.read(source, names, [this](const auto& replies) { receive(replies); });
}

void MainWindow::cancel() {
    ++m_reading;
    m_replies.cancel();
    setReading(false);
}

void MainWindow::setReading(bool isReading) {
    m_isReading = isReading;
    m_cancel->setVisible(isReading);
}

void MainWindow::receive(const std::vector<Reply>& replies) {
    const int reading = m_reading;
    const auto deliver = [this, reading](auto use) { // to this thread
        QMetaObject::invokeMethod(
            this,
            [this, reading, use] {
                if (reading == m_reading)
                    use();
            },
            Qt::QueuedConnection);
    };
    m_worker.start([this, replies, deliver] {
        const auto loaded = std::make_shared<Loaded>(load(replies));
        deliver([this, loaded] { take(*loaded); });
        const QStringList ignored = ignoredIn(replies, loaded->problems);
        deliver([this, ignored, problems = loaded->problems] {
            report(m_settingsProblems + problems, ignored);
        });
    });
}

void MainWindow::take(Loaded& loaded) {
    if (!m_isReading)
        return;
    setReading(false);
    report(m_settingsProblems + loaded.problems);
    if (!loaded.catalogue)
        return;
    setWindowTitle(m_opened + " - Velmo Client");
    m_model.setFound({}, {});
    m_tags->clear();
    m_catalogue = std::move(*loaded.catalogue);
    m_tags->showTags();
    find();
}

void MainWindow::find() {
    const std::string key = m_search->text().toStdString();
    Found found = m_catalogue.find(key, m_settings->MatchesCharacters());
    m_queryTime = found.duration;
    QString status = QString("%1 of %2 fonts").arg(found.count).arg(m_catalogue.fontCount());
    if (!key.empty() && m_settings->MatchesCharacters())
        status += QString(", %1 with the whole key").arg(found.wholeKey);
    m_status->setText(status + QString("; the query took %1 µs").arg(m_queryTime.count() / 1000));
    m_model.setFound(std::move(found), key);
    m_untick->setEnabled(m_catalogue.isAnyTicked());
    showSelected();
}

void MainWindow::showSelected() {
    const QModelIndex current = m_fonts->currentIndex();
    m_panel->showFont(current.isValid() ? FontModel::fontAt(current).get() : nullptr, *m_settings);
}

void MainWindow::resizePreview(int points) {
    m_settings->setPreviewFontSize(points);
    keepSettings();
    showSelected();
}

void MainWindow::keepSettings() {
    try {
        saveSettings(m_settingsFile, *m_settings);
    } catch (const std::exception& error) {
        report({m_settingsFile + ": " + error.what()});
    }
}

void MainWindow::report(const QStringList& messages, const QStringList& ignored) {
    QStringList lines;
    for (const QString& message : messages)
        if (!message.isEmpty())
            lines << shown(message.toStdString());
    if (!ignored.isEmpty())
        lines << "Some of what the service sent was not understood.";
    m_message->setText(lines.join('\n'));
    m_message->setVisible(!lines.isEmpty());
    m_ignored->setText(ignored.join('\n').left(4000));
    m_detailsButton->setChecked(false);
    m_detailsButton->setVisible(!ignored.isEmpty());
    m_ignored->hide();
}

} // namespace client
