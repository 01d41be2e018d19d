// Uses the window by keys and clicks, without a display.
#include "TestClient.hpp"

#include <VelmoCloudEntity/version.hpp>

#include <QHeaderView>

using namespace client;

TEST(Client, FiltersWithEachKeyAndMarksWhatItFound) {
    const Client client;
    EXPECT_EQ(client.model().rowCount(), 59);
    QTest::mouseClick(&client.part<QCheckBox>("characters"), Qt::LeftButton, {}, {8, 8});
    client.type("BÖL");
    EXPECT_EQ(client.cell(0, 0), "No name with “BÖL”");
    client.type("ito i");
    EXPECT_EQ(client.text("status"), "1 of 376 fonts, 375 more by single characters");
    EXPECT_EQ(client.cell(0, 0), "Names with “ito i” (1)");
    EXPECT_EQ(client.cell(1, 0), "Carlito Italic");
    EXPECT_EQ(client.cell(2, 0), "Single characters of “ito i” (375)");
    const auto partsOf = [&client](int row) {
        const QModelIndex index = client.model().index(row, 0);
        return index.data(FontModel::foundParts).value<FontModel::Parts>();
    };
    ASSERT_EQ(partsOf(1).size(), 1);
    EXPECT_EQ(partsOf(1)[0], std::pair(4, 9));
    EXPECT_GT(partsOf(3).size(), 1) << "characters";
    client.checkModel();
    client.press(Qt::Key_Escape);
    EXPECT_EQ(client.model().rowCount(), 59);
    client.checkModel();
}

TEST(Client, FiltersByTickedTags) {
    const Client client;
    EXPECT_FALSE(client.part<QWidget>("untick").isEnabled());
    client.tick("serif");
    EXPECT_EQ(client.text("status"), "52 of 376 fonts");
    client.tick("Bold");
    client.type("ptserif");
    EXPECT_EQ(client.text("status"), "2 of 376 fonts");
    client.type("xyzq");
    EXPECT_EQ(client.text("emptyTitle"), "No font found");
    client.clickButton("emptyButton");
    EXPECT_EQ(client.text("status"), "376 fonts");
    EXPECT_FALSE(client.part<QWidget>("untick").isEnabled());
}

TEST(Client, SwitchesMarksThatStay) {
    const Client client;
    client.click(0, FontModel::activated); // a group of two
    client.type("abeezee");
    client.click(2, FontModel::favourite);
    for (const int row : {1, 2})
        EXPECT_TRUE(client.isMarked(row, FontModel::activated)) << row;
    EXPECT_FALSE(client.isMarked(1, FontModel::favourite));
    EXPECT_TRUE(client.isMarked(2, FontModel::favourite));
    client.click(1, FontModel::activated);
    client.type("");
    EXPECT_EQ(client.mark(0, FontModel::activated), Qt::PartiallyChecked);
}

TEST(Client, IsUsedByTheKeyboardAlone) {
    const Client client;
    client.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(client.focused(), "search");
    QTest::keyClicks(client.window->focusWidget(), "carl");
    client.press(Qt::Key_Down);
    EXPECT_EQ(client.focused(), "fonts");
    EXPECT_EQ(client.title(), "Carlito Italic(TTF, 3.00)") << "behind the heading";
    client.press(Qt::Key_Space);
    client.press(Qt::Key_F);
    EXPECT_TRUE(client.isMarked(1, FontModel::activated));
    EXPECT_FALSE(client.isMarked(1, FontModel::favourite)) << "it was one";
    client.press(Qt::Key_Down);
    EXPECT_EQ(client.title(), "Carlito Bold Italic(TTF, 3.00)");
    client.press(Qt::Key_Up);
    client.press(Qt::Key_Up);
    EXPECT_EQ(client.focused(), "search");
    client.press(Qt::Key_Escape);
    EXPECT_EQ(client.text("status"), "376 fonts");
    client.tick("serif");
    client.press(Qt::Key_F, Qt::ControlModifier);
    QStringList order;
    for (int i = 0; i < 9; ++i) {
        order << client.window->focusWidget()->objectName();
        EXPECT_FALSE(client.window->focusWidget()->accessibleName().isEmpty() &&
                     !qobject_cast<QAbstractButton*>(client.window->focusWidget()))
            << client.focused();
        client.press(Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(' ').toStdString(),
              "search characters source open tags untick fonts previewText size");
    client.press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(client.window->isVisible());
}

TEST(Client, DrawsAnInstalledFontInItself) {
    const Client client;
    client.type("DejaVu Sans Mono");
    client.select(1);
    const auto& preview = client.part<QLabel>("preview");
    EXPECT_EQ(preview.font().family(), "DejaVu Sans Mono");
    EXPECT_EQ(preview.text(), "DejaVu Sans Mono");
    expectIn("/DejaVuSansMono.ttf", client.text("file"));
    expectIn("/DejaVuSansMono_S_B_32.png", client.text("previewFile"));
    QTest::keyClicks(&client.part<QLineEdit>("previewText"), "Ab");
    QTest::keyClick(&client.part<QSlider>("size"), Qt::Key_Right);
    EXPECT_EQ(preview.text(), "Ab");
    EXPECT_EQ(preview.font().pointSize(), 33);
    expectIn("_33.png", client.text("previewFile"));
    client.type("abeezee");
    client.select(1);
    expectIn("substitute", client.text("drawnIn"));
}

TEST(Client, KeepsSettings) {
    Client client;
    client.part<QSlider>("size").setValue(48);
    client.part<QTreeView>("fonts").header()->resizeSection(0, 123);
    client.part<QCheckBox>("characters").click();
    client.restart();
    EXPECT_EQ(client.part<QSlider>("size").value(), 48);
    EXPECT_EQ(client.part<QTreeView>("fonts").header()->sectionSize(0), 123);
    EXPECT_TRUE(client.part<QCheckBox>("characters").isChecked());
    expectIn(R"("LastUseVersion":")" VELMO_VERSION R"(","PreviewTag":"S")",
             contentOf(client.file("settings/settings.json")).toStdString());
    write(client.file("settings/settings.json"), "{\n oops");
    client.restart();
    client.open();
    expectIn("settings.json: line 2, column 2: ", client.text("message"));
    EXPECT_EQ(client.part<QSlider>("size").value(), 32);
    write(client.file("settings/settings.json"), R"({"PreviewFontSize":1000000000})");
    client.restart();
    client.open();
    client.select(1);
    EXPECT_EQ(client.part<QLabel>("preview").font().pointSize(), 96);
}
