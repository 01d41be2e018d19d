#include "Messages.hpp"

#include "Look.hpp"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QIcon>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace client {

MessageLine::MessageLine(std::function<void()> onRetry) {
    m_text->setObjectName("message");
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setWordWrap(true);
    m_more->setObjectName("more");
    m_retry->setObjectName("retry");
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(gap, gap / 2, gap / 2, gap / 2);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_more);
    layout->addWidget(m_retry);
    setAutoFillBackground(true);
    connect(m_more, &QPushButton::clicked, this, &MessageLine::showDetails);
    connect(m_retry, &QPushButton::clicked, this, onRetry);
}

void MessageLine::showMessage(const QStringList& problems, const QStringList& details,
                              bool mayRetry) {
    m_isError = !problems.isEmpty();
    m_details = details;
    const QString ignored =
        details.size() == 1
            ? QString("The replies hold something that is not used.")
            : QString("The replies hold %1 kinds of values that are not used.").arg(details.size());
    m_text->setText(m_isError || details.isEmpty() ? problems.join('\n') : ignored);
    m_more->setVisible(!details.isEmpty());
    m_retry->setVisible(m_isError && mayRetry);
    setVisible(m_isError || !details.isEmpty());
    colour();
}

void MessageLine::colour() {
    const Colours colours = messageColours(isDark(QApplication::palette()), m_isError);
    QPalette palette;
    palette.setColor(QPalette::Window, colours.background);
    m_text->setPalette({});
    setPalette(palette);
    palette.setColor(QPalette::WindowText, colours.text);
    m_text->setPalette(palette);
}

void MessageLine::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange)
        colour();
    QFrame::changeEvent(event);
}

void MessageLine::showDetails() {
    auto* const dialog = new QDialog(this);
    dialog->setObjectName("detailsDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle("What the replies hold that is not used");
    dialog->setPalette(QApplication::palette());
    dialog->resize(720, 360);
    auto* const text = new QPlainTextEdit(m_details.join('\n'));
    text->setReadOnly(true);
    text->setAccessibleName("Details");
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto* const layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(gap, gap, gap, gap);
    layout->addWidget(text);
    layout->addWidget(buttons);
    dialog->open();
}

ProgressLine::ProgressLine(std::function<void()> onCancel) {
    m_text->setObjectName("progress");
    m_text->setTextFormat(Qt::PlainText);
    auto* const bar = new QProgressBar;
    bar->setRange(0, 0); // a service need not tell how long a reply is
    bar->setTextVisible(false);
    bar->setFixedWidth(200);
    bar->setAccessibleName("Reading");
    auto* const cancel = new QPushButton("Cancel");
    cancel->setObjectName("cancel");
    connect(cancel, &QPushButton::clicked, this, onCancel);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(bar);
    layout->addWidget(cancel);
}

EmptyPage::EmptyPage() {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    m_title->setObjectName("emptyTitle");
    m_text->setObjectName("emptyText");
    m_button->setObjectName("emptyButton");
    QFont large(font());
    large.setPointSizeF(large.pointSizeF() * 1.5);
    m_title->setFont(large);
    m_text->setForegroundRole(QPalette::PlaceholderText);
    m_text->setWordWrap(true);
    m_icon->setPixmap(QApplication::windowIcon().pixmap(64));
    m_icon->setVisible(!QApplication::windowIcon().isNull());
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4 * gap, 2 * gap, 4 * gap, 2 * gap);
    layout->setSpacing(gap);
    layout->addStretch();
    for (QLabel* const label : {m_icon, m_title, m_text}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        layout->addWidget(label);
    }
    layout->addWidget(m_button, 0, Qt::AlignHCenter);
    layout->addStretch();
    connect(m_button, &QPushButton::clicked, this, [this] { m_onClick(); });
}

void EmptyPage::showPage(const QString& title, const QString& text, const QString& button,
                         std::function<void()> onClick) {
    m_title->setText(title);
    m_text->setText(text);
    m_button->setText(button);
    m_button->setVisible(!button.isEmpty());
    m_onClick = std::move(onClick);
}

} // namespace client
