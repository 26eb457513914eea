// What the window does with an entry; what an entry comes to is recorded in pressures.csv.
#include "windows/pressurewindow.h"

#include "support.h"

using namespace moistair;
using namespace moistair::windowtest;

TEST(PressureWindow, OpensOnTheDefault) {
  PressureWindow window(nullptr);
  EXPECT_EQ(labels(window, 1, 11),
            "Choose unit|Input value|Chart atmoshperic pressure setting|Inches of Hg|Inches of Hg|Pound/sq inch|"
            "Elevation in feet|29.92126|14.695949526166|||");
  EXPECT_EQ(text(window, "Text1"), "29.92126");
  EXPECT_FALSE(control<QWidget>(window, "Text1").isEnabled());
  EXPECT_EQ(control<ListBox>(window, "Combo1").currentText().toStdString(), "Default");
}

TEST(PressureWindow, FollowsTheUnitAndTheTypingAndSetsWhatItAccepts) {
  PressureWindow window(nullptr);
  std::string written;
  std::vector<PressureEntry> set;
  QObject::connect(&window, &PressureWindow::pressureWritten, &window,
                   [&](const std::string& inhg) { written += inhg + "|"; });
  QObject::connect(&window, &PressureWindow::pressureSet, &window,
                   [&](const PressureEntry& entry) { set.push_back(entry); });
  const BoxAnswers boxes(QMessageBox::Yes);
  const struct {
    const char* name;
    int unit;  ///< -1: a text that is none
    const char *typed, *words, *readouts, *written;
    std::size_t boxes, set;
  } steps[] = {
      {"inches", 1, "30abc", "Inches of Hg|(5.906 - 147.65)", "30abc|14.734623||", "30abc|", 1, 1},
      {"refused, but stored", 2, "2.89", "Pounds/sq inch|(2.9 - 72.5)", "5.88410069|2.89||", "5.88410069|", 3, 1},
      {"elevation", 3, "5000", "Elevation in feet|(0 - 38650)", "24.8961078291965|12.227825434352|5000|",
       "24.8961078291965|", 4, 2},
      {"nothing to store", 3, "1e300", "Elevation in feet|(0 - 38650)", "||1e300|", "", 6, 2},
      {"default, the elevation stays", 0, "", "Inches of Hg|", "29.92126|14.695949526166|1e300|", "29.92126|", 7, 3},
      {"typed unit", -1, "", "Inches of Hg|", "29.92126|14.695949526166|1e300|", "", 8, 4},
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(step.name);
    written.clear();
    if (step.unit < 0) control<ListBox>(window, "Combo1").setEditText(QStringLiteral("fathoms"));
    if (step.unit >= 0) select(window, "Combo1", step.unit);
    if (*step.typed != '\0') type(window, "Text1", step.typed);
    EXPECT_EQ(text(window, "Label4") + "|" + text(window, "Label11"), step.words);
    EXPECT_EQ(labels(window, 8, 10), step.readouts);
    click(window, "Command1");
    EXPECT_EQ(written, step.written);
    EXPECT_EQ(boxes.count(), step.boxes) << "the question, and a message for what is refused";
    ASSERT_EQ(set.size(), step.set);
  }
  EXPECT_EQ(set[1], (PressureEntry{PressureUnit::elevation, "5000"}));
  EXPECT_EQ(set[3].unit, std::nullopt);
}

TEST(PressureWindow, AnEndlessEntryDoesNotWidenIt) {
  PressureWindow window(nullptr);
  window.show();
  select(window, "Combo1", 3);
  const QSize before = window.minimumSizeHint();
  control<QLineEdit>(window, "Text1").setText(QString(10'000, u'9'));
  EXPECT_EQ(window.minimumSizeHint(), before);
  EXPECT_EQ(text(window, "Label10").size(), 10'000U);
}
