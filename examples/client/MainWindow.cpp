#include "MainWindow.hpp"

#include "FontView.hpp"
#include "Settings.hpp"

#include <VelmoCloudEntity/entity/Reply.hpp>

#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

namespace client {
namespace {

/// A reply that the window shows, and the function that reads it.
struct Document {
    const char* name;
    void (Catalogue::*read)(const std::string& reply);
    const char* standIn; // for a missing reply; null for one that is needed
};
constexpr std::array documents{Document{"font-list.json", &Catalogue::readFonts, nullptr},
                               Document{"font-tags.json", &Catalogue::readTags, "[]"},
                               Document{"activated-fonts.json", &Catalogue::markActivated, "{}"},
                               Document{"favorite-fonts.json", &Catalogue::markFavourites, "{}"}};

/// Returns a widget with these in a row or column.
QWidget* boxOf(QBoxLayout::Direction direction, std::initializer_list<QWidget*> widgets) {
    auto* const box = new QWidget;
    auto* const layout = new QBoxLayout(direction, box);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* const widget : widgets)
        layout->addWidget(widget);
    return box;
}

/// Returns what an error reply says, in both languages, or what else is wrong with a reply.
std::string describe(const VelmoCloudEntity::ReplyError& error) {
    const auto& reported = error.serviceError();
    if (!reported || reported->text("Ch") == reported->text("En"))
        return error.what();
    return "error " + reported->code + ": " + reported->text("Ch") + " / " + reported->text("En");
}

} // namespace

MainWindow::MainWindow(QString settingsFile)
    : m_settingsFile(std::move(settingsFile)), m_settings(VelmoCloudEntity::ConfigItem::create()) {
    m_search->setObjectName("search");
    m_search->setPlaceholderText("Search names, in any script");
    m_source->setObjectName("source");
    m_message->setObjectName("message");
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setStyleSheet("background: #ffdad6; color: black; padding: 6px");
    m_status->setObjectName("status");
    try {
        loadSettings(m_settingsFile, *m_settings);
    } catch (const std::exception& error) {
        m_settingsProblems << m_settingsFile + ": " + error.what();
    }
    report(m_settingsProblems);
    makeWidgets();
    connect(m_search, &QLineEdit::textChanged, this, &MainWindow::find);
    connect(m_source, &QLineEdit::returnPressed, this, [this] { open(m_source->text()); });
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
    m_tags = new TagPanel(m_catalogue, [this] { find(); });
    auto* const untick = new QPushButton("Untick all");
    connect(untick, &QPushButton::clicked, this, [this] {
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
    columns->addWidget(boxOf(QBoxLayout::TopToBottom, {m_tags, untick}));
    columns->addWidget(fonts);
    columns->setSizes({220, 780});
    auto* const top = boxOf(QBoxLayout::LeftToRight, {m_search, m_source, size});
    columns->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setCentralWidget(boxOf(QBoxLayout::TopToBottom, {top, m_message, columns}));
    centralWidget()->layout()->setContentsMargins(8, 8, 8, 0);
    statusBar()->addWidget(m_status);
}

void MainWindow::open(const QString& source) {
    m_source->setText(source);
    QStringList names;
    for (const Document& document : documents)
        names << document.name;
    if (!isReading())
        m_replies.read(source, names, [this](const auto& replies) { receive(replies); });
}

void MainWindow::receive(const std::vector<Reply>& replies) {
    QStringList problems = m_settingsProblems;
    for (std::size_t i = 0; i < documents.size(); ++i)
        try {
            const char* const standIn = replies[i].isMissing ? documents[i].standIn : nullptr;
            (m_catalogue.*documents[i].read)(standIn != nullptr ? standIn : textOf(replies[i]));
        } catch (const VelmoCloudEntity::ReplyError& error) {
            problems << replies[i].name + ": " + QString::fromStdString(describe(error));
        } catch (const std::exception& error) {
            problems << replies[i].name + ": " + error.what();
        }
    report(problems);
    m_tags->showTags();
    find();
}

void MainWindow::find() {
    const std::string key = m_search->text().toStdString();
    Found found = m_catalogue.find(key);
    m_queryTime = found.duration;
    QString status = QString("%1 of %2 fonts").arg(found.count).arg(m_catalogue.fontCount());
    if (!key.empty())
        status += QString(", %1 with the whole key").arg(found.wholeKey);
    m_status->setText(status + QString("; the query took %1 µs").arg(m_queryTime.count() / 1000));
    m_model.setFound(std::move(found), key);
    showSelected();
}

void MainWindow::showSelected() {
    const QModelIndex current = m_fonts->currentIndex();
    m_panel->showFont(current.isValid() ? FontModel::fontAt(current).get() : nullptr, *m_settings);
}

void MainWindow::resizePreview(int points) {
    m_settings->setPreviewFontSize(points);
    try {
        saveSettings(m_settingsFile, *m_settings);
    } catch (const std::exception& error) {
        report({m_settingsFile + ": " + error.what()});
    }
    showSelected();
}

void MainWindow::report(const QStringList& messages) {
    m_message->setText(messages.join('\n'));
    m_message->setVisible(!messages.isEmpty());
}

} // namespace client
