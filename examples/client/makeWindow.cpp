// Lays out the window, and connects its parts.
#include "Look.hpp"
#include "MainWindow.hpp"

#include <QApplication>
#include <QFileInfo>
#include <QHeaderView>
#include <QMenuBar>
#include <QSettings>
#include <QShortcut>

namespace client {
namespace {

/// Returns a widget with these in a row or column; the first takes the space that is left.
QWidget* boxOf(QBoxLayout::Direction direction, std::initializer_list<QWidget*> widgets) {
    auto* const box = new QWidget;
    auto* const layout = new QBoxLayout(direction, box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    for (QWidget* const widget : widgets)
        layout->addWidget(widget, widget == *widgets.begin() ? 1 : 0);
    return box;
}

/// Returns the settings of the window, in a file beside that of the client's settings.
QSettings windowSettings(const QString& settingsFile) {
    return QSettings(QFileInfo(settingsFile).path() + "/window.ini", QSettings::IniFormat);
}

} // namespace

void MainWindow::makeWidgets() {
    setWindowTitle("Velmo Client");
    m_search->setObjectName("search");
    m_search->setAccessibleName("Search");
    m_search->setPlaceholderText("Search names, in any script");
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_characters->setObjectName("characters");
    m_source->setObjectName("source");
    m_source->setAccessibleName("Folder or address");
    m_source->setPlaceholderText("Folder, or http:// address");
    m_choose->setObjectName("open");
    m_source->setFixedWidth(240);
    for (QLineEdit* const edit : {m_search, m_source})
        edit->setTextMargins(gap / 2, 0, gap / 2, 0);
    m_untick->setObjectName("untick");
    m_status->setObjectName("status");
    m_status->setTextFormat(Qt::PlainText);
    m_from->setObjectName("from");
    m_from->setTextFormat(Qt::PlainText);
    m_from->setForegroundRole(QPalette::PlaceholderText);
    m_tags = new TagPanel([this](FontTagItem& tag, bool isTicked) {
        m_catalogue->tick(tag, isTicked);
        find();
    });
    m_fonts = new FontView(m_model, [this] { m_search->setFocus(Qt::TabFocusReason); });
    m_panel = new FontPanel(m_settings, [this] { saveSettings(); });
    m_list->addWidget(m_fonts);
    m_list->addWidget(m_empty);
    m_rows->addWidget(m_list);
    m_rows->addWidget(m_panel);
    m_rows->setStretchFactor(0, 1);
    m_rows->setSizes({420, 250});
    m_columns->addWidget(boxOf(QBoxLayout::TopToBottom, {m_tags, m_untick}));
    m_columns->addWidget(m_rows);
    m_columns->setStretchFactor(1, 1);
    m_columns->setSizes({230, 770});
    for (QSplitter* const splitter : {m_columns, m_rows}) {
        splitter->setChildrenCollapsible(false);
        splitter->setHandleWidth(gap);
    }
    auto* const all = new QWidget;
    auto* const layout = new QVBoxLayout(all);
    layout->setContentsMargins(gap, gap, gap, gap);
    layout->setSpacing(gap);
    layout->addWidget(boxOf(QBoxLayout::LeftToRight, {m_search, m_characters, m_source, m_choose}));
    layout->addWidget(m_progress);
    layout->addWidget(m_message);
    layout->addWidget(m_columns, 1);
    layout->addWidget(boxOf(QBoxLayout::LeftToRight, {m_status, m_from}));
    setCentralWidget(all);
    QWidget* before = m_search;
    for (QWidget* const next :
         std::initializer_list<QWidget*>{m_characters, m_source, m_choose, m_tags, m_untick,
                                         m_fonts, m_panel->textEdit(), m_panel->sizeSlider()}) {
        setTabOrder(before, next); // the order of the eye
        before = next;
    }
}

void MainWindow::makeActions() {
    QMenu& file = *menuBar()->addMenu("&File");
    file.addAction("&Open folder\u2026", QKeySequence("Ctrl+O"), this, &MainWindow::chooseFolder);
    file.addAction("&Read again", QKeySequence("F5"), this, [this] { open(m_source->text()); });
    file.addSeparator();
    file.addAction("&Quit", QKeySequence("Ctrl+Q"), this, &QWidget::close);
    QMenu& view = *menuBar()->addMenu("&View");
    view.addAction("&Find", QKeySequence("Ctrl+F"), this, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    m_dark = view.addAction("&Dark colours");
    m_dark->setCheckable(true);
    m_dark->setChecked(isDark(QApplication::palette()));
    connect(m_dark, &QAction::triggered, this, &MainWindow::setDark);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] {
        if (m_isReading)
            cancel();
        else
            m_search->clear();
    });
}

void MainWindow::connectParts() {
    connect(m_search, &QLineEdit::textChanged, this, &MainWindow::find);
    connect(m_search, &QLineEdit::returnPressed, m_fonts, &FontView::goToFirst);
    connect(m_characters, &QCheckBox::toggled, this, &MainWindow::find);
    connect(m_source, &QLineEdit::returnPressed, this, [this] { open(m_source->text()); });
    connect(m_choose, &QPushButton::clicked, this, &MainWindow::chooseFolder);
    connect(m_untick, &QPushButton::clicked, this, [this] {
        if (!m_catalogue)
            return;
        m_catalogue->untickAll();
        m_tags->showTags(m_catalogue->tags());
        find();
    });
    connect(m_fonts->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::showSelected);
    connect(&m_loading, &QFutureWatcherBase::finished, this, [this] {
        if (m_loading.future().resultCount() > 0)
            receive(m_loading.result());
    });
    connect(&m_explaining, &QFutureWatcherBase::finished, this, [this] {
        if (m_explaining.future().resultCount() > 0)
            m_message->showMessage(m_settingsProblems + m_problems, m_explaining.result(), true);
    });
}

void MainWindow::restoreLayout() {
    const QSettings saved = windowSettings(m_settingsFile);
    resize(1060, 740);
    restoreGeometry(saved.value("geometry").toByteArray());
    m_columns->restoreState(saved.value("columns").toByteArray());
    m_rows->restoreState(saved.value("rows").toByteArray());
    m_fonts->header()->restoreState(saved.value("header").toByteArray());
    m_characters->setChecked(saved.value("characters", false).toBool());
    setDark(saved.value("dark", isDark(QApplication::palette())).toBool());
}

void MainWindow::saveLayout() const {
    QSettings saved = windowSettings(m_settingsFile);
    saved.setValue("geometry", saveGeometry());
    saved.setValue("columns", m_columns->saveState());
    saved.setValue("rows", m_rows->saveState());
    saved.setValue("header", m_fonts->header()->saveState());
    saved.setValue("characters", m_characters->isChecked());
    saved.setValue("dark", m_dark->isChecked());
}

} // namespace client
