// Drives the client without a display. With --measure, prints the times of keystrokes.
#include "MainWindow.hpp"

#include <VelmoCloudEntity/version.hpp>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QSpinBox>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <ctime>
#include <iostream>

using namespace client;

namespace {

const QStringList names{"font-list.json", "font-tags.json", "activated-fonts.json",
                        "favorite-fonts.json"};

QByteArray contentOf(const QString& file) {
    QFile device(file);
    return device.open(QIODevice::ReadOnly) ? device.readAll() : QByteArray();
}

void write(const QString& file, const QByteArray& content) {
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
        window = restart();
        window->open(folder.path());
        wait();
    }
    /// Waits until nothing is read.
    void wait() const {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !window->isReading(); }));
    }
    QString file(const QString& name) const { return folder.filePath(name); }
    std::unique_ptr<MainWindow> restart() const {
        auto started = std::make_unique<MainWindow>(file("settings/settings.json"));
        started->resize(1000, 700);
        started->show();
        return started;
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
    bool isMarked(int row, FontModel::Column column) const {
        return model().index(row, column).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    void type(const char* key) const {
        part<QLineEdit>("search").clear();
        QTest::keyClicks(&part<QLineEdit>("search"), key);
    }
    void tick(const char* tag) const {
        auto& tags = part<QTreeWidget>("tags");
        const auto rows = tags.findItems(tag, Qt::MatchStartsWith | Qt::MatchRecursive);
        ASSERT_EQ(rows.size(), 1) << tag;
        rows.front()->setCheckState(0, Qt::Checked);
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

void expectIn(const std::string& part, const std::string& text) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\nis not in\n" << text;
}

} // namespace

TEST(Client, FiltersWithEachKeyAndMarksWhatItFound) {
    const Client client;
    EXPECT_EQ(client.model().rowCount(), 59);
    client.type("ito i");
    EXPECT_EQ(client.model().rowCount(), 1);
    client.part<QCheckBox>("characters").click();
    client.type("BÖL");
    expectIn("0 with the whole key", client.text("status"));
    client.type("ito i");
    expectIn("1 with the whole key; the query took ", client.text("status"));
    EXPECT_EQ(client.cell(0, 0), "Carlito Italic");
    const auto rangesOf = [&client](int row) {
        return client.model()
            .index(row, 0)
            .data(FontModel::foundParts)
            .value<QList<FontModel::Range>>();
    };
    ASSERT_EQ(rangesOf(0).size(), 1);
    EXPECT_EQ(rangesOf(0)[0].begin, 4);
    EXPECT_EQ(rangesOf(0)[0].size, 5);
    EXPECT_GT(rangesOf(1).size(), 1) << "characters";
    client.checkModel();
    client.type("");
    EXPECT_EQ(client.model().rowCount(), 59);
    client.checkModel();
}

TEST(Client, FiltersByTickedTags) {
    const Client client;
    client.tick("serif (");
    expectIn("52 of 376 fonts", client.text("status"));
    client.tick("Bold (");
    client.type("ptserif");
    expectIn("2 of 376 fonts; ", client.text("status"));
    QTest::mouseClick(&client.part<QPushButton>("untick"), Qt::LeftButton);
    client.type("");
    expectIn("376 of 376 fonts", client.text("status"));
}

TEST(Client, SwitchesMarksThatStay) {
    const Client client;
    client.click(0, FontModel::activated); // a group of two
    client.type("abeezee");
    client.click(1, FontModel::favourite);
    client.type("");
    client.type("abeezee");
    for (const int row : {0, 1})
        EXPECT_TRUE(client.isMarked(row, FontModel::activated)) << row;
    EXPECT_FALSE(client.isMarked(0, FontModel::favourite));
    EXPECT_TRUE(client.isMarked(1, FontModel::favourite));
}

TEST(Client, FollowsTheKeyboard) {
    const Client client;
    const auto press = [&client](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(client.window->focusWidget(), key, modifiers);
    };
    client.window->activateWindow();
    client.part<QWidget>("fonts").setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(client.window->focusWidget()->objectName(), "search");
    QTest::keyClicks(client.window->focusWidget(), "abeezee");
    press(Qt::Key_Down);
    EXPECT_EQ(client.window->focusWidget()->objectName(), "fonts");
    press(Qt::Key_Space);
    press(Qt::Key_F);
    EXPECT_TRUE(client.isMarked(0, FontModel::activated));
    EXPECT_TRUE(client.isMarked(0, FontModel::favourite));
    press(Qt::Key_Up);
    press(Qt::Key_Escape);
    EXPECT_EQ(client.model().rowCount(), 59);
    EXPECT_EQ(client.model().index(0, FontModel::activated).data(Qt::CheckStateRole).toInt(),
              Qt::PartiallyChecked)
        << "a group with one of two";
    EXPECT_FALSE(client.part<QPushButton>("untick").isEnabled());
}

TEST(Client, DrawsAnInstalledFontInItself) {
    const Client client;
    client.type("DejaVu Sans Mono");
    client.select(0);
    EXPECT_EQ(client.part<QLabel>("preview").font().family(), "DejaVu Sans Mono");
    EXPECT_EQ(client.text("preview"), "DejaVu Sans Mono");
    expectIn("/DejaVuSansMono.ttf\n", client.text("details"));
    expectIn("/DejaVuSansMono_S_B_32.png\n", client.text("details"));
}

TEST(Client, KeepsSettings) {
    Client client;
    client.part<QSpinBox>().setValue(48);
    client.window = client.restart();
    EXPECT_EQ(client.part<QSpinBox>().value(), 48);
    EXPECT_FALSE(client.part<QCheckBox>("characters").isChecked());
    client.part<QCheckBox>("characters").click();
    client.window = client.restart();
    EXPECT_TRUE(client.part<QCheckBox>("characters").isChecked());
    expectIn(R"("LastUseVersion":")" VELMO_VERSION R"(","PreviewTag":"S")",
             contentOf(client.file("settings/settings.json")).toStdString());
    write(client.file("settings/settings.json"), "{\n oops");
    client.window = client.restart();
    client.window->open(client.folder.path());
    client.wait();
    expectIn("settings.json: line 2, column 2: ", client.text("message"));
    EXPECT_EQ(client.part<QSpinBox>().value(), 32);
    write(client.file("settings/settings.json"), R"({"PreviewFontSize":1000000000})");
    client.window = client.restart();
    client.window->open(client.folder.path());
    client.wait();
    client.select(1);
    EXPECT_EQ(client.part<QLabel>("preview").font().pointSize(), 96);
}

TEST(Client, ReportsABadReplyAndKeepsWhatItHad) {
    const Client client;
    EXPECT_TRUE(client.part<QLabel>("message").isHidden());
    const auto open = [&client] {
        QTest::keyClick(&client.part<QLineEdit>("source"), Qt::Key_Enter);
        client.wait();
    };
    for (const auto& [text, message] : {
             std::pair{"[1,\n 2", "font-list.json: line 2, column 3: "},
             {"null", "font-list.json: an array is expected, not null"},
             {R"({"Exception":true,"ExceptionCode":"005001"})",
              "font-list.json: error 005001: 登录过期 / The user login has expired."},
             {R"({"ExceptionCode":"9","ExceptionMessage":"<b>x"})", "error 9: <b>x"},
             {"", "font-list.json: line 1, column 1: "},
         }) {
        write(client.file("font-list.json"), text);
        open();
        expectIn(message, client.text("message"));
        expectIn("376 of 376 fonts; ", client.text("status"));
    }
    for (const QString& name : names)
        QFile::remove(client.file(name));
    open();
    EXPECT_EQ(client.text("message"), "font-list.json: No such file or directory");
    EXPECT_GT(client.part<QTreeWidget>("tags").topLevelItemCount(), 0);
    expectIn("376 of 376 fonts", client.text("status"));
}

TEST(Client, ShowsWhatFillingIgnored) {
    const Client client;
    auto& button = client.part<QPushButton>("details-button");
    EXPECT_TRUE(button.isHidden());
    write(client.file("font-list.json"), R"([{"Id":1,"ProductNam":"a"}])");
    client.window->open(client.folder.path());
    ASSERT_TRUE(QTest::qWaitFor([&] { return button.isVisible(); }));
    EXPECT_TRUE(client.part<QLabel>("ignored").isHidden());
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(client.part<QLabel>("ignored").isVisible());
    expectIn("font-list.json:\n[0].ProductNam: ", client.text("ignored"));
}

TEST(Client, DrawsTextsOfAnySize) {
    const Client client;
    const std::string many(3 << 20, 'x');
    std::string marks = "a";
    for (int i = 0; i < 200'000; ++i)
        marks += "\u0301";
    write(client.file("font-list.json"),
          QByteArray::fromStdString(R"([{"PreviewText":")" + many + R"(","ProductName":")" + marks +
                                    R"("},{"Id":2}])"));
    client.window->open(client.folder.path());
    client.wait();
    client.select(0);
    client.window->grab();
    EXPECT_LT(client.text("preview").size(), 500U);
    EXPECT_LT(client.part<QLabel>("details").text().size(), 1000);
    QByteArray lines = R"({"ExceptionCode":"9","ExceptionMessage":")";
    lines += QByteArray("x\\n").repeated(3000) + "\"}";
    write(client.file("font-list.json"), lines);
    const int height = client.window->height();
    client.window->open(client.folder.path());
    client.wait();
    expectIn("error 9: x\\u000Ax", client.text("message"));
    EXPECT_LE(client.window->minimumSizeHint().height(), height);
}

TEST(Client, OpensOnlyFilesOfItsCache) {
    const QTemporaryDir home;
    qputenv("XDG_CACHE_HOME", home.path().toUtf8());
    const QDir cache(home.filePath("VelmoCloud"));
    cache.mkpath(".");
    write(cache.filePath("here.ttf"), "x");
    write(home.filePath("outside.ttf"), "x");
    QFile::link("/dev/zero", cache.filePath("device.ttf"));
    QFile big(cache.filePath("big.ttf"));
    ASSERT_TRUE(big.open(QIODevice::WriteOnly) && big.resize((64LL << 20) + 1));
    const auto font = FontItem::create();
    font->setIsOnline(true);
    for (const auto& [name, isOpened] : {std::pair{"here.ttf", true},
                                         {"../outside.ttf", false},
                                         {"../../../../../dev/zero", false},
                                         {"device.ttf", false},
                                         {"big.ttf", false},
                                         {"", false},
                                         {"none.ttf", false}}) {
        font->setProductFileName(name);
        EXPECT_EQ(!cachedFile(*font).isEmpty(), isOpened) << name;
    }
    qunsetenv("XDG_CACHE_HOME");
}

/// Serves one answer to every request, and leaves the connection open if it is empty.
class Server : public QTcpServer {
public:
    explicit Server(const QByteArray& answer) {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, answer] {
            QTcpSocket* const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [socket, answer] {
                socket->write(answer);
                if (!answer.isEmpty())
                    socket->disconnectFromHost();
            });
        });
    }
    QString address() const { return QString("http://127.0.0.1:%1").arg(serverPort()); }
};

TEST(Client, KeepsTheErrorOfAFailedTransfer) {
    const QByteArray json = "Content-Type: application/json\r\nConnection: close\r\n";
    const QByteArray error = R"({"ExceptionCode":"002001"})";
    for (const auto& [answer, message] : {
             std::pair{"HTTP/1.1 500 Oops\r\n" + json + "\r\n[]", "server replied: Oops"},
             {"HTTP/1.1 500 Oops\r\n" + json + "\r\n" + error, "error 002001"},
             {"HTTP/1.1 404 No\r\n" + json + "\r\n" + error, "font-tags.json: error 002001"},
             {"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n" + json + "\r\n[]", "closed"},
             {"HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n" + json + "\r\n[]",
              "font-list.json: "},
             {QByteArray("HTTP"), "closed"},
         }) {
        const Client client;
        const Server server(answer);
        client.window->open(server.address());
        client.wait();
        expectIn(message, client.text("message"));
        expectIn("376 of 376 fonts; ", client.text("status"));
    }
}

TEST(Client, CancelsAReplyThatDoesNotEnd) {
    const Client client;
    const Server server({});
    client.window->open(server.address());
    QTest::qWait(20);
    EXPECT_TRUE(client.window->isReading());
    QTest::mouseClick(&client.part<QPushButton>("cancel"), Qt::LeftButton);
    EXPECT_FALSE(client.window->isReading());
    client.window->open(server.address());
    client.window->open(client.folder.path()); // another source meanwhile
    client.wait();
    expectIn("376 of 376 fonts; ", client.text("status"));
    EXPECT_EQ(client.text("message"), "");
}

TEST(Client, ReadsAServiceOverHTTP) {
    const Client client;
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket* const socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [&client, socket] {
            const QList<QByteArray> words = socket->readAll().split(' ');
            const QByteArray content = contentOf(client.file(words.value(1).mid(1)));
            QByteArray head = "HTTP/1.1 200 OK\r\nContent-Type: application/json";
            if (content.isEmpty())
                head = "HTTP/1.1 404 Not Found\r\nContent-Type: text/html";
            else if (content.contains("Exception"))
                head.replace("200 OK", "401 Unauthorized");
            socket->write(head + "\r\nConnection: close\r\n\r\n" + content);
            socket->disconnectFromHost();
        });
    });
    const QString address = QString("http://127.0.0.1:%1").arg(server.serverPort());
    const auto open = [&](const QString& source) {
        client.window->open(source);
        return QTest::qWaitFor([&] { return !client.window->isReading(); });
    };
    client.click(0, FontModel::activated);
    ASSERT_TRUE(open(address));
    EXPECT_EQ(client.text("message"), "");
    EXPECT_FALSE(client.isMarked(0, FontModel::activated)) << "as the service has it";
    client.type("anuphan l");
    EXPECT_TRUE(client.isMarked(0, FontModel::activated));
    client.type("");
    QFile::remove(client.file("font-tags.json"));
    write(client.file("font-list.json"), R"({"Exception":true,"ExceptionCode":"002001"})");
    ASSERT_TRUE(open(address + "/"));
    EXPECT_EQ(client.text("message"),
              "font-list.json: error 002001: 手机号无效 / Phone number is invalid.");
    server.close();
    ASSERT_TRUE(open(address));
    expectIn("font-list.json: Connection refused", client.text("message"));
    expectIn("376 of 376 fonts", client.text("status"));
    client.window->open(address); // the window closes while it reads
    EXPECT_TRUE(client.window->isReading());
}

namespace {

/// The times of keys pressed in the search box, in milliseconds, ascending.
struct Times {
    std::vector<double> queries;
    std::vector<double> keystrokes; // until the window is drawn
    std::vector<double> processor;  // of the keystrokes; other programs do not lengthen it

    void print(const char* title, std::vector<double> Times::* times) const {
        std::cout << title << ": median " << median(this->*times) << " ms, worst "
                  << (this->*times).back() << " ms\n";
    }
    static double median(const std::vector<double>& times) { return times[times.size() / 2]; }
};

Times timesOf(const Client& client) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    client.part<QThreadPool>().waitForDone(); // its time would count
    QApplication::processEvents();
    Times times;
    for (const QString text : {"noto sans", "kanit", "a", "xyz", "宋体", "straße"})
        for (qsizetype i = 0; i < 2 * text.size(); ++i) { // types the text, then deletes it
            const auto begin = std::chrono::steady_clock::now();
            const std::clock_t processorBegin = std::clock();
            QKeyEvent press(QEvent::KeyPress, i < text.size() ? 0 : Qt::Key_Backspace, {},
                            text.sliced(std::min(i, text.size())).left(1));
            QApplication::sendEvent(&client.part<QLineEdit>("search"), &press);
            QApplication::processEvents();
            times.processor.push_back(1000.0 * static_cast<double>(std::clock() - processorBegin) /
                                      CLOCKS_PER_SEC);
            times.keystrokes.push_back(
                Milliseconds(std::chrono::steady_clock::now() - begin).count());
            times.queries.push_back(Milliseconds(client.window->queryTime()).count());
        }
    EXPECT_TRUE(client.part<QLineEdit>("search").text().isEmpty());
    for (auto* const sorted : {&times.queries, &times.keystrokes, &times.processor})
        std::ranges::sort(*sorted);
    return times;
}

void measure() {
    for (const int repeats : {16, 160}) {
        const Times times = timesOf(Client(repeats));
        std::cout << repeats * 376 << " fonts, " << times.queries.size() << " keystrokes\n";
        times.print("  query", &Times::queries);
        times.print("  query and drawing", &Times::keystrokes);
        times.print("  of the processor", &Times::processor);
    }
}

} // namespace

TEST(Client, ShowsAKeystrokeAmongManyFontsWithinAFrame) {
    const Client client(160);
    const Times times = timesOf(client);
    EXPECT_LT(Times::median(times.processor), 16);
    client.type("a");
    const int rows = client.model().rowCount();
    EXPECT_LT(rows, 1000);
    QTest::keyClick(&client.part<QAbstractItemView>("fonts"), Qt::Key_End);
    EXPECT_GT(client.model().rowCount(), rows) << "more when scrolled to the last row";
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    if (argc < 2 || std::string_view(argv[1]) != "--measure")
        return RUN_ALL_TESTS();
    measure();
    return 0;
}
