// The mixing window as the program opens it, on a standard chart.
#include "support.h"

namespace moistair::windowtest {
namespace {

class MixingWindowTest : public ::testing::Test {
protected:
  MixingWindowTest() { QApplication::processEvents(); }

  void typeReference() {
    const std::pair<const char*, const char*> inputs[] = {{"Text4", "75"}, {"Text5", "62.5"}, {"Text2", "1000"},
                                                          {"Text6", "95"}, {"Text7", "75"},   {"Text3", "500"}};
    for (const auto& [box, value] : inputs) type(window, box, value);
  }

  bool savable() { return control<QWidget>(window, "Command3").isEnabled(); }

  Program program{Program::onChart};
  const std::size_t chart = program.operations().size();
  QWidget& window = program.open("Command13", "Form5");
};

TEST_F(MixingWindowTest, OpensEmptyAndTabWalksFromTheLastBoxBackwards) {
  for (const char* list : {"Combo1", "Combo3"}) EXPECT_EQ(control<ListBox>(window, list).selected(), 0);
  for (const char* list : {"Combo2", "Combo4"}) EXPECT_EQ(control<ListBox>(window, list).selected(), 1);
  EXPECT_EQ(labels(window, 23, 50), std::string(28, '|'));
  EXPECT_EQ(text(window, "Label20"), "");
  EXPECT_FALSE(savable());
  EXPECT_EQ(window.focusWidget()->objectName().toStdString(), "Text7");

  typeReference();  // "Save data" takes the focus only when it is enabled
  control<QLineEdit>(window, "Text7").setFocus();
  EXPECT_EQ(tabOrder(window),
            "Text6|Text5|Text4|Text3|Text2|Combo4|Combo3|Combo2|Combo1|Command1|Command3|Command4|Text7|");
}

TEST_F(MixingWindowTest, FillsInTheProblemBeforeWhenAskedTo) {
  EXPECT_FALSE(control<QWidget>(window, "lastproblem").isEnabled()) << "there was none";
  select(window, "Combo2", 2);
  typeReference();
  type(window, "Text5", "50");
  const std::string typed = labels(window, 23, 50);
  click(window, "Command4");
  QWidget& untouched = program.open("Command13", "Form5");
  EXPECT_EQ(labels(untouched, 23, 50), std::string(28, '|')) << "it opens empty";
  click(untouched, "Command4");
  QWidget& again = program.open("Command13", "Form5");
  click(again, "lastproblem");
  EXPECT_EQ(labels(again, 23, 50), typed);
}

TEST_F(MixingWindowTest, ReferenceCaseTypedSavedAndDrawn) {
  typeReference();
  EXPECT_EQ(text(window, "Label20"), "Atmos. pr (in Hg)");
  EXPECT_EQ(labels(window, 23, 50),
            "29.92126|75.0000000|62.5000000|50.3032182|28.1695563|13.6751968|.0092932|55.2457239|.4404820|"
            "29.92126|95.0000000|75.0000000|40.3104311|38.5146205|14.2978304|.0142448|67.1005926|.6699259|"
            "29.92126|81.5312397|66.9312397|47.3819943|31.5274150|13.8770324|.0109004|59.5601671|.5145064|1500|");
  QTest::keyClick(&control<QLineEdit>(window, "Text7"), Qt::Key_Return);
  EXPECT_EQ(program.file("temp.txt"), "\r\n") << "Enter in a box presses no button";
  EXPECT_TRUE(program.isOpen("Form5"));

  ASSERT_TRUE(savable());
  click(window, "Command3");
  EXPECT_EQ(text(window, "answer"), "record 1 saved");
  const std::string once = program.file("temp.txt").substr(2);
  click(window, "Command3");
  EXPECT_EQ(program.file("temp.txt"), "\r\n" + once + once);
  EXPECT_NE(once.find("Steram 2"), std::string::npos);

  click(window, "Command1");
  EXPECT_EQ(program.operations().size(), chart + 19 + 39 + 19 + 3 + 2) << "three marks, their names and two lines";
  EXPECT_FALSE(program.isOpen("Form5"));
}

TEST_F(MixingWindowTest, ChangesReachTheirStreamAndTheMixtureOnly) {
  typeReference();
  select(window, "Combo2", 0);
  EXPECT_EQ(text(window, "Label24"), "") << "the same property twice";
  EXPECT_EQ(text(window, "Label42"), "");
  EXPECT_EQ(text(window, "Label33"), "95.0000000");
  EXPECT_FALSE(savable());
  select(window, "Combo2", 1);
  EXPECT_EQ(text(window, "Label42"), "81.5312397");
  type(window, "Text3", "");
  EXPECT_EQ(text(window, "Label50"), "");
  EXPECT_EQ(text(window, "Label33"), "95.0000000");
  EXPECT_FALSE(savable());

  auto& list = *control<ListBox>(window, "Combo1").lineEdit();
  list.setFocus();
  QTest::keyClicks(&list, QStringLiteral("x"));
  EXPECT_EQ(text(window, "Label24"), "75.0000000") << "typing into a list runs nothing";
  type(window, "Text2", "1001");
  EXPECT_EQ(text(window, "Label24"), "") << "no property of that name";
}

TEST_F(MixingWindowTest, OffersTheExactMixtureUntilAnInputChanges) {
  typeReference();
  EXPECT_EQ(text(window, "note3"), "") << "nothing to be seen";
  type(window, "Text4", "94.5");
  type(window, "Text5", "60.1");
  type(window, "Text2", "250");
  type(window, "Text6", "75");
  type(window, "Text7", "60");
  type(window, "Text3", "1000");
  const std::string found = text(window, "Label43");
  EXPECT_TRUE(text(window, "note3").starts_with("the mixed stream has wet bulb ")) << text(window, "note3");
  control<QAbstractButton>(window, "note3").click();
  EXPECT_NE(text(window, "Label43"), found);
  EXPECT_EQ(text(window, "note3"), "the mixed stream has its exact state");
  type(window, "Text3", "1001");
  type(window, "Text3", "1000");
  EXPECT_EQ(text(window, "Label43"), found) << "the search's digits are what they were";
}

TEST_F(MixingWindowTest, NothingIsClippedOnASmallScreen) {
  typeReference();
  QApplication::processEvents();
  EXPECT_LE(window.width(), 1024);
  EXPECT_LE(window.height(), 700);
  for (const QWidget* widget : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
    SCOPED_TRACE(widget->objectName().toStdString());
    EXPECT_EQ(widget->size().expandedTo(widget->minimumSizeHint()), widget->size());
    EXPECT_TRUE(window.rect().contains(widget->geometry()));
  }
  for (const char* hidden : {"Label52", "Label53", "Label54", "Label55", "Label56", "Label63", "Label67"}) {
    EXPECT_TRUE(control<QLabel>(window, hidden).isHidden()) << hidden;
  }
}

}  // namespace
}  // namespace moistair::windowtest
