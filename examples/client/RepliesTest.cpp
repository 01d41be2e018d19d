// Gives the window replies that are wrong, hostile or late.
#include "TestClient.hpp"

#include <PerchAppLibrary/platform/PlatformFont.hpp>

#include <QPlainTextEdit>
#include <QTcpServer>
#include <QTcpSocket>

#include <sys/stat.h>

using namespace client;

TEST(Client, OpensOnlyRegularFilesOfTheCache) {
    const Client client;
    const QByteArray cacheBefore = qgetenv("XDG_CACHE_HOME");
    qputenv("XDG_CACHE_HOME", client.folder.path().toUtf8());
    const QString cache = client.file("VelmoCloud/");
    QDir().mkpath(cache + "folder.ttf");
    write(client.file("outside.ttf"), "x");
    write(cache + "inside.ttf", "x");
    write(cache + "large.ttf", "");
    EXPECT_TRUE(QFile::resize(cache + "large.ttf", 1LL << 33)); // a hole
    ASSERT_EQ(mkfifo(qPrintable(cache + "pipe.ttf"), 0600), 0);
    QFile::link("/dev/zero", cache + "link.ttf");
    for (const char* const file : {"/dev/zero", "/etc/passwd", "", "inside.ttf"})
        EXPECT_EQ(openableFile(file), "") << file;
    for (const char* const file :
         {"../outside.ttf", "folder.ttf", "large.ttf", "pipe.ttf", "link.ttf", "none.ttf"})
        EXPECT_EQ(openableFile((cache + file).toStdString()), "") << file;
    EXPECT_EQ(openableFile((cache + "inside.ttf").toStdString()), cache + "inside.ttf");
    write(client.file("font-list.json"), R"([{"ProductName":"a","ProductFileName":"/dev/zero"},
        {"ProductName":"b","ProductFileName":"inside.ttf","IsOnline":true}])");
    client.open();
    for (const int row : {0, 1}) {
        client.select(row);
        expectIn("substitute", client.text("drawnIn"));
    }
    using PerchAppLibrary::PlatformFont;
    if (const auto mono = PlatformFont::named("DejaVu Sans Mono", 12))
        write(cache + "inside.ttf", contentOf(QString::fromStdString(mono->file())));
    QTest::keyClicks(&client.part<QLineEdit>("previewText"), "Ab");
    QTest::keyClick(&client.part<QSlider>("size"), Qt::Key_Right);
    expectIn("substitute", client.text("drawnIn")); // a file is read once for each selection
    client.select(0);
    client.select(1);
    EXPECT_EQ(client.text("drawnIn"), "DejaVu Sans Mono Book");
    cacheBefore.isNull() ? qunsetenv("XDG_CACHE_HOME") : qputenv("XDG_CACHE_HOME", cacheBefore);
}

TEST(Client, ReportsABadReplyAndKeepsWhatItHad) {
    Client client;
    EXPECT_FALSE(client.isShown("message"));
    const QString folder = client.file("bad");
    QDir().mkpath(folder);
    for (const auto& [text, message] : {
             std::pair{"[1,\n 2", "font-list.json: line 2, column 3: "},
             {"null", "font-list.json: "},
             {R"({"Exception":true,"ExceptionCode":"005001"})",
              "font-list.json: error 005001: 登录过期 / The user login has expired."},
             {R"({"ExceptionCode":"9","ExceptionMessage":"<b>x"})", "error 9: <b>x"},
             {"", "font-list.json: line 1, column 1: "},
         }) {
        write(folder + "/font-list.json", text);
        client.open(folder);
        expectIn(message, client.text("message"));
        expectIn(folder.toStdString(), client.text("message"));
        EXPECT_EQ(client.text("status"), "376 fonts");
        expectIn(client.folder.path().toStdString(), client.text("from"));
    }
    write(folder + "/font-list.json", "[{},7]");
    client.clickButton("retry");
    ASSERT_TRUE(QTest::qWaitFor([&] { return client.isShown("more"); }));
    EXPECT_EQ(client.text("status"), "1 font");
    EXPECT_EQ(client.part<QTreeWidget>("tags").topLevelItem(0)->text(0), "No tags");
    client.clickButton("more");
    expectIn("font-list.json: ",
             client.part<QPlainTextEdit>("details").toPlainText().toStdString());
    client.restart();
    EXPECT_EQ(client.text("emptyTitle"), "No fonts yet");
    client.open("/none");
    EXPECT_EQ(client.text("emptyText"),
              "/none cannot be shown.\nfont-list.json: No such file or directory");
}

TEST(Client, CutsWhatItDraws) {
    const Client client;
    const QByteArray marks = QString(200'000, QChar(0x301)).toUtf8();
    write(client.file("font-list.json"), R"([{"ProductName":"a)" + marks + R"(","PreviewText":")" +
                                             QByteArray(3'000'000, 'x') +
                                             R"(","ProductFileName":"a\nb"}])");
    client.open();
    client.type("a");
    client.select(1);
    for (const char* const label : {"preview", "title", "file"})
        EXPECT_LE(client.part<QLabel>(label).text().size(), 400) << label;
    EXPECT_LE(client.model().index(1, 0).data().toString().size(), 203);
    client.window->grab();
    write(client.file("font-list.json"), R"({"ExceptionCode":"1","ExceptionMessage":")" +
                                             QByteArray("\\n").repeated(3000) + "\"}");
    client.open();
    EXPECT_LT(client.window->grab().height(), 900);
    write(client.file("font-list.json"), "[" + QByteArray("{},").repeated(4'000'000) + "{}]");
    client.open();
    expectIn("elements", client.text("message"));
}

namespace {

/// A service whose answer to each request is the function's.
class Service : public QTcpServer {
public:
    explicit Service(std::function<void(QTcpSocket&, const QString& name)> answer) {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
        connect(this, &QTcpServer::newConnection, this, [this, answer] {
            QTcpSocket* const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [answer, socket] {
                answer(*socket, QString(socket->readAll().split(' ').value(1).mid(1)));
            });
        });
    }
    QString address() const { return QString("http://127.0.0.1:%1").arg(serverPort()); }
};

} // namespace

TEST(Client, ReadsAServiceOverHTTP) {
    const Client client;
    QByteArray status = "200 OK";
    Service service([&](QTcpSocket& socket, const QString& name) {
        const QByteArray content = contentOf(client.file(name));
        const bool isThere = !content.isEmpty();
        socket.write("HTTP/1.1 " + (isThere ? status : "404 Not Found") +
                     "\r\nContent-Type: application/json\r\nConnection: close\r\n\r\n" +
                     (isThere ? content : R"({"detail":"none"})"));
        socket.disconnectFromHost();
    });
    client.click(0, FontModel::activated);
    client.open(service.address());
    EXPECT_FALSE(client.isShown("message"));
    EXPECT_FALSE(client.isMarked(0, FontModel::activated)) << "as the service has it";
    client.type("anuphan l");
    EXPECT_TRUE(client.isMarked(1, FontModel::activated));
    client.type("");
    QFile::remove(client.file("font-tags.json"));
    client.open(service.address() + "/");
    EXPECT_FALSE(client.isShown("message")) << client.text("message");
    for (const auto& [line, content, message] :
         {std::tuple("401 Unauthorized", R"({"Exception":true,"ExceptionCode":"002001"})",
                     "error 002001: 手机号无效 / Phone number is invalid."),
          {"500 Internal Server Error", "[]", "Internal Server Error"},
          {"500 Internal Server Error", "{}", "Internal Server Error"},
          {"200 OK\r\nContent-Length: 99", "[]", "closed"},
          {"200 OK\r\nContent-Encoding: gzip", "[]", "font-list.json: "}}) {
        status = line;
        write(client.file("font-list.json"), content);
        client.open(service.address());
        expectIn(message, client.text("message"));
        EXPECT_EQ(client.text("status"), "376 fonts") << line;
    }
    service.close();
    client.open(service.address());
    expectIn("cannot be shown", client.text("message"));
    client.window->open(service.address()); // the window closes while it reads
    EXPECT_TRUE(client.window->isReading());
}

TEST(Client, CancelsAReplyThatTrickles) {
    const Client client;
    Service service(
        [](QTcpSocket& socket, const QString&) { socket.write("HTTP/1.1 200 OK\r\n\r\n["); });
    const auto startReading = [&] {
        client.window->open(service.address());
        QTest::qWait(50);
        EXPECT_TRUE(client.isShown("cancel"));
    };
    startReading();
    client.clickButton("cancel");
    EXPECT_FALSE(client.window->isReading() || client.isShown("cancel"));
    startReading();
    client.press(Qt::Key_Escape);
    EXPECT_FALSE(client.window->isReading());
    startReading();
    client.open();
    EXPECT_EQ(client.text("status"), "376 fonts");
    expectIn(client.folder.path().toStdString(), client.text("from"));

    // The messages are about the fonts that are shown, and about the last reading that ended.
    write(client.file("font-list.json"), R"([{"Colour":1}])");
    client.open();
    client.open("/none");
    const auto expectMessages = [&client] {
        expectIn("/none cannot be shown", client.text("message"));
        EXPECT_TRUE(client.isShown("message") && client.isShown("more"));
    };
    expectMessages();
    startReading();
    EXPECT_FALSE(client.isShown("message"));
    client.clickButton("cancel");
    expectMessages();
    client.clickButton("more");
    expectIn("Colour", client.part<QPlainTextEdit>("details").toPlainText().toStdString());
    client.clickButton("retry");
    EXPECT_EQ(client.part<QLineEdit>("source").text().toStdString(), "/none");
}
