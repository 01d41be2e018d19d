// Runs the tests of the client. With --measure, prints the times of keystrokes.
#include "TestClient.hpp"

#include <QApplication>

#include <ctime>
#include <iostream>

using namespace client;

namespace {

/// The times of keys pressed in the search box, in milliseconds, ascending.
struct Times {
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
        }
    EXPECT_TRUE(client.part<QLineEdit>("search").text().isEmpty());
    for (auto* const sorted : {&times.keystrokes, &times.processor})
        std::ranges::sort(*sorted);
    return times;
}

void measure() {
    for (const int repeats : {16, 160}) {
        const Client client(repeats);
        client.part<QCheckBox>("characters").click();
        const Times times = timesOf(client);
        std::cout << repeats * 376 << " fonts, " << times.keystrokes.size() << " keystrokes\n";
        times.print("  query and drawing", &Times::keystrokes);
        times.print("  of the processor", &Times::processor);
    }
}

} // namespace

TEST(Client, ShowsAKeystrokeAmongManyFontsWithinAFrame) {
    const Client client(160);
    client.part<QCheckBox>("characters").click(); // the longer way
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
