#include "mixing/mixingwindow.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "chart/drawing.h"
#include "support.h"

namespace moistair::windowtest {
namespace {

SessionValues sessionat(const char* pressure) {
  SessionValues session;
  session.pressure.settext(pressure);
  session.pressuremode = "0";
  session.pressureentered = pressure;
  return session;
}

class MixingWindowTest : public ::testing::Test {
protected:
  MixingWindowTest() {
    QObject::connect(&window, &MixingWindow::savechosen, &window,
                     [this](const std::vector<std::string>& block) { blocks.push_back(block); });
    QObject::connect(&window, &MixingWindow::drawn, &window, [this] { ++drawn; });
    QObject::connect(&window, &MixingWindow::left, &window, [this] { ++left; });
    window.show();
    QApplication::processEvents();
  }

  void typereference() {
    type(window, "Text4", "75");
    type(window, "Text5", "62.5");
    type(window, "Text2", "1000");
    type(window, "Text6", "95");
    type(window, "Text7", "75");
    type(window, "Text3", "500");
  }

  bool savable() { return control<QPushButton>(window, "Command3").isEnabled(); }

  std::size_t drawncircles() const {
    std::size_t circles = 0;
    for (const Operation& operation : canvas.drawing().operations) {
      if (std::holds_alternative<CircleOperation>(operation)) ++circles;
    }
    return circles;
  }

  RecordingCanvas canvas;
  LimitTexts limits{"0", "120", "0", "0.030"};
  MixingWindow window{sessionat("29.92126"),
                      {canvas, [this] { return limits; },
                       [] {
                         return WindowSize{12000, 6000};
                       }},
                      nullptr};
  std::vector<std::vector<std::string>> blocks;
  int drawn = 0;
  int left = 0;
};

TEST_F(MixingWindowTest, OpensWithNothingInItsColumns) {
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Mixing problem"));
  for (const char* list : {"Combo1", "Combo3"}) EXPECT_EQ(control<ListBox>(window, list).selected(), 0);
  for (const char* list : {"Combo2", "Combo4"}) EXPECT_EQ(control<ListBox>(window, list).selected(), 1);
  for (int number = 23; number <= 50; ++number) {
    const std::string name = "Label" + std::to_string(number);
    EXPECT_EQ(text(window, name.c_str()), "") << name;
  }
  EXPECT_EQ(text(window, "Label20"), "");
  EXPECT_FALSE(savable());
}

TEST_F(MixingWindowTest, TabWalksFromTheLastBoxBackwardsAndThenTheButtons) {
  std::vector<std::string> walk{window.focusWidget()->objectName().toStdString()};
  typereference();  // "Save data" takes the focus only when it is enabled
  control<QLineEdit>(window, "Text7").setFocus();
  for (int step = 1; step < 13; ++step) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    walk.push_back(window.focusWidget()->objectName().toStdString());
  }
  EXPECT_EQ(walk, (std::vector<std::string>{"Text7", "Text6", "Text5", "Text4", "Text3", "Text2", "Combo4", "Combo3",
                                            "Combo2", "Combo1", "Command1", "Command3", "Command4"}));
}

TEST_F(MixingWindowTest, ReferenceCaseTypedSavedAndDrawn) {
  typereference();
  struct Row {
    const char* label;
    const char* text;
  };
  for (const Row& row :
       std::vector<Row>{{"Label20", "Atmos. pr (in Hg)"}, {"Label23", "29.92126"},    {"Label24", "75.0000000"},
                        {"Label25", "62.5000000"},        {"Label26", "50.3032182"},  {"Label27", "28.1695563"},
                        {"Label28", "13.6751968"},        {"Label29", ".0092932"},    {"Label30", "55.2457239"},
                        {"Label31", ".4404820"},          {"Label32", "29.92126"},    {"Label33", "95.0000000"},
                        {"Label34", "75.0000000"},        {"Label35", "40.3104311"},  {"Label36", "38.5146205"},
                        {"Label37", "14.2978304"},        {"Label38", ".0142448"},    {"Label39", "67.1005926"},
                        {"Label40", ".6699259"},          {"Label41", "29.92126"},    {"Label42", "81.5312397"},
                        {"Label43", "66.9312397"},        {"Label44", "47.3819943"},  {"Label45", "31.5274150"},
                        {"Label46", "13.8770324"},        {"Label47", ".0109004"},    {"Label48", "59.5601671"},
                        {"Label49", ".5145064"},          {"Label50", "1500"},        {"Label56", ".8756536"},
                        {"Label60", "1.6619170"},         {"Label64", "1.0858689"},   {"Label57", "73.1250902"},
                        {"Label61", "34.9703408"},        {"Label65", "108.0954310"}, {"Label58", ".6795666"},
                        {"Label62", ".4981468"},          {"Label66", "1.1777134"},   {"Label59", "73.8046568"},
                        {"Label63", "35.4684876"},        {"Label67", "109.2731444"}}) {
    EXPECT_EQ(text(window, row.label), row.text) << row.label;
  }
  ASSERT_TRUE(savable());

  click(window, "Command3");
  click(window, "Command3");
  ASSERT_EQ(blocks.size(), 2U);
  EXPECT_EQ(blocks[0], blocks[1]);
  ASSERT_EQ(blocks[0].size(), 37U);
  EXPECT_EQ(blocks[0][27], "Atmos. pr (in Hg)" + std::string(39, ' ') + "29.92126");
  EXPECT_EQ(blocks[0][35], "Vapor pressure (In Hg)" + std::string(34, ' ') + ".5145064");

  click(window, "Command1");
  EXPECT_EQ(drawn, 1);
  EXPECT_EQ(drawncircles(), 19 + 39 + 19U);
  EXPECT_EQ(canvas.drawing().operations.size(), 77 + 3 + 2U);
  EXPECT_EQ(left, 0);
}

TEST_F(MixingWindowTest, RejectedPointIsNamedAndCanBeMended) {
  typereference();
  limits.highdb = "90";
  BoxAnswers answers;
  click(window, "Command1");
  EXPECT_EQ(answers.lasttext(), "The stream2 point as per input parameters is out of chart limits");
  limits.highdb = "no number";  // the limit stays at 90
  click(window, "Command1");
  EXPECT_EQ(answers.boxes().size(), 2U);
  EXPECT_EQ(drawn, 0);
  EXPECT_TRUE(canvas.drawing().operations.empty());
  type(window, "Text6", "85");
  click(window, "Command1");
  EXPECT_EQ(answers.boxes().size(), 2U);
  EXPECT_EQ(drawn, 1);
  EXPECT_EQ(drawncircles(), 77U);
}

TEST_F(MixingWindowTest, ChangesReachTheirStreamAndTheMixtureOnly) {
  typereference();
  auto& list = control<ListBox>(window, "Combo2");
  list.select(0);
  EXPECT_EQ(text(window, "Label24"), "") << "the same property twice";
  EXPECT_EQ(text(window, "Label42"), "");
  EXPECT_EQ(text(window, "Label33"), "95.0000000");
  EXPECT_EQ(text(window, "Label20"), "Atmos. pr (in Hg)");
  EXPECT_FALSE(savable());
  list.select(1);
  EXPECT_EQ(text(window, "Label42"), "81.5312397");
  EXPECT_TRUE(savable());
  type(window, "Text3", "");
  EXPECT_EQ(text(window, "Label50"), "");
  EXPECT_EQ(text(window, "Label33"), "95.0000000");
  EXPECT_FALSE(savable());
  type(window, "Text3", "500");
  EXPECT_EQ(text(window, "Label50"), "1500");
}

TEST_F(MixingWindowTest, TypingIntoAListRunsNothingUntilTheNextChange) {
  typereference();
  control<ListBox>(window, "Combo1").lineEdit()->setFocus();
  QTest::keyClicks(control<ListBox>(window, "Combo1").lineEdit(), QStringLiteral("x"));
  EXPECT_EQ(text(window, "Label24"), "75.0000000");
  type(window, "Text2", "1001");
  EXPECT_EQ(text(window, "Label24"), "") << "no property of that name";
}

TEST_F(MixingWindowTest, EveryWayOutAsksToBeLeft) {
  typereference();
  click(window, "Command4");
  EXPECT_EQ(left, 1);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_EQ(left, 2);
  window.close();
  EXPECT_EQ(left, 3);
  QTest::keyClick(&control<QLineEdit>(window, "Text7"), Qt::Key_Return);
  EXPECT_EQ(left + drawn, 3) << "Enter in a box presses no button";
  EXPECT_TRUE(blocks.empty());
}

TEST_F(MixingWindowTest, NothingIsClippedOnASmallScreen) {
  typereference();
  QApplication::processEvents();
  EXPECT_LE(window.width(), 1024);
  EXPECT_LE(window.height(), 700);
  for (const QWidget* widget : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
    EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
    EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << widget->objectName().toStdString();
    EXPECT_TRUE(window.rect().contains(widget->geometry())) << widget->objectName().toStdString();
  }
  for (const char* hidden : {"Label52", "Label53", "Label54", "Label55", "Label56", "Label63", "Label67"}) {
    EXPECT_TRUE(control<QLabel>(window, hidden).isHidden()) << hidden;
  }
}

}  // namespace
}  // namespace moistair::windowtest
