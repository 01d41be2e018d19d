#pragma once

#include "MainWindow.hpp"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace client {

inline const QStringList names{"font-list.json", "font-tags.json", "activated-fonts.json",
                               "favorite-fonts.json"};

inline QByteArray contentOf(const QString& file) {
    QFile device(file);
    return device.open(QIODevice::ReadOnly) ? device.readAll() : QByteArray();
}

inline void write(const QString& file, const QByteArray& content) {
    QFile device(file);
    ASSERT_TRUE(device.open(QIODevice::WriteOnly) && device.write(content) == content.size());
}

/// A window on a copy of the sample, with its fonts repeated.
struct Client {
    explicit Client(int repeats = 1) {
        for (const QString& name : names)
            QFile::copy(VELMO_SAMPLES "/" + name, file(name));
        if (repeats > 1) {
            const QByteArray list = contentOf(file(names[0])).trimmed();
            const QByteArray items = list.sliced(1, list.size() - 2);
            write(file(names[0]), "[" + items + ("," + items).repeated(repeats - 1) + "]");
        }
        restart();
        open();
    }
    QString file(const QString& name) const { return folder.filePath(name); }
    void restart() {
        if (window)
            window->close();
        window = std::make_unique<MainWindow>(file("settings/settings.json"));
        window->show();
    }
    void open() const { open(folder.path()); }
    /// Types a source, and waits until it is read.
    void open(const QString& source) const {
        part<QLineEdit>("source").setText(source);
        QTest::keyClick(&part<QLineEdit>("source"), Qt::Key_Enter);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window->isReading(); }, 20'000));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window->isExplaining(); }, 20'000));
    }
    /// Requires that the model keeps the rules of Qt, or ends the process.
    void checkModel() const {
        QAbstractItemModelTester(&model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    }
    template <class Widget>
    Widget& part(const char* name = "") const {
        return *window->findChild<Widget*>(name);
    }
    std::string text(const char* label) const { return part<QLabel>(label).text().toStdString(); }
    QAbstractItemModel& model() const { return *part<QAbstractItemView>("fonts").model(); }
    std::string cell(int row, int column) const {
        return model().index(row, column).data().toString().toStdString();
    }
    Qt::CheckState mark(int row, FontModel::Column column) const {
        return model().index(row, column).data(Qt::CheckStateRole).value<Qt::CheckState>();
    }
    bool isMarked(int row, FontModel::Column column) const {
        return mark(row, column) == Qt::Checked;
    }
    /// Presses a key where the focus is.
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const {
        QWidget* const focused = window->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : window.get(), static_cast<Qt::Key>(key),
                        modifiers);
    }
    std::string focused() const { return window->focusWidget()->objectName().toStdString(); }
    std::string title() const { return part<QLabel>("title").text().toStdString(); }
    bool isShown(const char* name) const { return part<QWidget>(name).isVisible(); }
    void clickButton(const char* name) const {
        QTest::mouseClick(&part<QPushButton>(name), Qt::LeftButton);
    }
    void type(const char* key) const {
        part<QLineEdit>("search").clear();
        QTest::keyClicks(&part<QLineEdit>("search"), key);
    }
    void tick(const char* tag) const {
        auto& tags = part<QTreeWidget>("tags");
        const auto rows = tags.findItems(tag, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(rows.size(), 1) << tag;
        tags.scrollToItem(rows.front());
        const QRect row = tags.visualItemRect(rows.front());
        QTest::mouseClick(tags.viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(10, 11));
    }
    void select(int row) const {
        part<QAbstractItemView>("fonts").setCurrentIndex(model().index(row, 0));
    }
    void click(int row, FontModel::Column column) const {
        auto& fonts = part<QTreeView>("fonts");
        const QRect cell = fonts.visualRect(model().index(row, column));
        QTest::mouseClick(fonts.viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(12, 10));
    }

    QTemporaryDir folder;
    std::unique_ptr<MainWindow> window;
};

inline void expectIn(const std::string& part, const std::string& text) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\nis not in\n" << text;
}

} // namespace client
