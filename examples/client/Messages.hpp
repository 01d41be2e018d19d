#pragma once

#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <functional>

namespace client {

/// A line that says what went wrong, or what was ignored, with its details behind a button.
class MessageLine : public QFrame {
public:
    /// Calls `onRetry` for the button "Try again".
    explicit MessageLine(std::function<void()> onRetry);

    /// Shows the problems, otherwise the number of details, otherwise nothing. Reading again may
    /// help if `mayRetry` is set.
    void showMessage(const QStringList& problems, const QStringList& details, bool mayRetry);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showDetails();
    void colour();

    bool m_isError = false;
    QStringList m_details;
    QLabel* m_text = new QLabel;
    QPushButton* m_more = new QPushButton("Details");
    QPushButton* m_retry = new QPushButton("Try again");
};

/// A line that says what is being read, with a bar and a button.
class ProgressLine : public QWidget {
public:
    explicit ProgressLine(std::function<void()> onCancel);
    void showProgress(const QString& text) { m_text->setText(text); }

private:
    QLabel* m_text = new QLabel;
};

/// What the window shows in place of fonts: why there are none, and a button for what to do.
class EmptyPage : public QFrame {
public:
    EmptyPage();
    void showPage(const QString& title, const QString& text, const QString& button,
                  std::function<void()> onClick);

private:
    QLabel* m_icon = new QLabel;
    QLabel* m_title = new QLabel;
    QLabel* m_text = new QLabel;
    QPushButton* m_button = new QPushButton;
    std::function<void()> m_onClick;
};

} // namespace client
